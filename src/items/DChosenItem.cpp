#include "DChosenItem.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenItem, "DItem", nullptr)

DChosenItem::DChosenItem(qint32 itemId, DItemInfo* info) : mItemId(itemId) {
    SetItemInfo(info);
}

DChosenItem::DChosenItem(const DItem& item) : DItem(item) {}

void DChosenItem::Serialize(FCArchive& archive) {
    DItem::Serialize(archive);
    archive.Transfer(mItemId);
    archive.Transfer(mItemLocation);
}
