#pragma once

#include "DInfo.h"
#include "FCString.h"

// One size category of "[info Size]".
class DSizeInfo : public DInfo {
    FC_DECLARE_CLASS(DSizeInfo)
public:
    // Range index: 0 minimum, 1 maximum.
    static constexpr int kRangeCount = 2;
    // Change-size index: Strength, Dexterity, Constitution, natural armor.
    static constexpr int kChangeSizeValueCount = 4;

    FCObject* Clone() const override { return new DSizeInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSizeId; }

    int GetSizeId() const { return mSizeId; }
    const FCString& GetSizeName() const { return mSizeName; }
    float GetSizeCapacityMod() const { return mCapacityMod; }
    int GetAttackArmorMod() const { return mAttackArmorMod; }
    // The index getters give 0 outside their range.
    float GetDimensionRange(int rangeType) const;
    float GetWeightRange(int rangeType) const;
    int GetChangeSizeValue(int valueType) const;
    int GetExtraHitDieMod() const { return mExtraHitDieMod; }
    float GetCostMod() const { return mCostMod; }
    float GetWeightMod() const { return mWeightMod; }
    float GetArmorBonusMod() const { return mArmorBonusMod; }
    // The size's special modifier of a grapple check (+4 per step above Medium).
    int GetGrappleMod() const { return mGrappleMod; }

private:
    int mSizeId = -1;
    FCString mSizeName;
    float mCapacityMod = 0.0f;
    int mAttackArmorMod = 0;
    float mDimensionRange[kRangeCount] = {};
    float mWeightRange[kRangeCount] = {};
    int mChangeSizeValues[kChangeSizeValueCount] = {};
    int mExtraHitDieMod = 0;
    float mCostMod = 0.0f;
    float mWeightMod = 0.0f;
    float mArmorBonusMod = 0.0f;
    int mGrappleMod = 0;
};
