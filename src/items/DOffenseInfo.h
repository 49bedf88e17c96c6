#pragma once

#include "DItemInfo.h"

// What weapons and natural attacks share: how many attacks or pieces one record stands for, and
// at what range it is used.
class DOffenseInfo : public DItemInfo {
    FC_DECLARE_CLASS(DOffenseInfo)
public:
    DOffenseInfo() = default;
    DOffenseInfo(const DOffenseInfo&) = default;
    DOffenseInfo& operator=(const DOffenseInfo&) = default;

    DOffenseInfo* Clone() const override { return new DOffenseInfo(*this); }
    // DItemInfo; count; range type.
    void Serialize(FCArchive& archive) override;

    qint32 GetOffenseCount() const { return mOffenseCount; }
    void SetOffenseCount(qint32 count) { mOffenseCount = count; }
    // A DWeaponRangeType.
    qint32 GetRangeType() const { return mRangeType; }
    void SetRangeType(qint32 rangeType) { mRangeType = rangeType; }

private:
    qint32 mOffenseCount = 1;
    qint32 mRangeType = 0;
};
