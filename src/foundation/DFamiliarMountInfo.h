#pragma once

#include "DInfo.h"

// What a familiar, mount or fiendish servant gains for a range of master levels.
class DFamiliarMountInfo : public DInfo {
    FC_DECLARE_CLASS(DFamiliarMountInfo)
public:
    FCObject* Clone() const override { return new DFamiliarMountInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;

    int GetMasterLevelMin() const { return mMasterLevelMin; }
    int GetMasterLevelMax() const { return mMasterLevelMax; }
    int GetBonusHD() const { return mBonusHD; }
    int GetNaturalArmor() const { return mNaturalArmor; }
    int GetSTRAdjust() const { return mStrAdjust; }
    int GetINT() const { return mIntelligence; }

private:
    int mMasterLevelMin = 0;
    int mMasterLevelMax = 0;
    int mBonusHD = 0;
    int mNaturalArmor = 0;
    int mStrAdjust = 0;
    int mIntelligence = 0;
};
