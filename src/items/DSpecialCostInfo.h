#pragma once

#include "DInfo.h"
#include "DItemType.h"

// One row of "[info Masterwork Costs]": what the masterwork form of an item costs.
class DSpecialCostInfo : public DInfo {
    FC_DECLARE_CLASS(DSpecialCostInfo)
public:
    DSpecialCostInfo() = default;
    DSpecialCostInfo(const DSpecialCostInfo&) = default;
    DSpecialCostInfo& operator=(const DSpecialCostInfo&) = default;

    DSpecialCostInfo* Clone() const override { return new DSpecialCostInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSpecialCostId; }

    qint32 GetSpecialCostId() const { return mSpecialCostId; }
    qint32 GetCost() const { return mCost; }
    qint32 GetCostCoinType() const { return mCostCoinType; }
    // True: the masterwork price replaces the item's price instead of adding to it.
    bool GetOverrideCost() const { return mOverrideCost; }

private:
    qint32 mSpecialCostId = -1;
    qint32 mCost = 0;
    qint32 mCostCoinType = kCoinGold;
    bool mOverrideCost = false;
};
