#pragma once

// Index into the character's 61 statistics (DCharacter::GetCharacterStat). The numbers are
// stored in character files and used by the interface, so they never move.
enum DCharStatType : int {
    kStatArmorClass = 0,
    kStatFortitude = 1,
    kStatReflex = 2,
    kStatWill = 3,
    kStatInitiative = 4,
    kStatUnused5 = 5, // stored, read by nothing
    kStatBaseAttack = 6,
    kStatHitPoints = 7,
    kStatNaturalArmor = 8,
    kStatMagicArmorBonus = 9,
    kStatFeatureArmorBonus = 10,
    kStatUserArmor = 11,
    kStatMagicAttackBonus = 12, // magic and feature attack bonus
    kStatMagicSaveBonus = 13,   // to all three saves
    kStatFeatFortitude = 14,
    kStatFeatReflex = 15,
    kStatFeatWill = 16,
    kStatFamiliarFortitude = 17,
    kStatFamiliarReflex = 18,
    kStatFamiliarWill = 19,
    kStatFeatureFortitude = 20,
    kStatFeatureReflex = 21,
    kStatFeatureWill = 22,
    kStatUserFortitude = 23,
    kStatUserReflex = 24,
    kStatUserWill = 25,
    kStatFeatInitiative = 26,
    kStatMagicInitiative = 27,
    kStatUserInitiative = 28,
    kStatPreviousBaseHitPoints = 29, // base hit points before the level-up under way
    kStatBaseHitPoints = 30,         // rolled
    kStatFeatHitPoints = 31,
    kStatFamiliarHitPoints = 32,
    kStatFeatureHitPoints = 33,
    kStatUserHitPoints = 34,
    kStatFeatureLanguagePoints = 35,
    kStatIntelligenceLanguagePoints = 36,
    kStatSpentLanguagePoints = 37,
    kStatSpentSpeakLanguagePoints = 38, // spent through the speak-language skill
    kStatFeatPoints = 39,
    kStatBaseFeatPoints = 40,
    kStatRaceFeatPoints = 41,
    kStatAdvancedFeatPoints = 42,
    kStatFeatureFeatPoints = 43,
    kStatSpentFeatPoints = 44,
    kStatCasterLevel = 45, // the highest of all classes
    kStatExperience = 46,
    kStatEarnedAbilityPoints = 47, // earned ability increases allowed
    kStatUnused48 = 48,            // stored, read by nothing
    kStatMagicSkillBonus = 49,     // to all skills
    kStatLoadType = 50,
    kStatMaxDexterityBonus = 51, // negative: no limit
    kStatArmorBonus = 52,
    kStatShieldBonus = 53,
    kStatArmorCheckPenalty = 54,
    kStatLoadCheckPenalty = 55,
    kStatNonProficientPenalty = 56,
    kStatRunMultiple = 57,
    kStatAge = 58,
    kStatHeight = 59,
    kStatWeight = 60,
    kStatCount = 61,
};

// The save statistics follow the save types (0 Fortitude, 1 Reflex, 2 Will) from each base.
constexpr DCharStatType SaveStat(DCharStatType base, int save) {
    return DCharStatType(int(base) + save);
}
