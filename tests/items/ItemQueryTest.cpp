#include "DArmorInfo.h"
#include "DAttackInfo.h"
#include "DCoinData.h"
#include "DCoinItemInfo.h"
#include "DCustomMagicItemInfo.h"
#include "DGoodsInfo.h"
#include "DItem.h"
#include "DPotionInfo.h"
#include "DRingInfo.h"
#include "DScrollInfo.h"
#include "DShieldInfo.h"
#include "DSimpleItemInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "ItemsTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace itemstest;

namespace {

Ref<DItemInfo> custom(DItemInfo* base, qint32 magicType, qint32 bonus) {
    auto* info = new DCustomMagicItemInfo;
    info->SetBaseItemInfo(base);
    info->SetMagicType(magicType);
    info->SetBonus(bonus);
    return Ref<DItemInfo>(info);
}

} // namespace

TEST(ItemQuery, TypesGroupsAndBonusesFollowTheInfo) {
    Ref<DWeaponInfo> weapon(new DWeaponInfo);
    weapon->SetMagicBonus(1);
    Ref<DArmorInfo> armor(new DArmorInfo);
    armor->SetMagicBonus(2);
    Ref<DShieldInfo> shield(new DShieldInfo);
    shield->SetMagicBonus(1);

    struct Case {
        const char* what;
        std::function<Ref<DItemInfo>()> make;
        int type, baseType;
        bool magic, baseMagic;
        int inventoryGroup, treasureGroup, magicBonus, magicType, magicGroup;
    } cases[] = {
        {"no info", [] { return Ref<DItemInfo>(); }, 13, 13, false, false, 4, 0, 0, 0, 0},
        {"weapon", [&] { return Ref<DItemInfo>(weapon->Clone()); }, 0, 0, false, false, 1, 4, 1, 0,
         0},
        {"armor", [&] { return Ref<DItemInfo>(armor->Clone()); }, 1, 1, false, false, 2, 4, 2, 0,
         0},
        {"shield", [&] { return Ref<DItemInfo>(shield->Clone()); }, 2, 2, false, false, 2, 4, 1, 0,
         0},
        {"goods", [] { return Ref<DItemInfo>(new DGoodsInfo); }, 3, 3, false, false, 3, 4, 0, 0, 0},
        {"ring", [] { return Ref<DItemInfo>(new DRingInfo); }, 6, 6, true, true, 4, 5, 0, 2, 2},
        {"wand", [] { return Ref<DItemInfo>(new DWandInfo); }, 10, 10, true, true, 4, 5, 0, 6, 6},
        {"custom weapon", [&] { return custom(weapon.get(), kMagicCustomWeapon, 3); }, 16, 0, true,
         false, 1, 5, 3, 9, 12},
        {"custom armor", [&] { return custom(armor.get(), kMagicCustomArmor, 1); }, 16, 1, true,
         false, 2, 5, 1, 10, 13},
        {"custom shield", [&] { return custom(shield.get(), kMagicCustomShield, 2); }, 16, 2, true,
         false, 2, 5, 2, 11, 14},
        {"custom without base", [] { return custom(nullptr, kMagicCustomWeapon, 1); }, 16, 13, true,
         false, 4, 5, 1, 9, 12},
        {"coins", [] { return Ref<DItemInfo>(new DCoinItemInfo); }, 12, 12, false, false, 4, 2, 0,
         0, 0},
        {"art", [] { return Ref<DItemInfo>(new DSimpleItemInfo(14)); }, 14, 14, false, false, 5, 1,
         0, 0, 0},
        {"gem", [] { return Ref<DItemInfo>(new DSimpleItemInfo(15)); }, 15, 15, false, false, 6, 3,
         0, 0, 0},
        {"generic", [] { return Ref<DItemInfo>(new DSimpleItemInfo); }, 13, 13, false, false, 4, 0,
         0, 0, 0},
        {"attack", [] { return Ref<DItemInfo>(new DAttackInfo); }, 18, 18, false, false, 4, 0, 0, 0,
         0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DItemInfo> info = c.make();
        DItem item;
        item.SetItemInfo(info.get());
        EXPECT_EQ(item.GetItemType(), c.type);
        EXPECT_EQ(item.GetBaseItemType(), c.baseType);
        EXPECT_EQ(item.GetIsMagicItem(), c.magic);
        EXPECT_EQ(item.GetIsBaseMagic(), c.baseMagic);
        EXPECT_EQ(item.GetIsBaseWeapon(), c.baseType == 0);
        EXPECT_EQ(item.GetIsBaseArmorOrShield(), c.baseType == 1 || c.baseType == 2);
        EXPECT_EQ(item.GetInventoryGroupType(), c.inventoryGroup);
        EXPECT_EQ(item.GetTreasureGroupType(), c.treasureGroup);
        EXPECT_EQ(item.GetMagicBonus(), c.magicBonus);
        EXPECT_EQ(item.GetMagicItemType(false), c.magicType);
        EXPECT_EQ(item.GetMagicItemType(true), c.magicGroup);
        EXPECT_TRUE(item.GetIsMagicItemType(c.magicGroup, true));
        EXPECT_FALSE(item.GetIsIntelligentItem());
        EXPECT_FALSE(item.GetIsCursedItem());
        EXPECT_EQ(item.GetSubItemCount(), 0);
    }
}

TEST(ItemQuery, CursedItemsSoldForNothingReportNoCost) {
    Ref<DWeaponInfo> weapon(new DWeaponInfo);
    struct Case {
        const char* what;
        std::function<Ref<DItemInfo>()> make;
        bool intelligent, cursed, noCost;
    } cases[] = {
        {"cursed ring",
         [] {
             auto* ring = new DRingInfo;
             ring->SetCursedData(makeRecord(1).get());
             return Ref<DItemInfo>(ring);
         },
         false, true, true},
        {"intelligent ring",
         [] {
             auto* ring = new DRingInfo;
             ring->SetIntelligentData(makeRecord(1).get());
             return Ref<DItemInfo>(ring);
         },
         true, false, false},
        {"cursed custom with a penalty keeps its cost",
         [&] {
             Ref<DItemInfo> info = custom(weapon.get(), kMagicCustomWeapon, -1);
             static_cast<DMagicItemInfo*>(info.get())->SetCursedData(makeRecord(1).get());
             return info;
         },
         false, true, false},
        {"cursed custom with a bonus",
         [&] {
             Ref<DItemInfo> info = custom(weapon.get(), kMagicCustomWeapon, 0);
             static_cast<DMagicItemInfo*>(info.get())->SetCursedData(makeRecord(1).get());
             return info;
         },
         false, true, true},
        {"plain weapon", [&] { return Ref<DItemInfo>(weapon->Clone()); }, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DItemInfo> info = c.make();
        DItem item;
        item.SetItemInfo(info.get());
        item.SetMarketCost(100, kCoinGold);
        EXPECT_EQ(item.GetIsIntelligentItem(), c.intelligent);
        EXPECT_EQ(item.GetIsCursedItem(), c.cursed);
        EXPECT_EQ(item.GetIsCursedItemWithNoCost(), c.noCost);
        DCurrency cost;
        cost.SetAmount(kCoinCopper, 9);
        item.GetMarketCost(cost);
        EXPECT_EQ(cost.GetAmount(kCoinGold), c.noCost ? 0 : 100);
        EXPECT_EQ(cost.GetAmount(kCoinCopper), 0);
    }
}

TEST(ItemQuery, MarketCostIsSetAndAddedCoinByCoin) {
    DItem item;
    item.AddMarketCost(3, kCoinSilver);
    item.SetMarketCost(15, kCoinGold);
    EXPECT_EQ(item.GetStoredMarketCost().GetAmount(kCoinSilver), 0);
    EXPECT_EQ(item.GetStoredMarketCost().GetAmount(kCoinGold), 15);
    const DCoinData coins(4, kCoinCopper);
    item.AddMarketCost(&coins);
    item.AddMarketCost(2, kCoinGold);
    EXPECT_EQ(item.GetStoredMarketCost().GetAmount(kCoinCopper), 4);
    EXPECT_EQ(item.GetStoredMarketCost().GetAmount(kCoinGold), 17);

    Ref<DRingInfo> ring(new DRingInfo);
    item.SetItemInfo(ring.get());
    item.SetItemFlags(DItem::kItemFlagMasterwork);
    item.SetCount(3);
    item.Initialize();
    EXPECT_EQ(item.GetItemInfo(), nullptr);
    EXPECT_EQ(item.GetItemFlags(), 0u);
    EXPECT_EQ(item.GetCount(), 1);
    EXPECT_EQ(ring->GetRetainCount(), 1);
    EXPECT_EQ(item.GetStoredMarketCost().GetAmount(kCoinGold), 17);
    item.ClearAll();
    EXPECT_TRUE(item.GetStoredMarketCost().IsEmpty());
}

TEST(ItemQuery, SubItemsAreSpellsTargetsOrAbilities) {
    Ref<DScrollInfo> scroll(new DScrollInfo);
    scroll->AddSpell(makeRecord(1).get());
    scroll->AddSpell(makeRecord(2).get());
    Ref<DWondrousInfo> wondrous(new DWondrousInfo);
    wondrous->AddTarget(makeRecord(3).get());
    Ref<DCustomMagicItemInfo> armor(new DCustomMagicItemInfo);
    for (int type = 1; type <= 3; ++type)
        armor->AddSpecialAbility(type, 0, 0, 1);

    const std::pair<DItemInfo*, int> cases[] = {
        {scroll.get(), 2}, {wondrous.get(), 1}, {armor.get(), 3}};
    for (const auto& [info, count] : cases) {
        DItem item;
        item.SetItemInfo(info);
        EXPECT_EQ(item.GetSubItemCount(), count) << info->GetClassInfoA()->GetClassName();
    }
}

TEST(ItemQuery, AbilityBonusFollowsAddingAndRemoving) {
    DCustomMagicItemInfo info;
    info.AddSpecialAbility(10, 1, 1, 1);
    info.AddSpecialAbility(20, 2, 1, 2);
    info.AddSpecialAbility(30, 1, 2, 1);
    EXPECT_EQ(info.GetSpecialAbilityBonus(), 4);
    ASSERT_TRUE(info.FindSpecialAbilityByCategory(1));
    EXPECT_EQ(info.FindSpecialAbilityByCategory(1)->GetType(), 10);
    EXPECT_EQ(info.FindSpecialAbility(30)->GetRank(), 2);
    EXPECT_EQ(info.FindSpecialAbility(40), nullptr);

    EXPECT_TRUE(info.RemoveSpecialAbility(20));
    EXPECT_EQ(info.GetSpecialAbilityBonus(), 2);
    EXPECT_FALSE(info.RemoveSpecialAbility(20));
    EXPECT_EQ(info.GetSpecialAbilityBonus(), 2);
    EXPECT_TRUE(info.RemoveSpecialAbility(10));
    EXPECT_TRUE(info.RemoveSpecialAbility(30));
    EXPECT_EQ(info.GetSpecialAbilityBonus(), 0);
    EXPECT_EQ(info.GetSpecialAbilityCount(), 0);
    EXPECT_FALSE(info.HasSpecialAbility(10));

    info.AddSpecialAbility(10, 1, 1, 3);
    info.RemoveAllSpecialAbilities();
    EXPECT_EQ(info.GetSpecialAbilityBonus(), 0);
}

TEST(ItemQuery, PotionIsBoundToASpellOrToAPotionRow) {
    DPotionInfo potion;
    potion.SetSpellGuid(guid(1));
    potion.SetSpellLevel(2);
    potion.SetCasterLevel(3);
    EXPECT_TRUE(potion.GetItemGuid().isNull());

    potion.SetItemGuid(guid(2));
    EXPECT_EQ(potion.GetItemGuid(), guid(2));
    EXPECT_TRUE(potion.GetSpellGuid().isNull());
    EXPECT_EQ(potion.GetSpellLevel(), -1);
    EXPECT_EQ(potion.GetCasterLevel(), -1);

    potion.SetSpellGuid(guid(3));
    EXPECT_EQ(potion.GetSpellGuid(), guid(3));
    EXPECT_TRUE(potion.GetItemGuid().isNull());
}

TEST(ItemQuery, SizeBelongsToTheBaseOfACustomItem) {
    Ref<DArmorInfo> armor(new DArmorInfo);
    DCustomMagicItemInfo info;
    EXPECT_FALSE(info.CanBeResized());
    EXPECT_EQ(info.GetSizeType(), -1);
    info.SetSizeType(3);
    info.SetBaseItemInfo(armor.get());
    EXPECT_TRUE(info.CanBeResized());
    EXPECT_EQ(info.GetSizeType(), 4);
    info.SetSizeType(3);
    EXPECT_EQ(armor->GetSizeType(), 3);

    DWeaponInfo weapon;
    EXPECT_TRUE(weapon.CanBeResized());
    weapon.RemoveWeaponFlag(DWeaponInfo::kWeaponFlagResizable);
    EXPECT_FALSE(weapon.CanBeResized());
    weapon.SetOffenseCount(50);
    EXPECT_EQ(weapon.AdjustMasterWorkCost(6), 300);
    EXPECT_EQ(DItemInfo().AdjustMasterWorkCost(6), 6);
}

TEST(ItemQuery, WeightIsTheBaseItemsInPounds) {
    Ref<DWeaponInfo> dagger(new DWeaponInfo);
    dagger->SetWeight(1.0f);
    Ref<DArmorInfo> chain(new DArmorInfo);
    chain->SetWeight(40.0f);
    Ref<DGoodsInfo> chalk(new DGoodsInfo);
    chalk->SetWeight(0.5f);
    Ref<DItemInfo> magicChain = custom(chain.get(), kMagicCustomArmor, 1);
    magicChain->SetWeight(3.0f);

    const std::pair<DItemInfo*, const char*> cases[] = {{dagger.get(), "1 lb."},
                                                        {magicChain.get(), "40 lb."},
                                                        {chalk.get(), "0.5 lb."},
                                                        {nullptr, ""}};
    for (const auto& [info, text] : cases) {
        DItem item;
        item.SetItemInfo(info);
        EXPECT_EQ(item.GetWeightDescription(), QLatin1String(text));
    }
}
