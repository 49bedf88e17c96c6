#include "DItemInfo.h"

#include "DArmorInfo.h"
#include "DDatabase.h"
#include "DGoodsInfo.h"
#include "DPotionInfo.h"
#include "DRingInfo.h"
#include "DRodInfo.h"
#include "DScrollInfo.h"
#include "DShieldInfo.h"
#include "DSimpleItemInfo.h"
#include "DSpecialCostInfo.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DItemInfo, "DInfo", nullptr)

void DItemInfo::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mItemGuid);
    archive.Transfer(mItemName);
    archive.Transfer(mCost);
    archive.Transfer(mCostCoinType);
    archive.Transfer(mWeight);
    archive.Transfer(mInfoFlags);
}

void DItemInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, true);
    mMasterWorkType = resultSet->getInt(QStringLiteral("Masterwork"));
}

void DItemInfo::SetDataNoMasterwork(odbc::ResultSet* resultSet, bool withWeight) {
    mItemGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mItemName = resultSet->getString(QStringLiteral("Name"));
    mCost = resultSet->getInt(QStringLiteral("CoinCount"));
    mCostCoinType = resultSet->getInt(QStringLiteral("CoinType"));
    if (withWeight)
        mWeight = resultSet->getFloat(QStringLiteral("Weight"));
}

void DItemInfo::Initialize() {
    mItemName.clear();
    mCost = 0;
    mCostCoinType = 0;
    mWeight = 0.0f;
    mMasterWorkType = 0;
    mInfoFlags = 0;
}

int DItemInfo::ComputeMasterWorkCost(int cost) const {
    if (mMasterWorkType == 0)
        return cost;
    const auto* entry =
        FCDynamicCast<DSpecialCostInfo>(DDatabase::GetMasterworkCostInfo(mMasterWorkType));
    if (!entry)
        return cost;
    int amount = AdjustMasterWorkCost(entry->GetCost());
    // In the item's coin: masterwork sling bullets add gold to a price in silver.
    for (int type = entry->GetCostCoinType(); type > mCostCoinType; --type)
        amount *= 10;
    return entry->GetOverrideCost() ? amount : cost + amount;
}

void DItemInfo::SmartWriteInfo(FCArchive& archive, const DItemInfo* info) {
    if (info && info->IsSharedRecord()) {
        QUuid guid = info->GetItemGuid();
        qint32 type = info->GetItemType();
        archive.Transfer(guid);
        archive.Transfer(type);
        return;
    }
    QUuid none;
    archive.Transfer(none);
    archive.WriteObject(info);
}

DItemInfo* DItemInfo::SmartReadInfo(FCArchive& archive) {
    QUuid guid;
    archive.Transfer(guid);
    if (!archive.IsOk())
        return nullptr;
    if (guid.isNull()) {
        FCObject* object = archive.ReadObject();
        if (!object)
            return nullptr;
        auto* info = FCDynamicCast<DItemInfo>(object);
        if (!info) {
            object->Release();
            archive.SetFailed();
        }
        return info;
    }
    qint32 type = -1;
    archive.Transfer(type);
    if (!archive.IsOk())
        return nullptr;
    DInfo* shared = nullptr;
    switch (type) {
    case kItemWeapon:
        shared = DDatabase::GetWeaponInfo(guid);
        break;
    case kItemArmor:
        shared = DDatabase::GetArmorInfo(guid);
        break;
    case kItemShield:
        shared = DDatabase::GetShieldInfo(guid);
        break;
    case kItemGoods:
        // Goods are loaded once like arms and armor; a query per stored item made loading an
        // outfitted character slow.
        shared = DDatabase::GetGoodsInfo(guid);
        if (!shared)
            return CreateFromDatabase(type, guid);
        break;
    default:
        return CreateFromDatabase(type, guid);
    }
    auto* info = FCDynamicCast<DItemInfo>(shared);
    if (info)
        info->Retain();
    return info;
}

DItemInfo* DItemInfo::CreateForType(int itemType) {
    switch (itemType) {
    case kItemWeapon:
        return new DWeaponInfo;
    case kItemArmor:
        return new DArmorInfo;
    case kItemShield:
        return new DShieldInfo;
    case kItemGoods:
        return new DGoodsInfo;
    case kItemPotion:
        return new DPotionInfo;
    case kItemRing:
        return new DRingInfo;
    case kItemRod:
        return new DRodInfo;
    case kItemScroll:
        return new DScrollInfo;
    case kItemStaff:
        return new DStaffInfo;
    case kItemWand:
        return new DWandInfo;
    case kItemWondrous:
        return new DWondrousInfo;
    case kItemArtObject:
    case kItemGem:
        return new DSimpleItemInfo(itemType);
    default:
        return nullptr;
    }
}

DItemInfo* DItemInfo::CreateFromDatabase(int itemType, const QUuid& guid) {
    DItemInfo* info = CreateForType(itemType);
    const int table = DDatabase::GetItemTypeTableId(itemType);
    // Scrolls and wands have no table of their own: they stay empty records.
    if (info && table >= 0)
        DDatabase::GetInfo(table, guid, info);
    return info;
}

DItemInfo* DItemInfo::ShareOrClone(DItemInfo* info) {
    if (!info)
        return nullptr;
    if (info->IsSharedRecord()) {
        info->Retain();
        return info;
    }
    return info->Clone();
}
