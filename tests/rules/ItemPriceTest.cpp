// Prices and money worked by hand from the open 3.5 rules: a potion costs 50 gp x spell level x
// caster level, a scroll 25, a wand 750 (half for a 0-level spell), magic arms and armor pay the
// bonus table on top of a masterwork item, and coins trade ten to one.
#include "ItemsTestSupport.h"

#include "DCoinData.h"
#include "DCurrency.h"
#include "DPotionInfo.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"

#include <cmath>
#include <vector>

namespace {

using rulestest::Ref;

class ItemPriceTest : public rulestest::ItemsFixture {
protected:
    static qint64 InCopper(const DCoinData& price) {
        DCurrency money;
        money.SetAmount(price.GetCoinType(), price.GetCoinCount());
        return money.GetCopperCost();
    }
};

TEST_F(ItemPriceTest, SpellItemsFollowTheirFormula) {
    struct Case {
        int itemType;
        int spellLevel;
        int casterLevel;
        int charges; // wands only
        double gold;
    };
    // A 0-level scroll of caster level 1 is half of 25 gp: 12 gp 5 sp.
    const Case cases[] = {
        {kItemPotion, 0, 1, 0, 25},  {kItemScroll, 0, 1, 0, 12.5}, {kItemPotion, 3, 5, 0, 750},
        {kItemScroll, 2, 3, 0, 150}, {kItemWand, 0, 1, 50, 375},   {kItemWand, 3, 5, 50, 11250},
        {kItemWand, 3, 5, 25, 5625}, {kItemWand, 1, 1, 10, 150},
    };
    for (const Case& c : cases) {
        DCoinData price;
        if (c.itemType == kItemWand) {
            Ref<DWandInfo> wand(new DWandInfo);
            wand->SetSpellLevel(c.spellLevel);
            wand->SetCasterLevel(c.casterLevel);
            wand->SetCharges(c.charges);
            DHandBook::ComputeMagicItemCost(wand.get(), &price);
        } else if (c.itemType == kItemPotion) {
            Ref<DPotionInfo> potion(new DPotionInfo);
            potion->SetSpellLevel(c.spellLevel);
            potion->SetCasterLevel(c.casterLevel);
            DHandBook::ComputeMagicItemCost(potion.get(), &price);
        } else {
            DHandBook::ComputeMagicSpellItemCost(c.itemType, c.spellLevel, c.casterLevel, &price);
        }
        DCurrency money;
        money.SetAmount(price.GetCoinType(), price.GetCoinCount());
        EXPECT_EQ(money.GetCopperCost(), qint64(c.gold * 100)) << c.itemType << " " << c.spellLevel;
    }
    // A staff row prices a full staff of 50 charges.
    Ref<DItemInfo> staff = Info(kItemStaff, QStringLiteral("Fire"));
    DCoinData full, half;
    DHandBook::ComputeMagicItemCost(static_cast<DStaffInfo*>(staff.get()), &full);
    static_cast<DStaffInfo*>(staff.get())->SetCharges(25);
    DHandBook::ComputeMagicItemCost(static_cast<DStaffInfo*>(staff.get()), &half);
    EXPECT_EQ(full.GetCoinCount(), 17750);
    EXPECT_EQ(half.GetCoinCount(), 8875);
}

TEST_F(ItemPriceTest, ArmsAndArmorAtSizeMasterworkAndMagic) {
    Ref<DItemInfo> longsword = Info(kItemWeapon, QStringLiteral("Longsword"));
    Ref<DItemInfo> arrows = Info(kItemWeapon, QStringLiteral("Arrows (20)"));
    Ref<DItemInfo> quarterstaff = Info(kItemWeapon, QStringLiteral("Quarterstaff"));
    Ref<DItemInfo> twoBladed = Info(kItemWeapon, QStringLiteral("Sword, two-bladed"));
    Ref<DItemInfo> bullets = Info(kItemWeapon, QStringLiteral("Bullets, sling (10)"));
    struct Case {
        DItemInfo* info;
        unsigned flags;
        int size;
        double gold;
    };
    // A Large longsword costs twice; a Small one the same; masterwork adds 300 gp, 600 for the
    // two heads of a double weapon, and 6 gp a piece for ammunition (20 arrows: 120 gp; 10 sling
    // bullets at 1 sp: 60 gp 1 sp).
    const Case mundane[] = {{longsword.get(), 0, -1, 15},  {longsword.get(), 0, 5, 30},
                            {longsword.get(), 0, 3, 15},   {longsword.get(), 1, -1, 315},
                            {arrows.get(), 1, -1, 121},    {quarterstaff.get(), 1, -1, 600},
                            {twoBladed.get(), 1, -1, 700}, {bullets.get(), 1, -1, 60.1}};
    for (const Case& c : mundane) {
        DCoinData price;
        DHandBook::ComputeItemCost(c.info, nullptr, c.flags, c.size, price);
        EXPECT_EQ(InCopper(price), std::llround(c.gold * 100))
            << c.info->GetItemName().toStdString() << " " << c.size << " " << c.flags;
    }

    // Rows of the weapon abilities, each a +1 bonus.
    constexpr int kFlaming = 3;
    constexpr int kFrost = 4;
    struct Magic {
        int itemType;
        QString name;
        int bonus;
        int second;
        std::vector<int> abilities;
        double gold;
    };
    // The weapon table: +1 2,000 gp, +2 8,000, +3 18,000; for ammunition the price of 50.
    // +1 longsword 2,315; +1 full plate 2,650; +2 chainmail 4,300; a cursed -2 longsword pays
    // 300 gp a square of its penalty, rounded to 100: (1,200 + 15 + 50) / 100 x 100. A double
    // weapon pays each head: +1/+1 quarterstaff 600 + 2,000 + 2,000; +1 flaming/+1 600 +
    // 8,000 + 2,000; +2/+1 two-bladed sword 700 + 8,000 + 2,000. +1 arrows pay 2,000 a 50, so
    // 800 for 20 (one arrow 40 + 6 + 1/20 gp); +1 flaming frost arrows 18,000 x 20 / 50.
    const Magic magic[] = {
        {kItemWeapon, QStringLiteral("Longsword"), 1, 0, {}, 2315},
        {kItemArmor, QStringLiteral("Full plate"), 1, 0, {}, 2650},
        {kItemArmor, QStringLiteral("Chainmail"), 2, 0, {}, 4300},
        {kItemWeapon, QStringLiteral("Longsword"), -2, 0, {}, 1200},
        {kItemWeapon, QStringLiteral("Quarterstaff"), 1, 1, {}, 4600},
        {kItemWeapon, QStringLiteral("Quarterstaff"), 1, 1, {kFlaming}, 10600},
        {kItemWeapon, QStringLiteral("Quarterstaff"), 1, 1, {kFlaming, kFrost}, 20600},
        {kItemWeapon, QStringLiteral("Sword, two-bladed"), 2, 1, {}, 10700},
        {kItemWeapon, QStringLiteral("Arrows (20)"), 1, 0, {}, 121 + 800},
        {kItemWeapon, QStringLiteral("Arrows (20)"), 1, 0, {kFlaming, kFrost}, 121 + 7200},
        {kItemWeapon, QStringLiteral("Bolts, crossbow (10)"), 2, 0, {}, 61 + 1600},
        {kItemWeapon, QStringLiteral("Bullets, sling (10)"), 1, 0, {}, 60.1 + 400},
    };
    for (const Magic& m : magic) {
        Ref<DItemInfo> base = Info(m.itemType, m.name);
        Ref<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
        custom->SetBaseItemInfo(base.get());
        custom->SetBonus(m.bonus);
        custom->SetSecondBonus(m.second);
        for (const int ability : m.abilities)
            custom->AddSpecialAbility(ability, 0, -1, 1);
        custom->SetCustomFlags(m.bonus > 0 ? 1 : 0);
        DCoinData price;
        DHandBook::ComputeCustomMagicItemCost(custom.get(), -1, &price);
        EXPECT_EQ(InCopper(price), std::llround(m.gold * 100))
            << m.name.toStdString() << " " << m.bonus << "/" << m.second;
    }
    // A bonus beyond the price table costs nothing more.
    DCoinData beyond;
    DHandBook::GetMagicBonusCostFromTable(1, 11, 62, &beyond);
    EXPECT_EQ(beyond.GetCoinCount(), 0);
}

TEST_F(ItemPriceTest, CoinsTradeTenToOne) {
    DCurrency balance;
    balance.SetAmount(0, -1);
    balance.SetAmount(2, 1);
    balance.Balance();
    EXPECT_EQ(balance.GetAmount(0), 9);
    EXPECT_EQ(balance.GetAmount(1), 9);
    EXPECT_EQ(balance.GetAmount(2), 0);

    // Gold owed: 200 of the 250 copper pay two, then a platinum is broken for the last.
    DCurrency owed;
    owed.SetAmount(0, 250);
    owed.SetAmount(2, -3);
    owed.SetAmount(3, 5);
    owed.MakeCoinTypePositive(2);
    EXPECT_EQ(owed.GetAmount(0), 50);
    EXPECT_EQ(owed.GetAmount(2), 9);
    EXPECT_EQ(owed.GetAmount(3), 4);
    EXPECT_EQ(owed.GetCopperCost(), 50 + 900 + 4000);

    // Paying 10 gp from 5 gp and 100 sp leaves 50 sp.
    DCurrency purse, price;
    purse.SetAmount(2, 5);
    purse.SetAmount(1, 100);
    price.SetAmount(2, 10);
    purse -= price;
    purse.MakePositive();
    EXPECT_EQ(purse.GetAmount(2), 0);
    EXPECT_EQ(purse.GetAmount(1), 50);

    DCurrency mixed;
    mixed.SetAmount(0, 5);
    mixed.SetAmount(2, 2);
    DCoinData primary;
    mixed.GetPrimaryCoinData(&primary);
    EXPECT_EQ(primary.GetCoinCount(), 2);
    EXPECT_EQ(primary.GetCoinType(), 2);
    EXPECT_EQ(mixed.GetCostDescription(), QStringLiteral("2 gp 5 cp"));
    EXPECT_EQ(mixed.GetGoldDescription(), QStringLiteral("2+ gp"));
    EXPECT_EQ(DCurrency().GetCostDescription(), QStringLiteral("0 gp"));
    EXPECT_EQ(DCurrency::BuildCoinString(3, 7), QStringLiteral("3 Unknown"));
}

} // namespace
