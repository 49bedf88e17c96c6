#include "DCursedItemGenerator.h"

#include "DArmorShieldBaseInfo.h"
#include "DCoinData.h"
#include "DCursedData.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DHandBook.h"
#include "DItem.h"
#include "DItemType.h"
#include "DPotionInfo.h"
#include "DRingInfo.h"
#include "DTreasureGenerator.h"
#include "DTreasureTables.h"
#include "DWeaponInfo.h"
#include "FCReleaser.h"

namespace {

using Row = DTreasureTables::Row;

constexpr int kTableCommonCurses = 105;
constexpr int kTableSpecificCursed = 106;
constexpr int kTableCurseNames = 107;
constexpr int kTableSituationNames = 110;
constexpr int kTableDrawbackNames = 111;
constexpr int kTableIntermittent = 113;
constexpr int kTableSituations = 114;
constexpr int kTableDrawbacks = 115;
constexpr int kTableChance = 116;

// The GUID columns of the specific cursed items, by the item type they hold.
struct SpecificColumn {
    int itemType;
    const char* column;
};
constexpr SpecificColumn kSpecificColumns[] = {
    {kItemWeapon, "WeaponId"}, {kItemArmor, "ArmorId"}, {kItemShield, "ShieldId"},
    {kItemPotion, "PotionId"}, {kItemRing, "RingId"},   {kItemWondrous, "WondrousId"}};

DTreasureTables& Tables() {
    return DTreasureGenerator::Tables();
}

QString NameOf(int table, int id) {
    const auto row = Tables().FindBy(table, "Id", id);
    return row ? row->String("Name") : QString();
}

const char* ColumnFor(int itemType) {
    for (const SpecificColumn& entry : kSpecificColumns) {
        if (entry.itemType == itemType)
            return entry.column;
    }
    return nullptr;
}

// The info of a specific cursed item and its price, or null for a row it cannot make.
DItemInfo* BuildSpecificItem(const Row& row, DCoinData& price) {
    const int itemType = row.Int("ItemType");
    const char* column = ColumnFor(itemType);
    if (!column)
        return nullptr;
    const QUuid guid = row.Guid(column);
    switch (itemType) {
    case kItemWeapon:
    case kItemArmor:
    case kItemShield: {
        DInfo* record = itemType == kItemWeapon  ? DDatabase::GetWeaponInfo(guid)
                        : itemType == kItemArmor ? DDatabase::GetArmorInfo(guid)
                                                 : DDatabase::GetShieldInfo(guid);
        auto* base = static_cast<DItemInfo*>(record);
        if (!base)
            return nullptr;
        auto* custom = new DCustomMagicItemInfo;
        custom->SetBaseItemInfo(base);
        custom->SetMagicType(itemType == kItemWeapon  ? kMagicCustomWeapon
                             : itemType == kItemArmor ? kMagicCustomArmor
                                                      : kMagicCustomShield);
        custom->SetQualityType(
            DTreasureGenerator::GetMagicQuality(DTreasureGenerator::kTreasureMajor));
        const auto* weapon = FCDynamicCast<DWeaponInfo>(base);
        custom->SetBonus(weapon ? weapon->GetMagicBonus()
                                : static_cast<DArmorShieldBaseInfo*>(base)->GetMagicBonus());
        custom->AddCustomFlag(DCustomMagicItemInfo::kCustomFlagSpecific);
        price = DCoinData(base->GetCost(), base->GetCostCoinType());
        return custom;
    }
    case kItemPotion:
    case kItemRing: {
        DItemInfo* info = DHandBook::BuildItemInfo(itemType, guid);
        auto* magic = FCDynamicCast<DMagicItemInfo>(info);
        if (!magic) {
            if (info)
                info->Release();
            return nullptr;
        }
        magic->SetQualityType(0);
        DHandBook::ComputeMagicItemCost(magic, &price);
        return magic;
    }
    default: {
        DItemInfo* info = DHandBook::BuildItemInfo(itemType, guid);
        if (info && info->GetItemName().isEmpty()) {
            info->Release();
            return nullptr;
        }
        if (info)
            price = DCoinData(info->GetCost(), info->GetCostCoinType());
        return info;
    }
    }
}

} // namespace

int DCursedItemGenerator::GetChanceOfCursed(const DItemInfo* info) {
    if (!info)
        return 0;
    const auto row = Tables().FindBy(kTableChance, "Id", info->GetItemType());
    return row ? row->Int("Chance") : 0;
}

bool DCursedItemGenerator::ShouldItemBeCursed(const DItem* item) {
    const DItemInfo* info = item ? item->GetItemInfo() : nullptr;
    if (!info)
        return false;
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(info))
        info = custom->GetBaseItemInfo();
    const int chance = GetChanceOfCursed(info);
    return chance > 0 && DDieRoller::RollDie(100) <= chance;
}

void DCursedItemGenerator::GenerateCursedItem(DItem* item) {
    if (!item)
        return;
    const int curse = DTreasureGenerator::PickRandomId(kTableCommonCurses);
    if (curse < 0)
        return;
    if (curse != DCursedData::kCurseSpecificItem) {
        auto* magic = FCDynamicCast<DMagicItemInfo>(item->GetItemInfo());
        FCRef<DCursedData> data(GenerateCursedData(curse));
        if (magic)
            magic->SetCursedData(data.get());
        return;
    }
    item->ClearAll();
    const auto row = Tables().Find(kTableSpecificCursed, DDieRoller::RollDie(100));
    if (!row)
        return;
    DCoinData price;
    FCRef<DItemInfo> info(BuildSpecificItem(*row, price));
    if (!info)
        return;
    item->SetItemInfo(info.get());
    item->AddMarketCost(&price);
}

DCursedData* DCursedItemGenerator::GenerateCursedData(int curseType) {
    auto* data = new DCursedData(curseType);
    if (curseType == DCursedData::kCurseIntermittent) {
        data->SetCurseSubType(DTreasureGenerator::PickRandomId(kTableIntermittent));
        if (data->GetCurseSubType() == DCursedData::kIntermittentDependent)
            data->SetCurseDescription(
                NameOf(kTableSituationNames, DTreasureGenerator::PickRandomId(kTableSituations)));
    } else if (curseType == DCursedData::kCurseDrawback) {
        data->SetCurseDescription(
            NameOf(kTableDrawbackNames, DTreasureGenerator::PickRandomId(kTableDrawbacks)));
    }
    return data;
}

bool DCursedItemGenerator::IsSpecificCursedItem(const DItem& item) {
    const DItemInfo* info = item.GetBaseItemInfo();
    const char* column = info ? ColumnFor(info->GetItemType()) : nullptr;
    return column && Tables().FindByGuid(kTableSpecificCursed, column, info->GetItemGuid());
}

QString DCursedItemGenerator::GetCurseDescription(const DItem& item) {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    const auto* data = magic ? FCDynamicCast<DCursedData>(magic->GetCursedData()) : nullptr;
    if (!data)
        return IsSpecificCursedItem(item)
                   ? NameOf(kTableCurseNames, DCursedData::kCurseSpecificItem)
                   : QString();
    return data->GetDescription(false, true);
}
