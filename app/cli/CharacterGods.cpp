#include "CharacterGods.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DAlignmentInfo.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenLanguage.h"
#include "DChosenSpell.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "DWeaponInfo.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using CharacterPtr = FCRef<DCharacter>;

constexpr int kMaxDomains = 2;
constexpr int kTableGodDomain = 145;

QStringList namesOf(const QList<CharacterGods::Named>& rows) {
    QStringList names;
    for (const CharacterGods::Named& row : rows)
        names << row.name;
    return names;
}

// The row named `name` (any case), or the one-line refusal with the closest names.
bool findNamed(const QList<CharacterGods::Named>& rows, const QString& kind, const QString& name,
               CharacterGods::Named& found, QString& error) {
    for (const CharacterGods::Named& row : rows) {
        if (row.name.compare(name, Qt::CaseInsensitive) == 0) {
            found = row;
            return true;
        }
    }
    error = CliLookup::UnknownName(kind, name, CliLookup::ClosestNames(name, namesOf(rows), 3));
    return false;
}

QString nameOf(int table, const QUuid& guid) {
    return guid.isNull() ? QString() : DRulesQuery::NameByGuid(table, guid);
}

QString alignmentName(int id) {
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(id);
    return info ? QString(info->GetAlignmentName()) : QString::number(id);
}

// The school of that name among the eight a specialist may pick, or -1 with the refusal.
int findSchool(const QString& name, QString& error) {
    QStringList names;
    for (const auto& [id, base] : DDatabase::GetSchoolInfoMap()) {
        const auto* school = static_cast<const DSchoolInfo*>(base);
        const bool named = QString(school->GetSchoolName()).compare(name, Qt::CaseInsensitive) == 0;
        if (school->GetCategory() <= 0) {
            if (named) {
                error = QStringLiteral("%1 is not a school to specialize in or prohibit")
                            .arg(school->GetSchoolName());
                return -1;
            }
            continue;
        }
        if (named)
            return id;
        names << school->GetSchoolName();
    }
    error = CliLookup::UnknownName(QStringLiteral("school"), name,
                                   CliLookup::ClosestNames(name, names, 3));
    return -1;
}

QString schoolName(int id) {
    const DSchoolInfo* school = DDatabase::GetSchoolInfo(id);
    return school ? QString(school->GetSchoolName()) : QString::number(id);
}

// Loads FILE.chr from args[0] after checking the count; null when it failed (already said).
CharacterPtr load(CliContext& context, const QStringList& args, QString& path) {
    if (args.size() != 2) {
        CliContext::Fail(QStringLiteral("give FILE.chr NAME (see --help)"));
        return nullptr;
    }
    return CharacterPtr(CharacterCommand::LoadFileArgument(context, args[0], path));
}

QJsonArray weaponProficiencies(DCharacter& character) {
    QJsonArray weapons;
    if (character.HasProfFlag(DCharacter::kProfSimple))
        weapons.append(QStringLiteral("simple"));
    if (character.HasProfFlag(DCharacter::kProfMartial))
        weapons.append(QStringLiteral("martial"));
    // Weapons beyond the whole groups: from race, class rows, feats and features.
    for (const CharacterGods::Named& row : CharacterGods::NamedRows(kTableWeapons)) {
        const auto* info = static_cast<const DWeaponInfo*>(DDatabase::GetWeaponInfo(row.guid));
        // A weapon that acts as another (a named bow) is listed under that one.
        if (!info || !info->GetActsAsWeaponId().isNull())
            continue;
        const int category = info->GetSkillType();
        const bool byGroup = category == 3 ||
                             (category == 0 && character.HasProfFlag(DCharacter::kProfSimple)) ||
                             (category == 1 && character.HasProfFlag(DCharacter::kProfMartial));
        if (!byGroup && DHandBook::IsCharacterProfWithWeapon(&character, info))
            weapons.append(row.name);
    }
    return weapons;
}

QJsonArray armorProficiencies(const DCharacter& character) {
    QJsonArray armor;
    const std::pair<unsigned, const char*> kinds[] = {{DCharacter::kProfLightArmor, "light"},
                                                      {DCharacter::kProfMediumArmor, "medium"},
                                                      {DCharacter::kProfHeavyArmor, "heavy"},
                                                      {DCharacter::kProfShield, "shield"}};
    for (const auto& [flag, name] : kinds) {
        if (character.HasProfFlag(flag))
            armor.append(QString::fromLatin1(name));
    }
    return armor;
}

QString listText(const QJsonValue& value) {
    QStringList parts;
    for (const QJsonValue item : value.toArray())
        parts << item.toString();
    return parts.isEmpty() ? QStringLiteral("none") : parts.join(", ");
}

} // namespace

QList<CharacterGods::Named> CharacterGods::NamedRows(int table) {
    QList<Named> rows;
    DDatabase::ForEachRow(QString::asprintf("SELECT Guid, Name FROM %s ORDER BY Name",
                                            DRulesQuery::Table(table).constData()),
                          [&rows](odbc::ResultSet* row) {
                              rows.append({row->getGUID(1), row->getString(2)});
                          });
    return rows;
}

QList<CharacterGods::Named> CharacterGods::GodDomains(const QUuid& god) {
    QList<Named> rows;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT d.Guid, d.Name FROM %s d JOIN %s g ON g.DomainId = d.Guid WHERE "
                          "(g.GodId=%s) ORDER BY d.Name",
                          DRulesQuery::Table(kTableDomain).constData(),
                          DRulesQuery::Table(kTableGodDomain).constData(),
                          DRulesQuery::Guid(god).constData()),
        [&rows](odbc::ResultSet* row) {
            rows.append({row->getGUID(1), row->getString(2)});
        });
    return rows;
}

int CharacterGods::RunSetAlignment(CliContext& context, QStringList args) {
    QString path;
    CharacterPtr character = load(context, args, path);
    if (!character)
        return 1;
    int alignment = -1;
    QStringList names;
    for (const auto& [id, base] : DDatabase::GetAlignmentInfoMap()) {
        const auto* info = static_cast<const DAlignmentInfo*>(base);
        if (id <= 0)
            continue;
        names << info->GetAlignmentName();
        if (QString(info->GetAlignmentName()).compare(args[1], Qt::CaseInsensitive) == 0 ||
            QString(info->GetAlignmentShortName()).compare(args[1], Qt::CaseInsensitive) == 0)
            alignment = id;
    }
    if (alignment < 0)
        return CliContext::Fail(CliLookup::UnknownName(QStringLiteral("alignment"), args[1],
                                                       CliLookup::ClosestNames(args[1], names, 3)));
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        if (!DHandBook::GetIsValidAlignment(characterClass->GetClassGuid(), alignment))
            return CliContext::Fail(
                QStringLiteral("a class of the character bars %1").arg(alignmentName(alignment)));
    }
    character->SetAlignmentId(alignment);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterGods::RunSetGod(CliContext& context, QStringList args) {
    QString path, error;
    CharacterPtr character = load(context, args, path);
    if (!character)
        return 1;
    Named god;
    if (!findNamed(NamedRows(kTableGod), QStringLiteral("god"), args[1], god, error))
        return CliContext::Fail(error);
    if (!DHandBook::CanWorshipGod(character.get(), god.guid))
        return CliContext::Fail(
            QStringLiteral("a %1 character may not follow %2 (or its domains are not the god's)")
                .arg(alignmentName(character->GetAlignmentId()), god.name));
    // A change of god takes the old god's gifts first.
    if (character->HasPickedGod())
        DHandBook::SetCharacterGod(character.get(), QUuid());
    DHandBook::SetCharacterGod(character.get(), god.guid);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterGods::RunAddDomain(CliContext& context, QStringList args) {
    QString path, error;
    CharacterPtr character = load(context, args, path);
    if (!character)
        return 1;
    Named domain;
    if (!findNamed(NamedRows(kTableDomain), QStringLiteral("domain"), args[1], domain, error))
        return CliContext::Fail(error);
    if (!character->GetClassPointer(DRuleGuids::kClericClass))
        return CliContext::Fail(QStringLiteral("only a cleric picks domains"));
    if (!character->HasPickedGod())
        return CliContext::Fail(QStringLiteral("set the god first (set-god)"));
    if (character->GetDomainIndex(domain.guid) >= 0)
        return CliContext::Fail(QStringLiteral("%1 is already a domain").arg(domain.name));
    if (character->HasPickedAllDomains())
        return CliContext::Fail(
            QStringLiteral("the character already has %1 domains").arg(kMaxDomains));
    if (!DHandBook::IsValidGodDomain(character->GetGod(), domain.guid))
        return CliContext::Fail(QStringLiteral("%1 is not a domain of %2; the god's: %3")
                                    .arg(domain.name, nameOf(kTableGod, character->GetGod()),
                                         namesOf(GodDomains(character->GetGod())).join(", ")));
    if (!DHandBook::CanWorshipDomain(character.get(), domain.guid))
        return CliContext::Fail(QStringLiteral("a %1 character may not take %2")
                                    .arg(alignmentName(character->GetAlignmentId()), domain.name));
    DHandBook::AddCharacterDomain(character.get(), domain.guid);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterGods::RunSetSchool(CliContext& context, QStringList args) {
    const int at = int(args.indexOf(QStringLiteral("--prohibit")));
    QStringList prohibitNames;
    if (at >= 0) {
        if (at + 1 >= args.size())
            return CliContext::Fail(QStringLiteral("--prohibit is missing its value"));
        prohibitNames = args[at + 1].split(QLatin1Char(','), Qt::SkipEmptyParts);
        args.remove(at, 2);
    }
    QString path, error;
    CharacterPtr character = load(context, args, path);
    if (!character)
        return 1;
    if (!character->GetClassPointer(DRuleGuids::kWizardClass))
        return CliContext::Fail(QStringLiteral("only a wizard specializes in a school"));
    const int school = findSchool(args[1], error);
    if (school < 0)
        return CliContext::Fail(error);
    QList<int> prohibited;
    for (const QString& name : prohibitNames) {
        const int id = findSchool(name.trimmed(), error);
        if (id < 0)
            return CliContext::Fail(error);
        if (id == school)
            return CliContext::Fail(
                QStringLiteral("%1 cannot be both the school and prohibited").arg(schoolName(id)));
        if (!prohibited.contains(id))
            prohibited << id;
    }
    // Spells already in the spellbook stay learnable: their schools may not be given up.
    for (const auto& known : character->GetKnownSpellSet()) {
        if (known->GetCasterClassGuid() != DRuleGuids::kWizardClass)
            continue;
        const int spellSchool = DDatabase::GetSpellSchool(known->GetSpellGuid());
        if (prohibited.contains(spellSchool))
            return CliContext::Fail(
                QStringLiteral("the spellbook holds %1, a spell of %2: that school cannot be "
                               "prohibited")
                    .arg(nameOf(kTableSpell, known->GetSpellGuid()), schoolName(spellSchool)));
    }
    // A diviner gives up one other school, every other specialist two; divination itself is
    // never given up.
    const bool diviner = schoolName(school).compare(QStringLiteral("Divination")) == 0;
    const int wanted = diviner ? 1 : 2;
    if (int(prohibited.size()) != wanted)
        return CliContext::Fail(QStringLiteral("%1 specialists name %2 prohibited school%3 "
                                               "with --prohibit")
                                    .arg(schoolName(school))
                                    .arg(wanted)
                                    .arg(wanted == 1 ? "" : "s"));
    // The school comes first; each prohibited school is then checked against it. Every
    // school here is of one category, so the pair test runs one school at a time.
    character->GetProhibitedSchoolArray().RemoveAll();
    DHandBook::SetCharacterSchool(character.get(), -1);
    character->SetNumProhibitedSchools(1);
    if (!DHandBook::CanChooseSchool(character.get(), school))
        return CliContext::Fail(
            QStringLiteral("%1 cannot be chosen as a specialist school").arg(schoolName(school)));
    DHandBook::SetCharacterSchool(character.get(), school);
    for (const int id : prohibited) {
        if (schoolName(id).compare(QStringLiteral("Divination")) == 0 ||
            !DHandBook::CanChooseProhibitedSchool(character.get(), id))
            return CliContext::Fail(QStringLiteral("%1 cannot be prohibited with %2 as the school")
                                        .arg(schoolName(id), schoolName(school)));
        character->GetProhibitedSchoolArray().Add(id);
    }
    character->SetNumProhibitedSchools(wanted);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterGods::RunAddLanguage(CliContext& context, QStringList args) {
    QString path, error;
    CharacterPtr character = load(context, args, path);
    if (!character)
        return 1;
    Named language;
    if (!findNamed(NamedRows(kTableLanguage), QStringLiteral("language"), args[1], language, error))
        return CliContext::Fail(error);
    if (character->GetLanguagePointer(language.guid))
        return CliContext::Fail(QStringLiteral("%1 is already spoken").arg(language.name));
    const DRace* race = character->GetRace();
    if (!race || !race->HasAvailableLanguage(language.guid))
        return CliContext::Fail(
            QStringLiteral("%1 is not a bonus language of the race").arg(language.name));
    if (DHandBook::GetRemainingLanguagePoints(character.get()) < 1)
        return CliContext::Fail(
            QStringLiteral("no bonus languages left (Intelligence allows %1)")
                .arg(character->GetCharacterStat(kStatIntelligenceLanguagePoints)));
    auto* chosen = new DChosenLanguage(language.guid);
    DHandBook::AddLanguage(character.get(), chosen, false);
    chosen->Release();
    return CharacterCommand::SaveAndShow(context, *character, path);
}

void CharacterGods::Describe(const DCharacter& constCharacter, QJsonObject& description) {
    auto& character = const_cast<DCharacter&>(constCharacter);
    QJsonArray domains, prohibited, languages;
    for (int i = 0; i < kMaxDomains; ++i) {
        if (!character.GetDomain(i).isNull())
            domains.append(nameOf(kTableDomain, character.GetDomain(i)));
    }
    for (const int school : character.GetProhibitedSchoolArray())
        prohibited.append(schoolName(school));
    QStringList spoken;
    for (const auto& [guid, language] : character.GetLanguageMap())
        spoken << nameOf(kTableLanguage, guid);
    spoken.sort();
    for (const QString& name : spoken)
        languages.append(name);
    description.insert("god", character.HasPickedGod()
                                  ? QJsonValue(nameOf(kTableGod, character.GetGod()))
                                  : QJsonValue());
    description.insert("domains", domains);
    description.insert("school", character.HasPickedSchool()
                                     ? QJsonValue(schoolName(character.GetSchool()))
                                     : QJsonValue());
    description.insert("prohibited", prohibited);
    description.insert("languages", languages);
    description.insert("bonus_languages_left", DHandBook::GetRemainingLanguagePoints(&character));
    description.insert("proficiencies", QJsonObject{{"weapons", weaponProficiencies(character)},
                                                    {"armor", armorProficiencies(character)}});
}

void CharacterGods::Print(const QJsonObject& description) {
    if (!description["god"].isNull())
        CliContext::PrintLine(QStringLiteral("God:        %1").arg(description["god"].toString()));
    if (!description["domains"].toArray().isEmpty())
        CliContext::PrintLine(
            QStringLiteral("Domains:    %1").arg(listText(description["domains"])));
    if (!description["school"].isNull())
        CliContext::PrintLine(
            QStringLiteral("School:     %1, prohibited %2")
                .arg(description["school"].toString(), listText(description["prohibited"])));
    CliContext::PrintLine(QStringLiteral("Languages:  %1 (%2 bonus left)")
                              .arg(listText(description["languages"]))
                              .arg(description["bonus_languages_left"].toInt()));
    // Weapon names may hold a comma ("Crossbow, light"), so the weapons are split by ';'.
    const QJsonObject proficiencies = description["proficiencies"].toObject();
    QStringList weapons;
    for (const QJsonValue weapon : proficiencies["weapons"].toArray())
        weapons << weapon.toString();
    CliContext::PrintLine(
        QStringLiteral("Weapon use: %1")
            .arg(weapons.isEmpty() ? QStringLiteral("none") : weapons.join(QStringLiteral("; "))));
    CliContext::PrintLine(QStringLiteral("Armor use:  %1").arg(listText(proficiencies["armor"])));
}
