#include "CharacterCompanions.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenFeature.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "FCReleaser.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using CharacterPtr = FCRef<DCharacter>;
using RacePtr = FCRef<DRace>;

// The words of the command line for the slots it offers.
struct Kind {
    const char* word;
    DAnimalType type;
};
constexpr Kind kKinds[] = {
    {"familiar", DCompanionRules::kFamiliar},
    {"companion", DCompanionRules::kAnimalCompanion},
    {"mount", DCompanionRules::kMount},
};

QString kindWord(DAnimalType type) {
    for (const Kind& kind : kKinds) {
        if (kind.type == type)
            return QString::fromLatin1(kind.word);
    }
    return DCompanionRules::GetTypeName(type);
}

// "a sorcerer from level 1, a wizard from level 1": who may have the slot.
QString grantingClasses(DAnimalType type) {
    QStringList classes;
    for (const auto& [guid, entry] : DDatabase::GetClassInfoMap()) {
        const auto* info = static_cast<const DClassInfo*>(entry);
        if (info->mLevelForAnimal > 0 && info->mAnimalType == type)
            classes
                << QStringLiteral("%1 from level %2").arg(info->mName).arg(info->mLevelForAnimal);
    }
    return classes.join(", ");
}

QString raceName(const DChosenAnimal* animal) {
    return animal->GetFileObject()->GetBaseFileName();
}

QJsonValue abilityValue(const DCharacter& creature, DAbilityStatType ability) {
    return creature.IsNullAbility(ability) ? QJsonValue() : creature.GetAbilityStat(ability);
}

QJsonObject describeCompanion(const DCharacter& master, const DChosenAnimal& animal) {
    const DAnimalType type = animal.GetAnimalType();
    const int masterLevel = DCompanionRules::GetMasterClassLevel(&master, type);
    QJsonObject companion{
        {"kind", kindWord(type)}, {"race", raceName(&animal)}, {"master_level", masterLevel}};
    const DClassInfo* info = DDatabase::GetClassInfoA(animal.GetClassGuid());
    companion.insert("class", info ? QJsonValue(QString(info->mName)) : QJsonValue());
    DCharacter* creature = DCompanionRules::GetAnimal(&animal);
    if (!creature) {
        companion.insert("missing_race", animal.GetFileObject()->GetAccessFilePath());
        return companion;
    }
    DACValues ac;
    DHandBook::GetArmorClassValues(creature, ac);
    const DCharHistory* raceEntry = creature->GetHistoryAtPosition(0);
    companion.insert("hit_dice", raceEntry ? double(raceEntry->GetLevel()) : 0.0);
    companion.insert("hp", creature->GetCharacterStat(kStatHitPoints));
    companion.insert("ac", ac.Total());
    companion.insert("ac_touch", DHandBook::GetTouchArmorClass(creature));
    companion.insert("ac_flat_footed", DHandBook::GetFlatFootedArmorClass(creature));
    companion.insert("natural_armor", creature->GetCharacterStat(kStatNaturalArmor));
    companion.insert("base_attack", creature->GetCharacterStat(kStatBaseAttack));
    companion.insert("grapple", DHandBook::ComputeGrapple(creature));
    companion.insert("fortitude", creature->GetCharacterStat(kStatFortitude));
    companion.insert("reflex", creature->GetCharacterStat(kStatReflex));
    companion.insert("will", creature->GetCharacterStat(kStatWill));
    companion.insert("abilities",
                     QJsonObject{{"str", abilityValue(*creature, kAbilityStrength)},
                                 {"dex", abilityValue(*creature, kAbilityDexterity)},
                                 {"con", abilityValue(*creature, kAbilityConstitution)},
                                 {"int", abilityValue(*creature, kAbilityIntelligence)},
                                 {"wis", abilityValue(*creature, kAbilityWisdom)},
                                 {"cha", abilityValue(*creature, kAbilityCharisma)}});
    QJsonArray features;
    for (int array = 0; array < DCharacter::kFeatureArrayCount; ++array) {
        for (const DChosenFeature* feature : creature->GetFeatureArray(array))
            features.append(DHandBook::BuildFeatureName(feature));
    }
    companion.insert("features", features);
    if (type == DCompanionRules::kAnimalCompanion)
        companion.insert("bonus_tricks",
                         DCompanionRules::GetCompanionRow(type, masterLevel).bonusTricks);
    return companion;
}

void printCompanion(const QJsonObject& companion) {
    CliContext::PrintLine(QStringLiteral("Companion:  %1 %2 (%3, master level %4)")
                              .arg(companion["kind"].toString(), companion["race"].toString(),
                                   companion["class"].toString())
                              .arg(companion["master_level"].toInt()));
    if (companion.contains("missing_race")) {
        CliContext::PrintLine(
            QStringLiteral("  its race is missing: %1").arg(companion["missing_race"].toString()));
        return;
    }
    const QJsonObject abilities = companion["abilities"].toObject();
    QStringList scores;
    for (const char* key : {"str", "dex", "con", "int", "wis", "cha"})
        scores << QStringLiteral("%1 %2").arg(QString::fromLatin1(key).toUpper(),
                                              CharacterCommand::AbilityText(abilities[key]));
    CliContext::PrintLine(
        QStringLiteral("  Hit dice: %1, HP %2")
            .arg(DHandBook::BuildFractionString(float(companion["hit_dice"].toDouble())))
            .arg(companion["hp"].toInt()));
    CliContext::PrintLine(QStringLiteral("  Abilities: %1").arg(scores.join(", ")));
    CliContext::PrintLine(
        QStringLiteral("  AC: %1, touch %2, flat-footed %3 (natural armor %4)")
            .arg(companion["ac"].toInt())
            .arg(companion["ac_touch"].toInt())
            .arg(companion["ac_flat_footed"].toInt())
            .arg(CharacterCommand::SignedNumber(companion["natural_armor"].toInt())));
    CliContext::PrintLine(QStringLiteral("  Base attack: %1, grapple %2")
                              .arg(CharacterCommand::SignedNumber(companion["base_attack"].toInt()),
                                   CharacterCommand::SignedNumber(companion["grapple"].toInt())));
    CliContext::PrintLine(QStringLiteral("  Saves: Fort %1, Ref %2, Will %3")
                              .arg(CharacterCommand::SignedNumber(companion["fortitude"].toInt()),
                                   CharacterCommand::SignedNumber(companion["reflex"].toInt()),
                                   CharacterCommand::SignedNumber(companion["will"].toInt())));
    if (companion.contains("bonus_tricks"))
        CliContext::PrintLine(
            QStringLiteral("  Bonus tricks: %1").arg(companion["bonus_tricks"].toInt()));
    QStringList features;
    for (const QJsonValue feature : companion["features"].toArray())
        features << feature.toString();
    CliContext::PrintLine(
        QStringLiteral("  Features: %1")
            .arg(features.isEmpty() ? QStringLiteral("none") : features.join(", ")));
}

// The refusal for a race that cannot fill the slot, or empty when it can.
QString refuseRace(DFileObject* entry, DAnimalType type, const QString& name) {
    RacePtr race(DRace::CreateFromFile(entry->GetAccessFilePath(), true));
    if (!race)
        return QStringLiteral("the race file %1 cannot be read").arg(entry->GetAccessFilePath());
    if (!race->HasRaceFlag(DCompanionRules::GetRaceFlag(type))) {
        const QString kindName = DCompanionRules::GetTypeName(type);
        const QString article = QStringLiteral("aeiou").contains(kindName.at(0))
                                    ? QStringLiteral("an")
                                    : QStringLiteral("a");
        return QStringLiteral("%1 cannot serve as %2 %3 (its race is not marked so; see `hoard "
                              "race show`)")
            .arg(name, article, kindName);
    }
    return {};
}

} // namespace

int CharacterCompanions::RunAddCompanion(CliContext& context, QStringList args) {
    if (args.size() != 3)
        return CliContext::Fail(
            QStringLiteral("give FILE.chr familiar|companion|mount RACE (see --help)"));
    const Kind* kind = nullptr;
    for (const Kind& candidate : kKinds) {
        if (args[1].compare(QLatin1String(candidate.word), Qt::CaseInsensitive) == 0)
            kind = &candidate;
    }
    if (!kind)
        return CliContext::Fail(
            QStringLiteral("unknown companion kind '%1' (familiar, companion or mount)")
                .arg(args[1]));
    QString path;
    CharacterPtr character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    if (!DCompanionRules::CanCharacterHaveAnimal(character.get(), kind->type))
        return CliContext::Fail(QStringLiteral("%1 has no class that grants a %2 (%3)")
                                    .arg(character->GetCharacterName(),
                                         DCompanionRules::GetTypeName(kind->type),
                                         grantingClasses(kind->type)));
    DFileObject* entry = DObjectManager::FindRaceFile(args[2]);
    if (!entry)
        return CliContext::Fail(
            CliLookup::UnknownName(QStringLiteral("race"), args[2],
                                   CliLookup::ClosestNames(args[2], CliLookup::RaceNames(), 3)));
    const QString refused = refuseRace(entry, kind->type, entry->GetBaseFileName());
    if (!refused.isEmpty())
        return CliContext::Fail(refused);
    if (!DCompanionRules::AddCharacterAnimal(character.get(), *entry, kind->type))
        return CliContext::Fail(
            QStringLiteral("the race file %1 cannot be read").arg(entry->GetAccessFilePath()));
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterCompanions::RunRemoveCompanion(CliContext& context, QStringList args) {
    if (args.size() != 1 && args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr [RACE] (see --help)"));
    QString path;
    CharacterPtr character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    QList<DAnimalType> held;
    QStringList names;
    for (int type = 0; type < DCharacter::kAnimalCount; ++type) {
        if (const DChosenAnimal* animal = character->GetAnimal(type)) {
            held << type;
            names << QStringLiteral("%1 %2").arg(kindWord(type), raceName(animal));
        }
    }
    if (held.isEmpty())
        return CliContext::Fail(
            QStringLiteral("%1 has no companion").arg(character->GetCharacterName()));
    DAnimalType found = -1;
    if (args.size() == 1) {
        if (held.size() > 1)
            return CliContext::Fail(QStringLiteral("name the race: %1 has %2")
                                        .arg(character->GetCharacterName(), names.join(", ")));
        found = held.first();
    } else {
        for (DAnimalType type : held) {
            if (raceName(character->GetAnimal(type)).compare(args[1], Qt::CaseInsensitive) == 0)
                found = type;
        }
        if (found < 0)
            return CliContext::Fail(
                QStringLiteral("%1 has no companion of race '%2' (has: %3)")
                    .arg(character->GetCharacterName(), args[1], names.join(", ")));
    }
    DCompanionRules::RemoveCharacterAnimal(character.get(), found);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

void CharacterCompanions::Describe(const DCharacter& character, QJsonObject& description) {
    QJsonArray companions;
    for (int type = 0; type < DCharacter::kAnimalCount; ++type) {
        if (const DChosenAnimal* animal = character.GetAnimal(type))
            companions.append(describeCompanion(character, *animal));
    }
    description.insert("companions", companions);
}

void CharacterCompanions::Print(const QJsonObject& description) {
    const QJsonArray companions = description["companions"].toArray();
    if (companions.isEmpty())
        CliContext::PrintLine(QStringLiteral("Companions: none"));
    for (const QJsonValue companion : companions)
        printCompanion(companion.toObject());
}

QString CharacterCompanions::HelpText() {
    return QStringLiteral(
        "add-companion\n"
        "          gives a sorcerer or wizard a familiar, a druid or ranger (4th level on) an\n"
        "          animal companion, a paladin (5th level on) a special mount, of a race marked\n"
        "          for it; one of a kind, a new one replacing the old. Its numbers follow the\n"
        "          master's level.\n"
        "remove-companion\n"
        "          lets a companion go: the only one, or the one of RACE.\n");
}
