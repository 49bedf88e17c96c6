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
