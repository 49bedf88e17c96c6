#pragma once

#include "DInfo.h"
#include "FCString.h"

// One character or creature class of "[info Class]". The rules engine reads the fields directly.
class DClassInfo : public DInfo {
    FC_DECLARE_CLASS(DClassInfo)
public:
    // Bits of mCasterFlags.
    enum : unsigned {
        kCasterPrepares = 0x1,
        kCasterKnows = 0x2,
    };

    FCObject* Clone() const override { return new DClassInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mGuid; }

    int mId = -1;
    QUuid mGuid;
    FCString mName;
    FCString mShortName;
    int mClassType = 0;
    int mDieId = 0;
    int mAgeCat = 0;
    bool mGoodSaves[3] = {}; // by save type: Fortitude, Reflex, Will
    float mAttackMultiplier = 0.0f;
    int mSkillPointsPerLevel = 0;
    int mBonusFeats = 0;
    int mLevelsForBonusFeat = 0;
    int mClassSkills = 0;
    int mExclusiveClassSkills = 0;
    int mStartingGoldDieCount = 0;
    int mStartingGoldDieId = 0;
    int mStartingGoldMultiply = 0;
    int mCastType = 0;
    int mFirstCasterLevel = 0;
    float mCasterLevelMultiplier = 0.0f;
    int mLevelForAnimal = 0;
    int mAnimalType = 0;
    // Simple, martial, light armor, medium armor, heavy armor, shield.
    bool mProficiencies[6] = {};
    int mCastingAbility = 0;
    unsigned mCasterFlags = 0;

    // Skill points of a creature class.
    int mBSPOperand1 = 0;
    int mBSPOperator = 0;
    int mBSPOperand2 = 0;
    int mBSPAbilityId = 0;
    int mBSPAbilityValueType = 0;
    int mBSPMultiplyHD = 0;
    int mBSPBonusPerEHD = 0;
    int mSPAdvanceType = 0;

    // Feat points of a creature class.
    int mBFPBase = 0;
    bool mBFPIntBonus = false;
    int mBFPPerHD = 0;
    bool mBFPIsTotalHD = false;
};
