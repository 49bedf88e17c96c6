#pragma once

#include "DItemInfo.h"

// Coins as an item: the cost is the number of coins and the cost coin type their kind.
class DCoinItemInfo : public DItemInfo {
    FC_DECLARE_CLASS(DCoinItemInfo)
public:
    DCoinItemInfo() = default;
    DCoinItemInfo(const DCoinItemInfo&) = default;
    DCoinItemInfo& operator=(const DCoinItemInfo&) = default;

    DCoinItemInfo* Clone() const override { return new DCoinItemInfo(*this); }
    int GetItemType() const override { return kItemCoins; }

    // "12 Gold": the count and the coin's name, or "12 Unknown" for a coin type without a row.
    FCString GetDescription() const;
};
