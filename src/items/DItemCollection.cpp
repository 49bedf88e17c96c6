#include "DItemCollection.h"

#include "DItemArchive.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DItemCollection, "FCObject", nullptr)

DItemCollection::DItemCollection() {
    mItems.SetOwnership(kFCRetained);
}

DItemCollection::DItemCollection(const DItemCollection& other) : FCObject(other) {
    DCloneList(mItems, other.mItems);
}

DItemCollection& DItemCollection::operator=(const DItemCollection& other) {
    if (this != &other)
        DCloneList(mItems, other.mItems);
    return *this;
}

void DItemCollection::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    DTransferOwnedList(archive, mItems);
}

void DItemCollection::AddItem(DItem* item) {
    if (item)
        mItems.Add(item);
}
