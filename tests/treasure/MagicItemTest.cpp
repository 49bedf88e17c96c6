// Magic items from the open 3.5 rules, worked by hand: a scroll spell costs 25 gp x spell level x
// caster level and a wand 750 gp x the same for 50 charges (a 0-level spell counts as half a
// level), cast at the lowest level of the class that casts it (a wizard, cleric or druid
// reaches spell level L at 2L - 1, a bard at 2, 4, 7, 10, 13, 16); a magic weapon pays the
// bonus table for its enhancement plus its abilities' bonus on top of a masterwork item
// (2,000 gp x bonus squared), armor 1,000 gp x bonus squared; no item's bonuses pass +10.
#include "DCoinData.h"
#include "DCurrency.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DIntelligentItemGenerator.h"
#include "DItem.h"
#include "DItemType.h"
#include "DRulesQuery.h"
#include "DScrollInfo.h"
#include "DSpell.h"
#include "DTreasureGenerator.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

namespace {

constexpr int kTableClass = 1;

class MagicItemTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    }
    static void TearDownTestSuite() { DDatabase::ShutDown(); }

    static int MaterialCost(const QUuid& spell) {
        int cost = 0;
        DDatabase::FirstRow(QString::asprintf("SELECT MaterialCost FROM %s WHERE (Guid=%s)",
                                              DRulesQuery::Table(kTableSpell).constData(),
                                              DRulesQuery::Guid(spell).constData()),
                            [&cost](odbc::ResultSet* row) { cost = row->getInt(1); });
        return std::max(cost, 0);
    }
    // The lowest caster level of a class for a spell level, as the class tables give it.
    static int LowestCasterLevel(const QString& casterClass, int spellLevel) {
        if (casterClass == QLatin1String("Bard")) {
            const int bard[] = {1, 2, 4, 7, 10, 13, 16};
            return bard[spellLevel];
        }
        return std::max(1, 2 * spellLevel - 1);
    }
    static qint64 Copper(const DItem& item) {
        DCurrency cost;
        item.GetMarketCost(cost);
        return cost.GetCopperCost();
    }
};

TEST_F(MagicItemTest, ScrollsAndWandsArePricedBySpellLevelAndCasterLevel) {
    int scrolls = 0, wands = 0;
    for (std::uint64_t seed = 1; seed <= 150; ++seed) {
        FC::SeedRandom(seed);
        for (const int kind : {DTreasureGenerator::kKindScroll, DTreasureGenerator::kKindWand}) {
            const int type = DTreasureGenerator::kTreasureMinor + int(seed % 3);
            FCRef<DItem> item(DTreasureGenerator::CreateMagicItem(type, kind));
            ASSERT_TRUE(item);
            if (item->GetIsCursedItem() || item->GetItemType() != kind + 2)
                continue; // cursed items have no price; a substitute is another item
            // In copper: 25 gp = 2,500 cp a level and caster level, half for level 0.
            qint64 expected = 0;
            std::vector<DSpellBase*> spells;
            if (const auto* scroll = FCDynamicCast<DScrollInfo>(item->GetItemInfo())) {
                ++scrolls;
                for (FCObject* object : scroll->GetSpellArray())
                    spells.push_back(FCDynamicCast<DSpell>(object));
                for (const DSpellBase* spell : spells)
                    expected +=
                        (spell->GetSpellLevel() == 0 ? 1250 : 2500 * spell->GetSpellLevel()) *
                            spell->GetCasterLevel() +
                        100 * MaterialCost(spell->GetSpellGuid());
            } else {
                auto* wand = FCDynamicCast<DWandInfo>(item->GetItemInfo());
                ASSERT_TRUE(wand);
                ++wands;
                ASSERT_GE(wand->GetCharges(), 1);
                ASSERT_LE(wand->GetCharges(), 50);
                const int level = wand->GetSpellLevel();
                // 750 gp a level and caster level for 50 charges, in whole gold pieces.
                const int full = (level == 0 ? 375 : 750 * level) * wand->GetCasterLevel();
                expected = 100 * (full * wand->GetCharges() / 50 +
                                  MaterialCost(wand->GetSpellGuid()) * wand->GetCharges());
                // Some wands name a higher caster level ("fireball (10th)"), none a lower one.
                EXPECT_GE(
                    wand->GetCasterLevel(),
                    LowestCasterLevel(
                        DRulesQuery::NameByGuid(kTableClass, wand->GetCasterClassGuid()), level))
                    << DRulesQuery::NameByGuid(kTableSpell, wand->GetSpellGuid()).toStdString();
            }
            for (const DSpellBase* spell : spells)
                EXPECT_EQ(spell->GetCasterLevel(),
                          LowestCasterLevel(
                              DRulesQuery::NameByGuid(kTableClass, spell->GetCasterClassGuid()),
                              spell->GetSpellLevel()))
                    << DRulesQuery::NameByGuid(kTableSpell, spell->GetSpellGuid()).toStdString();
            EXPECT_EQ(Copper(*item), expected) << seed;
        }
    }
    EXPECT_GT(scrolls, 100);
    EXPECT_GT(wands, 100);
}

TEST_F(MagicItemTest, ArmsAndArmorPayTheBonusOfTheirAbilities) {
    struct Case {
        int itemType;
        const char* base;
        int bonus;
        int abilityBonus;
        int gold;
    };
    // +1 flaming longsword: 2,000 x 2 squared + 15 + 300 = 8,315; +1 flaming burst dagger:
    // 2,000 x 3 squared + 2 + 300 = 18,302; +2 bashing light wooden shield: 1,000 x 3 squared +
    // 3 + 150 = 9,153; a +3 longsword without abilities 18,315.
    const Case cases[] = {{kItemWeapon, "Longsword", 1, 1, 8315},
                          {kItemWeapon, "Dagger", 1, 2, 18302},
                          {kItemShield, "Shield, light wooden", 2, 1, 9153},
                          {kItemWeapon, "Longsword", 3, 0, 18315}};
    for (const Case& c : cases) {
        const QUuid guid = hoardtest::rowGuid(DDatabase::GetItemTypeTableId(c.itemType), c.base);
        auto* base =
            static_cast<DItemInfo*>(c.itemType == kItemWeapon ? DDatabase::GetWeaponInfo(guid)
                                                              : DDatabase::GetShieldInfo(guid));
        ASSERT_TRUE(base) << c.base;
        FCRef<DCustomMagicItemInfo> item(new DCustomMagicItemInfo);
        item->SetBaseItemInfo(base);
        item->SetCustomFlags(0x1);
        item->SetBonus(c.bonus);
        if (c.abilityBonus > 0)
            item->AddSpecialAbility(3, 1, c.abilityBonus, c.abilityBonus);
        DCoinData price;
        DHandBook::ComputeCustomMagicItemCost(item.get(), -1, &price);
        EXPECT_EQ(price.GetCoinCount(), c.gold) << c.base;
    }
}

TEST_F(MagicItemTest, SpecialAbilitiesKeepTheRules) {
    // Opposite categories of the weapon ability table (holy 6 / unholy 7, axiomatic 5 /
    // anarchic 4) and which abilities are for melee weapons only (flags 1).
    std::map<int, std::pair<int, int>> categories; // id -> category, opposite
    std::set<int> meleeOnly;
    DDatabase::ForEachRow(QStringLiteral("SELECT Id, Category, OppositeCategory, Flags FROM "
                                         "[Table 8-15 and 8-16 Special Abilities]"),
                          [&](odbc::ResultSet* row) {
                              categories[row->getInt(1)] = {row->getInt(2), row->getInt(3)};
                              if (row->getInt(4) == 1)
                                  meleeOnly.insert(row->getInt(1));
                          });
    ASSERT_FALSE(categories.empty());
    int withAbilities = 0;
    FC::SeedRandom(77);
    for (int i = 0; i < 1500; ++i) {
        const int kind = i % 2 ? DTreasureGenerator::kKindWeapon : DTreasureGenerator::kKindArmor;
        FCRef<DItem> item(
            DTreasureGenerator::CreateMagicItem(DTreasureGenerator::kTreasureMajor, kind));
        const auto* custom =
            item ? FCDynamicCast<DCustomMagicItemInfo>(item->GetItemInfo()) : nullptr;
        if (!custom)
            continue;
        EXPECT_LE(custom->GetBonus() + custom->GetSpecialAbilityBonus(), 10);
        if (custom->GetSpecialAbilityCount() > 0)
            ++withAbilities;
        std::set<int> types, usedCategories;
        const auto* weapon = FCDynamicCast<DWeaponInfo>(custom->GetBaseItemInfo());
        for (int a = 0; a < custom->GetSpecialAbilityCount(); ++a) {
            const DMagicSpecialAbility* ability = custom->GetSpecialAbility(a);
            EXPECT_TRUE(types.insert(ability->GetType()).second) << "the same ability twice";
            if (ability->GetCategory() > 0) {
                EXPECT_TRUE(usedCategories.insert(ability->GetCategory()).second)
                    << "two abilities of one category";
            }
            if (weapon && weapon->GetRangeIncrement() > 0) {
                EXPECT_FALSE(meleeOnly.count(ability->GetType())) << ability->GetType();
            }
        }
        if (!weapon)
            continue;
        for (const int a : types) {
            for (const int b : types) {
                EXPECT_NE(categories[a].second > 0 ? categories[a].second : -1, categories[b].first)
                    << a << " and " << b << " are opposites";
            }
        }
    }
    EXPECT_GT(withAbilities, 100);
}

TEST_F(MagicItemTest, MeleeWeaponsAreIntelligentFifteenTimesInAHundred) {
    // p = 0.15 over n = 4,000 rolls: sd = sqrt(n p (1 - p)) = 22.6; five of them either side.
    const QUuid guid = hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemWeapon), "Longsword");
    FCRef<DCustomMagicItemInfo> sword(new DCustomMagicItemInfo);
    sword->SetBaseItemInfo(static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)));
    sword->SetBonus(1);
    FCRef<DItem> item(new DItem);
    item->SetItemInfo(sword.get());
    FC::SeedRandom(4);
    constexpr int kRolls = 4000;
    int intelligent = 0;
    for (int i = 0; i < kRolls; ++i)
        intelligent += DIntelligentItemGenerator::ShouldItemBeIntelligent(item.get()) ? 1 : 0;
    EXPECT_NEAR(intelligent, kRolls * 0.15, 5 * std::sqrt(kRolls * 0.15 * 0.85));
}

} // namespace
