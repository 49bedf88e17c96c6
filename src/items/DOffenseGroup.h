#pragma once

#include "DOffenseItem.h"
#include "FCArray.h"
#include "FCObject.h"

// A named set of weapons and natural attacks used together in one round. Adding, moving and
// removing keep the hand and order flags of the items up to date.
class DOffenseGroup : public FCObject {
    FC_DECLARE_CLASS(DOffenseGroup)
public:
    DOffenseGroup() = default;
    DOffenseGroup(const DOffenseGroup&) = default;
    DOffenseGroup& operator=(const DOffenseGroup&) = default;

    DOffenseGroup* Clone() const override { return new DOffenseGroup(*this); }
    // Item count; then type, id and flags of each item.
    void Serialize(FCArchive& archive) override;

    const FCArray<DOffenseItem>& GetOffenseItemArray() const { return mOffenseItems; }
    int GetOffenseItemCount() const { return mOffenseItems.GetCount(); }
    void AddOffenseItem(const DOffenseItem& item);
    // Removes the first item equal to `item`; false if there is none.
    bool RemoveOffenseItem(const DOffenseItem& item);
    void RemoveAllOffenseItems() { mOffenseItems.RemoveAll(); }
    // Moves the item equal to `item` to `position` (clamped to the list); false if there is
    // none.
    bool MoveOffenseItem(const DOffenseItem& item, int position);
    bool HasOffenseItem(qint32 id, qint32 type) const;

    // Works out main hand, primary attack, several attacks and light off hand from the order
    // of the items and their hand flags.
    void UpdateUsage();

private:
    FCArray<DOffenseItem> mOffenseItems;
};
