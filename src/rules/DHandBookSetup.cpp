#include "DHandBook.h"

#include "DAdjChosenSpeed.h"
#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DOffenseGroup.h"
#include "DRace.h"
#include "DSkillPointValues.h"
#include "DSpecialAttackSpellCaster.h"

#include <algorithm>
#include <iterator>

// Every stage of the setup passes is one named step below, in the order the passes call them.
// A stage whose computation belongs to another area of the engine is empty until that area
// lands; its comment names the operation that will run there.
namespace {

// ComputeAndSetSpellData is DHandBook's own (DHandBookSpells.cpp): the passes call it directly.

// AddAutoFeatures is DHandBook's own (DHandBookFeatures.cpp): the passes call it directly.

// Binds the race of `raceFile`; false (and the character untouched) if it cannot be read.
bool BindRace(DCharacter* character, DFileObject* raceFile) {
    if (!character || !raceFile)
        return false;
    DRace* race = DRace::CreateFromFile(raceFile->GetAccessFilePath(), false);
    if (!race)
        return false;
    character->SetRace(race);
    // The entry may be a catalogue's or the character's own: the character keeps a copy.
    character->SetRaceFileObject(static_cast<DFileObject*>(raceFile->Clone()));
    DCharHistory* raceEntry = character->GetHistoryAtPosition(0);
    if (!raceEntry)
        raceEntry = character->AddHistory(race->GetClassGuid(), 1.0f);
    raceEntry->SetClassGuid(race->GetClassGuid());
    raceEntry->SetLevel(race->GetHitDieCount());
    raceEntry->RemoveHistoryFlag(DCharHistory::kHistoryApplied);
    raceEntry->AddHistoryFlag(DCharHistory::kHistoryRaceClass);
    if (character->IsMonsterClassOnly())
        character->SetAlignmentId(race->GetAlignmentId());
    race->Release();
    return true;
}

// A monster's race holds the ranks its stat block bought with the racial hit dice; a new
// character of that race takes them, as far as the race's points and the rank limit reach.
// A player race's skills carry no ranks and only racial bonuses, which UpdateWithRaceSkills
// gives.
void BuyRaceSkillRanks(DCharacter* character) {
    const DRace* race = character->GetRace();
    const QUuid raceClass = race ? race->GetClassGuid() : QUuid();
    const DCharacterClass* payer = character->GetClassPointer(raceClass);
    if (!payer)
        return;
    constexpr DSkillUsabilityType kClassSkill = 1;
    const QUuid active = character->GetActiveClassId();
    character->SetActiveClassId(raceClass);
    for (const auto& skill : race->GetSkillSet()) {
        const DChosenSkill* held =
            character->GetSkillPointer(skill->GetSkillId(), skill->GetSubSkillId());
        const float room = DHandBook::ComputeMaxSkillRank(character, skill->GetSkillId()) -
                           (held ? held->GetTotalRanks() : 0.0f);
        const float ranks =
            std::min({skill->GetRanks(raceClass), room, float(payer->GetRemainingSkillPoints())});
        // Held even without ranks: the stat block lists it, synergies reach it.
        DHandBook::AddSkill(character, skill->GetSkillId(), skill->GetSubSkillId(), kClassSkill,
                            std::max(ranks, 0.0f), false);
    }
    character->SetActiveClassId(active);
}

} // namespace

void DHandBook::SetupCharacterWithRace(DCharacter* character, DFileObject* raceFile) {
    BindRace(character, raceFile);
}

void DHandBook::SetupWithRace(DCharacter* character) {
    DRace* race = character->GetRace();
    if (!race)
        return;
    character->SetCharacterStat(kStatNaturalArmor, race->GetNaturalAC());
    character->SetSizeInfo(DDatabase::GetSizeInfo(race->GetSizeId()));
    UpdateWithRace(character);

    // The race's groups come first; what the character had follows as copies.
    FCPointerArray<DOffenseGroup>& groups = character->GetOffenseGroupArray();
    FCPointerArray<DOffenseGroup> kept;
    kept.SetOwnership(kFCRetained);
    for (DOffenseGroup* group : groups)
        kept.Add(group);
    groups.CloneFrom(race->GetOffenseGroupArray());
    for (const DOffenseGroup* group : kept) {
        DOffenseGroup* copy = group->Clone();
        groups.Add(copy);
        copy->Release();
    }
}

void DHandBook::UpdateWithRace(DCharacter* character) {
    DRace* race = character ? character->GetRace() : nullptr;
    if (!race)
        return;
    UpdateWithRaceLanguages(character);
    UpdateWithRaceSkills(character);
    UpdateWithRaceFeats(character);
    UpdateWithRaceAttacks(character);
    UpdateWithRaceSpeed(character);
    UpdateWithRaceSpellCasters(character);

    // Only added: an info bit a race once gave stays when the race drops it.
    const unsigned raceBits = race->GetRaceFlags() << kInfoFlagRaceShift;
    character->AddInfoFlag(raceBits & kInfoFlagRaceMask);

    if (!character->HasCharacterFlag(kCharFlagOwnPortrait))
        character->SetPortraitName(race->GetPortraitName());
    if (!character->HasCharacterFlag(kCharFlagOwnSound))
        character->SetSoundName(race->GetSoundName());
}

void DHandBook::UpdateWithRaceLanguages(DCharacter* character) {
    for (const auto& [guid, language] : character->GetRace()->GetLanguageMap()) {
        if (character->GetLanguagePointer(guid))
            continue;
        auto* copy = static_cast<DChosenLanguage*>(language->Clone());
        character->AddLanguage(copy);
        copy->Release();
    }
}

void DHandBook::UpdateWithRaceSkills(DCharacter* character) {
    for (const auto& skill : character->GetRace()->GetSkillSet()) {
        if (skill->GetRaceMod() <= 0)
            continue;
        DChosenSkill* own =
            AddSkill(character, skill->GetSkillId(), skill->GetSubSkillId(), 1, 0.0f, false);
        if (!own)
            continue;
        own->SetRaceMod(skill->GetRaceMod());
        own->AddSkillFlag(DChosenSkill::kSkillFixed);
    }
}

void DHandBook::UpdateWithRaceFeats(DCharacter* character) {
    for (const auto& feat : character->GetRace()->GetFeatSet()) {
        if (character->HasFeat(feat->GetFeatGuid(), feat->GetTargetGuid(),
                               feat->GetTargetSubGuid()))
            continue;
        auto* copy = static_cast<DChosenFeat*>(feat->Clone());
        copy->AddFeatFlag(kFixedByLevelOrRace);
        character->AddFeat(copy);
        HandleFeatBonuses(character, copy, false);
        copy->Release();
    }
}

void DHandBook::UpdateWithRaceAttacks(DCharacter* character) {
    for (const auto& [id, attack] : character->GetRace()->GetAttackMap()) {
        if (character->GetAttack(id))
            continue;
        DAttackInfo* copy = attack->Clone();
        character->AddAttack(copy, id);
        copy->Release();
    }
}

void DHandBook::UpdateWithRaceSpeed(DCharacter* character) {
    for (const DChosenSpeed* speed : character->GetRace()->GetSpeedArray()) {
        if (DChosenSpeed* own = character->GetSpeedPointer(speed->GetSpeedId())) {
            own->SetSpeedValue(speed->GetSpeedValue());
            own->SetSpeedModId(speed->GetSpeedModId());
            continue;
        }
        auto* adjusted = new DAdjChosenSpeed(*speed);
        character->AddSpeed(adjusted);
        adjusted->Release();
    }
}

void DHandBook::UpdateWithRaceSpellCasters(DCharacter* character) {
    for (const DSpecialAttack* attack : character->GetRace()->GetSpecialAttackArray()) {
        const auto* casting = dynamic_cast<const DSpecialAttackSpellCaster*>(attack);
        if (!casting)
            continue;
        DSpellCaster* caster = character->GetRaceSpellCaster(casting->GetCasterClassGuid());
        if (!caster) {
            caster = new DSpellCaster();
            caster->SetClassGuid(casting->GetCasterClassGuid());
            character->AddRaceSpellCaster(caster);
            caster->Release();
        }
        caster->SetLevel(float(casting->GetCasterLevel()));
        caster->RemoveCasterFlag(DSpellCaster::kCasterCasts | DSpellCaster::kCasterKnowsList |
                                 DSpellCaster::kCasterPrepares);
        if (GetSpellCasterLevel(caster) >= 0)
            caster->AddCasterFlag(GetCasterFlags(caster->GetClassGuid()));
    }
}

void DHandBook::ComputeAndSetProficiencies(DCharacter* character) {
    // The class row's six columns in flag order; only added, so a class taken away keeps its
    // proficiencies until the character is set up anew.
    static constexpr unsigned kFlags[] = {DCharacter::kProfSimple,     DCharacter::kProfMartial,
                                          DCharacter::kProfLightArmor, DCharacter::kProfMediumArmor,
                                          DCharacter::kProfHeavyArmor, DCharacter::kProfShield};
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
        if (!info)
            continue;
        for (int i = 0; i < int(std::size(kFlags)); ++i) {
            if (info->mProficiencies[i])
                character->AddProfFlag(kFlags[i]);
        }
    }
}

void DHandBook::InitialRaceSetup(DRace* race) {
    if (!race)
        return;
    for (int save = 0; save < kSaveCount; ++save)
        race->SetHasGoodSaves(save, DoesClassHaveGoodSaves(race->GetClassGuid(), DSaveType(save)));
    ComputeAndSetFaceReach(race);
    DSkillPointValues values;
    GetSkillPointValues(race, values);
    if (values.op == kSkillPointOpMiddle)
        race->SetBaseSkillPoints((values.operand2 - values.operand1) / 2 + values.operand1);
}

void DHandBook::CharacterSetup(DCharacter* character, bool isNew) {
    if (!character)
        return;
    character->RemoveCharacterFlag(kCharFlagSetupMask);
    if (!isNew)
        PrepareForLevelUp(character);
    HandleHistoryToClasses(character, false);
    ComputeAndSetCharacterLevel(character, isNew);
    if (isNew) {
        character->InitialSetup();
        AssignAbilityStats(character);
        ComputeAndSetExperiencePoints(character);
        SetupWithRace(character);
        AdvanceCharacter(character);
        UpdateWithUntrainedSkills(character);
        ComputeAndSetInitialAge(character);
        ComputeAndSetInitialHeightAndWeight(character);
    }
    RecomputeAfterLevels(character, isNew);
}

void DHandBook::RecomputeAfterLevels(DCharacter* character, bool isNew) {
    // A new character's later hit dice are averaged; those of a level-up are rolled.
    if (isNew)
        character->AddCharacterFlag(kCharFlagAverageHitDice);
    ComputeAndSetHitPoints(character, isNew, false);
    if (isNew)
        character->RemoveCharacterFlag(kCharFlagAverageHitDice);
    ComputeAndSetAllSavingThrows(character);
    character->SetCharacterStat(kStatBaseAttack, ComputeBaseAttack(character));
    ComputeAndSetStartingGold(character, isNew);
    ComputeAndSetSpellData(character);
    ComputeAndSetProficiencies(character);
    if (isNew)
        ComputeAndSetLanguagePoints(character);
    ComputeAndSetSkillPoints(character);
    if (isNew)
        BuyRaceSkillRanks(character);
    ComputeAndSetFeatPoints(character, isNew);
    ComputeAndSetInitiative(character);
    ComputeAndSetCharacterEncumberance(character);
    ComputeAndSetEarnedAbilityPoints(character);
    AddAutoFeatures(character, isNew);
    ComputeAndSetSkillSkillMods(character, false, QUuid(), QUuid(), 0.0f, 0.0f);
    SetupUnarmedAttack(character);
    if (!isNew)
        DCompanionRules::UpdateAnimals(character);
    character->AddCharacterFlag(kCharFlagSetupEndMask);
}

void DHandBook::ChangeCharacterRace(DCharacter* character, DFileObject* raceFile) {
    if (!BindRace(character, raceFile))
        return;
    ApplyRaceAbilityAdjustments(character);
    character->RemoveCharacterFlag(kCharFlagSetupMask);
    HandleHistoryToClasses(character, true);
    character->SetPreviousCharacterLevel(0.0f);
    // Rolled, not averaged: flag 0x1 stays clear here.
    ComputeAndSetHitPoints(character, true, false);
    ComputeAndSetSkillPoints(character);
    ComputeAndSetCharacterLevel(character, true);
    character->InitialSetup();
    ComputeAndSetExperiencePoints(character);
    SetupWithRace(character);
    AdvanceCharacter(character);
    UpdateWithUntrainedSkills(character);
    ComputeAndSetInitialAge(character);
    ComputeAndSetInitialHeightAndWeight(character);
    ComputeAndSetAllSavingThrows(character);
    character->SetCharacterStat(kStatBaseAttack, ComputeBaseAttack(character));
    ComputeAndSetStartingGold(character, true);
    ComputeAndSetSpellData(character);
    ComputeAndSetProficiencies(character);
    ComputeAndSetLanguagePoints(character);
    ComputeAndSetFeatPoints(character, true);
    ComputeAndSetInitiative(character);
    ComputeAndSetCharacterEncumberance(character);
    ComputeAndSetEarnedAbilityPoints(character);
    ComputeAndSetSkillSkillMods(character, false, QUuid(), QUuid(), 0.0f, 0.0f);
    SetupUnarmedAttack(character);
    character->AddCharacterFlag(kCharFlagSetupEndMask);
}
