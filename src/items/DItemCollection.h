#pragma once

#include "DItem.h"
#include "FCPointerArray.h"

// An owning list of items, in the order they were added (the items of a treasure).
class DItemCollection : public FCObject {
    FC_DECLARE_CLASS(DItemCollection)
public:
    DItemCollection();
    // Clones every item.
    DItemCollection(const DItemCollection& other);
    DItemCollection& operator=(const DItemCollection& other);

    DItemCollection* Clone() const override { return new DItemCollection(*this); }
    // Ownership mode; count; each item as an object.
    void Serialize(FCArchive& archive) override;

    const FCPointerArray<DItem>& GetItemArray() const { return mItems; }
    int GetItemCount() const { return mItems.GetCount(); }
    // The collection retains the item.
    void AddItem(DItem* item);
    // Removes the first entry that is `item` and releases it; false if it is not there.
    bool RemoveItem(DItem* item) { return mItems.Remove(item); }
    void RemoveAllItems() { mItems.RemoveAll(); }

private:
    FCPointerArray<DItem> mItems;
};
