#pragma once

// Character flags (DCharacter::AddCharacterFlag and friends), stored with the character.
enum DCharacterFlag : unsigned {
    // Average each hit die instead of rolling; set only around the hit point step of a first
    // setup.
    kCharFlagAverageHitDice = 0x1,
    // Setup state: all four are cleared when a setup starts; 0x2, 0x8 and 0x10 are set when it
    // ends.
    kCharFlagSetupDone = 0x2,
    kCharFlagSetupState4 = 0x4,
    // Also: from now on the race's feat points no longer follow Intelligence.
    kCharFlagRaceFeatPointsFixed = 0x8,
    kCharFlagSetupState10 = 0x10,
    kCharFlagSetupMask = 0x2 | 0x4 | 0x8 | 0x10,
    kCharFlagSetupEndMask = 0x2 | 0x8 | 0x10,
    // Casts from a class whose spells per day depend on an ability.
    kCharFlagAbilityCaster = 0x400,
    kCharFlagKnowsSpellList = 0x800,
    kCharFlagPreparesSpells = 0x1000,
    // The portrait (sound) differs from the race's, so the race does not overwrite it.
    kCharFlagOwnPortrait = 0x100000,
    kCharFlagOwnSound = 0x400000,
};

// Change flags: what changed since the last HandleHasChanged, so that the interface refreshes
// only that. Not stored.
enum DChangeFlag : unsigned {
    kChangeStrength = 0x1,
    kChangeDexterity = 0x2,
    kChangeConstitution = 0x4,
    kChangeIntelligence = 0x8,
    kChangeWisdom = 0x10,
    kChangeCharisma = 0x20,
    kChangeArmorClass = 0x40,
    kChangeEncumbrance = 0x180, // encumbrance and load
    kChangeSave = 0x400,
    kChangeAbilityOrFeats = 0x4000,
    kChangeSkillAbilityMagic = 0x8000, // a skill's ability or magic modifier, or its existence
    kChangeLanguages = 0x10000,        // languages or language points
    kChangeSpellsPerDay = 0x20000,
    kChangeDomainClassSkills = 0x40000,
    kChangeSkillMiscSynergy = 0x80000,
    kChangeHitPoints = 0x200000,
    kChangeLevelUp = 0x800000, // set by the caller before the setup pass
    kChangeInitiative = 0x1000000,
    kChangeAbilityModifierZero = 0x2000000, // a modifier went from 0 to non-zero or back
    kChangeRaceFeatPoints = 0x8000000,
    kChangeGodDomainFeats = 0x10000000,
    kChangeSpellsKnown = 0x20000000,
    kChangeSpellsPrepared = 0x40000000,
};

// Info flags beyond the monster bit: the race's flags 1 to 0x20, one place higher.
enum DInfoFlag : unsigned {
    kInfoFlagMonster = 0x1,
    kInfoFlagRaceShift = 1,
    kInfoFlagRaceMask = 0x7E,
};

// Feats, skills and languages carrying this bit were fixed by a level-up or come from the race:
// they can no longer be sold back.
constexpr unsigned kFixedByLevelOrRace = 0x8;
