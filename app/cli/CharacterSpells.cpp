#include "CharacterSpells.h"

#include "CharacterCommand.h"
#include "CliCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenSpell.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "DSpellCaster.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace {

constexpr int kLevels = DSpellCaster::kSpellLevelCount;
constexpr int kMaxCount = 99;

// Removes "--name VALUE"; false when the option is there without a value.
QString className(const QUuid& guid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(guid);
    return info ? QString(info->mName) : guid.toString();
}

// The wizard learns from the sorcerer's list.
QUuid listClass(const QUuid& classGuid) {
    return classGuid == DRuleGuids::kWizardClass ? DRuleGuids::kSharedListCasterClass : classGuid;
}

struct Caster {
    DSpellCaster* record = nullptr;
    bool isRace = false;
};

// The caster named by --class, or the first that has `flag`: classes first, then the race's.
bool findCaster(DCharacter& character, const QString& name, unsigned flag, Caster& found,
                QString& error) {
    const QUuid wanted = name.isEmpty() ? QUuid() : CharacterCommand::FindClass(name);
    if (!name.isEmpty() && wanted.isNull()) {
        error = QStringLiteral("unknown class '%1'").arg(name);
        return false;
    }
    for (DCharacterClass* characterClass : character.GetClassList()) {
        if ((wanted.isNull() || characterClass->GetClassGuid() == wanted) &&
            characterClass->HasCasterFlag(flag)) {
            found = {characterClass, false};
            return true;
        }
    }
    for (DSpellCaster* caster : character.GetRaceSpellCasterArray()) {
        if ((wanted.isNull() || caster->GetClassGuid() == wanted) && caster->HasCasterFlag(flag)) {
            found = {caster, true};
            return true;
        }
    }
    const QString what = flag == DSpellCaster::kCasterPrepares ? QStringLiteral("prepares")
                                                               : QStringLiteral("learns");
    error = name.isEmpty() ? QStringLiteral("the character has no class that %1 spells").arg(what)
                           : QStringLiteral("%1 is not a class of the character that %2 spells")
                                 .arg(className(wanted), what);
    return false;
}

// The spell of that name (any case) on the caster's list, or an error naming why not.
bool findSpell(const QString& name, const Caster& caster, CharacterSpells::Spell& found,
               QString& error) {
    const QStringList names = CharacterSpells::SpellNames();
    const auto known = std::find_if(names.begin(), names.end(), [&name](const QString& n) {
        return n.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (known == names.end()) {
        error = CliLookup::UnknownName(QStringLiteral("spell"), name,
                                       CliLookup::ClosestNames(name, names, 3));
        return false;
    }
    for (const CharacterSpells::Spell& spell :
         CharacterSpells::ClassSpells(caster.record->GetClassGuid(), -1)) {
        if (spell.name == *known) {
            found = spell;
            if (spell.level <= caster.record->GetMaxSpellLevel())
                return true;
            error = caster.record->GetMaxSpellLevel() < 0
                        ? QStringLiteral("%1 (level %2): %3 casts no spells yet")
                              .arg(spell.name)
                              .arg(spell.level)
                              .arg(className(caster.record->GetClassGuid()))
                        : QStringLiteral("%1 is level %2, above the highest level %3 can cast (%4)")
                              .arg(spell.name)
                              .arg(spell.level)
                              .arg(className(caster.record->GetClassGuid()))
                              .arg(caster.record->GetMaxSpellLevel());
            return false;
        }
    }
    error = QStringLiteral("%1 is not on the %2 spell list")
                .arg(*known, className(caster.record->GetClassGuid()));
    return false;
}

// A specialist wizard neither learns nor prepares a spell of a school it gave up.
QString prohibitedSchool(DCharacter& character, const Caster& caster,
                         const CharacterSpells::Spell& spell) {
    if (caster.isRace || caster.record->GetClassGuid() != DRuleGuids::kWizardClass)
        return {};
    const int school = DDatabase::GetSpellSchool(spell.guid);
    if (school < 0 || character.GetProhibitedSchoolArray().Find(school) < 0)
        return {};
    const DSchoolInfo* info = DDatabase::GetSchoolInfo(school);
    return QStringLiteral("%1 is a spell of %2, a school the wizard has prohibited")
        .arg(spell.name, info ? QString(info->GetSchoolName()) : QString::number(school));
}

bool knows(DCharacter& character, const Caster& caster, const QUuid& spell) {
    for (const auto& known : character.GetKnownSpellSet()) {
        if (known->GetSpellGuid() == spell &&
            known->GetCasterClassGuid() == caster.record->GetClassGuid())
            return true;
    }
    return false;
}

QJsonArray levelArray(const DSpellCaster& caster, int (DSpellCaster::*get)(int) const) {
    QJsonArray values;
    for (int n = 0; n < kLevels; ++n)
        values.append((caster.*get)(n));
    return values;
}

// A fallen paladin or druid keeps its caster record but casts nothing until it atones.
bool isFallenCaster(const DSpellCaster& caster) {
    const auto* characterClass = dynamic_cast<const DCharacterClass*>(&caster);
    const QUuid guid = caster.GetClassGuid();
    return characterClass && characterClass->GetIsExClass() &&
           (guid == DRuleGuids::kPaladinClass || guid == DRuleGuids::kDevoutClass);
}

QJsonObject describeCaster(const DCharacter& character, const DSpellCaster& caster) {
    QJsonArray known, prepared;
    for (const auto& spell : const_cast<DCharacter&>(character).GetKnownSpellSet()) {
        if (spell->GetCasterClassGuid() != caster.GetClassGuid())
            continue;
        known.append(QJsonObject{{"name", spell->GetSpellGuid().toString()},
                                 {"level", spell->GetSpellLevel()}});
    }
    for (const auto& spell : const_cast<DCharacter&>(character).GetPreparedSpellSet()) {
        if (spell->GetCasterClassGuid() != caster.GetClassGuid())
            continue;
        prepared.append(QJsonObject{{"name", spell->GetSpellGuid().toString()},
                                    {"level", spell->GetSpellLevel()},
                                    {"count", spell->GetPreparedCount()}});
    }
    const bool fallen = isFallenCaster(caster);
    QJsonArray perDay = levelArray(caster, &DSpellCaster::GetSpellsPerDay);
    QJsonArray extraPerDay = levelArray(caster, &DSpellCaster::GetExtraClassSpellsPerDay);
    if (fallen) {
        for (int n = 0; n < kLevels; ++n) {
            perDay[n] = -1;
            extraPerDay[n] = 0;
        }
    }
    return QJsonObject{
        {"class", className(caster.GetClassGuid())},
        {"fallen", fallen},
        {"caster_level", DHandBook::GetSpellCasterLevel(&caster)},
        {"per_day", perDay},
        {"extra_per_day", extraPerDay},
        {"can_know", levelArray(caster, &DSpellCaster::GetSpellsCanKnow)},
        {"known", known},
        {"prepared", prepared},
    };
}

// Spell guids of the known and prepared lists become names in one pass over the catalogue.
void nameSpells(QJsonArray& casters) {
    QHash<QString, QString> names;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Guid, Name FROM %s", DRulesQuery::Table(kTableSpell).constData()),
        [&names](odbc::ResultSet* row) {
            names.insert(row->getGUID(1).toString(), row->getString(2));
        });
    for (qsizetype i = 0; i < casters.size(); ++i) {
        QJsonObject caster = casters[i].toObject();
        for (const char* list : {"known", "prepared"}) {
            QJsonArray spells = caster[list].toArray();
            for (qsizetype j = 0; j < spells.size(); ++j) {
                QJsonObject spell = spells[j].toObject();
                spell["name"] = names.value(spell["name"].toString(), spell["name"].toString());
                spells[j] = spell;
            }
            caster[list] = spells;
        }
        casters[i] = caster;
    }
}

QString spellList(const QJsonArray& spells) {
    QStringList parts;
    for (const QJsonValue value : spells) {
        const QJsonObject spell = value.toObject();
        QString text =
            QStringLiteral("%1 (%2)").arg(spell["name"].toString()).arg(spell["level"].toInt());
        if (spell["count"].toInt() > 1)
            text += QStringLiteral(" x%1").arg(spell["count"].toInt());
        parts << text;
    }
    return parts.isEmpty() ? QStringLiteral("none") : parts.join(", ");
}

} // namespace

QList<CharacterSpells::Spell> CharacterSpells::ClassSpells(const QUuid& classGuid, int level) {
    QList<Spell> spells;
    QString sql = QString::asprintf(
        "SELECT s.Guid, s.Name, l.Level FROM %s s JOIN %s l ON l.Id = s.Guid WHERE (l.ClassId=%s)",
        DRulesQuery::Table(kTableSpell).constData(),
        DRulesQuery::Table(kTableSpellLevel).constData(),
        DRulesQuery::Guid(listClass(classGuid)).constData());
    if (level >= 0)
        sql += QStringLiteral(" AND (l.Level=%1)").arg(level);
    sql += QStringLiteral(" ORDER BY l.Level, s.Name");
    DDatabase::ForEachRow(sql, [&spells](odbc::ResultSet* row) {
        spells.append({row->getGUID(1), row->getString(2), row->getInt(3)});
    });
    return spells;
}

QStringList CharacterSpells::SpellNames() {
    QStringList names;
    DDatabase::ForEachRow(QString::asprintf("SELECT Name FROM %s ORDER BY Name",
                                            DRulesQuery::Table(kTableSpell).constData()),
                          [&names](odbc::ResultSet* row) { names << row->getString(1); });
    return names;
}

int CharacterSpells::RunAddSpell(CliContext& context, QStringList args) {
    QString classText;
    if (!CliCommand::TakeOption(args, "--class", classText))
        return CliContext::Fail(QStringLiteral("--class is missing its value"));
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr SPELL (see --help)"));
    QString path, error;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    Caster caster;
    Spell spell;
    if (!findCaster(*character, classText, DSpellCaster::kCasterKnowsList, caster, error) ||
        !findSpell(args[1], caster, spell, error))
        return CliContext::Fail(error);
    if (const QString refused = prohibitedSchool(*character, caster, spell); !refused.isEmpty())
        return CliContext::Fail(refused);
    if (knows(*character, caster, spell.guid))
        return CliContext::Fail(QStringLiteral("%1 is already known").arg(spell.name));
    // Past its allowance a spellbook takes the spell bought with gold; a list caster cannot.
    int purchase = spell.level;
    if (caster.record->GetRemainingSpellsCanKnow(spell.level) < 1) {
        if (!caster.record->HasCasterFlag(DSpellCaster::kCasterPrepares))
            return CliContext::Fail(QStringLiteral("no level-%1 spells left to learn for %2")
                                        .arg(spell.level)
                                        .arg(className(caster.record->GetClassGuid())));
        purchase = 10;
    }
    FCRef<DChosenSpell> chosen(new DChosenSpell());
    chosen->SetSpellGuid(spell.guid);
    chosen->SetSpellLevel(spell.level);
    chosen->SetCasterClassGuid(caster.record->GetClassGuid());
    chosen->SetPurchaseType(purchase);
    if (caster.isRace)
        chosen->AddSpellFlag(DChosenSpell::kSpellRaceCaster);
    DHandBook::AddSpellKnown(character.get(), chosen.get());
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterSpells::RunPrepare(CliContext& context, QStringList args) {
    QString classText, countText = QStringLiteral("1");
    if (!CliCommand::TakeOption(args, "--class", classText) ||
        !CliCommand::TakeOption(args, "--count", countText))
        return CliContext::Fail(QStringLiteral("--class and --count need a value"));
    bool ok = false;
    const int count = countText.toInt(&ok);
    if (!ok || count < 1 || count > kMaxCount)
        return CliContext::Fail(
            QStringLiteral("--count must be a number from 1 to %1").arg(kMaxCount));
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr SPELL (see --help)"));
    QString path, error;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    Caster caster;
    Spell spell;
    if (!findCaster(*character, classText, DSpellCaster::kCasterPrepares, caster, error) ||
        !findSpell(args[1], caster, spell, error))
        return CliContext::Fail(error);
    if (isFallenCaster(*caster.record))
        return CliContext::Fail(QStringLiteral("%1 has fallen and casts no spells until it atones")
                                    .arg(className(caster.record->GetClassGuid())));
    if (const QString refused = prohibitedSchool(*character, caster, spell); !refused.isEmpty())
        return CliContext::Fail(refused);
    if (caster.record->HasCasterFlag(DSpellCaster::kCasterKnowsList) &&
        !knows(*character, caster, spell.guid))
        return CliContext::Fail(
            QStringLiteral("%1 is not in the spellbook: add it first").arg(spell.name));
    const int left = caster.record->GetRemainingSpellsPerDay(spell.level);
    if (count > left)
        return CliContext::Fail(
            QStringLiteral("cannot prepare %1 x%2: %3 level-%4 slots left today")
                .arg(spell.name)
                .arg(count)
                .arg(std::max(left, 0))
                .arg(spell.level));
    const unsigned flags = caster.isRace ? unsigned(DChosenSpell::kSpellRaceCaster) : 0u;
    for (int i = 0; i < count; ++i)
        DHandBook::AddSpellPrepared(character.get(), spell.guid, caster.record->GetClassGuid(),
                                    spell.level, flags);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

void CharacterSpells::Describe(const DCharacter& character, QJsonObject& description) {
    QJsonArray casters;
    for (const DCharacterClass* characterClass : character.GetClassList()) {
        if (characterClass->HasCasterFlag(DSpellCaster::kCasterCasts))
            casters.append(describeCaster(character, *characterClass));
    }
    for (const DSpellCaster* caster :
         const_cast<DCharacter&>(character).GetRaceSpellCasterArray()) {
        if (caster->HasCasterFlag(DSpellCaster::kCasterCasts))
            casters.append(describeCaster(character, *caster));
    }
    if (!casters.isEmpty())
        nameSpells(casters);
    description.insert("casters", casters);
}

void CharacterSpells::Print(const QJsonObject& description) {
    for (const QJsonValue value : description["casters"].toArray()) {
        const QJsonObject caster = value.toObject();
        CliContext::PrintLine(QStringLiteral("Spells:     %1, caster level %2%3")
                                  .arg(caster["class"].toString())
                                  .arg(caster["caster_level"].toInt())
                                  .arg(caster["fallen"].toBool()
                                           ? QStringLiteral(" (fallen: no spells until it atones)")
                                           : QString()));
        QStringList perDay, canKnow;
        const QJsonArray day = caster["per_day"].toArray();
        const QJsonArray extra = caster["extra_per_day"].toArray();
        const QJsonArray know = caster["can_know"].toArray();
        for (int n = 0; n < kLevels; ++n) {
            QString text =
                day[n].toInt() < 0 ? QStringLiteral("-") : QString::number(day[n].toInt());
            if (extra[n].toInt() > 0)
                text += QStringLiteral("+%1").arg(extra[n].toInt());
            perDay << text;
            canKnow << QString::number(know[n].toInt());
        }
        CliContext::PrintLine(QStringLiteral("  per day:  %1").arg(perDay.join(' ')));
        CliContext::PrintLine(QStringLiteral("  can know: %1").arg(canKnow.join(' ')));
        CliContext::PrintLine(
            QStringLiteral("  known:    %1").arg(spellList(caster["known"].toArray())));
        CliContext::PrintLine(
            QStringLiteral("  prepared: %1").arg(spellList(caster["prepared"].toArray())));
    }
}
