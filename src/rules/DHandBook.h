#pragma once

#include "FCArray.h"
#include "FCString.h"

#include <QUuid>

class DCharacter;
class DFileObject;

// The rules engine: static operations that change a character and recompute what depends on
// the change. It holds no state; every operation takes the character it works on.
class DHandBook {
public:
    DHandBook() = delete;

    // --- Dice -------------------------------------------------------------------------------
    // "2d8", "1/2d8", "1/4d8", or "" for no dice: the text of a hit-die or damage expression.
    static FCString BuildDieString(float dice, int die);

    // --- Character setup and level-up ---------------------------------------------------------
    // Binds the race that `raceFile` names and makes history entry 0 the race's entry. Nothing
    // happens for a null entry or an unreadable file.
    static void SetupCharacterWithRace(DCharacter* character, DFileObject* raceFile);
    // Natural armor, size, the race's grants and its offense groups.
    static void SetupWithRace(DCharacter* character);
    // The part of SetupWithRace that also follows a load, so that what was added to the race
    // since reaches the character.
    static void UpdateWithRace(DCharacter* character);
    static void UpdateWithRaceLanguages(DCharacter* character);
    static void UpdateWithRaceSkills(DCharacter* character);
    static void UpdateWithRaceFeats(DCharacter* character);
    static void UpdateWithRaceAttacks(DCharacter* character);
    static void UpdateWithRaceSpeed(DCharacter* character);
    static void UpdateWithRaceSpellCasters(DCharacter* character);

    // The full pass: isNew builds from the history alone, false folds in the history entries
    // not applied yet (a level-up). Never notifies.
    static void CharacterSetup(DCharacter* character, bool isNew);
    // The full pass for a character whose race changes; the generators create characters so.
    static void ChangeCharacterRace(DCharacter* character, DFileObject* raceFile);

    // Class list from the history. Without rebuild only entries not applied yet count.
    static void HandleHistoryToClasses(DCharacter* character, bool rebuild);
    // Classes of the history that cast, first appearance first, each once.
    static void BuildSpellCasterListFromHistory(DCharacter* character, FCArray<QUuid>& out);
    static void ComputeAndSetCharacterLevel(DCharacter* character, bool keepPrevious);
    // Fixes what earlier levels chose, so that it can no longer be sold back.
    static void PrepareForLevelUp(DCharacter* character);

    // One level of `classGuid`: a history entry and the level-up pass. False for a null class
    // or a character without its race's entry.
    static bool AddCharacterLevel(DCharacter* character, const QUuid& classGuid, bool notify);
    // Takes back the last AddCharacterLevel: the last history entry goes, its class loses the
    // level, and the previous levels and base hit points become those that the level-up of the
    // now-last entry left (0 when that entry is the first class level). The race's entry and
    // the first class level stay: false when nothing else is left. Choices made for the level
    // (ranks, feats, spells) are not taken back.
    static bool RemoveCharacterLevel(DCharacter* character, bool notify);
    // A class or hit-die level as text: the usual fractions of a die as "1/8", "1/6", "1/4",
    // "1/3", "1/2", anything else as a plain number ("3", "2.5").
    static QString BuildFractionString(float value);

private:
    // The pass from hit points to its end, once classes and levels stand.
    static void RecomputeAfterLevels(DCharacter* character, bool isNew);
};
