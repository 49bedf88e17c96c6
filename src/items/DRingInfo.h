#pragma once

#include "DMagicItemInfo.h"

// A ring of "[info Rings]".
class DRingInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DRingInfo)
public:
    DRingInfo();
    DRingInfo(const DRingInfo&) = default;
    DRingInfo& operator=(const DRingInfo&) = default;

    DRingInfo* Clone() const override { return new DRingInfo(*this); }
    // SetDataNoMasterwork without the weight.
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemRing; }
};
