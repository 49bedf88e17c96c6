#pragma once

#include "DCharacterTypes.h"

#include <QString>

class DCharacter;
class DCharacterClass;
class DChosenAnimal;
class DFileObject;

// What a companion gains for its master's level: one row of the companion's table.
struct DCompanionRow {
    bool found = false;
    int bonusHitDice = 0;
    int naturalArmor = 0;
    int strengthAdjust = 0; // Strength, and Dexterity too for an animal companion
    int intelligence = 0;   // 0 leaves the creature's own
    int bonusTricks = 0;
};

// Familiars, special mounts and animal companions. A companion is stored as its race's entry
// with its slot and the master's class that brought it; the creature itself, a DCharacter held
// as the entry's core object, is built anew from the race whenever the master changes, so the
// table adjustments apply once to the race's own values and follow a level-down as well as a
// level-up.
class DCompanionRules {
public:
    DCompanionRules() = delete;

    // Slots of the character, rows of "[types Companion]".
    enum : DAnimalType {
        kFamiliar = 0,
        kMount = 1,
        kFiendishServant = 2,
        kAnimalCompanion = 3,
    };

    // The race flag (DRace::kFlag...) that lets a race serve in the slot.
    static unsigned GetRaceFlag(DAnimalType type);
    // "familiar", "special mount", ... as the rows of "[types Companion]" name the slot.
    static QString GetTypeName(DAnimalType type);

    // The class's level reaches its "LevelForAnimal" and its "AnimalType" is the slot (-1: any);
    // never for an ex-class.
    static bool CanCharacterClassHaveAnimal(const DCharacterClass* characterClass,
                                            DAnimalType type);
    static bool CanCharacterHaveAnimal(const DCharacter* character, DAnimalType type);
    // The level the slot's table is read at: the levels of every class that grants the slot
    // add up, except that a ranger counts half his level as a druid's.
    static int GetMasterClassLevel(const DCharacter* character, DAnimalType type);
    static DCompanionRow GetCompanionRow(DAnimalType type, int masterLevel);

    // Puts the creature of `raceEntry` in the slot, replacing what was there, and builds it.
    // Null (and the character untouched) when the class grants no such companion or the race
    // cannot be read.
    static DChosenAnimal* AddCharacterAnimal(DCharacter* character, const DFileObject& raceEntry,
                                             DAnimalType type);
    // Takes a familiar's gifts back from its master first.
    static void RemoveCharacterAnimal(DCharacter* character, DAnimalType type);
    // What a familiar's race gives its master (an ability, a save, hit points, a skill), or with
    // `remove` takes it back. Applied once, when the familiar comes: the master's file keeps it.
    static void HandleFamiliarBonuses(DCharacter* master, const DChosenAnimal* animal, bool remove);
    // The creature of the record, or null before it is built.
    static DCharacter* GetAnimal(const DChosenAnimal* animal);

    // Builds the creature from its race and the master's level; false, and no creature, if the
    // race cannot be read.
    static bool AnimalSetup(DCharacter* master, DChosenAnimal* animal);
    // Every companion follows the master; one whose class the master no longer has enough of
    // is let go. Runs after every setup pass and when a character is read.
    static void UpdateAnimals(DCharacter* master);
    // A familiar's hit points alone: half its master's.
    static void UpdateAnimalHitPoints(DCharacter* master);
};
