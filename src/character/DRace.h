#pragma once

#include "DCharRaceBase.h"
#include "DDieData.h"
#include "DFamiliarBonus.h"
#include "DRaceAdvance.h"
#include "DSpecialAttack.h"
#include "FCArray.h"
#include "FCPointerArray.h"
#include "FCString.h"

#include <QUuid>
#include <QtGlobal>

// A stored template that characters and monsters are built from. Races live in their own
// files; a character file names its race's file and loads it from there.
class DRace : public DCharRaceBase {
    FC_DECLARE_CLASS(DRace)
public:
    static constexpr quint32 kFileSignature = 0x01010101;
    static constexpr quint32 kFileVersion = 0x10001;

    static constexpr int kAbilityCount = 6;
    static constexpr int kSaveCount = 3;
    static constexpr int kSizeStatCount = 3;
    static constexpr int kTreasureSlotCount = 3;
    static constexpr int kAgeCount = 4;
    static constexpr int kGenderSlotCount = 3;
    static constexpr int kRaceTextCount = 7;

    // The creature type class that races get until one is chosen.
    static constexpr QUuid kDefaultClassGuid{0x22CAEBD6, 0x5489, 0x4909, 0x9F, 0x0C, 0x97,
                                             0xB4,       0x6D,   0xF0,   0xAE, 0xA6};
    // A treasure slot of this "[types Creature Treasure]" value holds nothing.
    static constexpr int kNoTreasure = 1;

    enum : unsigned {
        kFlagFamiliar = 0x1,
        kFlagMount = 0x2,
        kFlagFiendishServant = 0x4,
        kFlagAnimalCompanion = 0x8,
        kFlagUndeadCompanion = 0x10,
        kFlagShadowCompanion = 0x20,
        // Medium or heavy armor and load do not slow the creature's land speed.
        kFlagSteadySpeed = 0x40,
        kFlagLightArmorProf = 0x800000,
        kFlagMediumArmorProf = 0x1000000,
        kFlagHeavyArmorProf = 0x2000000,
        kFlagShieldProf = 0x4000000,
    };

    DRace();
    DRace(const DRace& other);
    DRace& operator=(const DRace& other);
    ~DRace() override;

    FCObject* Clone() const override { return new DRace(*this); }
    void Serialize(FCArchive& archive) override;

    // Files. The race's name is always its file's base name.
    static DRace* CreateFromFile(const FCString& path, bool headerOnly);
    bool SaveToFile(const FCString& path);
    // False after a header-only load: only the fields up to the category are valid then.
    bool IsFullyLoaded() const { return mFullyLoaded; }

    const FCString& GetRaceName() const { return mRaceName; }
    void SetRaceName(const FCString& name) { mRaceName = name; }
    int GetSizeId() const { return mSizeId; }
    void SetSizeId(int sizeId) { mSizeId = sizeId; }
    const QUuid& GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }
    int GetRaceCategoryId() const { return mRaceCategoryId; }
    void SetRaceCategoryId(int id) { mRaceCategoryId = id; }
    int GetRaceFamilyId() const { return mRaceFamilyId; }
    void SetRaceFamilyId(int id) { mRaceFamilyId = id; }
    int GetSizeDirectionId() const { return mSizeDirectionId; }
    void SetSizeDirectionId(int id) { mSizeDirectionId = id; }
    float GetHitDieCount() const { return mHitDieCount; }
    void SetHitDieCount(float count) { mHitDieCount = count; }
    float GetMaxHitDieCount() const { return mMaxHitDieCount; }
    void SetMaxHitDieCount(float count) { mMaxHitDieCount = count; }

    // Indexed by ability, 0 Strength to 5 Charisma; other indexes read as neutral.
    bool GetNoAbility(int ability) const;
    void SetNoAbility(int ability, bool none);
    int GetAbility(int ability) const;
    void SetAbility(int ability, int value);
    // The adjustment the stored value stands for against 10, kept even; a value of 0 gives
    // -10, so callers test GetNoAbility first.
    int GetAbilityMod(int ability) const;

    int GetNaturalAC() const { return mNaturalAC; }
    void SetNaturalAC(int value) { mNaturalAC = value; }
    // Indexed by save, 0 Fortitude, 1 Reflex, 2 Will.
    int GetSaveBonus(int save) const;
    void SetSaveBonus(int save, int bonus);
    bool GetHasGoodSaves(int save) const;
    void SetHasGoodSaves(int save, bool good);

    int GetBaseSkillPoints() const { return mBaseSkillPoints; }
    void SetBaseSkillPoints(int points) { mBaseSkillPoints = points; }
    int GetExtraSkillPointsFirstLevel() const { return mExtraSkillPointsFirstLevel; }
    void SetExtraSkillPointsFirstLevel(int points) { mExtraSkillPointsFirstLevel = points; }
    int GetExtraSkillPointsPerLevel() const { return mExtraSkillPointsPerLevel; }
    void SetExtraSkillPointsPerLevel(int points) { mExtraSkillPointsPerLevel = points; }
    int GetExtraFeatPointsFirstLevel() const { return mExtraFeatPointsFirstLevel; }
    void SetExtraFeatPointsFirstLevel(int points) { mExtraFeatPointsFirstLevel = points; }
    int GetExtraFeatPointsPerLevel() const { return mExtraFeatPointsPerLevel; }
    void SetExtraFeatPointsPerLevel(int points) { mExtraFeatPointsPerLevel = points; }

    float GetChallengeRating() const { return mChallengeRating; }
    void SetChallengeRating(float rating) { mChallengeRating = rating; }
    int GetAlignmentModId() const { return mAlignmentModId; }
    void SetAlignmentModId(int id) { mAlignmentModId = id; }
    int GetAlignmentId() const { return mAlignmentId; }
    void SetAlignmentId(int id) { mAlignmentId = id; }

    // 0 and 1 the two sides of the face, 2 the reach, in feet.
    float GetRaceSizeStat(int stat) const;
    void SetRaceSizeStat(int stat, float feet);
    // 0 coins, 1 goods, 2 items.
    int GetTreasureType(int slot) const;
    void SetTreasureType(int slot, int type);
    int GetTreasureData(int slot) const;
    void SetTreasureData(int slot, int data);
    bool HasTreasure() const;

    // 0 adult, 1 middle, 2 old, 3 venerable: the first age of each category.
    int GetStartAge(int ageType) const;
    void SetStartAge(int ageType, int age);
    // Makes the ages strictly ascending once one is above zero; leading zeros stay.
    void AdjustAges();
    // The highest category whose first age `age` has reached; 0 if none.
    int GetAgeType(int age) const;

    // Indexed by gender, 0 male, 1 female (a third slot is carried along).
    int GetStartHeight(int gender) const;
    void SetStartHeight(int gender, int inches);
    int GetStartWeight(int gender) const;
    void SetStartWeight(int gender, int pounds);
    DDieData GetHeightMod(int gender) const;
    void SetHeightMod(int gender, int count, int die);
    DDieData GetWeightMod(int gender) const;
    void SetWeightMod(int gender, int count, int die);

    unsigned GetRaceFlags() const { return mRaceFlags; }
    void AddRaceFlag(unsigned flag) { mRaceFlags |= flag; }
    void RemoveRaceFlag(unsigned flag) { mRaceFlags &= ~flag; }
    // True if any of the given bits is set.
    bool HasRaceFlag(unsigned flag) const { return (mRaceFlags & flag) != 0; }

    // Indexed by row of "[types Race Description]"; an index out of range reads text 0.
    const FCString& GetRaceText(int index) const;
    void SetRaceText(int index, const FCString& text);

    // Value lists: Add appends without looking for a duplicate, Remove takes the first match.
    FCArray<int>& GetSubTypeArray() { return mSubTypes; }
    const FCArray<int>& GetSubTypeArray() const { return mSubTypes; }
    void AddSubType(int id) { mSubTypes.Add(id); }
    bool RemoveSubType(int id) { return mSubTypes.Remove(id); }
    void RemoveAllSubTypes() { mSubTypes.RemoveAll(); }
    bool HasSubType(int id) const { return mSubTypes.Find(id) >= 0; }

    FCArray<int>& GetClimateArray() { return mClimates; }
    const FCArray<int>& GetClimateArray() const { return mClimates; }
    void AddClimate(int id) { mClimates.Add(id); }
    bool RemoveClimate(int id) { return mClimates.Remove(id); }
    void RemoveAllClimates() { mClimates.RemoveAll(); }
    bool HasClimate(int id) const { return mClimates.Find(id) >= 0; }

    FCArray<int>& GetRoleArray() { return mRoles; }
    const FCArray<int>& GetRoleArray() const { return mRoles; }
    void AddRole(int id) { mRoles.Add(id); }
    bool RemoveRole(int id) { return mRoles.Remove(id); }
    void RemoveAllRoles() { mRoles.RemoveAll(); }
    bool HasRole(int id) const { return mRoles.Find(id) >= 0; }

    FCArray<int>& GetSpecialQualityArray() { return mSpecialQualities; }
    const FCArray<int>& GetSpecialQualityArray() const { return mSpecialQualities; }
    void AddSpecialQuality(int id) { mSpecialQualities.Add(id); }
    bool RemoveSpecialQuality(int id) { return mSpecialQualities.Remove(id); }
    void RemoveAllSpecialQualities() { mSpecialQualities.RemoveAll(); }
    bool HasSpecialQuality(int id) const { return mSpecialQualities.Find(id) >= 0; }

    FCArray<QUuid>& GetAvailableLanguageArray() { return mAvailableLanguages; }
    const FCArray<QUuid>& GetAvailableLanguageArray() const { return mAvailableLanguages; }
    void AddAvailableLanguage(const QUuid& id) { mAvailableLanguages.Add(id); }
    bool RemoveAvailableLanguage(const QUuid& id) { return mAvailableLanguages.Remove(id); }
    void RemoveAllAvailableLanguages() { mAvailableLanguages.RemoveAll(); }
    bool HasAvailableLanguage(const QUuid& id) const { return mAvailableLanguages.Find(id) >= 0; }

    FCArray<QUuid>& GetWeaponProfArray() { return mWeaponProfs; }
    const FCArray<QUuid>& GetWeaponProfArray() const { return mWeaponProfs; }
    void AddWeaponProf(const QUuid& id) { mWeaponProfs.Add(id); }
    bool RemoveWeaponProf(const QUuid& id) { return mWeaponProfs.Remove(id); }
    void RemoveAllWeaponProfs() { mWeaponProfs.RemoveAll(); }
    bool HasWeaponProf(const QUuid& id) const { return mWeaponProfs.Find(id) >= 0; }

    FCArray<QUuid>& GetAvailableGodArray() { return mAvailableGods; }
    const FCArray<QUuid>& GetAvailableGodArray() const { return mAvailableGods; }
    void AddAvailableGod(const QUuid& id) { mAvailableGods.Add(id); }
    bool RemoveAvailableGod(const QUuid& id) { return mAvailableGods.Remove(id); }
    void RemoveAllAvailableGods() { mAvailableGods.RemoveAll(); }
    bool HasAvailableGod(const QUuid& id) const { return mAvailableGods.Find(id) >= 0; }

    FCArray<FCString>& GetRaceFeatureArray() { return mRaceFeatures; }
    const FCArray<FCString>& GetRaceFeatureArray() const { return mRaceFeatures; }
    // Returns the new feature's index.
    int AddRaceFeature(const FCString& feature);
    bool RemoveRaceFeature(const FCString& feature) { return mRaceFeatures.Remove(feature); }
    void RemoveAllRaceFeatures() { mRaceFeatures.RemoveAll(); }

    // Object lists take their own reference on what is added; null is ignored.
    FCPointerArray<DSpecialAttack>& GetSpecialAttackArray() { return mSpecialAttacks; }
    const FCPointerArray<DSpecialAttack>& GetSpecialAttackArray() const { return mSpecialAttacks; }
    void AddSpecialAttack(DSpecialAttack* attack);
    bool RemoveSpecialAttack(DSpecialAttack* attack) { return mSpecialAttacks.Remove(attack); }
    void RemoveAllSpecialAttacks() { mSpecialAttacks.RemoveAll(); }
    bool HasSpecialAttack(int attackId) const;

    FCPointerArray<DFamiliarBonus>& GetFamiliarBonusArray() { return mFamiliarBonuses; }
    const FCPointerArray<DFamiliarBonus>& GetFamiliarBonusArray() const { return mFamiliarBonuses; }
    // Returns the new bonus's index, -1 for null.
    int AddFamiliarBonus(DFamiliarBonus* bonus);
    void RemoveFamiliarBonus(int index);
    void RemoveAllFamiliarBonuses() { mFamiliarBonuses.RemoveAll(); }

    // The advancement table; the maximum hit dice follow it.
    FCPointerArray<DRaceAdvance>& GetAdvanceArray() { return mAdvances; }
    const FCPointerArray<DRaceAdvance>& GetAdvanceArray() const { return mAdvances; }
    void AddAdvance(DRaceAdvance* advance);
    void RemoveAdvance(int index);
    void RemoveAllAdvances();
    // The size of the first row that covers `hitDice`, else the race's own size.
    int GetSizeForHitDie(float hitDice) const;

private:
    void CopyFields(const DRace& other);

    FCString mRaceName;
    qint32 mSizeId = 1;
    QUuid mClassGuid = kDefaultClassGuid;
    FCArray<int> mSubTypes;
    qint32 mRaceCategoryId = 0;
    qint32 mRaceFamilyId = 0;
    qint32 mSizeDirectionId = 0;
    float mHitDieCount = 0.0f;
    float mMaxHitDieCount = 0.0f;
    bool mNoAbility[kAbilityCount] = {};
    qint32 mAbility[kAbilityCount] = {};
    qint32 mNaturalAC = 0;
    qint32 mSaveBonus[kSaveCount] = {};
    bool mHasGoodSaves[kSaveCount] = {};
    qint32 mBaseSkillPoints = 0;
    qint32 mExtraSkillPointsFirstLevel = 0;
    qint32 mExtraSkillPointsPerLevel = 0;
    qint32 mExtraFeatPointsFirstLevel = 0;
    qint32 mExtraFeatPointsPerLevel = 0;
    FCArray<QUuid> mAvailableLanguages;
    FCPointerArray<DRaceAdvance> mAdvances;
    FCArray<int> mClimates;
    FCArray<int> mRoles;
    float mChallengeRating = 1.0f;
    qint32 mAlignmentModId = 0;
    qint32 mAlignmentId = 9;
    float mRaceSizeStat[kSizeStatCount] = {};
    qint32 mTreasureType[kTreasureSlotCount] = {kNoTreasure, kNoTreasure, kNoTreasure};
    qint32 mTreasureData[kTreasureSlotCount] = {};
    FCPointerArray<DSpecialAttack> mSpecialAttacks;
    FCArray<int> mSpecialQualities;
    FCArray<FCString> mRaceFeatures;
    qint32 mStartAge[kAgeCount] = {};
    qint32 mStartHeight[kGenderSlotCount] = {};
    qint32 mStartWeight[kGenderSlotCount] = {};
    DDieData mHeightMod[kGenderSlotCount];
    DDieData mWeightMod[kGenderSlotCount];
    FCPointerArray<DFamiliarBonus> mFamiliarBonuses;
    FCArray<QUuid> mWeaponProfs;
    FCArray<QUuid> mAvailableGods;
    unsigned mRaceFlags = 0;
    FCString mRaceText[kRaceTextCount];
    bool mFullyLoaded = true;
};
