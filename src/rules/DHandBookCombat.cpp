#include "DHandBook.h"

#include "DCharFlags.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DClassInfo.h"
#include "DClassLevelInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DItemType.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "ResultSet.h"

#include <algorithm>

namespace {

// A class feature of this type and data adds Charisma to every save (divine grace).
constexpr DFeatureType kCharismaToSavesFeature = 7;
constexpr int kCharismaToSavesData = -1;
// Races of this subtype add Charisma to armor class, at least +1.
constexpr int kCharismaArmorSubType = 13;
constexpr int kGoldCoin = 2;
// Improved Grapple adds +4 to every grapple check.
constexpr QUuid kImprovedGrappleFeat = DRuleGuids::Guid("{E150D1CE-B561-57F1-B301-7ECF02C36242}");
constexpr int kImprovedGrappleBonus = 4;
constexpr int kHighestGoldLevel = 20;

constexpr DAbilityStatType kSaveAbility[kSaveCount] = {kAbilityConstitution, kAbilityDexterity,
                                                       kAbilityWisdom};

// The dodge bonus of the class that grants one: +1 at its first level, +1 more every third.
int DodgeClassBonus(const DCharacter* character) {
    if (!character->IsClass(DRuleGuids::kDodgeBonusClass))
        return 0;
    return (character->GetClassLevel(DRuleGuids::kDodgeBonusClass) - 1) / 3 + 1;
}

int AbilityModifier(const DCharacter* character, DAbilityStatType ability) {
    return DHandBook::GetAbilityModifier(character->GetAbilityStat(ability));
}

bool ValidSave(DSaveType save) {
    return save >= kSaveFortitude && save < kSaveCount;
}

// Fills the face and reach of `race` from a "[info Size Scale]" query; false without a row.
bool ReadFaceReach(DRace* race, const QString& sql) {
    return DDatabase::FirstRow(sql, [race](odbc::ResultSet* row) {
        race->SetRaceSizeStat(0, row->getFloat(QStringLiteral("FaceWidth")));
        race->SetRaceSizeStat(1, row->getFloat(QStringLiteral("FaceLength")));
        race->SetRaceSizeStat(2, float(row->getInt(QStringLiteral("NatReach"))));
    });
}

int StartingGold(const DCharacter* character) {
    if (character->IsMonsterClassOnly())
        return 0;
    const int level = int(character->GetCharacterLevel());
    if (level == 1) {
        const DCharacterClass* first = character->GetClassAtPosition(0);
        const DClassInfo* info = first ? DDatabase::GetClassInfoA(first->GetClassGuid()) : nullptr;
        if (!info)
            return 0;
        return DDieRoller::RollDiceSum(info->mStartingGoldDieId,
                                       unsigned(std::max(info->mStartingGoldDieCount, 0))) *
               info->mStartingGoldMultiply;
    }
    const DClassLevelInfo* row = DDatabase::GetClassLevelInfo(std::min(level, kHighestGoldLevel));
    return row ? row->GetStartingGold() : 0;
}

} // namespace

// --- Saves -------------------------------------------------------------------------------------

void DHandBook::ComputeAndSetAllSavingThrows(DCharacter* character) {
    for (const DSaveType save : {kSaveReflex, kSaveFortitude, kSaveWill})
        ComputeAndSetSavingThrows(character, save);
}

void DHandBook::ComputeAndSetSavingThrows(DCharacter* character, DSaveType save) {
    if (!character || !ValidSave(save))
        return;
    DSavingThrowValues values;
    GetSavingThrowValues(character, save, values);
    character->SetCharacterStat(SaveStat(kStatFortitude, save), values.Total());
    character->AddChangeFlag(kChangeSave);
}

void DHandBook::AdjustSavingThrowForAbilityModChange(DCharacter* character, DCharStatType stat,
                                                     int change) {
    if (!character)
        return;
    character->AdjustCharacterStat(stat, change);
    character->AddChangeFlag(kChangeSave);
}

bool DHandBook::GetHasGoodSaves(DRace* race, DSaveType save) {
    return race && DoesClassHaveGoodSaves(race->GetClassGuid(), save);
}

bool DHandBook::DoesClassHaveGoodSaves(const QUuid& classGuid, DSaveType save) {
    const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
    return info && ValidSave(save) && info->mGoodSaves[save];
}

void DHandBook::GetSavingThrowValues(DCharacter* character, DSaveType save,
                                     DSavingThrowValues& values) {
    values = DSavingThrowValues();
    if (!character || !ValidSave(save))
        return;
    for (DCharacterClass* characterClass : character->GetClassList())
        values.base += GetSavingThrowBase(character, save, characterClass);
    values.ability = AbilityModifier(character, kSaveAbility[save]);
    if (character->HasFeature(kCharismaToSavesFeature, kCharismaToSavesData, 0))
        values.ability += AbilityModifier(character, kAbilityCharisma);
    if (const DRace* race = character->GetRace())
        values.race = race->GetSaveBonus(save);
    values.feat = character->GetCharacterStat(SaveStat(kStatFeatFortitude, save));
    values.magic = character->GetCharacterStat(kStatMagicSaveBonus);
    values.familiar = character->GetCharacterStat(SaveStat(kStatFamiliarFortitude, save));
    values.feature = character->GetCharacterStat(SaveStat(kStatFeatureFortitude, save));
    values.user = character->GetCharacterStat(SaveStat(kStatUserFortitude, save));
}

int DHandBook::GetSavingThrowBase(DCharacter* character, DSaveType save,
                                  DCharacterClass* characterClass) {
    if (!character || !characterClass || !ValidSave(save))
        return 0;
    const QUuid guid = characterClass->GetClassGuid();
    // Racial hit dice follow the race's own save flags, which an editor may have changed.
    const DRace* race = character->GetRace();
    bool good = false;
    if (race && guid == race->GetClassGuid())
        good = race->GetHasGoodSaves(save);
    else if (DDatabase::GetClassInfoA(guid))
        good = DoesClassHaveGoodSaves(guid, save);
    else
        return 0;
    const int level = int(characterClass->GetLevel());
    return good ? level / 2 + 2 : level / 3;
}

// --- Initiative and armor class -----------------------------------------------------------------

void DHandBook::ComputeAndSetInitiative(DCharacter* character) {
    if (!character)
        return;
    DInitiativeValues values;
    GetInitiativeValues(character, values);
    character->SetCharacterStat(kStatInitiative, values.Total());
    character->AddChangeFlag(kChangeInitiative);
}

void DHandBook::GetInitiativeValues(DCharacter* character, DInitiativeValues& values) {
    values = DInitiativeValues();
    if (!character)
        return;
    // A creature without Dexterity reacts by its wits.
    values.ability = character->IsNullAbility(kAbilityDexterity)
                         ? AbilityModifier(character, kAbilityIntelligence)
                         : AbilityModifier(character, kAbilityDexterity);
    values.feat = character->GetCharacterStat(kStatFeatInitiative);
    values.magic = character->GetCharacterStat(kStatMagicInitiative);
    values.user = character->GetCharacterStat(kStatUserInitiative);
}

void DHandBook::ComputeAndSetArmorClass(DCharacter* character) {
    if (!character)
        return;
    DACValues values;
    GetArmorClassValues(character, values);
    character->SetCharacterStat(kStatArmorClass, values.Total());
    character->AddChangeFlag(kChangeArmorClass);
}

void DHandBook::GetArmorClassValues(DCharacter* character, DACValues& values) {
    values = DACValues();
    if (!character)
        return;
    values.natural = character->GetCharacterStat(kStatNaturalArmor);
    values.dexterity = AbilityModifier(character, kAbilityDexterity);
    const int maxDexterity = character->GetCharacterStat(kStatMaxDexterityBonus);
    if (maxDexterity >= 0)
        values.dexterity = std::min(values.dexterity, maxDexterity);
    if (const DSizeInfo* size = character->GetSizeInfo())
        values.size = size->GetAttackArmorMod();
    values.armor = character->GetCharacterStat(kStatArmorBonus);
    values.shield = character->GetCharacterStat(kStatShieldBonus);
    values.magic = character->GetCharacterStat(kStatMagicArmorBonus);
    // Worn armor's and shields' enhancement comes with the other magic bonuses, but it is part
    // of their armor or shield bonus, which a touch attack passes by.
    for (int slot = 0; slot < DCharacter::kEquipSlotCount; ++slot) {
        const DChosenItem* item = character->GetEquipment(slot);
        const int type = item ? item->GetBaseItemType() : kItemGeneric;
        if (type != kItemArmor && type != kItemShield)
            continue;
        const int enhancement = std::clamp(item->GetMagicBonus(), 0, std::max(values.magic, 0));
        (type == kItemArmor ? values.armor : values.shield) += enhancement;
        values.magic -= enhancement;
    }
    values.feature = character->GetCharacterStat(kStatFeatureArmorBonus);
    values.misc = GetArmorMiscModifier(character);
    values.user = character->GetCharacterStat(kStatUserArmor);
}

int DHandBook::GetArmorMiscModifier(DCharacter* character) {
    if (!character)
        return 0;
    int misc = 0;
    if (character->IsClass(DRuleGuids::kMonkClass) && character->GetArmorCount() == 0) {
        const int monk = character->GetClassLevel(DRuleGuids::kMonkClass) / 5 +
                         AbilityModifier(character, kAbilityWisdom);
        misc += std::max(monk, 0);
    }
    misc += DodgeClassBonus(character);
    const DRace* race = character->GetRace();
    if (race && race->HasSubType(kCharismaArmorSubType)) {
        const int charisma = AbilityModifier(character, kAbilityCharisma);
        misc += charisma >= 2 ? charisma : 1;
    }
    return misc;
}

int DHandBook::GetTouchArmorClass(DCharacter* character) {
    DACValues values;
    GetArmorClassValues(character, values);
    return values.Total() - values.armor - values.shield - values.natural;
}

int DHandBook::GetFlatFootedArmorClass(DCharacter* character) {
    DACValues values;
    GetArmorClassValues(character, values);
    const int dodge = character ? DodgeClassBonus(character) : 0;
    // A Dexterity penalty still counts when caught unaware; only a bonus is lost.
    return values.Total() - std::max(values.dexterity, 0) - dodge;
}

int DHandBook::ComputeGrapple(DCharacter* character) {
    if (!character)
        return 0;
    const DSizeInfo* size = character->GetSizeInfo();
    return character->GetCharacterStat(kStatBaseAttack) +
           GetAbilityModifier(character->GetAbilityStat(kAbilityStrength)) +
           (size ? size->GetGrappleMod() : 0) +
           (character->HasFeat(kImprovedGrappleFeat) ? kImprovedGrappleBonus : 0);
}

// --- Base attack, face and reach, user values, gold ---------------------------------------------

int DHandBook::ComputeBaseAttack(DCharacter* character) {
    if (!character)
        return 0;
    int total = 0;
    // Each class is cut by itself: two classes of 3/4 at three levels give 2 + 2.
    for (const DCharacterClass* characterClass : character->GetClassList())
        total += ComputeBaseAttack(characterClass->GetClassGuid(), characterClass->GetLevel());
    return total;
}

int DHandBook::ComputeBaseAttack(const QUuid& classGuid, float level) {
    const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
    return info ? int(info->mAttackMultiplier * level) : 0;
}

void DHandBook::ComputeAndSetFaceReach(DRace* race) {
    if (!race)
        return;
    const QByteArray table = DRulesQuery::Table(kTableSizeScale);
    const int size = race->GetSizeId();
    if (ReadFaceReach(race, QString::asprintf("SELECT * FROM %s WHERE (ID=%d) AND (SUBID=%d)",
                                              table.constData(), size, race->GetSizeDirectionId())))
        return;
    if (ReadFaceReach(race,
                      QString::asprintf("SELECT * FROM %s WHERE (ID=%d)", table.constData(), size)))
        return;
    for (int stat = 0; stat < DRace::kSizeStatCount; ++stat)
        race->SetRaceSizeStat(stat, 0.0f);
}

void DHandBook::SetCharacterUserValue(DCharacter* character, DCharStatType stat, int value) {
    if (!character)
        return;
    character->SetCharacterStat(stat, value);
    switch (stat) {
    case kStatUserArmor:
        ComputeAndSetArmorClass(character);
        break;
    case kStatUserFortitude:
    case kStatUserReflex:
    case kStatUserWill:
        ComputeAndSetSavingThrows(character, DSaveType(stat - kStatUserFortitude));
        break;
    case kStatUserInitiative:
        ComputeAndSetInitiative(character);
        break;
    default:
        break;
    }
    character->HandleHasChanged();
}

void DHandBook::ComputeAndSetStartingGold(DCharacter* character, bool resetCash) {
    if (!character)
        return;
    const int amount = StartingGold(character);
    if (resetCash) {
        character->GetCurrency().SetAmount(kGoldCoin, amount);
        character->SetBaselineGold(amount);
    } else if (character->GetCharacterLevel() > 1.0f) {
        // A level-up moves the wealth a character of that level should have; the cash stays.
        character->SetBaselineGold(amount);
    }
}
