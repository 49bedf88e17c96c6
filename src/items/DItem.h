#pragma once

#include "DCurrency.h"
#include "DItemType.h"
#include "FCObject.h"

#include <QString>

class DCoinData;
class DItemInfo;

// A thing someone owns: how many, in what state, what it cost, and the rule record that says
// what it is. The item holds one reference on its info.
class DItem : public FCObject {
    FC_DECLARE_CLASS(DItem)
public:
    enum : quint32 {
        kItemFlagMasterwork = 0x1,
        // Its weight counts in the load.
        kItemFlagCarried = 0x2,
        kItemFlagShowSize = 0x80,
        // The built-in unarmed strike of a character.
        kItemFlagUnarmed = 0x100,
    };

    DItem() = default;
    // Shares a database record, clones any other info.
    DItem(const DItem& other);
    DItem& operator=(const DItem& other);
    ~DItem() override;

    DItem* Clone() const override { return new DItem(*this); }
    // Item flags; count; market cost; info by DItemInfo::SmartWriteInfo.
    void Serialize(FCArchive& archive) override;

    DItemInfo* GetItemInfo() const { return mItemInfo; }
    // Retains the new info, then releases the old.
    void SetItemInfo(DItemInfo* info);

    quint32 GetItemFlags() const { return mItemFlags; }
    void SetItemFlags(quint32 flags) { mItemFlags = flags; }
    bool HasItemFlag(quint32 mask) const { return (mItemFlags & mask) != 0; }
    void AddItemFlag(quint32 mask) { mItemFlags |= mask; }
    void RemoveItemFlag(quint32 mask) { mItemFlags &= ~mask; }
    qint32 GetCount() const { return mCount; }
    void SetCount(qint32 count) { mCount = count; }

    // No flags, a count of 1, no info. The market cost stays.
    void Initialize();
    // Initialize, and the market cost cleared too.
    void ClearAll();

    // The info's type; 13 with no info.
    int GetItemType() const;
    // The base item of a custom magic item, else the info itself (null stays null).
    DItemInfo* GetBaseItemInfo() const;
    // The type of GetBaseItemInfo; 13 with no info.
    int GetBaseItemType() const;
    bool GetIsBaseWeapon() const { return GetBaseItemType() == kItemWeapon; }
    bool GetIsBaseArmorOrShield() const;
    // Potions to wondrous items: the magic items that are not made from a base item.
    bool GetIsBaseMagic() const;
    bool GetIsMagicItem() const;
    // The info's magic type, 0 for an item that is not magic. With `asGroup` the custom
    // weapon, armor and shield types 9 to 11 become their inventory groups 12 to 14.
    int GetMagicItemType(bool asGroup) const;
    bool GetIsMagicItemType(int magicType, bool asGroup) const {
        return GetMagicItemType(asGroup) == magicType;
    }
    bool GetIsIntelligentItem() const;
    bool GetIsCursedItem() const;
    // A cursed item sold for nothing: any cursed plain magic item, and a cursed custom item
    // whose bonus is not negative.
    bool GetIsCursedItemWithNoCost() const;
    // The enhancement bonus of a weapon, armor, shield or custom magic item; 0 for the rest.
    int GetMagicBonus() const;
    // Inventory list group by base type: 1 weapons, 2 armor and shields, 3 goods, 5 art,
    // 6 gems, 4 the rest.
    int GetInventoryGroupType() const;
    // Treasure list group by item type: 4 mundane gear, 5 magic, 2 coins, 1 art, 3 gems,
    // 0 the rest and no info.
    int GetTreasureGroupType() const;

    // The market cost, or nothing at all for a cursed item that is sold for nothing.
    void GetMarketCost(DCurrency& cost) const;
    // The stored market cost, whatever the item is.
    const DCurrency& GetStoredMarketCost() const { return mMarketCost; }
    // Clears the money, then sets that one coin.
    void SetMarketCost(qint32 amount, int coinType);
    void AddMarketCost(qint32 amount, int coinType) { mMarketCost.AdjustAmount(coinType, amount); }
    void AddMarketCost(const DCoinData* coins);

    // The base info's weight and " lb.": "4 lb.", "0.5 lb."; empty with no info.
    QString GetWeightDescription() const;

    // Spells of a scroll, targets of a wondrous item, abilities of a custom magic item; else 0.
    int GetSubItemCount() const;
    // The special ability names of a custom magic item; empty for anything else.
    QString GetSubItemDescription(int index) const;

    // The line of an inventory list: "+1 Longsword", "Ring: Protection +1", "Chainmail,
    // Masterwork", "Arrows (20) (2)". With `withPrefix` false magic items leave out their
    // kind ("Protection +1").
    QString GetItemPrintName(bool withPrefix) const;
    QString GetItemDescription() const { return GetItemPrintName(true); }
    // The print name and the sub-items: "+1 Longsword: Flaming, Keen".
    QString GetItemPrintDescription(bool withPrefix) const;
    // "---" for a cursed item sold for nothing, else the market cost in coins.
    QString GetCostDescription() const;

private:
    DItemInfo* mItemInfo = nullptr;
    quint32 mItemFlags = 0;
    qint32 mCount = 1;
    DCurrency mMarketCost;
};
