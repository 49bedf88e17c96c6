#include "DOffenseGroup.h"

#include "FCArchive.h"

#include <algorithm>

FC_IMPLEMENT_CLASS(DOffenseGroup, "FCObject", nullptr)

void DOffenseGroup::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    mOffenseItems.Serialize(archive);
}

void DOffenseGroup::AddOffenseItem(const DOffenseItem& item) {
    mOffenseItems.Add(item);
    UpdateUsage();
}

bool DOffenseGroup::RemoveOffenseItem(const DOffenseItem& item) {
    if (!mOffenseItems.Remove(item))
        return false;
    if (!mOffenseItems.IsEmpty())
        UpdateUsage();
    return true;
}

bool DOffenseGroup::MoveOffenseItem(const DOffenseItem& item, int position) {
    const int from = mOffenseItems.Find(item);
    if (from < 0)
        return false;
    const DOffenseItem moved = mOffenseItems.At(from);
    mOffenseItems.RemoveAt(from);
    mOffenseItems.InsertAt(std::clamp(position, 0, mOffenseItems.GetCount()), moved);
    UpdateUsage();
    return true;
}

bool DOffenseGroup::HasOffenseItem(qint32 id, qint32 type) const {
    return mOffenseItems.Find(DOffenseItem(type, id)) >= 0;
}

void DOffenseGroup::UpdateUsage() {
    constexpr quint32 derived = DOffenseItem::kOffenseMultiple | DOffenseItem::kOffenseMainHand |
                                DOffenseItem::kOffensePrimary | DOffenseItem::kOffenseLightOffHand;
    int weapons = 0;
    int naturals = 0;
    bool lightOffHand = false;
    for (int i = 0; i < mOffenseItems.GetCount(); ++i) {
        DOffenseItem& item = mOffenseItems.At(i);
        item.RemoveOffenseFlag(derived);
        if (item.GetOffenseType() == DOffenseItem::kOffenseNatural) {
            if (weapons + naturals == 0)
                item.AddOffenseFlag(DOffenseItem::kOffensePrimary);
            ++naturals;
        } else if (item.GetOffenseType() == DOffenseItem::kOffenseWeapon) {
            if (weapons == 0)
                item.AddOffenseFlag(DOffenseItem::kOffenseMainHand);
            else if (item.HasOffenseFlag(DOffenseItem::kOffenseLight))
                lightOffHand = true;
            ++weapons;
        }
    }
    for (int i = 0; i < mOffenseItems.GetCount(); ++i) {
        DOffenseItem& item = mOffenseItems.At(i);
        if (item.GetOffenseType() == DOffenseItem::kOffenseNatural) {
            if (weapons > 0)
                item.RemoveOffenseFlag(DOffenseItem::kOffensePrimary);
            if (naturals >= 2)
                item.AddOffenseFlag(DOffenseItem::kOffenseMultiple);
        } else if (item.GetOffenseType() == DOffenseItem::kOffenseWeapon) {
            const bool isDouble = item.HasOffenseFlag(DOffenseItem::kOffenseDouble);
            if (weapons < 2 && !isDouble)
                continue;
            if ((lightOffHand && item.HasOffenseFlag(DOffenseItem::kOffenseMainHand)) || isDouble)
                item.AddOffenseFlag(DOffenseItem::kOffenseLightOffHand);
            item.AddOffenseFlag(DOffenseItem::kOffenseMultiple);
        }
    }
}
