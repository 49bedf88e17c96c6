#include "DHandBook.h"

#include "DAgeChangeInfo.h"
#include "DCharacter.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DDieData.h"
#include "DDieRoller.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

#include <algorithm>
#include <limits>

namespace {

// Upper bounds of the biography's spin boxes when the race gives no dice to bound them.
constexpr int kMaxAge = 9999;
constexpr int kMaxHeight = 11999;
constexpr int kMaxWeight = 99999;

// The ability changes of one age category step, `sign` -1 to take them back.
void ApplyAgeStep(DCharacter* character, int ageChangeId, int sign) {
    DAgeChangeInfo step;
    if (!DDatabase::GetInfo(kTableAdvancementAge, ageChangeId, &step))
        return;
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        const int delta = sign * step.GetAdjustValue(ability);
        if (delta != 0)
            DHandBook::AdjustCharacterAbilityStatBonus(character, DAbilityStatType(ability), delta,
                                                       false);
    }
}

} // namespace

void DHandBook::SetCharacterAge(DCharacter* character, int age) {
    if (!character)
        return;
    const int oldAge = character->GetCharacterStat(kStatAge);
    character->SetCharacterStat(kStatAge, age);
    if (const DRace* race = character->GetRace()) {
        const int oldType = race->GetAgeType(oldAge);
        const int newType = race->GetAgeType(age);
        const int sign = oldType > newType ? -1 : 1;
        for (int id = std::min(oldType, newType); id < std::max(oldType, newType); ++id)
            ApplyAgeStep(character, id, sign);
    }
    character->HandleHasChanged();
}

void DHandBook::ComputeAndSetInitialAge(DCharacter* character) {
    if (character)
        character->SetCharacterStat(kStatAge, ComputeRandomAge(character));
}

int DHandBook::ComputeRandomAge(DCharacter* character) {
    const DRace* race = character ? character->GetRace() : nullptr;
    if (!race)
        return 0;
    int age = race->GetStartAge(0);
    DDieData die;
    if (GetRandomAgeModifier(character, &die))
        age += die.Roll();
    return age;
}

bool DHandBook::GetRandomAgeModifier(DCharacter* character, DDieData* die) {
    if (!character || !die || !character->GetRace())
        return false;
    // Only the first class counts for a multiclass character.
    const DCharacterClass* first = character->GetFirstNonRaceClassPointer();
    const DClassInfo* info = first ? DDatabase::GetClassInfoA(first->GetClassGuid()) : nullptr;
    if (!info)
        return false;
    const QString sql =
        QString::asprintf("SELECT DieCount, DieType FROM %s WHERE (RaceId=%d) AND (Category=%d)",
                          DRulesQuery::Table(kTableRandomStartingAges).constData(),
                          character->GetRace()->GetRaceFamilyId(), info->mAgeCat);
    return DDatabase::FirstRow(sql, [die](odbc::ResultSet* row) { die->SetData(row); });
}

void DHandBook::ComputeAgeMinMax(DCharacter* character, int& min, int& max) {
    const DRace* race = character ? character->GetRace() : nullptr;
    min = race ? race->GetStartAge(0) : 0;
    max = kMaxAge;
}

void DHandBook::ComputeAndSetInitialHeightAndWeight(DCharacter* character) {
    if (!character)
        return;
    int height = 0;
    int weight = 0;
    ComputeRandomHeightAndWeight(character, height, weight);
    character->SetCharacterStat(kStatHeight, height);
    character->SetCharacterStat(kStatWeight, weight);
}

void DHandBook::ComputeRandomHeightAndWeight(DCharacter* character, int& height, int& weight) {
    const DRace* race = character ? character->GetRace() : nullptr;
    height = 0;
    weight = 0;
    if (!race)
        return;
    const int gender = character->GetGender();
    height = race->GetStartHeight(gender);
    weight = race->GetStartWeight(gender);
    const DDieData heightDice = race->GetHeightMod(gender);
    const DDieData weightDice = race->GetWeightMod(gender);
    int roll = 0;
    int multiplier = 1;
    if (heightDice.GetDieCount() > 0)
        roll = DDieRoller::RollDiceSum(heightDice.GetDieType(), unsigned(heightDice.GetDieCount()));
    if (weightDice.GetDieCount() > 0)
        multiplier =
            DDieRoller::RollDiceSum(weightDice.GetDieType(), unsigned(weightDice.GetDieCount()));
    // The roll that makes a character taller also scales how much heavier it is.
    height += roll;
    weight += multiplier * roll;
}

bool DHandBook::ComputeHeightMinMax(DCharacter* character, int& min, int& max) {
    const DRace* race = character ? character->GetRace() : nullptr;
    const int gender = character ? character->GetGender() : 0;
    const int start = race ? race->GetStartHeight(gender) : 0;
    const DDieData dice = race ? race->GetHeightMod(gender) : DDieData(0, 0);
    const int count = dice.GetDieCount();
    if (count > 0) {
        min = start + count;
        max = start + count + count * dice.GetDieType();
        return true;
    }
    min = start;
    max = kMaxHeight;
    return false;
}

bool DHandBook::ComputeWeightMinMax(DCharacter* character, int& min, int& max) {
    const DRace* race = character ? character->GetRace() : nullptr;
    const int gender = character ? character->GetGender() : 0;
    const int start = race ? race->GetStartWeight(gender) : 0;
    const DDieData height = race ? race->GetHeightMod(gender) : DDieData(0, 0);
    const DDieData weight = race ? race->GetWeightMod(gender) : DDieData(0, 0);
    int heightCount = height.GetDieCount();
    int heightSpan = height.GetDieType() * heightCount;
    if (heightCount < 1) {
        heightCount = 0;
        heightSpan = 0;
    }
    const int weightCount = weight.GetDieCount();
    if (weightCount > 0) {
        min = start + heightCount * weightCount;
        max = min + weight.GetDieType() * heightSpan * weightCount;
        return true;
    }
    min = start;
    max = kMaxWeight;
    return false;
}

int DHandBook::ComputeAndSetExperiencePoints(DCharacter* character) {
    if (!character)
        return 0;
    const int experience = character->IsMonsterClassOnly()
                               ? 0
                               : ComputeNeededExperiencePoints(int(character->GetCharacterLevel()));
    character->SetCharacterStat(kStatExperience, experience);
    return experience;
}

int DHandBook::ComputeNeededExperiencePoints(int level) {
    if (level < 2)
        return 0;
    // 1000 x (1 + 2 + ... + (level - 1)); beyond what an int holds the answer stays at its top.
    const qint64 needed = 500LL * qint64(level - 1) * qint64(level);
    return int(std::min<qint64>(needed, std::numeric_limits<int>::max()));
}
