#pragma once

#include "DItemInfo.h"

// An item known by name (and for art objects and gems, by price) alone.
class DSimpleItemInfo : public DItemInfo {
    FC_DECLARE_CLASS(DSimpleItemInfo)
public:
    DSimpleItemInfo() = default;
    explicit DSimpleItemInfo(qint32 itemType) : mSimpleItemType(itemType) {}
    DSimpleItemInfo(const DSimpleItemInfo&) = default;
    DSimpleItemInfo& operator=(const DSimpleItemInfo&) = default;

    DSimpleItemInfo* Clone() const override { return new DSimpleItemInfo(*this); }
    // DItemInfo, then the simple item type.
    void Serialize(FCArchive& archive) override;
    // "Guid" and "Name"; for art objects and gems also "CoinCount" and "CoinType". Gems and art
    // objects weigh nothing, so the weight is never read.
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return mSimpleItemType; }

    void SetSimpleItemType(qint32 itemType) { mSimpleItemType = itemType; }

private:
    qint32 mSimpleItemType = kItemGeneric;
};
