#include "DItem.h"

#include "DArmorShieldBaseInfo.h"
#include "DCoinData.h"
#include "DCustomMagicItemInfo.h"
#include "DItemArchive.h"
#include "DItemInfo.h"
#include "DScrollInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DItem, "FCObject", nullptr)

DItem::DItem(const DItem& other)
    : FCObject(other), mItemInfo(DItemInfo::ShareOrClone(other.mItemInfo)),
      mItemFlags(other.mItemFlags), mCount(other.mCount), mMarketCost(other.mMarketCost) {}

DItem& DItem::operator=(const DItem& other) {
    if (this == &other)
        return *this;
    DItemInfo* info = DItemInfo::ShareOrClone(other.mItemInfo);
    if (mItemInfo)
        mItemInfo->Release();
    mItemInfo = info;
    mItemFlags = other.mItemFlags;
    mCount = other.mCount;
    mMarketCost = other.mMarketCost;
    return *this;
}

DItem::~DItem() {
    if (mItemInfo)
        mItemInfo->Release();
}

void DItem::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mItemFlags);
    archive.Transfer(mCount);
    mMarketCost.Serialize(archive);
    if (archive.IsStoring()) {
        DItemInfo::SmartWriteInfo(archive, mItemInfo);
        return;
    }
    DItemInfo* info = DItemInfo::SmartReadInfo(archive);
    SetItemInfo(info);
    if (info)
        info->Release();
}

void DItem::SetItemInfo(DItemInfo* info) {
    DAssignRetained(mItemInfo, info);
}

void DItem::Initialize() {
    mItemFlags = 0;
    mCount = 1;
    SetItemInfo(nullptr);
}

void DItem::ClearAll() {
    Initialize();
    mMarketCost.ClearAll();
}

int DItem::GetItemType() const {
    return mItemInfo ? mItemInfo->GetItemType() : kItemGeneric;
}

DItemInfo* DItem::GetBaseItemInfo() const {
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
        return custom->GetBaseItemInfo();
    return mItemInfo;
}

int DItem::GetBaseItemType() const {
    const DItemInfo* base = GetBaseItemInfo();
    return base ? base->GetItemType() : kItemGeneric;
}

bool DItem::GetIsBaseArmorOrShield() const {
    const int type = GetBaseItemType();
    return type == kItemArmor || type == kItemShield;
}

bool DItem::GetIsBaseMagic() const {
    const int type = GetItemType();
    return type >= kItemMagic && type <= kItemWondrous;
}

bool DItem::GetIsMagicItem() const {
    return DIsMagicItemType(GetItemType());
}

int DItem::GetMagicItemType(bool asGroup) const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    if (!magic || !GetIsMagicItem())
        return kMagicNone;
    const int type = magic->GetMagicType();
    if (asGroup && type >= kMagicCustomWeapon && type <= kMagicCustomShield)
        return type + (kMagicWeaponGroup - kMagicCustomWeapon);
    return type;
}

bool DItem::GetIsIntelligentItem() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    return magic && GetIsMagicItem() && magic->GetIntelligentData();
}

bool DItem::GetIsCursedItem() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    return magic && GetIsMagicItem() && magic->GetCursedData();
}

bool DItem::GetIsCursedItemWithNoCost() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    if (!magic || !magic->GetCursedData())
        return false;
    if (GetIsBaseMagic())
        return true;
    const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo);
    return custom && GetItemType() == kItemCustomMagic && custom->GetBonus() >= 0;
}

int DItem::GetMagicBonus() const {
    switch (GetItemType()) {
    case kItemWeapon:
        if (const auto* weapon = FCDynamicCast<DWeaponInfo>(mItemInfo))
            return weapon->GetMagicBonus();
        break;
    case kItemArmor:
    case kItemShield:
        if (const auto* armor = FCDynamicCast<DArmorShieldBaseInfo>(mItemInfo))
            return armor->GetMagicBonus();
        break;
    case kItemCustomMagic:
        if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
            return custom->GetBonus();
        break;
    default:
        break;
    }
    return 0;
}

int DItem::GetInventoryGroupType() const {
    switch (GetBaseItemType()) {
    case kItemWeapon:
        return 1;
    case kItemArmor:
    case kItemShield:
        return 2;
    case kItemGoods:
        return 3;
    case kItemArtObject:
        return 5;
    case kItemGem:
        return 6;
    default:
        return 4;
    }
}

int DItem::GetTreasureGroupType() const {
    if (!mItemInfo)
        return 0;
    const int type = GetItemType();
    if (DIsCoreItemType(type))
        return 4;
    if (DIsMagicItemType(type))
        return 5;
    switch (type) {
    case kItemCoins:
        return 2;
    case kItemArtObject:
        return 1;
    case kItemGem:
        return 3;
    default:
        return 0;
    }
}

void DItem::GetMarketCost(DCurrency& cost) const {
    if (GetIsCursedItemWithNoCost())
        cost.ClearAll();
    else
        cost = mMarketCost;
}

void DItem::SetMarketCost(qint32 amount, int coinType) {
    mMarketCost.ClearAll();
    mMarketCost.SetAmount(coinType, amount);
}

void DItem::AddMarketCost(const DCoinData* coins) {
    if (coins)
        mMarketCost.AdjustAmount(coins->GetCoinType(), coins->GetCoinCount());
}

QString DItem::GetWeightDescription() const {
    const DItemInfo* base = GetBaseItemInfo();
    if (!base)
        return {};
    return QString::number(base->GetWeight(), 'g', 6) + QStringLiteral(" lb.");
}

int DItem::GetSubItemCount() const {
    if (const auto* scroll = FCDynamicCast<DScrollInfo>(mItemInfo))
        return scroll->GetSpellCount();
    if (const auto* wondrous = FCDynamicCast<DWondrousInfo>(mItemInfo))
        return wondrous->GetTargetCount();
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
        return custom->GetSpecialAbilityCount();
    return 0;
}
