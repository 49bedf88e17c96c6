#include "DRace.h"

#include "FCArchive.h"
#include "FCFileManager.h"

#include <QFileInfo>

#include <algorithm>

FC_IMPLEMENT_CLASS(DRace, "DCharRaceBase", nullptr)

namespace {

bool inRange(int index, int count) {
    return index >= 0 && index < count;
}

FCString baseNameOf(const QString& path) {
    QString portable = path;
    portable.replace('\\', '/');
    return FCString(QFileInfo(portable).completeBaseName());
}

} // namespace

DRace::DRace() {
    mAdvances.SetOwnership(kFCRetained);
    mSpecialAttacks.SetOwnership(kFCRetained);
    mFamiliarBonuses.SetOwnership(kFCRetained);
}

DRace::DRace(const DRace& other) : DCharRaceBase(other) {
    CopyFields(other);
}

DRace& DRace::operator=(const DRace& other) {
    if (this != &other) {
        DCharRaceBase::operator=(other);
        CopyFields(other);
    }
    return *this;
}

DRace::~DRace() = default;

void DRace::CopyFields(const DRace& other) {
    mRaceName = other.mRaceName;
    mSizeId = other.mSizeId;
    mClassGuid = other.mClassGuid;
    mSubTypes = other.mSubTypes;
    mRaceCategoryId = other.mRaceCategoryId;
    mRaceFamilyId = other.mRaceFamilyId;
    mSizeDirectionId = other.mSizeDirectionId;
    mHitDieCount = other.mHitDieCount;
    mMaxHitDieCount = other.mMaxHitDieCount;
    std::ranges::copy(other.mNoAbility, mNoAbility);
    std::ranges::copy(other.mAbility, mAbility);
    mNaturalAC = other.mNaturalAC;
    std::ranges::copy(other.mSaveBonus, mSaveBonus);
    std::ranges::copy(other.mHasGoodSaves, mHasGoodSaves);
    mBaseSkillPoints = other.mBaseSkillPoints;
    mExtraSkillPointsFirstLevel = other.mExtraSkillPointsFirstLevel;
    mExtraSkillPointsPerLevel = other.mExtraSkillPointsPerLevel;
    mExtraFeatPointsFirstLevel = other.mExtraFeatPointsFirstLevel;
    mExtraFeatPointsPerLevel = other.mExtraFeatPointsPerLevel;
    mAvailableLanguages = other.mAvailableLanguages;
    mAdvances.CloneFrom(other.mAdvances);
    mClimates = other.mClimates;
    mRoles = other.mRoles;
    mChallengeRating = other.mChallengeRating;
    mAlignmentModId = other.mAlignmentModId;
    mAlignmentId = other.mAlignmentId;
    std::ranges::copy(other.mRaceSizeStat, mRaceSizeStat);
    std::ranges::copy(other.mTreasureType, mTreasureType);
    std::ranges::copy(other.mTreasureData, mTreasureData);
    mSpecialAttacks.CloneFrom(other.mSpecialAttacks);
    mSpecialQualities = other.mSpecialQualities;
    mRaceFeatures = other.mRaceFeatures;
    std::ranges::copy(other.mStartAge, mStartAge);
    std::ranges::copy(other.mStartHeight, mStartHeight);
    std::ranges::copy(other.mStartWeight, mStartWeight);
    std::ranges::copy(other.mHeightMod, mHeightMod);
    std::ranges::copy(other.mWeightMod, mWeightMod);
    mFamiliarBonuses.CloneFrom(other.mFamiliarBonuses);
    mWeaponProfs = other.mWeaponProfs;
    mAvailableGods = other.mAvailableGods;
    mRaceFlags = other.mRaceFlags;
    std::ranges::copy(other.mRaceText, mRaceText);
    mFullyLoaded = other.mFullyLoaded;
}

void DRace::Serialize(FCArchive& archive) {
    const bool loading = archive.IsLoading();
    FCObject::Serialize(archive);
    archive.Transfer(mRaceName);
    // The file is not trusted for its own name: whatever loads a race file gets its base name.
    if (loading && !archive.GetFilePath().isEmpty())
        mRaceName = baseNameOf(archive.GetFilePath());
    archive.Transfer(mSizeId);
    archive.Transfer(mClassGuid);
    mSubTypes.Serialize(archive);
    archive.Transfer(mSizeDirectionId);
    archive.Transfer(mHitDieCount);
    archive.Transfer(mMaxHitDieCount);
    archive.Transfer(mRaceFlags);
    archive.Transfer(mChallengeRating);
    mRoles.Serialize(archive);
    archive.Transfer(mRaceCategoryId);

    // Race lists need no more than this.
    if (loading && archive.mHeaderOnly) {
        mFullyLoaded = false;
        return;
    }

    archive.Transfer(mRaceFamilyId);
    for (int i = 0; i < kAbilityCount; ++i) {
        archive.Transfer(mNoAbility[i]);
        archive.Transfer(mAbility[i]);
    }
    archive.Transfer(mNaturalAC);
    for (int i = 0; i < kSaveCount; ++i) {
        archive.Transfer(mSaveBonus[i]);
        archive.Transfer(mHasGoodSaves[i]);
    }
    archive.Transfer(mBaseSkillPoints);
    archive.Transfer(mExtraSkillPointsFirstLevel);
    archive.Transfer(mExtraSkillPointsPerLevel);
    archive.Transfer(mExtraFeatPointsFirstLevel);
    archive.Transfer(mExtraFeatPointsPerLevel);
    DCharRaceBase::Serialize(archive);
    mAvailableLanguages.Serialize(archive);
    mAdvances.Serialize(archive);
    mClimates.Serialize(archive);
    archive.Transfer(mAlignmentModId);
    archive.Transfer(mAlignmentId);
    archive.TransferArray(mRaceSizeStat);
    for (int i = 0; i < kTreasureSlotCount; ++i) {
        archive.Transfer(mTreasureType[i]);
        archive.Transfer(mTreasureData[i]);
    }
    mSpecialAttacks.Serialize(archive);
    mSpecialQualities.Serialize(archive);
    mRaceFeatures.Serialize(archive);
    archive.TransferArray(mStartAge);
    for (int i = 0; i < kGenderSlotCount; ++i) {
        archive.Transfer(mStartHeight[i]);
        archive.Transfer(mStartWeight[i]);
        mHeightMod[i].Serialize(archive);
        mWeightMod[i].Serialize(archive);
    }
    mFamiliarBonuses.Serialize(archive);
    mWeaponProfs.Serialize(archive);
    mAvailableGods.Serialize(archive);
    archive.TransferArray(mRaceText);
    // The race files carry the portrait a second time after the texts.
    archive.Transfer(mPortraitName);

    if (loading)
        mFullyLoaded = true;
}

DRace* DRace::CreateFromFile(const FCString& path, bool headerOnly) {
    // The reader hands the file's path to Serialize, which renames the race after it.
    return static_cast<DRace*>(FCArchive::ReadFile(FCFileManager::ResolvePath(path), kFileSignature,
                                                   headerOnly, nullptr, GetStaticClassInfo()));
}

bool DRace::SaveToFile(const FCString& path) {
    const FCString resolved = FCFileManager::ResolvePath(path);
    if (!FCArchive::WriteFile(resolved, kFileSignature, kFileVersion, this))
        return false;
    mRaceName = baseNameOf(resolved);
    return true;
}

bool DRace::GetNoAbility(int ability) const {
    return inRange(ability, kAbilityCount) && mNoAbility[ability];
}

void DRace::SetNoAbility(int ability, bool none) {
    if (inRange(ability, kAbilityCount))
        mNoAbility[ability] = none;
}

int DRace::GetAbility(int ability) const {
    return inRange(ability, kAbilityCount) ? mAbility[ability] : 0;
}

void DRace::SetAbility(int ability, int value) {
    if (inRange(ability, kAbilityCount))
        mAbility[ability] = value;
}

int DRace::GetAbilityMod(int ability) const {
    const int value = GetAbility(ability);
    // A positive odd value rounds down to the even one below; a negative odd one does not.
    return value % 2 == 1 ? value - 11 : value - 10;
}

int DRace::GetSaveBonus(int save) const {
    return inRange(save, kSaveCount) ? mSaveBonus[save] : 0;
}

void DRace::SetSaveBonus(int save, int bonus) {
    if (inRange(save, kSaveCount))
        mSaveBonus[save] = bonus;
}

bool DRace::GetHasGoodSaves(int save) const {
    return inRange(save, kSaveCount) && mHasGoodSaves[save];
}

void DRace::SetHasGoodSaves(int save, bool good) {
    if (inRange(save, kSaveCount))
        mHasGoodSaves[save] = good;
}

float DRace::GetRaceSizeStat(int stat) const {
    return inRange(stat, kSizeStatCount) ? mRaceSizeStat[stat] : 0.0f;
}

void DRace::SetRaceSizeStat(int stat, float feet) {
    if (inRange(stat, kSizeStatCount))
        mRaceSizeStat[stat] = feet;
}

int DRace::GetTreasureType(int slot) const {
    return inRange(slot, kTreasureSlotCount) ? mTreasureType[slot] : kNoTreasure;
}

void DRace::SetTreasureType(int slot, int type) {
    if (inRange(slot, kTreasureSlotCount))
        mTreasureType[slot] = type;
}

int DRace::GetTreasureData(int slot) const {
    return inRange(slot, kTreasureSlotCount) ? mTreasureData[slot] : 0;
}

void DRace::SetTreasureData(int slot, int data) {
    if (inRange(slot, kTreasureSlotCount))
        mTreasureData[slot] = data;
}

bool DRace::HasTreasure() const {
    return std::ranges::any_of(mTreasureType, [](int type) { return type != kNoTreasure; });
}

int DRace::GetStartAge(int ageType) const {
    return inRange(ageType, kAgeCount) ? mStartAge[ageType] : 0;
}

void DRace::SetStartAge(int ageType, int age) {
    if (inRange(ageType, kAgeCount))
        mStartAge[ageType] = age;
}

void DRace::AdjustAges() {
    int previous = 0;
    for (qint32& age : mStartAge) {
        if (age <= previous)
            age = previous != 0 ? previous + 1 : 0;
        previous = age;
    }
}

int DRace::GetAgeType(int age) const {
    for (int type = kAgeCount - 1; type > 0; --type) {
        if (age >= mStartAge[type])
            return type;
    }
    return 0;
}

int DRace::GetStartHeight(int gender) const {
    return inRange(gender, kGenderSlotCount) ? mStartHeight[gender] : 0;
}

void DRace::SetStartHeight(int gender, int inches) {
    if (inRange(gender, kGenderSlotCount))
        mStartHeight[gender] = inches;
}

int DRace::GetStartWeight(int gender) const {
    return inRange(gender, kGenderSlotCount) ? mStartWeight[gender] : 0;
}

void DRace::SetStartWeight(int gender, int pounds) {
    if (inRange(gender, kGenderSlotCount))
        mStartWeight[gender] = pounds;
}

DDieData DRace::GetHeightMod(int gender) const {
    return inRange(gender, kGenderSlotCount) ? mHeightMod[gender] : DDieData();
}

void DRace::SetHeightMod(int gender, int count, int die) {
    if (inRange(gender, kGenderSlotCount))
        mHeightMod[gender] = DDieData(count, die);
}

DDieData DRace::GetWeightMod(int gender) const {
    return inRange(gender, kGenderSlotCount) ? mWeightMod[gender] : DDieData();
}

void DRace::SetWeightMod(int gender, int count, int die) {
    if (inRange(gender, kGenderSlotCount))
        mWeightMod[gender] = DDieData(count, die);
}

const FCString& DRace::GetRaceText(int index) const {
    return mRaceText[inRange(index, kRaceTextCount) ? index : 0];
}

void DRace::SetRaceText(int index, const FCString& text) {
    if (inRange(index, kRaceTextCount))
        mRaceText[index] = text;
}

int DRace::AddRaceFeature(const FCString& feature) {
    mRaceFeatures.Add(feature);
    return mRaceFeatures.GetCount() - 1;
}

void DRace::AddSpecialAttack(DSpecialAttack* attack) {
    if (attack)
        mSpecialAttacks.Add(attack);
}

bool DRace::HasSpecialAttack(int attackId) const {
    return std::ranges::any_of(mSpecialAttacks, [attackId](const DSpecialAttack* attack) {
        return attack->GetAttackId() == attackId;
    });
}

int DRace::AddFamiliarBonus(DFamiliarBonus* bonus) {
    return bonus ? mFamiliarBonuses.Add(bonus) : -1;
}

void DRace::RemoveFamiliarBonus(int index) {
    if (inRange(index, mFamiliarBonuses.GetCount()))
        mFamiliarBonuses.RemoveAt(index);
}

void DRace::AddAdvance(DRaceAdvance* advance) {
    if (!advance)
        return;
    mMaxHitDieCount = std::max(mMaxHitDieCount, float(advance->GetMaxHitDie()));
    mAdvances.Add(advance);
}

void DRace::RemoveAdvance(int index) {
    if (!inRange(index, mAdvances.GetCount()))
        return;
    // Only the last row bounds the table, so only its removal moves the maximum.
    const bool wasLast = index == mAdvances.GetCount() - 1;
    mAdvances.RemoveAt(index);
    if (wasLast) {
        const DRaceAdvance* last = mAdvances.GetLast();
        mMaxHitDieCount = last ? float(last->GetMaxHitDie()) : 0.0f;
    }
}

void DRace::RemoveAllAdvances() {
    mAdvances.RemoveAll();
    mMaxHitDieCount = 0.0f;
}

int DRace::GetSizeForHitDie(float hitDice) const {
    for (const DRaceAdvance* advance : mAdvances) {
        if (advance->Covers(hitDice))
            return advance->GetSizeId();
    }
    return mSizeId;
}
