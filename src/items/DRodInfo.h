#pragma once

#include "DMagicItemInfo.h"

// A rod of "[info Rods]".
class DRodInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DRodInfo)
public:
    DRodInfo();
    DRodInfo(const DRodInfo&) = default;
    DRodInfo& operator=(const DRodInfo&) = default;

    DRodInfo* Clone() const override { return new DRodInfo(*this); }
    // SetDataNoMasterwork without the weight.
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemRod; }
};
