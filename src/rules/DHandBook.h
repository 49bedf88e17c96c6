#pragma once

#include "DCharStatType.h"
#include "DCharacterTypes.h"
#include "DFeatPointValues.h"
#include "DFeatPrereq.h"
#include "DItemValues.h"
#include "DRulesTypes.h"
#include "DSkillPointValues.h"
#include "FCArray.h"
#include "FCString.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <vector>

class DAdjChosenSpeed;
class DCharRaceBase;
class DCharacter;
class DCharacterClass;
class DChosenFeat;
class DChosenFeature;
class DChosenItem;
class DChosenLanguage;
class DCoinData;
class DCurrency;
class DCustomMagicItemInfo;
class DItem;
class DItemInfo;
class DMagicBonus;
class DMagicItemInfo;
class DOffenseItem;
class DSpell;
class DWeaponInfo;
struct DWeaponDamageValues;
struct DWeaponCritValues;
class DChosenSkill;
class DChosenSpell;
class DSpellCaster;
class DFeatInfo;
class DSkillInfo;
class DDieData;
class DFileObject;
class DRace;

namespace odbc {
class ResultSet;
}

// The rules engine: static operations that change a character and recompute what depends on
// the change. It holds no state; every operation takes the character it works on.
class DHandBook {
public:
    DHandBook() = delete;

    // --- Dice -------------------------------------------------------------------------------
    // "2d8", "1/2d8", "1/4d8", or "" for no dice: the text of a hit-die or damage expression.
    static FCString BuildDieString(float dice, int die);

    // --- Ability scores -----------------------------------------------------------------------
    // score / 2 - 5 in whole numbers; 0 for a null ability (negative score).
    static int GetAbilityModifier(int score) { return score < 0 ? 0 : score / 2 - 5; }
    static int GetAbilityModifierChange(int oldScore, int newScore) {
        return GetAbilityModifier(newScore) - GetAbilityModifier(oldScore);
    }
    static void RollAbilityStats(DRollMethodType method, FCArray<int>& out);
    static int RollAbilityStat(DRollMethodType method, FCArray<int>* dice);
    static void AssignAbilityStats(DCharacter* character);
    // The race's adjustments as ability bonuses (the generators' path of a race change).
    static void ApplyRaceAbilityAdjustments(DCharacter* character);
    static int ComputeStatPointValue(int score);
    static void SetCharacterAbilityStatBase(DCharacter* character, DAbilityStatType ability,
                                            int value, bool notify);
    static void SetCharacterAbilityStatBonus(DCharacter* character, DAbilityStatType ability,
                                             int value, bool notify);
    static void AdjustCharacterAbilityStatBonus(DCharacter* character, DAbilityStatType ability,
                                                int delta, bool notify);
    static void AdjustCharacterAbilityStatEquipBonus(DCharacter* character,
                                                     DAbilityStatType ability, int delta,
                                                     bool notify);
    // A new base for a score of a character already set up: the hit points (Constitution) and
    // skill points (Intelligence) of the levels taken follow first, then the score changes.
    static void ChangeAbilityStatBase(DCharacter* character, DAbilityStatType ability, int value,
                                      bool notify);
    static void ComputeAndSetEarnedAbilityPoints(DCharacter* character);
    static FCString BuildAbilityBonusesString(DCharacter* character);
    static FCString BuildLevelString(int level);
    // Statistic 36: the Intelligence modifier without worn items, never negative.
    static void ComputeAndSetLanguagePoints(DCharacter* character);
    // What follows a changed score; oldValue and newValue are GetAbilityStat before and after.
    static void HandleAbilityStatChange(DCharacter* character, DAbilityStatType ability,
                                        int oldValue, int newValue, bool notify);

    // --- Hit points, saves, armor class, initiative, base attack, gold ------------------------
    static void ComputeAndSetHitPoints(DCharacter* character, bool resetUser, bool notify);
    static void RecomputeAndSetHitPoints(DCharacter* character, int level, int scoreDelta);
    static int ComputeTotalHitPoints(DCharacter* character);
    static int RollForBaseHitPoints(DCharacter* character, bool average, int level, int modChange);
    static int GetRaceSizeBonusHitPoints(DCharacter* character);
    static void SetCharacterHitPoints(DCharacter* character, int value, bool notify);
    static void ClearHitPointsFeatBonus(DCharacter* character);
    static void AdjustHitPointsForBonus(DCharacter* character, DCharStatType stat, int delta);
    static int GetMinHitPoints(DCharacter* character);
    static void ComputeAndSetAllSavingThrows(DCharacter* character);
    static void ComputeAndSetSavingThrows(DCharacter* character, DSaveType save);
    static void AdjustSavingThrowForAbilityModChange(DCharacter* character, DCharStatType stat,
                                                     int change);
    static bool GetHasGoodSaves(DRace* race, DSaveType save);
    static bool DoesClassHaveGoodSaves(const QUuid& classGuid, DSaveType save);
    static void GetSavingThrowValues(DCharacter* character, DSaveType save,
                                     DSavingThrowValues& values);
    static int GetSavingThrowBase(DCharacter* character, DSaveType save,
                                  DCharacterClass* characterClass);
    static void ComputeAndSetInitiative(DCharacter* character);
    static void GetInitiativeValues(DCharacter* character, DInitiativeValues& values);
    static void ComputeAndSetArmorClass(DCharacter* character);
    static void GetArmorClassValues(DCharacter* character, DACValues& values);
    static int GetArmorMiscModifier(DCharacter* character);
    // Armor class against touch attacks: no armor, shield or natural armor.
    static int GetTouchArmorClass(DCharacter* character);
    // Armor class when caught flat-footed: no Dexterity bonus and no dodge bonus.
    static int GetFlatFootedArmorClass(DCharacter* character);
    // Base attack + Strength modifier + the size's grapple modifier.
    static int ComputeGrapple(DCharacter* character);
    static int ComputeBaseAttack(DCharacter* character);
    static int ComputeBaseAttack(const QUuid& classGuid, float level);
    static void ComputeAndSetFaceReach(DRace* race);
    static void SetCharacterUserValue(DCharacter* character, DCharStatType stat, int value);
    static void ComputeAndSetStartingGold(DCharacter* character, bool resetCash);

    // --- Age, height, weight, experience ------------------------------------------------------
    static void SetCharacterAge(DCharacter* character, int age);
    static void ComputeAndSetInitialAge(DCharacter* character);
    static int ComputeRandomAge(DCharacter* character);
    static bool GetRandomAgeModifier(DCharacter* character, DDieData* die);
    static void ComputeAgeMinMax(DCharacter* character, int& min, int& max);
    static void ComputeAndSetInitialHeightAndWeight(DCharacter* character);
    static void ComputeRandomHeightAndWeight(DCharacter* character, int& height, int& weight);
    static bool ComputeHeightMinMax(DCharacter* character, int& min, int& max);
    static bool ComputeWeightMinMax(DCharacter* character, int& min, int& max);
    static int ComputeAndSetExperiencePoints(DCharacter* character);
    static int ComputeNeededExperiencePoints(int level);

    // --- Skills -------------------------------------------------------------------------------
    // Records for every skill usable untrained, kept at zero ranks.
    static void UpdateWithUntrainedSkills(DCharacter* character);
    static void UpdateWithUntrainedSubSkills(DCharacter* character, DSkillInfo* skill);
    // Skill points earned per history entry, and each class's share of them.
    static void ComputeAndSetSkillPoints(DCharacter* character);
    // For an Intelligence change of scoreDelta that is about to be written: levels up to
    // `level` keep what they earned.
    static void RecomputeAndSetSkillPoints(DCharacter* character, int level, int scoreDelta);
    // Levels up to `level` (the previous character level when negative) keep their stored
    // points; the later ones earn anew with the Intelligence modifier changed by modChange.
    static int ComputeSkillPoints(DCharacter* character, int level, int modChange);
    static int ComputeRaceSkillPoints(DCharacter* character, int level);
    static int ComputeRaceSkillPoints(DCharacter* character, const DSkillPointValues& values,
                                      int hitDice);
    static int ComputeAdvancedRaceSkillPoints(DCharacter* character);
    static void GetSkillPointValues(DRace* race, DSkillPointValues& values);
    // The race editor's texts: the formula per hit die and the bonus per extra hit die.
    static void GetSkillPointStrings(const DSkillPointValues& values, FCString& first,
                                     FCString& second);
    // Ranks go to the active class. The record, made if missing.
    static DChosenSkill* AddSkill(DCharacter* character, const QUuid& skill, const QUuid& subSkill,
                                  DSkillUsabilityType usability, float ranks, bool notify);
    // Null when the record is gone (or was never there).
    static DChosenSkill* RemoveSkill(DCharacter* character, const QUuid& skill,
                                     const QUuid& subSkill, DSkillUsabilityType usability,
                                     float ranks, bool notify);
    static void RemoveAllSkills(DCharacter* character);
    // Writes the class's ranks and charges the class for the difference in price.
    static void SetSkillRank(DCharacter* character, DChosenSkill* skill, const QUuid& classGuid,
                             DSkillUsabilityType usability, float ranks, bool notify);
    static void SetSkillAbilityMod(DCharacter* character, DChosenSkill* skill);
    static void UpdateSkillAbilityMods(DCharacter* character, DAbilityStatType ability);
    // Ability -1 reaches every skill.
    static void AdjustSkillMagicMods(DCharacter* character, int ability, int delta);
    static void ClearSkillFeatMods(DCharacter* character);
    static void ClearSkillSkillMods(DCharacter* character);
    static void ComputeAndSetSkillMiscMods(DCharacter* character);
    // Load, armor check penalty, size and tools.
    static void SetSkillMiscMods(DCharacter* character, DChosenSkill* skill);
    static int GetSkillSizeBonus(DCharacter* character, const DChosenSkill* skill);
    static int GetSkillGoodsBonus(DCharacter* character, const DChosenSkill* skill);
    // Synergies. A null skill with zero ranks is the full pass: every satisfied row applies.
    static void ComputeAndSetSkillSkillMods(DCharacter* character, bool notify, const QUuid& skill,
                                            const QUuid& subSkill, float newRanks, float oldRanks);
    // 0 not usable, 1 class skill, 2 cross-class.
    static DSkillUsabilityType ComputeSkillUsablility(DCharacter* character, const QUuid& classGuid,
                                                      const QUuid& skill);
    static float ComputeMaxSkillRank(DCharacter* character, const QUuid& skill);
    // Kept for the interface; nothing asks it.
    static int ComputeMaxClassSkillRanks(DCharacter* character, const QUuid& classGuid,
                                         const QUuid& skill, const QUuid& subSkill);
    // Ranks double (to class skill) or halve, so the points spent stay the same.
    static bool ConvertSkillsForUsabilitySwitch(DCharacter* character, const QUuid& classGuid,
                                                const QUuid& skill, bool toClassSkill);
    static void AddClassSkill(DCharacter* character, DCharacterClass* characterClass,
                              const QUuid& skill);
    static void RemoveClassSkill(DCharacter* character, DCharacterClass* characterClass,
                                 const QUuid& skill);
    static DChosenSkill* GetChosenSkillForCharacter(DCharacter* character, const QUuid& skill,
                                                    const QUuid& subSkill, bool create);
    static bool IsKnowledgeSkill(const QUuid& skill);
    static int GetCountOfAllKnowledgeSkillsWithRanks(DCharacter* character, int minRanks);

    // --- Feats --------------------------------------------------------------------------------
    static void GetFeatPointValues(DRace* race, DFeatPointValues& values);
    static int ComputeRaceFeatPoints(DCharacter* character);
    static int ComputeRaceAdvancedFeatPoints(DCharacter* character);
    static void ComputeAndSetRaceFeatPoints(DCharacter* character);
    static void ComputeAndSetAdvancedFeatPoints(DCharacter* character);
    // Base, race and advanced points, the total, and each class's bonus feat points.
    static void ComputeAndSetFeatPoints(DCharacter* character, bool isNew);
    static int ComputeBaseFeatsPoints(DCharacter* character);
    static void UpdateTotalFeatPoints(DCharacter* character);
    static int ComputeBonusFeats(DCharacter* character, DCharacterClass* characterClass);
    static void ComputeAndSetFeatBonuses(DCharacter* character);
    static void ClearFeatBonuses(DCharacter* character);
    // What the feat adds to saves, initiative, hit points and skills, taken back with remove.
    static void HandleFeatBonuses(DCharacter* character, DChosenFeat* feat, bool remove);
    static bool IsFeatBonusForClass(const QUuid& classGuid, const QUuid& feat);
    // The feat modifier of a skill record that has just been made.
    static void AddSkillFeatMods(DCharacter* character, DChosenSkill* skill);
    // A like feat already held takes one more count and is returned; otherwise `feat` is added
    // (retained) and the result is null.
    static DChosenFeat* AddFeat(DCharRaceBase* owner, bool isCharacter, DChosenFeat* feat);
    static void RemoveFeat(DCharRaceBase* owner, bool isCharacter, DChosenFeat* feat);
    // Locked feats of a character stay.
    static void RemoveAllFeats(DCharRaceBase* owner, bool isCharacter);
    static bool ComputeCanFeatBePurchased(DCharRaceBase* owner, bool isCharacter,
                                          const DFeatInfo* info, const QUuid& target,
                                          const QUuid& subTarget, bool checkPrereqs);
    static bool ComputeDoesFeatMeetPrereqs(DCharRaceBase* owner, bool isCharacter,
                                           const QUuid& feat);
    // The first prerequisite of the feat that does not hold; false if all hold.
    static bool FindFailingFeatPrereq(DCharRaceBase* owner, bool isCharacter, const QUuid& feat,
                                      DFeatPrereq& failing);
    // A prerequisite as the player reads it: "Power Attack", "Str 13", "base attack +4".
    static QString BuildFeatPrereqString(const DFeatPrereq& prereq);
    static bool DoesFeatMeetPrereq(DCharRaceBase* owner, bool isCharacter, odbc::ResultSet* row);
    static bool DoesFeatMeetPrereq(DCharRaceBase* owner, bool isCharacter,
                                   const DFeatPrereq& prereq);
    static bool DoesFeatMeetClassPrereq(DCharacter* character, const QUuid& feat);
    static bool HasWeaponTargetFeatInFamily(DCharacter* character, const QUuid& feat, int family);
    static bool HasFeatTargetingAnyKnowledge(DCharacter* character, const QUuid& feat);

    // --- Spells -------------------------------------------------------------------------------
    // Bonus spells of a spell level for a casting score; negative when the score is too low.
    static int GetBonusSpells(int spellLevel, int score);
    // -1 for a class that does not cast; 0 below the class's first casting level.
    static int GetSpellCasterLevel(const DSpellCaster* caster);
    static unsigned GetCasterFlags(const QUuid& classGuid);
    // Caster flags, caster level (statistic 45), spells per day and spells can know.
    static void ComputeAndSetSpellData(DCharacter* character);
    static void ComputeAndSetSpellCasterLevel(DCharacter* character);
    static void ComputeAndSetSpellsPerDay(DCharacter* character);
    static void ComputeAndSetSpellsPerDayForCaster(DCharacter* character, DSpellCaster* caster,
                                                   bool isClass);
    static void ComputeAndSetSpellsCanKnow(DCharacter* character);
    static void ComputeAndSetSpellsCanKnowForCaster(DCharacter* character, DSpellCaster* caster,
                                                    bool isClass);
    // The highest spell level with a slot in the class's table at that level; -1 for none.
    static int ComputeMaxSpellLevelCanCast(const QUuid& classGuid, int classLevel);
    static int GetMaxSpellLevelBasedOnPerDay(const DSpellCaster* caster);
    static int ComputeBuySpellGoldCost(int spellLevel);
    // The character's known-spell set takes `spell` (retained) and its price is paid.
    static void AddSpellKnown(DCharacter* character, DChosenSpell* spell);
    static void RemoveSpellKnown(DCharacter* character, DChosenSpell* spell);
    static void RemoveSpellCostKnown(DCharacter* character, DChosenSpell* spell);
    static void RemoveAllSpellsKnown(DCharacter* character);
    static void RemoveSpellIfPrepared(DCharacter* character, DChosenSpell* spell);
    // One more preparation of the spell: a new record, or the like one counted up.
    static DChosenSpell* AddSpellPrepared(DCharacter* character, const QUuid& spell,
                                          const QUuid& classGuid, int level, unsigned flags);
    static void RemoveSpellPrepared(DCharacter* character, DChosenSpell* spell);
    static void RemoveSpellCostPrepared(DCharacter* character, DChosenSpell* spell);
    static void RemoveAllSpellsPrepared(DCharacter* character);
    // "3", or "3+1" with the domain or school slot.
    static QString BuildSpellsPerDayString(const DSpellCaster* caster, int level);
    static QString BuildRemainingSpellsPerDayString(const DSpellCaster* caster, int level);
    static QString BuildSpellsCanKnowString(const DSpellCaster* caster, int level);
    static QString BuildRemainingSpellsCanKnowString(const DSpellCaster* caster, int level);

    // --- Class features and prerequisites -----------------------------------------------------
    // Features of the levels each class gained since the last pass, falls and atonements.
    static void AddAutoFeatures(DCharacter* character, bool isNew);
    static void AddAutoFeaturesForClass(DCharacter* character, DCharacterClass* characterClass);
    // Feature rows of `sql` (columns FeatureId, Data and, with hasDataGuid, DataGuid) into the
    // array; a later feature of a group takes the place of the earlier one.
    static void AddAutoFeatures(DCharacter* character, const QString& sql,
                                DCharacterClass* characterClass, int arrayType, bool hasDataGuid);
    static void AddBlackguardFallenPaladinFeatures(DCharacter* character, DCharacterClass* paladin,
                                                   int level);
    static void RemoveAutoFeaturesForClass(DCharacter* character, DCharacterClass* characterClass);
    static void RemoveAutoFeaturesInGroup(DCharacter* character, DCharacterClass* characterClass,
                                          DFeatureGroupType group);
    // Takes back the features of class levels above `newLevel` up to `oldLevel`: a feature of a
    // group falls back to the one it replaced.
    static void RemoveAutoFeaturesAboveLevel(DCharacter* character, const QUuid& classGuid,
                                             int oldLevel, int newLevel);
    static void ComputeAndSetClassBonusFeatures(DCharacter* character,
                                                DCharacterClass* characterClass);
    static void AddChosenFeature(DCharacter* character, DCharacterClass* characterClass,
                                 DChosenFeature* feature);
    static void RemoveChosenFeature(DCharacter* character, DCharacterClass* characterClass,
                                    DChosenFeature* feature);
    static void AdjustCharacterForFeature(DCharacter* character, DChosenFeature* feature,
                                          bool remove);
    // The feature as the player reads it: "Sneak attack +3d6 (Rogue)", "Favored enemy (Undead)".
    static QString BuildFeatureName(const DChosenFeature* feature);
    // The picked group a class offers (13 rogue, 14 ranger, 15 bard, 24 loremaster), or -1.
    static DFeatureGroupType GetPickedFeatureGroup(const QUuid& classGuid);
    // What the class's picker offers, each offer disabled where the rules say so.
    static void GetFeatureOffers(DCharacter* character, DCharacterClass* characterClass,
                                 std::vector<DFeatureOffer>& offers);
    static bool DoesCharacterMeetClassPrereqs(DCharacter* character, const QUuid& classGuid);
    static bool DoesCharacterMeetClassPrereqs1(DCharacter*, const QUuid&) { return true; }
    static bool DoesCharacterMeetClassPrereqs2(DCharacter*, const QUuid&) { return true; }
    static bool DoesCharacterMeetClassPrereqs3(DCharacter*, const QUuid&) { return true; }
    // Every requirement of the class that the character fails, as the player reads it; empty
    // when the class may be taken.
    static QStringList GetFailingClassPrereqs(DCharacter* character, const QUuid& classGuid);
    // Whether the rules data holds the class's entry requirements: rows, or a hard-wired test.
    static bool HasClassPrereqData(const QUuid& classGuid);
    static int GetSpellSchoolCount(DCharacter* character, int& maxLevel);
    static int GetMaxSpellLevelForSchool(DCharacter* character, int school);
    static int GetMaxSpellLevelForClassAndSchool(const QUuid& classGuid, int school);
    static int GetMaxSpellLevelForCasterType(DCharacter* character, int casterType);
    // The monk's unarmored speed for a speed of type 1 or 3; any other speed as it stands.
    static int ComputeMonkUnarmoredSpeed(DCharacter* character, DAdjChosenSpeed* speed);
    // --- Gods, domains, schools, languages ------------------------------------------------------
    // False when the class bars the alignment.
    static bool GetIsValidAlignment(const QUuid& classGuid, int alignment);
    static bool CanWorshipGod(DCharacter* character, const QUuid& god);
    static bool CanWorshipDomain(DCharacter* character, const QUuid& domain);
    static bool IsValidGodDomain(const QUuid& god, const QUuid& domain);
    static void SetCharacterGod(DCharacter* character, const QUuid& god);
    static void AddCharacterDomain(DCharacter* character, const QUuid& domain);
    static void RemoveCharacterDomain(DCharacter* character, const QUuid& domain);
    static void SetCharacterDomain(DCharacter* character, int index, const QUuid& domain);
    // The feats a god gives the followers of its domains; true if a feat changed.
    static bool HandleClericSpecialFeats(DCharacter* character, const QUuid& god,
                                         const QUuid& domain0, const QUuid& domain1, bool add);
    // The class skills the domains add to the cleric.
    static bool HandleClericSpecialSkills(DCharacter* character, const QUuid& god,
                                          const QUuid& domain0, const QUuid& domain1, bool add);
    static bool CanChooseSchool(DCharacter* character, int school);
    static bool CanChooseProhibitedSchool(DCharacter* character, int school);
    static void SetCharacterSchool(DCharacter* character, int school);
    // Speak marks a language paid with a rank of Speak Language.
    static void AddLanguage(DCharacter* character, DChosenLanguage* language, bool speak);
    // True if the language removed was a Speak Language one.
    static bool RemoveLanguage(DCharacter* character, const QUuid& language);
    // Points from features and Intelligence less those spent.
    static int GetRemainingLanguagePoints(const DCharacter* character);

    // --- Items: prices and weights -------------------------------------------------------------
    // A new info of the class for an item type filled from its table; one reference for the
    // caller, null for a type without rows.
    static DItemInfo* BuildItemInfo(int itemType, const QUuid& guid);
    // List price of a mundane item at `size` (-1: as listed); flags bit 0 is masterwork.
    static void ComputeItemCost(DItemInfo* info, DCharacter* forCharacter, unsigned flags, int size,
                                DCoinData& out);
    static float ComputeItemWeight(DItemInfo* info, DCharacter* forCharacter, int size);
    static void ComputeCustomMagicItemCost(DCustomMagicItemInfo* item, int size, DCoinData* out);
    static void ComputeMagicItemCost(DMagicItemInfo* item, DCoinData* out);
    // One row of a bonus price table; count 0 beyond the table.
    static void GetMagicBonusCostFromTable(int itemType, int bonus, int table, DCoinData* out);
    static void ComputeMagicSpellItemCost(int itemType, int spellLevel, int casterLevel,
                                          DCoinData* out);
    static void ComputeSpellCost(DSpell* spell, DCoinData* out);
    // -1 when the class never casts that spell level.
    static int GetMinCasterLevel(const QUuid& classId, int spellLevel);
    static int GetMaxSpellLevelCanCast(const QUuid& classId);
    static bool CanMagicItemTypeBeIntelligent(int magicType);
    static int GetItemTypeForMagicType(int magicType);
    static QString BuildCoinString(int count, int coinType);
    static QString BuildTreasureString(int treasureType, int percent);

    // --- Equipment and encumbrance --------------------------------------------------------------
    static DChosenItem* AddItemWithInfoToCharacter(DCharacter* character, DItemInfo* info,
                                                   unsigned flags, int size, bool isFree);
    static DChosenItem* AddCopyOfItemToCharacter(DCharacter* character, DItem* item, int size,
                                                 bool isFree);
    // Files `item` (retained) in the inventory.
    static void AddChosenItemToCharacter(DCharacter* character, DChosenItem* item, bool isFree);
    // A private clone of `info` at `size`, or null when no change is needed.
    static DItemInfo* CreateSizeAdjustedItem(DCharacter* character, DItemInfo* info, int size);
    static void AdjustItemInfoSize(DCharacter* character, DItemInfo* info, int size);
    static void RemoveItem(DCharacter* character, DChosenItem* item, bool isFree,
                           bool updateCharacter);
    static void RemoveAllItems(DCharacter* character, bool isFree);
    static void AddCharacterMoney(DCharacter* character, const DCurrency& amount);
    static void RemoveCharacterMoney(DCharacter* character, const DCurrency& amount);
    static void ToggleItemCarryingStatus(DCharacter* character, DChosenItem* item, bool update);
    static void EquipItem(DCharacter* character, DChosenItem* item, bool update);
    static void UnEquipItem(DCharacter* character, DChosenItem* item, bool update);
    static bool CanCharacterEquipMagicItem(DCharacter* character, DChosenItem* item);
    static int GetMagicItemSubTypeLimit(int subType);
    static void HandleEquipBonuses(DCharacter* character, DChosenItem* item, bool apply);
    // The stacking rule: of bonuses of one kind only the highest counts.
    static void HandleMagicBonus(DCharacter* character, DMagicBonus* bonus, bool apply);
    static void ApplyMagicBonus(DCharacter* character, DMagicBonus* bonus, bool apply);
    static void ComputeCarryingCapcity(int strength, int size, DCarryInfo& out);
    static int ComputeCharacterLoad(DCharacter* character);
    static void ComputeAndSetCharacterEncumberance(DCharacter* character);
    static bool IsCharacterProfWithArmor(DCharacter* character, const QUuid& armor);
    static bool IsCharacterProfWithShield(DCharacter* character, const QUuid& shield);
    static bool IsCharacterWearingArmor(DCharacter* character);
    static bool IsCharacterWearingProfArmor(DCharacter* character);
    static int GetArmorWeightType(DCharacter* character);
    static void ComputeAndSetAdjustedSpeed(DCharacter* character, int load, DItemInfo* armor);
    static int ComputeArmorSpeed(int speed, float multiplier);
    static int ComputeLoadSpeed(int speed, float multiplier) {
        return ComputeArmorSpeed(speed, multiplier);
    }
    // Arcane spell failure of worn armor and shields together, in percent.
    static int GetArcaneSpellFailure(DCharacter* character);
    static void GetArmorShieldValues(DItem* item, DArmorShieldValues& out);

    // --- Offense ------------------------------------------------------------------------------
    static void SetupUnarmedAttack(DCharacter* character);
    static void SetDamageValuesForUnarmedMonk(DCharacter* character, DWeaponDamageValues& values);
    static QString BuildWeaponDamageString(const DWeaponDamageValues& values, bool bothHeads,
                                           int bonus);
    static QString BuildSimpleWeaponDamageString(int count1, int die1, int count2, int die2);
    static QString BuildOffenseDamageString(DCharacter* character, const DOffenseItem& offense);
    static QString BuildBonusDamageString(DCharacter* character, DItem* item);
    static QString BuildWeaponCriticalString(DCharacter* character, const QUuid& weapon,
                                             const DWeaponCritValues& values, bool bothHeads);
    static QString BuildSimpleWeaponCriticalString(int min, int mult1, int mult2, bool bothHeads);
    static QString BuildWeaponRangeString(DCharacter* character, int range);
    static void GetDamageChange(DWeaponDamageValues& values, int fromSize, int toSize);
    static bool GetDamageChange(int count, int die, int& newCount, int& newDie, bool up);
    static int GetSizeAdjustedArmorBonus(int bonus, int size);
    // Allowed offense flags (one hand 1, two hands 2, double 4) for the wielder's size.
    static int GetCharacterWeaponUses(DCharacter* character, const DWeaponInfo* weapon);
    static bool IsWeaponLight(DCharacter* character, const DWeaponInfo* weapon);
    static bool CanFinesseWeapon(DCharacter* character, const DWeaponInfo* weapon);
    static bool IsCharacterProfWithWeapon(DCharacter* character, const DWeaponInfo* weapon);
    static bool DoesCharacterHaveFeatForOffense(DCharacter* character, const QUuid& feat,
                                                const DOffenseItem& offense);
    static void GetAttackValues(DCharacter* character, int rangeType, DAttackValues& values);
    static void GetAttackValues(DCharacter* character, int type, int id, int rangeType,
                                DAttackValues& values);
    // The attack total of one weapon or natural attack, its parts in `values`.
    static int GetOffenseBonus(DCharacter* character, const DOffenseItem& offense,
                               DOffenseBonusValues& values, bool secondHead);
    static QString BuildOffenseBonusString(DCharacter* character, const DOffenseItem& offense);
    static int GetWeaponDamageModifier(DCharacter* character, const DOffenseItem& offense);
    // "+11/+6/+1": the total with the iterative attacks of the base attack.
    static QString BuildAttackString(DCharacter* character, int rangeType, bool shortSteps);
    // The iterative bonuses that follow `total` for a base attack of `baseAttack`.
    static QList<int> BuildIterativeBonuses(int total, int baseAttack, bool shortSteps);
    static DOffenseLine BuildOffenseLine(DCharacter* character, const DOffenseItem& offense);
    // Every weapon and natural attack of the offense groups in order; for a character with
    // class levels the unarmed strike when there is nothing else.
    static QList<DOffenseLine> BuildOffenseLines(DCharacter* character);

    // --- Monster advancement -------------------------------------------------------------------
    // Racial hit dice from oldHD to newHD: the history, the full recomputation and, across a
    // size boundary of the race's advancement rows, the size step. With `initial` only the
    // size step runs (the setup pass re-applying stored hit dice).
    static void AdvanceCharacterWithHD(DCharacter* character, float oldHD, float newHD,
                                       bool initial);
    // Re-applies the size effects of hit dice stored beyond the race's own.
    static void AdvanceCharacter(DCharacter* character);
    // Strength, Dexterity, Constitution, natural armor, size and natural attack dice from one
    // size to another.
    static void AdvanceCharacter(DCharacter* character, int oldSizeId, int newSizeId, bool initial);
    static void AdvanceNaturalAttacks(DCharacter* character, int oldSizeId, int newSizeId);

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

    // Weapon and armor proficiency flags from every class's row.
    static void ComputeAndSetProficiencies(DCharacter* character);
    // What a race editor derives when a race is made: good saves from its creature type, face
    // and reach from its size, and the middle of a ranged skill-point allowance.
    static void InitialRaceSetup(DRace* race);

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
    // The class falls (fallen true) or atones: every history entry of it takes or loses the
    // ex-class flag, as a level-up of an ex class would leave it, and the features and caster
    // flags follow at once; an atoned class gets all its features back. False when the
    // character lacks the class or it already stands so.
    static bool SetClassFallen(DCharacter* character, const QUuid& classGuid, bool fallen,
                               bool notify);
    // A class or hit-die level as text: the usual fractions of a die as "1/8", "1/6", "1/4",
    // "1/3", "1/2", anything else as a plain number ("3", "2.5").
    static QString BuildFractionString(float value);

private:
    // The pass from hit points to its end, once classes and levels stand.
    static void RecomputeAfterLevels(DCharacter* character, bool isNew);
};
