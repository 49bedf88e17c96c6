#pragma once

#include "DItem.h"

// An item in a character's inventory: its key there and where it is worn.
class DChosenItem : public DItem {
    FC_DECLARE_CLASS(DChosenItem)
public:
    enum : qint32 {
        kLocationNone = 0,
        kLocationEquipped = 1,
        kLocationArmor = 2,
        kLocationFirstShield = 3,
        kLocationSecondShield = 4,
    };

    DChosenItem() = default;
    // Holds `info` (retained) under the key `itemId`.
    DChosenItem(qint32 itemId, DItemInfo* info);
    // A copy of a plain item that is not in an inventory yet.
    explicit DChosenItem(const DItem& item);
    DChosenItem(const DChosenItem&) = default;
    DChosenItem& operator=(const DChosenItem&) = default;

    DChosenItem* Clone() const override { return new DChosenItem(*this); }
    // DItem; item id; item location.
    void Serialize(FCArchive& archive) override;

    // The key in the character's item map; -1 until added.
    qint32 GetItemId() const { return mItemId; }
    void SetItemId(qint32 id) { mItemId = id; }
    qint32 GetItemLocation() const { return mItemLocation; }
    void SetItemLocation(qint32 location) { mItemLocation = location; }

private:
    qint32 mItemId = -1;
    qint32 mItemLocation = kLocationNone;
};
