#pragma once

#include "DSpellCaster.h"

// One class of a character: its level, the points it gives and spends, and its casting.
class DCharacterClass : public DSpellCaster {
    FC_DECLARE_CLASS(DCharacterClass)
public:
    DCharacterClass() = default;
    DCharacterClass(const DCharacterClass& other) = default;
    DCharacterClass& operator=(const DCharacterClass& other) = default;
    ~DCharacterClass() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    // Not stored: atonement only matters while a level-up is being worked out.
    bool hasAtoned() const { return mHasAtoned; }
    void SetHasAtoned(bool atoned) { mHasAtoned = atoned; }

    float GetPreviousLevel() const { return mPreviousLevel; }
    void PrepareForLevelUp() { mPreviousLevel = mLevel; }

    int GetBaseSkillPoints() const { return mBaseSkillPoints; }
    void SetBaseSkillPoints(int points) { mBaseSkillPoints = points; }
    int GetSpentSkillPoints() const { return mSpentSkillPoints; }
    void SetSpentSkillPoints(int points) { mSpentSkillPoints = points; }
    void AdjustSpentSkillPoints(int delta) { mSpentSkillPoints += delta; }
    int GetRemainingSkillPoints() const { return mBaseSkillPoints - mSpentSkillPoints; }

    int GetBonusFeatPoints() const { return mBonusFeatPoints; }
    void SetBonusFeatPoints(int points) { mBonusFeatPoints = points; }
    int GetSpentBonusFeatPoints() const { return mSpentBonusFeatPoints; }
    void SetSpentBonusFeatPoints(int points) { mSpentBonusFeatPoints = points; }

    bool GetIsExClass() const { return mIsExClass; }
    void SetIsExClass(bool isExClass) { mIsExClass = isExClass; }

    int GetBonusFeatures() const { return mBonusFeatures; }
    void SetBonusFeatures(int count) { mBonusFeatures = count; }
    int GetSpentBonusFeatures() const { return mSpentBonusFeatures; }
    void SetSpentBonusFeatures(int count) { mSpentBonusFeatures = count; }
    void AdjustSpentBonusFeatures(int delta) { mSpentBonusFeatures += delta; }

    // Not stored: recomputed whenever class skills are handed out.
    int GetSpentClassSkills() const { return mSpentClassSkills; }
    void SetSpentClassSkills(int count) { mSpentClassSkills = count; }
    void AdjustSpentClassSkills(int delta) { mSpentClassSkills += delta; }

    // Offered to the host; no rule sets or tests a bit of it.
    unsigned GetClassFlags() const { return mClassFlags; }
    void AddClassFlag(unsigned flag) { mClassFlags |= flag; }
    void RemoveClassFlag(unsigned flag) { mClassFlags &= ~flag; }
    bool HasClassFlag(unsigned flag) const { return (mClassFlags & flag) != 0; }

private:
    bool mHasAtoned = false;
    float mPreviousLevel = 0.0f;
    // Kept only so that a file reads back unchanged.
    qint32 mClassReserved = 0;
    qint32 mBaseSkillPoints = 0;
    qint32 mSpentSkillPoints = 0;
    qint32 mBonusFeatPoints = 0;
    qint32 mSpentBonusFeatPoints = 0;
    bool mIsExClass = false;
    qint32 mBonusFeatures = 0;
    qint32 mSpentBonusFeatures = 0;
    qint32 mSpentClassSkills = 0;
    quint32 mClassFlags = 0;
};
