#include "RaceCommand.h"

#include "CharacterSkills.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "Connection.h"
#include "DAttackInfo.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DDatabase.h"
#include "DFamiliarBonus.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOffenseGroup.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSpecialAttack.h"
#include "DTargetData.h"
#include "ResultSet.h"
#include "Statement.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

const char* const kAbilityNames[] = {"Str", "Dex", "Con", "Int", "Wis", "Cha"};
const char* const kSaveNames[] = {"fort", "ref", "will"};
const char* const kAgeNames[] = {"adult", "middle", "old", "venerable"};
const char* const kGenderNames[] = {"male", "female"};
const char* const kTreasureSlots[] = {"coins", "goods", "items"};
const struct {
    unsigned flag;
    const char* name;
} kFlagNames[] = {
    {DRace::kFlagFamiliar, "familiar"},
    {DRace::kFlagMount, "mount"},
    {DRace::kFlagFiendishServant, "fiendish servant"},
    {DRace::kFlagAnimalCompanion, "animal companion"},
    {DRace::kFlagUndeadCompanion, "undead companion"},
    {DRace::kFlagShadowCompanion, "shadow companion"},
    {DRace::kFlagLightArmorProf, "light armor"},
    {DRace::kFlagMediumArmorProf, "medium armor"},
    {DRace::kFlagHeavyArmorProf, "heavy armor"},
    {DRace::kFlagShieldProf, "shields"},
};

// Names of rule rows, read once per table: a race file holds only keys.
class RowNames {
public:
    QString ById(const QString& table, int id) {
        const Table& t = Load(table);
        return t.byId.value(id, QStringLiteral("#%1").arg(id));
    }
    QString ByGuid(const QString& table, const QUuid& guid) {
        const Table& t = Load(table);
        return t.byGuid.value(guid, guid.toString(QUuid::WithBraces).toUpper());
    }

private:
    struct Table {
        QHash<int, QString> byId;
        QHash<QUuid, QString> byGuid;
    };
    const Table& Load(const QString& table) {
        auto it = mTables.find(table);
        if (it != mTables.end())
            return *it;
        Table t;
        odbc::Connection* connection = DDatabase::GetConnection();
        try {
            if (connection) {
                std::unique_ptr<odbc::Statement> statement(connection->createStatement());
                odbc::ResultSet* rows =
                    statement->executeQuery(QStringLiteral("SELECT * FROM %1").arg(table));
                bool byGuid = false;
                for (int column = 1; rows && column <= rows->getColumnCount(); ++column)
                    byGuid = byGuid || rows->getColumnName(column).compare(
                                           QStringLiteral("Guid"), Qt::CaseInsensitive) == 0;
                while (rows && rows->next()) {
                    const QString name = rows->getString(QStringLiteral("Name"));
                    if (byGuid)
                        t.byGuid.insert(rows->getGUID(QStringLiteral("Guid")), name);
                    else
                        t.byId.insert(rows->getInt(QStringLiteral("Id")), name);
                }
            }
        } catch (const std::exception&) {
            // Unnamed rows show their keys instead.
        }
        return *mTables.insert(table, t);
    }
    QHash<QString, Table> mTables;
};

QString treeName(const DFileObject& entry) {
    return entry.GetFileObjectType() == kFileUser ? QStringLiteral("user") : QStringLiteral("core");
}

QString number(float value) {
    return QString::number(double(value), 'g', 6);
}

QString signedNumber(int value) {
    return value >= 0 ? QStringLiteral("+%1").arg(value) : QString::number(value);
}

// The race's own type name matches, and so does the word before a qualifier in brackets,
// so "humanoid" finds the player races too.
bool typeMatches(const QString& typeName, const QString& wanted) {
    if (typeName.compare(wanted, Qt::CaseInsensitive) == 0)
        return true;
    const qsizetype bracket = typeName.indexOf(QStringLiteral(" ("));
    return bracket > 0 && typeName.left(bracket).compare(wanted, Qt::CaseInsensitive) == 0;
}

QJsonObject raceJson(const DRace& race, const DFileObject& entry, RowNames& names) {
    QJsonObject out;
    out["name"] = race.GetRaceName();
    out["tree"] = treeName(entry);
    out["file"] = entry.GetAccessFilePath();
    out["size"] = names.ById("[info Size]", race.GetSizeId());
    out["type"] = names.ByGuid("[info Class]", race.GetClassGuid());
    QJsonArray subtypes;
    for (int id : race.GetSubTypeArray())
        subtypes.append(names.ById("[info Race Subtypes]", id));
    out["subtypes"] = subtypes;
    out["category"] = names.ById("[types Race Category]", race.GetRaceCategoryId());
    out["family"] = names.ById("[types Race Family]", race.GetRaceFamilyId());
    out["size_direction"] = names.ById("[info Size Direction]", race.GetSizeDirectionId());
    QJsonArray roles;
    for (int id : race.GetRoleArray())
        roles.append(names.ById("[types Race Role]", id));
    out["roles"] = roles;
    QJsonArray climates;
    for (int id : race.GetClimateArray())
        climates.append(names.ById("[types Climate]", id));
    out["climates"] = climates;
    out["hit_dice"] = double(race.GetHitDieCount());
    out["max_hit_dice"] = double(race.GetMaxHitDieCount());
    QJsonArray advancement;
    for (const DRaceAdvance* row : race.GetAdvanceArray())
        advancement.append(QJsonObject{{"min_hit_dice", row->GetMinHitDie()},
                                       {"max_hit_dice", row->GetMaxHitDie()},
                                       {"size", names.ById("[info Size]", row->GetSizeId())}});
    out["advancement"] = advancement;
    QJsonArray adjustments, abilities, nonabilities;
    for (int i = 0; i < DRace::kAbilityCount; ++i) {
        const bool none = race.GetNoAbility(i);
        adjustments.append(none ? 0 : race.GetAbilityMod(i));
        abilities.append(none ? QJsonValue() : QJsonValue(race.GetAbility(i)));
        if (none)
            nonabilities.append(QString::fromLatin1(kAbilityNames[i]));
    }
    out["ability_adjustments"] = adjustments;
    out["abilities"] = abilities;
    out["nonabilities"] = nonabilities;
    out["natural_armor"] = race.GetNaturalAC();
    QJsonObject saves, goodSaves;
    for (int i = 0; i < DRace::kSaveCount; ++i) {
        saves[kSaveNames[i]] = race.GetSaveBonus(i);
        goodSaves[kSaveNames[i]] = race.GetHasGoodSaves(i);
    }
    out["save_bonus"] = saves;
    out["good_saves"] = goodSaves;
    out["skill_points"] = race.GetBaseSkillPoints();
    out["extra_skill_points_first_level"] = race.GetExtraSkillPointsFirstLevel();
    out["extra_skill_points_per_level"] = race.GetExtraSkillPointsPerLevel();
    out["extra_feats_first_level"] = race.GetExtraFeatPointsFirstLevel();
    out["extra_feats_per_level"] = race.GetExtraFeatPointsPerLevel();
    QJsonArray languages, bonusLanguages;
    for (const auto& [guid, language] : race.GetLanguageMap())
        languages.append(names.ByGuid("[info Language]", guid));
    for (const QUuid& guid : race.GetAvailableLanguageArray())
        bonusLanguages.append(names.ByGuid("[info Language]", guid));
    out["languages"] = languages;
    out["bonus_languages"] = bonusLanguages;
    QJsonArray speeds;
    for (const DChosenSpeed* speed : race.GetSpeedArray()) {
        QJsonObject s{{"type", names.ById("[info Speed]", speed->GetSpeedId())},
                      {"feet", speed->GetSpeedValue()}};
        if (speed->GetSpeedModId() > 0)
            s["maneuverability"] = names.ById("[types Speed]", speed->GetSpeedModId());
        speeds.append(s);
    }
    out["speeds"] = speeds;
    QJsonArray attacks, qualities, features;
    for (const DSpecialAttack* attack : race.GetSpecialAttackArray())
        attacks.append(names.ById("[types Race Special Attacks]", attack->GetAttackId()));
    for (int id : race.GetSpecialQualityArray())
        qualities.append(names.ById("[types Race Special Quality]", id));
    for (const FCString& feature : race.GetRaceFeatureArray())
        features.append(feature);
    out["special_attacks"] = attacks;
    out["special_qualities"] = qualities;
    out["features"] = features;
    out["challenge_rating"] = double(race.GetChallengeRating());
    out["alignment"] = names.ById("[info Alignment]", race.GetAlignmentId());
    out["alignment_mod"] = names.ById("[types Alignment Modifiers]", race.GetAlignmentModId());
    out["space"] = double(race.GetRaceSizeStat(0));
    out["reach"] = double(race.GetRaceSizeStat(2));
    QJsonObject treasure;
    for (int i = 0; i < DRace::kTreasureSlotCount; ++i)
        treasure[kTreasureSlots[i]] =
            names.ById("[types Creature Treasure]", race.GetTreasureType(i));
    out["treasure"] = treasure;
    QJsonObject ages;
    for (int i = 0; i < DRace::kAgeCount; ++i)
        ages[kAgeNames[i]] = race.GetStartAge(i);
    out["start_ages"] = ages;
    QJsonObject height, weight;
    for (int g = 0; g < 2; ++g) {
        const DDieData h = race.GetHeightMod(g);
        const DDieData w = race.GetWeightMod(g);
        height[kGenderNames[g]] = QJsonObject{{"base_inches", race.GetStartHeight(g)},
                                              {"dice_count", h.GetDieCount()},
                                              {"die", h.GetDieType()}};
        weight[kGenderNames[g]] = QJsonObject{{"base_pounds", race.GetStartWeight(g)},
                                              {"dice_count", w.GetDieCount()},
                                              {"die", w.GetDieType()}};
    }
    out["height"] = height;
    out["weight"] = weight;
    QJsonArray weapons, gods, flags;
    for (const QUuid& guid : race.GetWeaponProfArray())
        weapons.append(names.ByGuid("[info Weapons]", guid));
    for (const QUuid& guid : race.GetAvailableGodArray())
        gods.append(names.ByGuid("[info God]", guid));
    for (const auto& f : kFlagNames) {
        if (race.HasRaceFlag(f.flag))
            flags.append(QString::fromLatin1(f.name));
    }
    out["weapon_proficiencies"] = weapons;
    out["gods"] = gods;
    out["flags"] = flags;
    // What it gives a master as a familiar: a skill by its name, else the bonus type's row.
    constexpr int kSkillBonus = 10;
    QJsonArray familiarBonuses;
    for (const DFamiliarBonus* bonus : race.GetFamiliarBonusArray()) {
        const auto* target = FCDynamicCast<DTargetData>(bonus->GetTargetData());
        const QString what = bonus->GetBonusType() == kSkillBonus && target
                                 ? names.ByGuid("[info Skill]", target->GetTargetGuid())
                                 : names.ById("[types Familiar Bonus]", bonus->GetBonusType());
        familiarBonuses.append(QStringLiteral("%1 %2").arg(what).arg(
            bonus->GetBonus() < 0 ? QString::number(bonus->GetBonus())
                                  : QStringLiteral("+%1").arg(bonus->GetBonus())));
    }
    out["familiar_bonus"] = familiarBonuses;
    // Skills with the ranks the racial hit dice buy and the racial bonus, feats by name, and
    // the natural attack routines: "2 Claw 1d6, Bite 1d8".
    QJsonArray skills, feats, routines;
    for (const auto& skill : race.GetSkillSet()) {
        QStringList parts;
        const float ranks = skill->GetRanks(race.GetClassGuid());
        if (ranks > 0.0f)
            parts << QStringLiteral("%1 ranks").arg(double(ranks));
        if (skill->GetRaceMod() != 0)
            parts << QStringLiteral("racial %1").arg(QString::asprintf("%+d", skill->GetRaceMod()));
        skills.append(
            CharacterSkills::SkillText(skill->GetSkillId(), skill->GetSubSkillId()) +
            (parts.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(parts.join(", "))));
    }
    for (const auto& feat : race.GetFeatSet())
        feats.append(CharacterSkills::FeatText(feat->GetFeatGuid(), feat->GetTargetGuid(),
                                               feat->GetTargetSubGuid(), feat->GetCount()));
    for (const DOffenseGroup* group : race.GetOffenseGroupArray()) {
        QStringList routine;
        for (const DOffenseItem& offense : group->GetOffenseItemArray()) {
            if (offense.HasOffenseFlag(DOffenseItem::kOffenseBesideWeapon) && routine.isEmpty())
                routine << QStringLiteral("its weapon");
            const DAttackInfo* attack = race.GetAttack(offense.GetOffenseId());
            if (!attack)
                continue;
            QString text = attack->GetAttackDescription();
            if (attack->GetDamageDieCount() > 0)
                text += QLatin1Char(' ') +
                        QString(DHandBook::BuildDieString(float(attack->GetDamageDieCount()),
                                                          attack->GetDamageDieId()));
            if (attack->GetAttackRangeIsTouch())
                text += QStringLiteral(" (touch)");
            routine << text;
        }
        routines.append(routine.join(QStringLiteral(", ")));
    }
    out["skills"] = skills;
    out["feats"] = feats;
    out["natural_attacks"] = routines;
    return out;
}

QString listText(const QJsonArray& values) {
    QStringList parts;
    for (const QJsonValue& value : values)
        parts << value.toString();
    return parts.isEmpty() ? QStringLiteral("none") : parts.join(", ");
}

void printRace(const QJsonObject& r) {
    const auto line = [](const QString& label, const QString& value) {
        CliContext::PrintLine(QStringLiteral("%1 %2").arg(label + ':', -26).arg(value));
    };
    line("Race", r["name"].toString());
    line("File", QStringLiteral("%1 (%2)").arg(r["file"].toString(), r["tree"].toString()));
    line("Size", r["size"].toString());
    line("Type", r["type"].toString());
    line("Subtypes", listText(r["subtypes"].toArray()));
    line("Category", r["category"].toString());
    line("Family", r["family"].toString());
    line("Roles", listText(r["roles"].toArray()));
    line("Climates", listText(r["climates"].toArray()));
    line("Size direction", r["size_direction"].toString());
    line("Space / reach",
         QStringLiteral("%1 ft. / %2 ft.")
             .arg(number(float(r["space"].toDouble())), number(float(r["reach"].toDouble()))));
    line("Hit dice", number(float(r["hit_dice"].toDouble())));
    line("Maximum hit dice", number(float(r["max_hit_dice"].toDouble())));
    QStringList advancement;
    for (const QJsonValue& v : r["advancement"].toArray()) {
        const QJsonObject a = v.toObject();
        advancement << QStringLiteral("%1-%2 HD %3")
                           .arg(a["min_hit_dice"].toInt())
                           .arg(a["max_hit_dice"].toInt())
                           .arg(a["size"].toString());
    }
    line("Advancement", advancement.isEmpty() ? QStringLiteral("none") : advancement.join("; "));
    QStringList abilities, adjustments;
    const QJsonArray values = r["abilities"].toArray();
    const QJsonArray mods = r["ability_adjustments"].toArray();
    for (int i = 0; i < DRace::kAbilityCount; ++i) {
        const QString name = QString::fromLatin1(kAbilityNames[i]);
        abilities << QStringLiteral("%1 %2").arg(
            name, values[i].isNull() ? QStringLiteral("-") : QString::number(values[i].toInt()));
        adjustments << QStringLiteral("%1 %2").arg(name, signedNumber(mods[i].toInt()));
    }
    line("Abilities", abilities.join(", "));
    line("Ability adjustments", adjustments.join(", "));
    line("Natural armor", signedNumber(r["natural_armor"].toInt()));
    const QJsonObject saves = r["save_bonus"].toObject();
    const QJsonObject good = r["good_saves"].toObject();
    QStringList saveText, goodText;
    for (const char* save : kSaveNames) {
        saveText << QStringLiteral("%1 %2").arg(save, signedNumber(saves[save].toInt()));
        if (good[save].toBool())
            goodText << QString::fromLatin1(save);
    }
    line("Save adjustments", saveText.join(", "));
    line("Good saves", goodText.isEmpty() ? QStringLiteral("none") : goodText.join(", "));
    line("Skill points", QStringLiteral("base %1, +%2 at 1st level, +%3 per level")
                             .arg(r["skill_points"].toInt())
                             .arg(r["extra_skill_points_first_level"].toInt())
                             .arg(r["extra_skill_points_per_level"].toInt()));
    line("Extra feats", QStringLiteral("+%1 at 1st level, +%2 per level")
                            .arg(r["extra_feats_first_level"].toInt())
                            .arg(r["extra_feats_per_level"].toInt()));
    line("Languages", listText(r["languages"].toArray()));
    line("Bonus languages", listText(r["bonus_languages"].toArray()));
    QStringList speeds;
    for (const QJsonValue& v : r["speeds"].toArray()) {
        const QJsonObject s = v.toObject();
        QString text = QStringLiteral("%1 %2 ft.").arg(s["type"].toString()).arg(s["feet"].toInt());
        if (s.contains("maneuverability"))
            text += QStringLiteral(" (%1)").arg(s["maneuverability"].toString());
        speeds << text;
    }
    line("Speed", speeds.isEmpty() ? QStringLiteral("none") : speeds.join(", "));
    line("Special attacks", listText(r["special_attacks"].toArray()));
    line("Special qualities", listText(r["special_qualities"].toArray()));
    line("Challenge rating", number(float(r["challenge_rating"].toDouble())));
    line("Alignment",
         QStringLiteral("%1 %2").arg(r["alignment_mod"].toString(), r["alignment"].toString()));
    const QJsonObject treasure = r["treasure"].toObject();
    line("Treasure", QStringLiteral("coins %1, goods %2, items %3")
                         .arg(treasure["coins"].toString(), treasure["goods"].toString(),
                              treasure["items"].toString()));
    const QJsonObject ages = r["start_ages"].toObject();
    line("Start ages", QStringLiteral("adult %1, middle %2, old %3, venerable %4")
                           .arg(ages["adult"].toInt())
                           .arg(ages["middle"].toInt())
                           .arg(ages["old"].toInt())
                           .arg(ages["venerable"].toInt()));
    for (const char* gender : kGenderNames) {
        const QJsonObject h = r["height"].toObject()[gender].toObject();
        const QJsonObject w = r["weight"].toObject()[gender].toObject();
        line(QStringLiteral("Height, %1").arg(gender), QStringLiteral("%1 in. + %2d%3")
                                                           .arg(h["base_inches"].toInt())
                                                           .arg(h["dice_count"].toInt())
                                                           .arg(h["die"].toInt()));
        line(QStringLiteral("Weight, %1").arg(gender),
             QStringLiteral("%1 lb. + height roll x %2d%3")
                 .arg(w["base_pounds"].toInt())
                 .arg(w["dice_count"].toInt())
                 .arg(w["die"].toInt()));
    }
    line("Weapon proficiencies", listText(r["weapon_proficiencies"].toArray()));
    line("Gods", listText(r["gods"].toArray()));
    line("Flags", listText(r["flags"].toArray()));
    if (!r["familiar_bonus"].toArray().isEmpty())
        line("Familiar bonus", listText(r["familiar_bonus"].toArray()));
    line("Skills", listText(r["skills"].toArray()));
    line("Feats", listText(r["feats"].toArray()));
    QStringList routines;
    for (const QJsonValue& routine : r["natural_attacks"].toArray())
        routines << routine.toString();
    line("Natural attacks",
         routines.isEmpty() ? QStringLiteral("none") : routines.join(QStringLiteral("; or ")));
    const QJsonArray features = r["features"].toArray();
    line("Features", features.isEmpty() ? QStringLiteral("none") : QString());
    for (const QJsonValue& feature : features)
        CliContext::PrintLine(QStringLiteral("  - %1").arg(feature.toString()));
}

} // namespace

QString RaceCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard race list [--core|--user] [--type TYPE] [--json]\n"
        "  hoard race show NAME [--json]\n\n"
        "list   every race file of the core and user trees with its size, type and hit dice;\n"
        "       --type keeps one creature type (e.g. giant, humanoid); --core or --user\n"
        "       keeps one tree (--tree core|user says the same).\n"
        "show   every field of one race; NAME is the file's name without .rac, a user file\n"
        "       before a core one.\n");
}

int RaceCommand::Run(CliContext& context, QStringList args) {
    QString sub;
    int status = 0;
    if (!TakeSubcommand(args, sub, status))
        return status;
    if (sub == "list")
        return RunList(context, args);
    if (sub == "show")
        return RunShow(context, args);
    return CliContext::Fail(QStringLiteral("unknown race command '%1' (try: list, show)").arg(sub));
}

int RaceCommand::RunList(CliContext& context, QStringList args) {
    // "--tree core|user" says the same as "--core" and "--user", for scripts.
    bool coreOnly = args.removeAll("--core") > 0;
    bool userOnly = args.removeAll("--user") > 0;
    QString type, tree;
    if (!TakeOption(args, "--type", type) || !TakeOption(args, "--tree", tree))
        return CliContext::Fail(QStringLiteral("an option is missing its value (see --help)"));
    if (!tree.isEmpty() && tree != "core" && tree != "user")
        return CliContext::Fail(QStringLiteral("--tree takes core or user, not '%1'").arg(tree));
    coreOnly = coreOnly || tree == "core";
    userOnly = userOnly || tree == "user";
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    if (coreOnly && userOnly)
        return CliContext::Fail(QStringLiteral("--core and --user exclude each other"));
    if (!context.StartLibrary())
        return 1;
    RowNames names;
    QJsonArray list;
    QStringList lines;
    for (const auto& entry : DObjectManager::GetRaceFileSet()) {
        if ((coreOnly && entry->GetFileObjectType() != kFileCore) ||
            (userOnly && entry->GetFileObjectType() != kFileUser))
            continue;
        // Only the header is needed: name, size, type and hit dice all come before the cut.
        DRace* race = DRace::CreateFromFile(entry->GetAccessFilePath(), true);
        if (!race) {
            CliContext::Fail(
                QStringLiteral("cannot read the race file %1").arg(entry->GetAccessFilePath()));
            continue;
        }
        const QString typeName = names.ByGuid("[info Class]", race->GetClassGuid());
        if (type.isEmpty() || typeMatches(typeName, type)) {
            const QString sizeName = names.ById("[info Size]", race->GetSizeId());
            list.append(QJsonObject{{"name", race->GetRaceName()},
                                    {"tree", treeName(*entry)},
                                    {"size", sizeName},
                                    {"type", typeName},
                                    {"hit_dice", double(race->GetHitDieCount())}});
            lines << QStringLiteral("%1 %2 %3 %4 %5")
                         .arg(race->GetRaceName(), -40)
                         .arg(treeName(*entry), -5)
                         .arg(sizeName, -11)
                         .arg(typeName, -24)
                         .arg(number(race->GetHitDieCount()));
        }
        race->Release();
    }
    if (context.WantsJson()) {
        CliContext::PrintJson(list);
        return 0;
    }
    CliContext::PrintLine(QStringLiteral("%1 %2 %3 %4 %5")
                              .arg(QStringLiteral("NAME"), -40)
                              .arg(QStringLiteral("TREE"), -5)
                              .arg(QStringLiteral("SIZE"), -11)
                              .arg(QStringLiteral("TYPE"), -24)
                              .arg(QStringLiteral("HD")));
    for (const QString& line : lines)
        CliContext::PrintLine(line);
    CliContext::PrintLine(QStringLiteral("%1 races").arg(lines.size()));
    return 0;
}

int RaceCommand::RunShow(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.isEmpty())
        return CliContext::Fail(QStringLiteral("race show needs a race name"));
    // A name may hold spaces; unquoted words are taken together.
    const QString name = args.join(' ').trimmed();
    if (!context.StartLibrary())
        return 1;
    DFileObject* entry = DObjectManager::FindRaceFile(name);
    if (!entry) {
        const QStringList closest = CliLookup::ClosestNames(name, CliLookup::RaceNames(), 3);
        return CliContext::Fail(
            QStringLiteral("unknown race '%1'%2")
                .arg(name, closest.isEmpty() ? QStringLiteral(" (no races are installed)")
                                             : QStringLiteral("; closest: ") + closest.join(", ")));
    }
    DRace* race = DRace::CreateFromFile(entry->GetAccessFilePath(), false);
    if (!race)
        return CliContext::Fail(
            QStringLiteral("cannot read the race file %1").arg(entry->GetAccessFilePath()));
    RowNames names;
    const QJsonObject json = raceJson(*race, *entry, names);
    race->Release();
    if (context.WantsJson())
        CliContext::PrintJson(json);
    else
        printRace(json);
    return 0;
}
