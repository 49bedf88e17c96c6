#include "RaceSourceReader.h"

#include "DHandBook.h"

#include "CoreDataError.h"
#include "DAttackInfo.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DFamiliarBonus.h"
#include "DGuid.h"
#include "DNaturalAttackKind.h"
#include "DOffenseGroup.h"
#include "DOffenseItem.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSpecialAttack.h"
#include "DTargetData.h"
#include "FCReleaser.h"
#include "NameIndex.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

const QStringList kAbilityNames = {"Str", "Dex", "Con", "Int", "Wis", "Cha"};
const QStringList kSaveNames = {"Fort", "Ref", "Will"};
const QStringList kGenderNames = {"male", "female"};

// Keys that may appear more than once: each line adds one entry.
const QSet<QString> kRepeatable = {"feature", "skills", "feats", "attacks"};

// Ranks of a race's skill stand in its hit dice's class, where every listed skill is a class
// skill.
constexpr DSkillUsabilityType kRacialSkillUsability = 1;

// What the race editor gives a natural attack in a group.
constexpr quint32 kNaturalAttackFlags = 0x401;
// "[types Weapon Range]": 0 melee, 1 ranged.
constexpr qint32 kRangedAttack = 1;

// Rows of "[types Feat Target]" a source can name.
constexpr int kFeatTargetNone = 0;
constexpr int kFeatTargetWeapon = 1;
constexpr int kFeatTargetSkill = 2;
constexpr int kFeatTargetSchool = 3;

const struct {
    const char* name;
    unsigned flag;
} kFlagNames[] = {
    {"familiar", DRace::kFlagFamiliar},
    {"mount", DRace::kFlagMount},
    {"fiendish servant", DRace::kFlagFiendishServant},
    {"animal companion", DRace::kFlagAnimalCompanion},
    {"undead companion", DRace::kFlagUndeadCompanion},
    {"shadow companion", DRace::kFlagShadowCompanion},
    {"steady speed", DRace::kFlagSteadySpeed},
    {"light armor", DRace::kFlagLightArmorProf},
    {"medium armor", DRace::kFlagMediumArmorProf},
    {"heavy armor", DRace::kFlagHeavyArmorProf},
    {"shields", DRace::kFlagShieldProf},
};

// A dice term such as "2d4"; a plain number is a fixed amount (die id 1).
bool parseDice(const QString& text, int& count, int& die) {
    static const QRegularExpression dice(QStringLiteral("^(\\d+)d(\\d+)$"));
    const QRegularExpressionMatch match = dice.match(text.trimmed());
    if (!match.hasMatch())
        return false;
    count = match.captured(1).toInt();
    die = match.captured(2).toInt();
    return true;
}

} // namespace

QStringList RaceSourceReader::Keys() {
    return {"size",
            "type",
            "subtypes",
            "category",
            "family",
            "roles",
            "climates",
            "size_direction",
            "hit_dice",
            "max_hit_dice",
            "advancement",
            "abilities",
            "ability_adjustments",
            "natural_armor",
            "save_bonus",
            "good_saves",
            "skill_points",
            "extra_skill_points_first_level",
            "extra_skill_points_per_level",
            "extra_feats_first_level",
            "extra_feats_per_level",
            "languages",
            "bonus_languages",
            "speed",
            "special_attacks",
            "special_qualities",
            "feature",
            "favored_class",
            "challenge_rating",
            "alignment",
            "alignment_mod",
            "space",
            "reach",
            "treasure",
            "start_ages",
            "height",
            "weight",
            "weapon_proficiencies",
            "flags",
            "familiar_bonus",
            "skills",
            "skill_ranks",
            "attacks",
            "gear",
            "feats"};
}

void RaceSourceReader::Read(const QString& path, DRace& race) {
    mFile = path;
    mLine = 0;
    mMaxHitDice = -1.0f;
    mTypeRead = false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw CoreDataError(path, 0, QStringLiteral("cannot open the file"));
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    // The text after the last line break is no line of its own.
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    const QStringList keys = Keys();
    QHash<QString, int> seen;
    for (const QString& raw : lines) {
        ++mLine;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const int colon = line.indexOf(':');
        if (colon <= 0)
            Fail(QStringLiteral("expected 'key: value', got '%1'").arg(line));
        const QString key = line.left(colon).trimmed();
        const QString value = line.mid(colon + 1).trimmed();
        if (!keys.contains(key))
            Fail(QStringLiteral("unknown key '%1'").arg(key));
        if (seen.contains(key) && !kRepeatable.contains(key))
            Fail(QStringLiteral("'%1' given twice (first on line %2)").arg(key).arg(seen[key]));
        seen.insert(key, mLine);
        if (value.isEmpty())
            Fail(QStringLiteral("'%1' has no value").arg(key));
        Apply(key, value, race);
    }
    // A missing field is reported against the end of the file, where it would have gone.
    for (const char* required : {"size", "type", "hit_dice", "speed"}) {
        if (!seen.contains(QString::fromLatin1(required)))
            Fail(QStringLiteral("required field '%1' is missing").arg(required));
    }
    if (!seen.contains("abilities") && !seen.contains("ability_adjustments"))
        Fail(QStringLiteral("required field 'abilities' (or 'ability_adjustments') is missing"));
    if (seen.contains("abilities") && seen.contains("ability_adjustments"))
        Fail(QStringLiteral("give either 'abilities' or 'ability_adjustments', not both"));
    if (mMaxHitDice >= 0.0f)
        race.SetMaxHitDieCount(mMaxHitDice);
    // Without a line of its own the race saves as its creature type does.
    if (!seen.contains("good_saves")) {
        for (int save = 0; save < kSaveCount; ++save)
            race.SetHasGoodSaves(
                save, DHandBook::DoesClassHaveGoodSaves(race.GetClassGuid(), DSaveType(save)));
    }
    race.SetRaceName(QFileInfo(path).completeBaseName());
}

void RaceSourceReader::Fail(const QString& message) const {
    throw CoreDataError(mFile, mLine, message);
}

int RaceSourceReader::Id(const QString& table, const QString& name) const {
    const int id = mNames.FindId(table, name);
    if (id < 0)
        Fail(QStringLiteral("'%1' names no row of %2 (known: %3)")
                 .arg(name.trimmed(), table, mNames.Names(table).join(", ")));
    return id;
}

QUuid RaceSourceReader::GuidOf(const QString& table, const QString& name) const {
    const QUuid guid = mNames.FindGuid(table, name);
    if (guid.isNull())
        Fail(QStringLiteral("'%1' names no row of %2").arg(name.trimmed(), table));
    return guid;
}

int RaceSourceReader::Integer(const QString& text) const {
    bool ok = false;
    QString t = text.trimmed();
    if (t.startsWith('+'))
        t.remove(0, 1);
    const int value = t.toInt(&ok);
    if (!ok)
        Fail(QStringLiteral("'%1' is not a whole number").arg(text.trimmed()));
    return value;
}

float RaceSourceReader::Number(const QString& text) const {
    // Accepts "12", "0.5", "1/2" and "2 1/2".
    static const QRegularExpression form(QStringLiteral("^(?:(\\d+)\\s+)?(\\d+)/(\\d+)$"));
    const QString t = text.trimmed();
    const QRegularExpressionMatch match = form.match(t);
    if (match.hasMatch() && match.captured(3).toInt() != 0)
        return float(match.captured(1).toInt()) +
               float(match.captured(2).toInt()) / float(match.captured(3).toInt());
    bool ok = false;
    const float value = t.toFloat(&ok);
    if (!ok)
        Fail(QStringLiteral("'%1' is not a number").arg(t));
    return value;
}

QStringList RaceSourceReader::List(const QString& value) const {
    // Comma-separated; a name that holds a comma is written in double quotes.
    QStringList items;
    QString current;
    bool quoted = false;
    for (const QChar c : value) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted) {
            items << current.trimmed();
            current.clear();
        } else
            current += c;
    }
    if (quoted)
        Fail(QStringLiteral("unbalanced quote in '%1'").arg(value));
    items << current.trimmed();
    for (const QString& item : items) {
        if (item.isEmpty())
            Fail(QStringLiteral("empty entry in the list '%1'").arg(value));
    }
    return items;
}

QHash<int, QString> RaceSourceReader::AbilityPairs(const QString& value) const {
    QHash<int, QString> pairs;
    for (const QString& item : List(value)) {
        const QStringList parts = item.split(' ', Qt::SkipEmptyParts);
        const int ability = parts.size() == 2 ? kAbilityNames.indexOf(parts[0]) : -1;
        if (ability < 0)
            Fail(QStringLiteral("expected an ability and a value such as 'Con +2', got '%1'")
                     .arg(item));
        if (pairs.contains(ability))
            Fail(QStringLiteral("%1 given twice").arg(parts[0]));
        pairs.insert(ability, parts[1]);
    }
    return pairs;
}

void RaceSourceReader::Apply(const QString& key, const QString& value, DRace& race) {
    if (key == "size")
        race.SetSizeId(Id("[info Size]", value));
    else if (key == "type") {
        race.SetClassGuid(GuidOf("[info Class]", value));
        mTypeRead = true;
    } else if (key == "subtypes") {
        for (const QString& name : List(value))
            race.AddSubType(Id("[info Race Subtypes]", name));
    } else if (key == "category")
        race.SetRaceCategoryId(Id("[types Race Category]", value));
    else if (key == "family")
        race.SetRaceFamilyId(Id("[types Race Family]", value));
    else if (key == "roles") {
        for (const QString& name : List(value))
            race.AddRole(Id("[types Race Role]", name));
    } else if (key == "climates") {
        for (const QString& name : List(value))
            race.AddClimate(Id("[types Climate]", name));
    } else if (key == "size_direction")
        race.SetSizeDirectionId(Id("[info Size Direction]", value));
    else if (key == "hit_dice")
        race.SetHitDieCount(Number(value));
    else if (key == "max_hit_dice")
        mMaxHitDice = Number(value);
    else if (key == "advancement")
        SetAdvancement(value, race);
    else if (key == "abilities")
        SetAbilities(value, race, false);
    else if (key == "ability_adjustments")
        SetAbilities(value, race, true);
    else if (key == "natural_armor")
        race.SetNaturalAC(Integer(value));
    else if (key == "save_bonus")
        SetSaves(value, race);
    else if (key == "good_saves")
        SetGoodSaves(value, race);
    else if (key == "skill_points")
        race.SetBaseSkillPoints(Integer(value));
    else if (key == "extra_skill_points_first_level")
        race.SetExtraSkillPointsFirstLevel(Integer(value));
    else if (key == "extra_skill_points_per_level")
        race.SetExtraSkillPointsPerLevel(Integer(value));
    else if (key == "extra_feats_first_level")
        race.SetExtraFeatPointsFirstLevel(Integer(value));
    else if (key == "extra_feats_per_level")
        race.SetExtraFeatPointsPerLevel(Integer(value));
    else if (key == "languages") {
        for (const QString& name : List(value)) {
            auto* language = new DChosenLanguage(GuidOf("[info Language]", name));
            race.AddLanguage(language);
            language->Release();
        }
    } else if (key == "bonus_languages") {
        for (const QString& name : List(value))
            race.AddAvailableLanguage(GuidOf("[info Language]", name));
    } else if (key == "speed")
        SetSpeeds(value, race);
    else if (key == "special_attacks") {
        for (const QString& name : List(value)) {
            auto* attack = new DSpecialAttack(Id("[types Race Special Attacks]", name));
            race.AddSpecialAttack(attack);
            attack->Release();
        }
    } else if (key == "special_qualities") {
        for (const QString& name : List(value))
            race.AddSpecialQuality(Id("[types Race Special Quality]", name));
    } else if (key == "feature")
        race.AddRaceFeature(value);
    else if (key == "favored_class") {
        // The record has no field for it, so it travels as a racial feature.
        if (value.compare("any", Qt::CaseInsensitive) != 0)
            GuidOf("[info Class]", value);
        race.AddRaceFeature(QStringLiteral("Favored class: %1").arg(value));
    } else if (key == "challenge_rating")
        race.SetChallengeRating(Number(value));
    else if (key == "alignment")
        race.SetAlignmentId(Id("[info Alignment]", value));
    else if (key == "alignment_mod")
        race.SetAlignmentModId(Id("[types Alignment Modifiers]", value));
    else if (key == "space") {
        race.SetRaceSizeStat(0, Number(value));
        race.SetRaceSizeStat(1, Number(value));
    } else if (key == "reach")
        race.SetRaceSizeStat(2, Number(value));
    else if (key == "treasure")
        SetTreasure(value, race);
    else if (key == "start_ages") {
        const QStringList ages = List(value);
        if (ages.size() != DRace::kAgeCount)
            Fail(QStringLiteral("start_ages takes four ages: adult, middle, old, venerable"));
        for (int i = 0; i < DRace::kAgeCount; ++i)
            race.SetStartAge(i, Integer(ages[i]));
    } else if (key == "height")
        SetBodyStat(value, race, true);
    else if (key == "weight")
        SetBodyStat(value, race, false);
    else if (key == "weapon_proficiencies") {
        for (const QString& name : List(value))
            race.AddWeaponProf(GuidOf("[info Weapons]", name));
    } else if (key == "flags")
        SetFlags(value, race);
    else if (key == "familiar_bonus")
        SetFamiliarBonuses(value, race);
    else if (key == "skills")
        SetSkills(value, race);
    else if (key == "skill_ranks")
        SetSkillRanks(value, race);
    else if (key == "attacks")
        AddAttackGroup(value, race);
    else if (key == "gear")
        SetGear(value, race);
    else if (key == "feats")
        SetFeats(value, race);
}

void RaceSourceReader::SetAbilities(const QString& value, DRace& race, bool adjustments) {
    const QHash<int, QString> pairs = AbilityPairs(value);
    if (!adjustments && pairs.size() != DRace::kAbilityCount)
        Fail(QStringLiteral("abilities needs all six: Str, Dex, Con, Int, Wis, Cha"));
    for (int ability = 0; ability < DRace::kAbilityCount; ++ability) {
        const QString text = pairs.value(ability, QStringLiteral("+0"));
        if (!adjustments && (text == "-" || text == QStringLiteral("\u2014"))) {
            race.SetNoAbility(ability, true);
            race.SetAbility(ability, 0);
            continue;
        }
        // An adjustment is stored as the score it makes of a 10.
        race.SetAbility(ability, adjustments ? 10 + Integer(text) : Integer(text));
    }
}

void RaceSourceReader::SetSaves(const QString& value, DRace& race) {
    for (const QString& item : List(value)) {
        const QStringList parts = item.split(' ', Qt::SkipEmptyParts);
        const int save = parts.size() == 2 ? kSaveNames.indexOf(parts[0]) : -1;
        if (save < 0)
            Fail(QStringLiteral("expected a save and a bonus such as 'Fort +1', got '%1'")
                     .arg(item));
        race.SetSaveBonus(save, Integer(parts[1]));
    }
}

void RaceSourceReader::SetGoodSaves(const QString& value, DRace& race) {
    // "none": every save poor, though the creature type has a good one.
    if (value.trimmed().compare(QStringLiteral("none"), Qt::CaseInsensitive) == 0)
        return;
    for (const QString& item : List(value)) {
        const int save = kSaveNames.indexOf(item);
        if (save < 0)
            Fail(QStringLiteral("'%1' is not a save (Fort, Ref, Will)").arg(item));
        race.SetHasGoodSaves(save, true);
    }
}

void RaceSourceReader::SetSpeeds(const QString& value, DRace& race) {
    // "land 30, fly 60 good": kind, feet, and for a flyer its maneuverability.
    for (const QString& item : List(value)) {
        const QStringList parts = item.split(' ', Qt::SkipEmptyParts);
        if (parts.size() < 2 || parts.size() > 3)
            Fail(QStringLiteral("expected a speed such as 'land 30' or 'fly 60 good', got '%1'")
                     .arg(item));
        const int kind = Id("[info Speed]", parts[0]);
        const int feet = Integer(parts[1]);
        const int maneuverability = parts.size() == 3 ? Id("[types Speed]", parts[2]) : 0;
        if (race.GetSpeedPointer(kind))
            Fail(QStringLiteral("speed '%1' given twice").arg(parts[0]));
        auto* speed = new DChosenSpeed(kind, feet, maneuverability);
        race.AddSpeed(speed);
        speed->Release();
    }
}

void RaceSourceReader::SetAdvancement(const QString& value, DRace& race) {
    // "7-12 Large; 13-21 Huge"
    static const QRegularExpression row(QStringLiteral("^(\\d+)\\s*-\\s*(\\d+)\\s+(.+)$"));
    for (const QString& item : value.split(';')) {
        const QRegularExpressionMatch match = row.match(item.trimmed());
        if (!match.hasMatch())
            Fail(QStringLiteral("expected an advancement row such as '7-12 Large', got '%1'")
                     .arg(item.trimmed()));
        const int low = match.captured(1).toInt();
        const int high = match.captured(2).toInt();
        if (low > high)
            Fail(QStringLiteral("advancement row '%1' runs backwards").arg(item.trimmed()));
        auto* advance = new DRaceAdvance(low, high, Id("[info Size]", match.captured(3)));
        race.AddAdvance(advance);
        advance->Release();
    }
}

void RaceSourceReader::SetBodyStat(const QString& value, DRace& race, bool height) {
    // "male 4 ft. 3 in." would invite mistakes; bases are plain inches or pounds:
    // "male 45 2d4, female 43 2d4".
    for (const QString& item : List(value)) {
        const QStringList parts = item.split(' ', Qt::SkipEmptyParts);
        const int gender = parts.size() == 3 ? kGenderNames.indexOf(parts[0]) : -1;
        int count = 0;
        int die = 0;
        if (gender < 0 || !parseDice(parts[2], count, die))
            Fail(QStringLiteral("expected 'male BASE DICE' such as 'male 45 2d4', got '%1'")
                     .arg(item));
        Id("[types Dice]", die == 1 ? QStringLiteral("1") : QStringLiteral("d%1").arg(die));
        if (height) {
            race.SetStartHeight(gender, Integer(parts[1]));
            race.SetHeightMod(gender, count, die);
        } else {
            race.SetStartWeight(gender, Integer(parts[1]));
            race.SetWeightMod(gender, count, die);
        }
    }
}

void RaceSourceReader::SetTreasure(const QString& value, DRace& race) {
    // One value for all three slots, or three: coins, goods, items.
    const QStringList items = List(value);
    if (items.size() != 1 && items.size() != DRace::kTreasureSlotCount)
        Fail(QStringLiteral("treasure takes one value or three (coins, goods, items)"));
    for (int slot = 0; slot < DRace::kTreasureSlotCount; ++slot)
        race.SetTreasureType(slot,
                             Id("[types Creature Treasure]", items[items.size() == 1 ? 0 : slot]));
}

void RaceSourceReader::SetFlags(const QString& value, DRace& race) {
    for (const QString& item : List(value)) {
        unsigned flag = 0;
        for (const auto& known : kFlagNames) {
            if (item.compare(QLatin1String(known.name), Qt::CaseInsensitive) == 0)
                flag = known.flag;
        }
        if (!flag)
            Fail(QStringLiteral("unknown flag '%1'").arg(item));
        race.AddRaceFlag(flag);
    }
}

const NameIndex::Skill& RaceSourceReader::SkillNamed(const QString& name) const {
    const NameIndex::Skill* skill = mNames.FindSkill(name);
    if (!skill)
        Fail(QStringLiteral("'%1' names no row of [info Skill] or [info Skill Sub]").arg(name));
    if (skill->hasSubSkills)
        Fail(QStringLiteral("%1 has sub-skills: name one, such as '%1 (...)'").arg(skill->name));
    return *skill;
}

// The race's record of the skill, made on first use: `skills` and `skill_ranks` may both
// name it.
DChosenSkill& RaceSourceReader::RaceSkill(const NameIndex::Skill& skill, DRace& race) {
    if (DChosenSkill* held = race.GetSkillPointer(skill.skill, skill.subSkill))
        return *held;
    FCRef<DChosenSkill> chosen(new DChosenSkill(skill.skill, skill.subSkill));
    chosen->AddSkillFlag(DChosenSkill::kSkillFixed);
    race.AddSkill(chosen.get());
    return *chosen;
}

void RaceSourceReader::SetSkills(const QString& value, DRace& race) {
    static const QRegularExpression form(QStringLiteral("^(.+?)\\s+([+-]?\\d+)$"));
    for (const QString& item : List(value)) {
        const QRegularExpressionMatch match = form.match(item);
        if (!match.hasMatch())
            Fail(QStringLiteral("expected a skill and a bonus such as 'Listen +2', got '%1'")
                     .arg(item));
        const NameIndex::Skill& skill = SkillNamed(match.captured(1));
        const int bonus = Integer(match.captured(2));
        // A character takes over only racial bonuses above 0.
        if (bonus <= 0)
            Fail(QStringLiteral("the racial bonus of %1 must be above 0, not %2")
                     .arg(skill.name)
                     .arg(bonus));
        DChosenSkill& chosen = RaceSkill(skill, race);
        if (chosen.GetRaceMod() != 0)
            Fail(QStringLiteral("skill '%1' given twice").arg(skill.name));
        chosen.SetRaceMod(bonus);
    }
}

void RaceSourceReader::SetSkillRanks(const QString& value, DRace& race) {
    static const QRegularExpression form(QStringLiteral("^(.+?)\\s+(\\d+)$"));
    const QUuid raceClass = race.GetClassGuid();
    if (!mTypeRead)
        Fail(QStringLiteral("give 'type' before 'skill_ranks': the ranks belong to its hit dice"));
    for (const QString& item : List(value)) {
        const QRegularExpressionMatch match = form.match(item);
        if (!match.hasMatch())
            Fail(QStringLiteral("expected a skill and its ranks such as 'Listen 4', got '%1'")
                     .arg(item));
        const NameIndex::Skill& skill = SkillNamed(match.captured(1));
        DChosenSkill& chosen = RaceSkill(skill, race);
        if (chosen.GetSkillRankInfo(raceClass))
            Fail(QStringLiteral("skill '%1' given twice").arg(skill.name));
        chosen.SetRanks(raceClass, kRacialSkillUsability, float(Integer(match.captured(2))));
    }
}

// One attack routine of natural attacks, an offense group of its own: "2 claw 1d6, bite 1d8".
// Each attack: an optional count, a "[types Race Attack]" name, an optional damage die, and the
// words "touch" and "ranged" as they apply. The first attack of a routine is its primary one,
// the others secondary, as the group itself works out. A routine that starts with "weapon" is
// fought beside the creature's first weapon of its gear.
void RaceSourceReader::AddAttackGroup(const QString& value, DRace& race) {
    static const QRegularExpression form(
        QStringLiteral("^(?:(\\d+)\\s+)?(.+?)(?:\\s+(\\d+)d(\\d+))?((?:\\s+(?:touch|ranged))*)$"));
    const int group = race.GetOffenseGroupArray().GetCount();
    QStringList attacks = List(value);
    // "weapon, gore 1d8": the routine is fought with the creature's weapon in hand.
    const bool besideWeapon =
        !attacks.isEmpty() &&
        attacks.first().compare(QLatin1String("weapon"), Qt::CaseInsensitive) == 0;
    if (besideWeapon)
        attacks.removeFirst();
    if (attacks.isEmpty())
        Fail(QStringLiteral("a routine needs at least one natural attack"));
    for (const QString& item : attacks) {
        const QRegularExpressionMatch match = form.match(item);
        if (!match.hasMatch())
            Fail(QStringLiteral("expected an attack such as '2 claw 1d6' or 'touch 1d8 touch', "
                                "got '%1'")
                     .arg(item));
        const QStringList words = match.captured(5).split(' ', Qt::SkipEmptyParts);
        FCRef<DAttackInfo> attack(new DAttackInfo);
        attack->SetOffenseCount(match.captured(1).isEmpty() ? 1 : Integer(match.captured(1)));
        if (attack->GetOffenseCount() < 1)
            Fail(QStringLiteral("an attack is made at least once, not %1 times")
                     .arg(attack->GetOffenseCount()));
        attack->SetAttackTypeId(Id("[types Race Attack]", match.captured(2)));
        attack->SetItemId(DNaturalAttackKind::ItemId(attack->GetAttackTypeId()));
        if (!match.captured(3).isEmpty()) {
            attack->SetDamageDieCount(Integer(match.captured(3)));
            attack->SetDamageDieId(Id("[types Dice]", QStringLiteral("d") + match.captured(4)));
        }
        attack->SetAttackRangeIsTouch(words.contains(QLatin1String("touch")));
        attack->SetRangeType(words.contains(QLatin1String("ranged")) ? kRangedAttack : 0);
        const int id = race.AddAttack(attack.get());
        race.AddOffenseToGroup(
            group,
            DOffenseItem(DOffenseItem::kOffenseNatural, id,
                         kNaturalAttackFlags |
                             (besideWeapon ? quint32(DOffenseItem::kOffenseBesideWeapon) : 0u)));
    }
}

// What the creature's stat block shows it carrying: rows of the weapon, armor and shield
// tables, apart by ";" (their names hold commas). The record has no inventory, so each is the
// racial feature "Gear: NAME", which a monster built from the race is given; the creature is
// proficient with the weapons it is shown using.
void RaceSourceReader::SetGear(const QString& value, DRace& race) {
    for (const QString& raw : value.split(QLatin1Char(';'))) {
        const QString name = raw.trimmed();
        QString table, canonical;
        for (const char* candidate : {"[info Weapons]", "[info Armor]", "[info Shield]"}) {
            if (canonical.isEmpty()) {
                table = QLatin1String(candidate);
                canonical = mNames.FindName(table, name);
            }
        }
        if (canonical.isEmpty())
            Fail(QStringLiteral("'%1' names no row of [info Weapons], [info Armor] or "
                                "[info Shield]")
                     .arg(name));
        if (table == QLatin1String("[info Weapons]"))
            race.AddWeaponProf(GuidOf(table, name));
        race.AddRaceFeature(FCString(QStringLiteral("Gear: %1").arg(canonical)));
    }
}

void RaceSourceReader::SetFamiliarBonuses(const QString& value, DRace& race) {
    // Rows of "[types Familiar Bonus]": 0-5 an ability, 6-8 a save, 9 hit points, 10 a skill.
    constexpr int kSaveBonus = 6;
    constexpr int kHitPointsBonus = 9;
    constexpr int kSkillBonus = 10;
    static const QRegularExpression form(QStringLiteral("^(.+?)\\s+([+-]?\\d+)$"));
    for (const QString& item : List(value)) {
        const QRegularExpressionMatch match = form.match(item);
        if (!match.hasMatch())
            Fail(QStringLiteral("expected what the master gains and a bonus such as 'Listen +3', "
                                "'Fort +2' or 'hit points +3', got '%1'")
                     .arg(item));
        const QString what = match.captured(1);
        auto* bonus = new DFamiliarBonus;
        bonus->SetBonus(Integer(match.captured(2)));
        if (kAbilityNames.contains(what))
            bonus->SetBonusType(int(kAbilityNames.indexOf(what)));
        else if (kSaveNames.contains(what))
            bonus->SetBonusType(kSaveBonus + int(kSaveNames.indexOf(what)));
        else if (what == QLatin1String("hit points"))
            bonus->SetBonusType(kHitPointsBonus);
        else {
            const NameIndex::Skill* skill = mNames.FindSkill(what);
            if (!skill || skill->hasSubSkills) {
                bonus->Release();
                Fail(QStringLiteral("'%1' is no ability, save, 'hit points' or skill (a skill "
                                    "with sub-skills names one)")
                         .arg(what));
            }
            bonus->SetBonusType(kSkillBonus);
            DTargetData target;
            target.SetTargetGuid(skill->skill);
            target.SetTargetSubGuid(skill->subSkill);
            bonus->SetTargetData(&target);
        }
        race.AddFamiliarBonus(bonus);
        bonus->Release();
    }
}

void RaceSourceReader::SetFeats(const QString& value, DRace& race) {
    static const QRegularExpression targeted(QStringLiteral("^(.+?)\\s*\\((.+)\\)$"));
    // "Toughness x2": a feat that may be taken again, taken that many times.
    static const QRegularExpression repeated(QStringLiteral("^(.+?)\\s+x(\\d+)$"));
    for (QString item : List(value)) {
        int times = 1;
        if (const QRegularExpressionMatch match = repeated.match(item); match.hasMatch()) {
            item = match.captured(1);
            times = match.captured(2).toInt();
        }
        // A feat whose own name ends in parentheses ("Armor Proficiency (Light)") comes first.
        QString name = item;
        QString target;
        if (mNames.FindGuid("[info Feat]", item).isNull()) {
            const QRegularExpressionMatch match = targeted.match(item);
            if (match.hasMatch()) {
                name = match.captured(1);
                target = match.captured(2).trimmed();
            }
        }
        auto* feat = new DChosenFeat;
        try {
            feat->SetFeatGuid(GuidOf("[info Feat]", name));
            SetFeatTarget(*feat, name, target);
            if (race.GetFeatPointer(*feat))
                Fail(QStringLiteral("feat '%1' given twice").arg(item));
            if (times < 1 || (times > 1 && !mNames.FeatStacks(feat->GetFeatGuid())))
                Fail(QStringLiteral("%1 cannot be taken %2 times").arg(name).arg(times));
            feat->SetCount(times);
        } catch (...) {
            feat->Release();
            throw;
        }
        race.AddFeat(feat);
        feat->Release();
    }
}

void RaceSourceReader::SetFeatTarget(DChosenFeat& feat, const QString& featName,
                                     const QString& target) const {
    const int type = mNames.FeatTargetType(feat.GetFeatGuid());
    if (type == kFeatTargetNone) {
        if (!target.isEmpty())
            Fail(QStringLiteral("%1 takes no target, got '%2'").arg(featName, target));
        return;
    }
    if (target.isEmpty())
        Fail(QStringLiteral("%1 needs a target in parentheses, such as '%1 (...)'").arg(featName));
    switch (type) {
    case kFeatTargetWeapon: {
        // A natural weapon: every attack of that kind (sub-target 0, a natural attack).
        if (mNames.FindGuid(QStringLiteral("[info Weapons]"), target).isNull() &&
            mNames.FindId(QStringLiteral("[types Race Attack]"), target) >= 0) {
            QUuid kind;
            DGuid::SetLong(kind, DNaturalAttackKind::ItemId(Id("[types Race Attack]", target)));
            feat.SetTargetGuid(kind);
            return;
        }
        feat.SetTargetGuid(GuidOf("[info Weapons]", target));
        // Sub-target 1: the target is a row of the weapon table.
        QUuid weaponTable;
        DGuid::SetLong(weaponTable, 1);
        feat.SetTargetSubGuid(weaponTable);
        return;
    }
    case kFeatTargetSkill: {
        const NameIndex::Skill* skill = mNames.FindSkill(target);
        if (!skill || skill->hasSubSkills)
            Fail(QStringLiteral("'%1' names no skill or sub-skill").arg(target));
        feat.SetTargetGuid(skill->skill);
        feat.SetTargetSubGuid(skill->subSkill);
        return;
    }
    case kFeatTargetSchool: {
        QUuid school;
        DGuid::SetLong(school, Id("[info Spell Schools]", target));
        feat.SetTargetGuid(school);
        return;
    }
    default:
        Fail(QStringLiteral("%1 takes a kind of target a source cannot name").arg(featName));
    }
}
