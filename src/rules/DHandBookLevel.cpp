#include "DHandBook.h"

#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DRuleGuids.h"

#include <utility>
#include <vector>

namespace {

// The barbarian's rage, the feature group a fall of that class takes.
constexpr DFeatureGroupType kRageFeatureGroup = 1;

// Feats of "[types Feat Stacking]" row 1 add up into one record instead of standing apart.
constexpr int kFeatStacksByCount = 1;

// A race of one hit die or less adds no class level once the character has other levels.
bool IsSkippedRaceEntry(const DCharHistory* entry, int historyCount) {
    return entry->HasHistoryFlag(DCharHistory::kHistoryRaceClass) && historyCount >= 2 &&
           entry->GetLevel() <= 1.0f;
}

// The ability increases earned at levels above `level` go with those levels: their slots are
// emptied and the scores lowered, as the ability dialog raised them.
void TakeBackAbilityIncreases(DCharacter* character, int level) {
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        const int raw = character->GetEarnedAbilityStatRaw(ability);
        const int count = DCharacter::CountPacked(raw);
        std::vector<int> kept;
        for (int slot = 0; slot < count; ++slot) {
            if (DCharacter::GetPackedSlot(raw, slot) <= level)
                kept.push_back(DCharacter::GetPackedSlot(raw, slot));
        }
        if (int(kept.size()) == count)
            continue;
        character->SetEarnedAbilityStatRaw(ability, 0);
        for (const int slotLevel : kept)
            character->SetEarnedAbilityStat(ability, slotLevel);
        for (int point = int(kept.size()); point < count; ++point) {
            // The kept levels' hit points hold the Constitution modifier they were given. The
            // skill points an Intelligence increase gave belong to the levels taken back.
            if (ability == kAbilityConstitution)
                DHandBook::RecomputeAndSetHitPoints(character, 0, -1);
            DHandBook::SetCharacterAbilityStatBase(character, DAbilityStatType(ability),
                                                   character->GetAbilityStatBase(ability) - 1,
                                                   false);
        }
    }
}

void ApplyExState(DCharacter* character, const DCharHistory* entry) {
    DCharacterClass* characterClass = character->GetClassPointer(entry->GetClassGuid());
    if (!characterClass)
        return;
    if (entry->GetIsExClass()) {
        characterClass->SetIsExClass(true);
    } else if (characterClass->GetIsExClass()) {
        characterClass->SetHasAtoned(true);
        characterClass->SetIsExClass(false);
    }
}

// The class record has no setter for its previous level, only the copy of its level.
void SetPreviousClassLevel(DCharacterClass* characterClass, float previous) {
    const float level = characterClass->GetLevel();
    characterClass->SetLevel(previous);
    characterClass->PrepareForLevelUp();
    characterClass->SetLevel(level);
}

// Previous levels and base hit points as the level-up that added the last history entry left
// them. Race entry and first class level were one step, the making, which leaves them at 0.
void RestorePreviousLevels(DCharacter* character) {
    const int lastIndex = character->GetHistoryCount() - 1;
    const DCharHistory* last = character->GetLastHistory();
    float previousLevel = 0.0f;
    for (DCharacterClass* characterClass : character->GetClassList()) {
        float previous = 0.0f;
        if (lastIndex > 1) {
            previous = characterClass->GetLevel();
            if (last->GetClassGuid() == characterClass->GetClassGuid())
                previous -= last->GetLevel();
        }
        SetPreviousClassLevel(characterClass, previous);
        previousLevel += previous;
    }
    character->SetPreviousCharacterLevel(previousLevel);
    int baseHitPoints = 0;
    for (const DCharHistory* entry : character->GetHistoryArray())
        baseHitPoints += entry->getHitpoints();
    character->SetCharacterStat(kStatBaseHitPoints, baseHitPoints);
    character->SetCharacterStat(kStatPreviousBaseHitPoints,
                                lastIndex > 1 ? baseHitPoints - last->getHitpoints() : 0);
}

// Locks the unlocked feats; a stacking feat merges into its locked twin.
void LockFeats(DCharacter* character) {
    FCPointerSet<DChosenFeat>& feats = character->GetFeatSet();
    std::vector<DChosenFeat*> merged;
    std::vector<DChosenFeat*> toLock;
    for (const auto& entry : feats) {
        DChosenFeat* feat = entry.Get();
        if (feat->HasFeatFlag(kFixedByLevelOrRace))
            continue;
        const DFeatInfo* info = DDatabase::GetFeatInfo(feat->GetFeatGuid());
        if (info && info->GetFeatStackType() == kFeatStacksByCount) {
            DChosenFeat lockedKey(*feat);
            lockedKey.AddFeatFlag(kFixedByLevelOrRace);
            if (DChosenFeat* locked = feats.Find(lockedKey)) {
                locked->SetCount(locked->GetCount() + feat->GetCount());
                merged.push_back(feat);
                continue;
            }
        }
        toLock.push_back(feat);
    }
    for (DChosenFeat* feat : merged)
        feats.Remove(*feat);
    // The flags take part in the set's order, so a feat leaves the set to change them.
    for (DChosenFeat* feat : toLock) {
        feat->Retain();
        feats.Remove(*feat);
        feat->AddFeatFlag(kFixedByLevelOrRace);
        if (!feats.Add(feat)) {
            // An equal locked record is there already: keep the count rather than lose it.
            DChosenFeat* twin = feats.Find(*feat);
            twin->SetCount(twin->GetCount() + feat->GetCount());
        }
        feat->Release();
    }
}

} // namespace

void DHandBook::HandleHistoryToClasses(DCharacter* character, bool rebuild) {
    if (!character)
        return;
    FCPointerArray<DCharacterClass>& classes = character->GetClassList();
    // Kept objects are reused so that what a class record holds besides its level survives.
    DCharacterClass* keptRaceClass = nullptr;
    DCharacterClass* keptLastClass = nullptr;
    if (rebuild) {
        keptRaceClass = character->GetClassPointer(character->GetRaceClassGuid());
        keptLastClass = classes.GetLast();
        if (keptLastClass == keptRaceClass)
            keptLastClass = nullptr;
        if (keptRaceClass)
            keptRaceClass->Retain();
        if (keptLastClass)
            keptLastClass->Retain();
        classes.RemoveAll();
    }
    const int count = character->GetHistoryCount();
    for (DCharHistory* entry : character->GetHistoryArray()) {
        if (rebuild || !entry->HasHistoryFlag(DCharHistory::kHistoryApplied)) {
            entry->AddHistoryFlag(DCharHistory::kHistoryApplied);
            if (IsSkippedRaceEntry(entry, count))
                continue;
            const QUuid classGuid = entry->GetClassGuid();
            if (classGuid == DRuleGuids::kLoremasterClass) {
                if (DCharacterClass* target =
                        character->GetClassPointer(entry->GetSpecialClassGuid()))
                    target->SetBonusSpellLevels(target->GetBonusSpellLevels() +
                                                int(entry->GetLevel()));
            }
            if (DCharacterClass* characterClass = character->GetClassPointer(classGuid)) {
                characterClass->SetLevel(characterClass->GetLevel() + entry->GetLevel());
            } else {
                DCharacterClass* added = nullptr;
                if (keptRaceClass && keptRaceClass->GetClassGuid() == classGuid) {
                    added = keptRaceClass;
                    keptRaceClass = nullptr;
                } else if (keptLastClass && keptLastClass->GetClassGuid() == classGuid) {
                    added = keptLastClass;
                    keptLastClass = nullptr;
                }
                if (added) {
                    character->AddClass(added);
                    added->Release();
                } else {
                    added = character->AddClass(classGuid);
                }
                added->SetLevel(entry->GetLevel());
            }
        }
        ApplyExState(character, entry);
    }
    if (keptRaceClass)
        keptRaceClass->Release();
    if (keptLastClass)
        keptLastClass->Release();
}

void DHandBook::BuildSpellCasterListFromHistory(DCharacter* character, FCArray<QUuid>& out) {
    if (!character)
        return;
    for (const DCharHistory* entry : character->GetHistoryArray()) {
        const QUuid classGuid = entry->GetClassGuid();
        const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
        if (info && info->mCastType != 0 && out.Find(classGuid) < 0)
            out.Add(classGuid);
    }
}

void DHandBook::ComputeAndSetCharacterLevel(DCharacter* character, bool keepPrevious) {
    if (!character)
        return;
    float level = 0.0f;
    for (const DCharacterClass* characterClass : character->GetClassList())
        level += characterClass->GetLevel();
    if (!keepPrevious)
        character->SetPreviousCharacterLevel(character->GetCharacterLevel());
    character->SetCharacterLevel(level);
}

void DHandBook::PrepareForLevelUp(DCharacter* character) {
    if (!character)
        return;
    character->PrepareForLevelUp();
    character->SetCharacterStat(kStatPreviousBaseHitPoints,
                                character->GetCharacterStat(kStatBaseHitPoints));
    for (const auto& skill : character->GetSkillSet())
        skill->HandleLevelUp();
    LockFeats(character);
    for (const auto& [guid, language] : character->GetLanguageMap())
        language->AddLanguageFlag(kFixedByLevelOrRace);
}

bool DHandBook::AddCharacterLevel(DCharacter* character, const QUuid& classGuid, bool notify) {
    if (!character || classGuid.isNull() || character->GetHistoryCount() == 0)
        return false;
    character->AddHistory(classGuid, 1.0f);
    character->AddChangeFlag(kChangeLevelUp);
    CharacterSetup(character, false);
    if (notify)
        character->HandleHasChanged();
    return true;
}

bool DHandBook::RemoveCharacterLevel(DCharacter* character, bool notify) {
    // Entry 0 is the race's and entry 1 the first class level, both part of the making.
    if (!character || character->GetHistoryCount() < 3)
        return false;
    const DCharHistory* removed = character->GetLastHistory();
    const QUuid classGuid = removed->GetClassGuid();
    if (removed->HasHistoryFlag(DCharHistory::kHistoryApplied)) {
        if (classGuid == DRuleGuids::kLoremasterClass) {
            if (DCharacterClass* target =
                    character->GetClassPointer(removed->GetSpecialClassGuid()))
                target->SetBonusSpellLevels(target->GetBonusSpellLevels() -
                                            int(removed->GetLevel()));
        }
        if (DCharacterClass* characterClass = character->GetClassPointer(classGuid)) {
            const float oldLevel = characterClass->GetLevel();
            characterClass->SetLevel(oldLevel - removed->GetLevel());
            RemoveAutoFeaturesAboveLevel(character, classGuid, int(oldLevel),
                                         int(characterClass->GetLevel()));
            if (characterClass->GetLevel() <= 0.0f)
                character->GetClassList().Remove(characterClass);
        }
    }
    character->RemoveLastHistory();

    // The class's ex state is that of its last remaining entry, as the replay leaves it.
    if (DCharacterClass* characterClass = character->GetClassPointer(classGuid)) {
        for (const DCharHistory* entry : character->GetHistoryArray()) {
            if (entry->GetClassGuid() == classGuid)
                characterClass->SetIsExClass(entry->GetIsExClass());
        }
    }

    // The pass runs with every level settled, so that no stage takes a kept level for a new
    // one (hit dice would be rolled again).
    character->PrepareForLevelUp();
    ComputeAndSetCharacterLevel(character, true);
    character->SetPreviousCharacterLevel(character->GetCharacterLevel());
    TakeBackAbilityIncreases(character, int(character->GetCharacterLevel()));
    character->AddChangeFlag(kChangeLevelUp);
    character->RemoveCharacterFlag(kCharFlagSetupMask);
    RecomputeAfterLevels(character, false);
    RestorePreviousLevels(character);
    if (notify)
        character->HandleHasChanged();
    return true;
}

bool DHandBook::SetClassFallen(DCharacter* character, const QUuid& classGuid, bool fallen,
                               bool notify) {
    DCharacterClass* characterClass = character ? character->GetClassPointer(classGuid) : nullptr;
    if (!characterClass || characterClass->GetIsExClass() == fallen)
        return false;
    // The entries carry the state, so that a replay of the history finds it again.
    for (DCharHistory* entry : character->GetHistoryArray()) {
        if (entry->GetClassGuid() == classGuid)
            entry->SetIsExClass(fallen);
    }
    characterClass->SetIsExClass(fallen);
    if (fallen) {
        // What a fall takes: all of a paladin's or druid's features, a barbarian's rage.
        if (classGuid == DRuleGuids::kPaladinClass || classGuid == DRuleGuids::kDevoutClass)
            RemoveAutoFeaturesForClass(character, characterClass);
        else if (classGuid == DRuleGuids::kFastMovementClass)
            RemoveAutoFeaturesInGroup(character, characterClass, kRageFeatureGroup);
    } else {
        // The class's features come again from its first level; those a fall left are taken
        // away first, so that none stands twice.
        RemoveAutoFeaturesForClass(character, characterClass);
        characterClass->SetHasAtoned(true);
        AddAutoFeaturesForClass(character, characterClass);
    }
    ComputeAndSetSpellData(character);
    character->AddChangeFlag(kChangeSpellsPerDay);
    if (notify)
        character->HandleHasChanged();
    return true;
}

QString DHandBook::BuildFractionString(float value) {
    // Exact comparisons: the fractions are stored as these very single-precision values.
    static constexpr std::pair<float, const char*> kFractions[] = {
        {0.125f, "1/8"}, {0.167f, "1/6"}, {0.25f, "1/4"}, {0.333f, "1/3"}, {0.5f, "1/2"}};
    for (const auto& [fraction, text] : kFractions) {
        if (value == fraction)
            return QString::fromLatin1(text);
    }
    return QString::number(double(value), 'g', 6);
}
