#include "DCompanionRules.h"

#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFamiliarBonus.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DTargetData.h"
#include "ResultSet.h"

#include <algorithm>

namespace {

// "[types Companion]" names, lower case for messages.
constexpr const char* kTypeNames[DCharacter::kAnimalCount] = {
    "familiar",         "special mount",    "fiendish servant",
    "animal companion", "undead companion", "shadow companion",
};

// The animal companion's tables have no index: they are named here.
constexpr const char* kAnimalCompanionTable = "[info Animal Companion]";
constexpr const char* kAnimalCompanionFeatures = "[info Animal Companion Features]";
// "[info Familiar Features]"; the mount's and the fiendish servant's follow it.
constexpr int kTableFamiliarFeatures = kTableFamiliar + 3;

bool ValidType(DAnimalType type) {
    return type >= 0 && type < DCharacter::kAnimalCount;
}

// The progression table of the slot, or empty for a slot without one.
QByteArray ProgressionTable(DAnimalType type) {
    if (type == DCompanionRules::kAnimalCompanion)
        return kAnimalCompanionTable;
    if (type >= DCompanionRules::kFamiliar && type <= DCompanionRules::kFiendishServant)
        return DRulesQuery::Table(kTableFamiliar + type);
    return {};
}

QByteArray FeatureTable(DAnimalType type) {
    if (type == DCompanionRules::kAnimalCompanion)
        return kAnimalCompanionFeatures;
    if (type >= DCompanionRules::kFamiliar && type <= DCompanionRules::kFiendishServant)
        return DRulesQuery::Table(kTableFamiliarFeatures + type);
    return {};
}

// A class's share of the master level: a ranger is a druid of half his level.
int ClassShare(const DCharacterClass* characterClass, DAnimalType type) {
    const int level = int(characterClass->GetLevel());
    if (type == DCompanionRules::kAnimalCompanion &&
        characterClass->GetClassGuid() == DRuleGuids::kRangerClass)
        return level / 2;
    return level;
}

// Racial hit dice added to the creature as a level-up of its race class, so that hit points,
// saves, base attack and skill points follow; its size stays, as a companion does not grow.
void AddBonusHitDice(DCharacter* creature, float bonus) {
    DCharHistory* raceEntry = creature->GetHistoryAtPosition(0);
    DCharacterClass* raceClass = creature->GetRaceClassPointer();
    if (raceEntry && raceClass && bonus > 0.0f) {
        const float hitDice = raceEntry->GetLevel() + bonus;
        raceEntry->SetLevel(hitDice);
        raceClass->SetLevel(hitDice);
        creature->SetAdvancedHitDie(int(bonus));
    }
    DHandBook::CharacterSetup(creature, false);
    creature->SetAdvancedHitDie(0);
}

void AdjustAbility(DCharacter* creature, DAbilityStatType ability, int delta) {
    if (delta != 0 && !creature->IsNullAbility(ability))
        DHandBook::SetCharacterAbilityStatBase(
            creature, ability, creature->GetAbilityStatBase(ability) + delta, false);
}

struct BaseSaves {
    int base[kSaveCount] = {};
};

BaseSaves GetBaseSaves(DCharacter* character) {
    BaseSaves saves;
    for (int save = 0; save < kSaveCount; ++save) {
        DSavingThrowValues values;
        DHandBook::GetSavingThrowValues(character, DSaveType(save), values);
        saves.base[save] = values.base;
    }
    return saves;
}

// A familiar shares its master's base attack and, where better, his base saves; its own are
// those of its race's hit dice, not of the master's level it counts as.
void FollowMasterCombat(DCharacter* master, DCharacter* familiar, const BaseSaves& own) {
    familiar->SetCharacterStat(kStatBaseAttack, master->GetCharacterStat(kStatBaseAttack));
    const BaseSaves masters = GetBaseSaves(master);
    for (int save = 0; save < kSaveCount; ++save) {
        DSavingThrowValues values;
        DHandBook::GetSavingThrowValues(familiar, DSaveType(save), values);
        // The familiar's own bonuses from its master do not count for itself.
        const int rest = values.Total() - values.base - values.familiar - values.feature;
        familiar->SetCharacterStat(DCharStatType(kStatFortitude + save),
                                   rest + std::max(own.base[save], masters.base[save]));
    }
}

void AddFeatures(DCharacter* creature, DAnimalType type, int masterLevel) {
    const QByteArray table = FeatureTable(type);
    if (table.isEmpty())
        return;
    DHandBook::AddAutoFeatures(
        creature,
        QString::asprintf("SELECT FeatureId, Data FROM %s WHERE ([Level]<=%d) ORDER BY [Level]",
                          table.constData(), masterLevel),
        nullptr, 2, false);
}

} // namespace

unsigned DCompanionRules::GetRaceFlag(DAnimalType type) {
    return ValidType(type) ? DRace::kFlagFamiliar << type : 0u;
}

QString DCompanionRules::GetTypeName(DAnimalType type) {
    return ValidType(type) ? QString::fromLatin1(kTypeNames[type]) : QString();
}

bool DCompanionRules::CanCharacterClassHaveAnimal(const DCharacterClass* characterClass,
                                                  DAnimalType type) {
    // An ex-druid or fallen paladin loses the companion with his other class features.
    if (!characterClass || characterClass->GetIsExClass())
        return false;
    const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
    return info && info->mLevelForAnimal > 0 &&
           characterClass->GetLevel() >= float(info->mLevelForAnimal) &&
           (type == -1 || type == info->mAnimalType);
}

bool DCompanionRules::CanCharacterHaveAnimal(const DCharacter* character, DAnimalType type) {
    return GetMasterClassLevel(character, type) > 0;
}

int DCompanionRules::GetMasterClassLevel(const DCharacter* character, DAnimalType type) {
    if (!character)
        return 0;
    int total = 0;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        if (CanCharacterClassHaveAnimal(characterClass, type))
            total += ClassShare(characterClass, type);
    }
    return total;
}

DCompanionRow DCompanionRules::GetCompanionRow(DAnimalType type, int masterLevel) {
    DCompanionRow row;
    const QByteArray table = ProgressionTable(type);
    if (table.isEmpty() || masterLevel < 1)
        return row;
    // Past the last row (an epic master) the last row holds.
    const QString sql = QString::asprintf(
        "SELECT * FROM %s WHERE (MasterLevelMin<=%d) ORDER BY MasterLevelMin DESC",
        table.constData(), masterLevel);
    DDatabase::FirstRow(sql, [&row, type](odbc::ResultSet* result) {
        row.found = true;
        row.bonusHitDice = result->getInt(QStringLiteral("BonusHD"));
        row.naturalArmor = result->getInt(QStringLiteral("NaturalArmor"));
        row.strengthAdjust = result->getInt(QStringLiteral("StrAdj"));
        row.intelligence = result->getInt(QStringLiteral("Int"));
        if (type == kAnimalCompanion)
            row.bonusTricks = result->getInt(QStringLiteral("BonusTricks"));
    });
    return row;
}

DChosenAnimal* DCompanionRules::AddCharacterAnimal(DCharacter* character,
                                                   const DFileObject& raceEntry, DAnimalType type) {
    if (!character || !CanCharacterHaveAnimal(character, type))
        return nullptr;
    // The class that brings it: the first one that grants the slot.
    QUuid classGuid;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        if (CanCharacterClassHaveAnimal(characterClass, type)) {
            classGuid = characterClass->GetClassGuid();
            break;
        }
    }
    auto* animal = new DChosenAnimal();
    animal->SetFileObject(raceEntry);
    animal->SetAnimalType(type);
    animal->SetClassGuid(classGuid);
    if (!AnimalSetup(character, animal)) {
        animal->Release();
        return nullptr;
    }
    // The one it replaces takes its gifts back; the master's hit points may move with them.
    RemoveCharacterAnimal(character, type);
    character->SetAnimal(type, animal);
    UpdateAnimalHitPoints(character);
    if (type == kFamiliar)
        HandleFamiliarBonuses(character, animal, false);
    return animal;
}

void DCompanionRules::RemoveCharacterAnimal(DCharacter* character, DAnimalType type) {
    if (!character || !character->GetAnimal(type))
        return;
    if (type == kFamiliar)
        HandleFamiliarBonuses(character, character->GetAnimal(type), true);
    character->SetAnimal(type, nullptr);
}

void DCompanionRules::HandleFamiliarBonuses(DCharacter* master, const DChosenAnimal* animal,
                                            bool remove) {
    // Rows of "[types Familiar Bonus]".
    constexpr int kLastAbility = 5;
    constexpr int kFirstSave = 6;
    constexpr int kLastSave = 8;
    constexpr int kHitPoints = 9;
    constexpr int kSkill = 10;
    const DCharacter* creature = GetAnimal(animal);
    const DRace* race = creature ? creature->GetRace() : nullptr;
    if (!master || !race)
        return;
    for (const DFamiliarBonus* bonus : race->GetFamiliarBonusArray()) {
        const int value = remove ? -bonus->GetBonus() : bonus->GetBonus();
        const int type = bonus->GetBonusType();
        if (type >= 0 && type <= kLastAbility) {
            DHandBook::AdjustCharacterAbilityStatBonus(master, DAbilityStatType(type), value,
                                                       false);
        } else if (type >= kFirstSave && type <= kLastSave) {
            const DSaveType save = DSaveType(type - kFirstSave);
            master->AdjustCharacterStat(DCharStatType(kStatFamiliarFortitude + int(save)), value);
            DHandBook::ComputeAndSetSavingThrows(master, save);
        } else if (type == kHitPoints) {
            DHandBook::AdjustHitPointsForBonus(master, kStatFamiliarHitPoints, value);
        } else if (type == kSkill) {
            const auto* target = FCDynamicCast<DTargetData>(bonus->GetTargetData());
            DChosenSkill* skill =
                target ? DHandBook::GetChosenSkillForCharacter(master, target->GetTargetGuid(),
                                                               target->GetTargetSubGuid(), !remove)
                       : nullptr;
            if (skill) {
                skill->SetFamiliarMod(skill->GetFamiliarMod() + value);
                master->AddChangeFlag(kChangeSkillAbilityMagic);
            }
        }
    }
}

DCharacter* DCompanionRules::GetAnimal(const DChosenAnimal* animal) {
    return animal ? FCDynamicCast<DCharacter>(animal->GetFileObject()->GetCoreObjectRaw())
                  : nullptr;
}

bool DCompanionRules::AnimalSetup(DCharacter* master, DChosenAnimal* animal) {
    if (!master || !animal)
        return false;
    const DAnimalType type = animal->GetAnimalType();
    const int masterLevel = GetMasterClassLevel(master, type);
    auto* creature = new DCharacter();
    DHandBook::SetupCharacterWithRace(creature, animal->GetFileObject());
    if (!creature->GetRace()) {
        creature->Release();
        animal->GetFileObject()->SetCoreObject(nullptr);
        return false;
    }
    creature->SetCharacterName(creature->GetRace()->GetRaceName());
    DHandBook::CharacterSetup(creature, true);

    const DCompanionRow row = GetCompanionRow(type, masterLevel);
    // The table gives the score itself: the base moves by what the race's adjustment leaves.
    if (row.intelligence > 0)
        AdjustAbility(creature, kAbilityIntelligence,
                      row.intelligence - creature->GetAbilityStat(kAbilityIntelligence));
    AdjustAbility(creature, kAbilityStrength, row.strengthAdjust);
    if (type == kAnimalCompanion)
        AdjustAbility(creature, kAbilityDexterity, row.strengthAdjust);
    // A familiar counts its master's level as its hit dice where that is more.
    float bonus = float(row.bonusHitDice);
    if (type == kFamiliar)
        bonus = std::max(0.0f, float(int(master->GetCharacterLevel())) -
                                   creature->GetHistoryAtPosition(0)->GetLevel());
    const BaseSaves ownSaves = GetBaseSaves(creature);
    AddBonusHitDice(creature, bonus);
    creature->AdjustCharacterStat(kStatNaturalArmor, row.naturalArmor);
    AddFeatures(creature, type, masterLevel);
    if (type == kFamiliar) {
        FollowMasterCombat(master, creature, ownSaves);
        creature->SetCharacterStat(kStatHitPoints, master->GetCharacterStat(kStatHitPoints) / 2);
    }
    animal->GetFileObject()->SetCoreObject(creature);
    creature->Release();
    return true;
}

void DCompanionRules::UpdateAnimals(DCharacter* master) {
    if (!master)
        return;
    for (int type = 0; type < DCharacter::kAnimalCount; ++type) {
        DChosenAnimal* animal = master->GetAnimal(type);
        if (!animal)
            continue;
        // One whose race file is gone is kept without a creature, so that a save keeps it.
        if (CanCharacterHaveAnimal(master, type))
            AnimalSetup(master, animal);
        else
            RemoveCharacterAnimal(master, type);
    }
}

void DCompanionRules::UpdateAnimalHitPoints(DCharacter* master) {
    DCharacter* familiar = master ? GetAnimal(master->GetAnimal(kFamiliar)) : nullptr;
    if (familiar)
        familiar->SetCharacterStat(kStatHitPoints, master->GetCharacterStat(kStatHitPoints) / 2);
}
