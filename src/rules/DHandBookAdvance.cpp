#include "DHandBook.h"

#include "DAttackInfo.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DDatabase.h"
#include "DRace.h"
#include "DSizeInfo.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kChangeValueCount = 4;
constexpr int kNaturalArmorChange = 3;

int SizeId(const DCharacter* character) {
    const DSizeInfo* size = character->GetSizeInfo();
    return size ? size->GetSizeId() : -1;
}

} // namespace

void DHandBook::AdvanceCharacterWithHD(DCharacter* character, float oldHD, float newHD,
                                       bool initial) {
    if (!character || !character->GetRace())
        return;
    const int oldSize = SizeId(character);
    const int newSize = character->GetRace()->GetSizeForHitDie(newHD);
    if (!initial) {
        if (DCharHistory* raceEntry = character->GetHistoryAtPosition(0))
            raceEntry->SetLevel(newHD);
        if (DCharacterClass* raceClass = character->GetRaceClassPointer())
            raceClass->SetLevel(newHD);
        character->SetAdvancedHitDie(int(newHD - oldHD));
        CharacterSetup(character, false);
    }
    if (oldSize != newSize && oldSize >= 0)
        AdvanceCharacter(character, oldSize, newSize, initial);
    character->SetAdvancedHitDie(0);
}

void DHandBook::AdvanceCharacter(DCharacter* character) {
    const DRace* race = character ? character->GetRace() : nullptr;
    const DCharHistory* raceEntry = character ? character->GetHistoryAtPosition(0) : nullptr;
    if (race && raceEntry && race->GetHitDieCount() != raceEntry->GetLevel())
        AdvanceCharacterWithHD(character, race->GetHitDieCount(), raceEntry->GetLevel(), true);
}

void DHandBook::AdvanceCharacter(DCharacter* character, int oldSizeId, int newSizeId,
                                 bool initial) {
    if (!character)
        return;
    int sums[kChangeValueCount] = {};
    for (int size = std::min(oldSizeId, newSizeId) + 1; size <= std::max(oldSizeId, newSizeId);
         ++size) {
        if (const DSizeInfo* row = DDatabase::GetSizeInfo(size)) {
            for (int i = 0; i < kChangeValueCount; ++i)
                sums[i] += row->GetChangeSizeValue(i);
        }
    }
    if (oldSizeId > newSizeId) {
        for (int& sum : sums)
            sum = -sum;
    }
    character->SetCharacterStat(
        kStatNaturalArmor,
        std::max(character->GetCharacterStat(kStatNaturalArmor) + sums[kNaturalArmorChange], 0));
    character->SetSizeInfo(DDatabase::GetSizeInfo(newSizeId));
    if (initial) {
        for (int ability = kAbilityStrength; ability <= kAbilityConstitution; ++ability)
            character->AdjustAbilityStatBonus(ability, sums[ability]);
    } else {
        // Hit points follow a Constitution change before the score moves.
        RecomputeAndSetHitPoints(character, 0, sums[kAbilityConstitution]);
        for (int ability = kAbilityStrength; ability <= kAbilityConstitution; ++ability)
            AdjustCharacterAbilityStatBonus(character, DAbilityStatType(ability), sums[ability],
                                            false);
        // The new size moves carrying capacity, armor class and the size bonuses of skills
        // even for a creature without Strength or Dexterity.
        ComputeAndSetCharacterEncumberance(character);
    }
    AdvanceNaturalAttacks(character, oldSizeId, newSizeId);
}

void DHandBook::AdvanceNaturalAttacks(DCharacter* character, int oldSizeId, int newSizeId) {
    const bool up = newSizeId > oldSizeId;
    const int steps = std::abs(newSizeId - oldSizeId);
    for (const auto& [id, attack] : character->GetAttackMap()) {
        for (int step = 0; step < steps; ++step) {
            int count = 0;
            int die = 0;
            if (GetDamageChange(attack->GetDamageDieCount(), attack->GetDamageDieId(), count, die,
                                up)) {
                attack->SetDamageDieCount(count);
                attack->SetDamageDieId(die);
            }
        }
    }
}
