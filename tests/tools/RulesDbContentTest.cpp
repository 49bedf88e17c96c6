// The rules database built from the project's sources, checked against the open 3.5 rules
// worked by hand.
#include "RulesDbRun.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

const char* const Connection = "content-test";

class RulesDbContentTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        sDir = std::make_unique<QTemporaryDir>();
        const QString output = sDir->filePath(QStringLiteral("rules.db"));
        const RulesDbRun result = RulesDbRun::run(RulesDbRun::projectSources(), output);
        sBuildError = result.exitCode == 0 ? QString() : result.errorText;
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QLatin1String(Connection));
        db.setDatabaseName(output);
        db.open();
    }

    static void TearDownTestSuite() {
        QSqlDatabase::removeDatabase(QLatin1String(Connection));
        sDir.reset();
    }

    void SetUp() override { ASSERT_TRUE(sBuildError.isEmpty()) << sBuildError.toStdString(); }

    // The first column of the first row, or an invalid value without a row.
    static QVariant value(const QString& statement) {
        QSqlQuery query(statement, QSqlDatabase::database(QLatin1String(Connection)));
        return query.next() ? query.value(0) : QVariant();
    }

    static inline std::unique_ptr<QTemporaryDir> sDir;
    static inline QString sBuildError;
};

struct Expectation {
    const char* what;
    const char* statement;
    QVariant expected;
};

void expectAll(const QList<Expectation>& expectations,
               const std::function<QVariant(const QString&)>& query) {
    for (const Expectation& e : expectations) {
        SCOPED_TRACE(std::string(e.what) + ": " + e.statement);
        const QVariant actual = query(QString::fromLatin1(e.statement));
        ASSERT_TRUE(actual.isValid()) << "no row";
        if (e.expected.typeId() == QMetaType::Double)
            EXPECT_DOUBLE_EQ(actual.toDouble(), e.expected.toDouble());
        else
            EXPECT_EQ(actual.toString().toStdString(), e.expected.toString().toStdString());
    }
}

TEST_F(RulesDbContentTest, HasEveryTableOfTheRegistry) {
    // The registry's 212 tables, the one that rows name and the animal companion's two.
    EXPECT_EQ(
        value(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type='table'")).toInt(),
        215);
    for (const char* name :
         {"[info Coin]", "[info Weapons]", "[Table 8-6 and 8-7 Special Abilities]",
          "[Text ZKB231 Item Randomly Cursed]", "[types Table Element]"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(
            value(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(name))).isValid());
    }
}

// The size rows' modifiers, reach and skill bonuses are read through by the hand-worked
// advancement, combat and skill tests; what those do not reach is checked here.
TEST_F(RulesDbContentTest, SizesCarryTheirModifiers) {
    expectAll(
        {
            {"medium is id 4", "SELECT Id FROM [info Size] WHERE Name='Medium'", 4},
            {"large carries double", "SELECT CapMod FROM [info Size] WHERE Name='Large'", 2.0},
        },
        value);
}

// Power Attack's Str 13, Cleave's Power Attack and Toughness's +3 hit points are read through
// by the feat and hand-worked character tests.
TEST_F(RulesDbContentTest, FeatChainsAndSynergiesFollowTheRules) {
    expectAll(
        {
            // Weapon Specialization needs fighter level 4.
            {"specialization class level",
             "SELECT c.Level FROM [info Feat Class Prerequisites] c "
             "WHERE c.Id='{0AEE3129-CDC2-493D-A184-1E58DCC7C490}'",
             4},
            {"dodge needs Dex 13",
             "SELECT p.Data FROM [info Feat Prerequisites] p JOIN [info Feat] f ON f.Guid = p.Id "
             "WHERE f.Name='Dodge' AND p.Type=4 AND p.AbStat=1",
             13},
            {"weapon focus takes a weapon",
             "SELECT Target FROM [info Feat] WHERE Guid='{684F1421-B863-476A-A3F3-2871910BE259}'",
             1},
            // 5 ranks of Tumble give +2 on Balance.
            {"tumble to balance ranks",
             "SELECT y.ReqRanks FROM [info Skill Bonuses Synergy] y "
             "JOIN [info Skill] s ON s.Guid = y.SourceSkill JOIN [info Skill] t ON t.Guid = "
             "y.TargetSkill "
             "WHERE s.Name='Tumble' AND t.Name='Balance'",
             5},
            {"tumble to balance bonus",
             "SELECT y.Bonus FROM [info Skill Bonuses Synergy] y "
             "JOIN [info Skill] s ON s.Guid = y.SourceSkill JOIN [info Skill] t ON t.Guid = "
             "y.TargetSkill "
             "WHERE s.Name='Tumble' AND t.Name='Balance'",
             2},
            {"knowledge has sub-skills",
             "SELECT IsMulti FROM [info Skill] WHERE Guid='{D515ECE3-0A1F-43A8-9485-F43F9EBB1615}'",
             1},
            {"tumble is trained only", "SELECT Untrain FROM [info Skill] WHERE Name='Tumble'", 0},
        },
        value);
}

// The number of d% results from 1 to 100 that do not select exactly one row of a roll table.
QString untiledRolls(const char* table) {
    return QStringLiteral("WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r WHERE "
                          "n < 100) SELECT COUNT(*) FROM r WHERE (SELECT COUNT(*) FROM %1 WHERE "
                          "Min <= n AND Max >= n) <> 1")
        .arg(QLatin1String(table));
}

TEST_F(RulesDbContentTest, MundaneTreasureTablesCoverEveryRoll) {
    for (const char* table :
         {"[Table 7-7 Mundane Items]", "[Table 7-7 Armor Size]",
          "[Table 7-8 Random Mighty Composite Shortbow]",
          "[Table 7-9 Random Mighty Composite Longbow]", "[Table 8-14 Common Ranged Weapons]",
          "[Table 8-39 Specific Cursed Items]"}) {
        SCOPED_TRACE(table);
        EXPECT_EQ(value(untiledRolls(table)).toInt(), 0);
    }
    expectAll(
        {
            // Each row names the item its type reads, or is a weapon kind rolled elsewhere.
            {"rows without their item",
             "SELECT COUNT(*) FROM [Table 7-7 Mundane Items] WHERE "
             "(MundaneType=2 AND ArmorId IS NULL) OR (MundaneType=3 AND ShieldId IS NULL) OR "
             "(MundaneType=4 AND GoodsId IS NULL) OR MundaneType NOT IN (2, 3, 4, 7, 8, 9)",
             0},
            // Alchemical items are 17% of the table, of which acid is 12%: 2.04, so 2 results,
            // with 2d4 flasks.
            {"acid results",
             "SELECT m.Max - m.Min + 1 FROM [Table 7-7 Mundane Items] m JOIN [info Goods] g ON "
             "g.Guid = m.GoodsId WHERE g.Name='Acid (flask)'",
             2},
            {"acid flasks",
             "SELECT m.DieCount * 10 + m.DieType FROM [Table 7-7 Mundane Items] m JOIN [info "
             "Goods] g ON g.Guid = m.GoodsId WHERE g.Name='Acid (flask)'",
             24},
            // Weapons are 33%: half of them a masterwork common melee weapon, 16.5 results.
            {"common melee weapons",
             "SELECT SUM(Max - Min + 1) FROM [Table 7-7 Mundane Items] WHERE MundaneType=7", 16},
            {"masterwork studded leather",
             "SELECT m.IsMasterwork FROM [Table 7-7 Mundane Items] m JOIN [info Armor] a ON "
             "a.Guid = m.ArmorId WHERE a.Name='Studded leather'",
             1},
            {"armor rolls its size",
             "SELECT COUNT(*) FROM [Table 7-7 Mundane Items] WHERE "
             "MundaneType=2 AND SizeTable='[Table 7-7 Armor Size]'",
             6},
            {"small armor", "SELECT SizeId FROM [Table 7-7 Armor Size] WHERE Min<=10 AND Max>=10",
             3},
            // A composite longbow of +3 Strength costs 100 gp plus 100 gp per point.
            {"+3 longbow price",
             "SELECT CoinCount FROM [info Weapons] WHERE Name='Longbow, composite (+3 Str bonus)'",
             400},
            {"+2 shortbow price",
             "SELECT CoinCount FROM [info Weapons] WHERE Name='Shortbow, composite (+2 Str bonus)'",
             225},
            {"+3 longbow limit",
             "SELECT MaxStrBonus FROM [info Weapons] WHERE Name='Longbow, composite (+3 Str "
             "bonus)'",
             3},
            {"a mighty bow acts as its plain kind",
             "SELECT b.Name FROM [info Weapons] m JOIN [info Weapons] b ON b.Guid = m.ActsAs "
             "WHERE m.Name='Shortbow, composite (+1 Str bonus)'",
             "Shortbow, composite"},
            {"longbow roll of 60",
             "SELECT w.MaxStrBonus FROM [Table 7-9 Random Mighty Composite Longbow] t JOIN [info "
             "Weapons] w ON w.Guid = t.ItemId WHERE t.Min<=60 AND t.Max>=60",
             3},
            {"ranged roll of 83",
             "SELECT w.MaxStrBonus FROM [Table 8-14 Common Ranged Weapons] t JOIN [info Weapons] "
             "w ON w.Guid = t.ItemId WHERE t.Min<=83 AND t.Max>=83",
             1},
            // Strength on damage: full for a greatsword (one and a half through its two-handed
            // flag), a penalty only for a plain or unrated bow, nothing for a crossbow.
            {"greatsword",
             "SELECT StrBonus * 10 + [2HandedMultiplier] FROM [info Weapons] WHERE "
             "Name='Greatsword'",
             1},
            {"longbow", "SELECT StrBonus FROM [info Weapons] WHERE Name='Longbow'", 2},
            {"unrated composite",
             "SELECT StrBonus FROM [info Weapons] WHERE Name='Longbow, "
             "composite'",
             2},
            {"light crossbow", "SELECT StrBonus FROM [info Weapons] WHERE Name='Crossbow, light'",
             3},
            {"dagger", "SELECT StrBonus FROM [info Weapons] WHERE Name='Dagger'", 0},
            // A roll of 38 for a specific cursed item gives the -2 longsword of 1,500 gp.
            {"cursed sword bonus",
             "SELECT w.MagicBonus FROM [Table 8-39 Specific Cursed Items] t JOIN [info Weapons] w "
             "ON w.Guid = t.WeaponId WHERE t.Min<=38 AND t.Max>=38 AND t.ItemType=0",
             -2},
            {"cursed sword price",
             "SELECT w.CoinCount FROM [Table 8-39 Specific Cursed Items] t JOIN [info Weapons] w "
             "ON w.Guid = t.WeaponId WHERE t.Min<=38 AND t.Max>=38",
             1500},
            {"ring of clumsiness",
             "SELECT r.CoinCount FROM [Table 8-39 Specific Cursed Items] t JOIN [info Rings] r ON "
             "r.Guid = t.RingId WHERE t.ItemType=6",
             500},
        },
        value);
}

TEST_F(RulesDbContentTest, ItemBonusesFollowTheRules) {
    // Each bonus as class * 10000 + bonus * 100 + what it changes, with its target apart.
    const char* bonus = "SELECT BonusType * 10000 + Bonus * 100 + ModifyType FROM ";
    const auto of = [bonus](const char* table, const char* info, const char* item) {
        return QStringLiteral("%1%2 b JOIN %3 i ON i.Guid = b.Id WHERE i.Name='%4'")
            .arg(QLatin1String(bonus), QLatin1String(table), QLatin1String(info),
                 QLatin1String(item));
    };
    struct Case {
        const char* what;
        QString statement;
        int expected;
    };
    const QList<Case> cases = {
        // deflection 4, armor class 1
        {"ring of protection +3", of("[info Ring Bonuses]", "[info Rings]", "Protection +3"),
         40301},
        // competence 3 on one skill 0
        {"improved climbing", of("[info Ring Bonuses]", "[info Rings]", "Climbing, improved"),
         31000},
        // resistance 14 on saves 4
        {"cloak of resistance +2",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Cloak of resistance +2"), 140204},
        // natural armor 12 on armor class
        {"amulet of natural armor +4",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Amulet of natural armor +4"),
         120401},
        // armor 1 on armor class
        {"bracers of armor +7",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Bracers of armor +7"), 10701},
        // enhancement 6 on one ability 2
        {"belt of giant Strength +6",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Belt of giant Strength +6"),
         60602},
        // inherent 8 on one ability
        {"manual of bodily health +2",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Manual of bodily health +2"),
         80202},
        // insight 9 on armor class
        {"dusty rose ioun stone",
         of("[info Wondrous Bonuses]", "[info Wondrous Items]", "Ioun stone, dusty rose prism"),
         90101},
        // insight on initiative 5
        {"rod of alertness", of("[info Rod Bonuses]", "[info Rods]", "Alertness"), 90105},
        // luck 10 on saves
        {"luck blade", of("[info Weapon Bonuses]", "[info Weapons]", "Luck blade (2 wishes)"),
         100104},
        // competence 3 on skills keyed to an ability 6
        {"breastplate of command",
         of("[info Armor Bonuses]", "[info Armor]", "Breastplate of command"), 30206},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(value(c.statement).toInt(), c.expected);
    }
    expectAll(
        {
            {"belt targets Strength",
             "SELECT b.AbilityType FROM [info Wondrous Bonuses] b JOIN [info Wondrous Items] i "
             "ON i.Guid = b.Id WHERE i.Name='Belt of giant Strength +4'",
             0},
            {"manual targets Constitution",
             "SELECT b.AbilityType FROM [info Wondrous Bonuses] b JOIN [info Wondrous Items] i "
             "ON i.Guid = b.Id WHERE i.Name='Manual of bodily health +5'",
             2},
            {"boots of elvenkind",
             "SELECT s.Name FROM [info Wondrous Bonuses] b JOIN [info Wondrous Items] i ON "
             "i.Guid = b.Id JOIN [info Skill] s ON s.Guid = b.SkillId WHERE "
             "i.Name='Boots of elvenkind'",
             "Move Silently"},
            {"pale green stone adds to attack, saves and skills",
             "SELECT SUM(b.ModifyType) FROM [info Wondrous Bonuses] b JOIN [info Wondrous Items] "
             "i ON i.Guid = b.Id WHERE i.Name='Ioun stone, pale green prism'",
             8 + 4 + 7},
            // Improved slick is +10 on Escape Artist, greater shadow +15 on Hide.
            {"improved slick",
             "SELECT b.Bonus FROM [info Armor Shield Special Bonuses] b JOIN [Table 8-6 and 8-7 "
             "Special Abilities] a ON a.Id = b.Id JOIN [info Skill] s ON s.Guid = b.SkillId "
             "WHERE a.Name='Slick, improved' AND s.Name='Escape Artist'",
             10},
            {"greater shadow",
             "SELECT b.Bonus FROM [info Armor Shield Special Bonuses] b JOIN [Table 8-6 and 8-7 "
             "Special Abilities] a ON a.Id = b.Id JOIN [info Skill] s ON s.Guid = b.SkillId "
             "WHERE a.Name='Shadow, greater' AND s.Name='Hide'",
             15},
            {"flame tongue fire",
             "SELECT b.Bonus * 100 + b.DieType FROM [info Weapon Bonuses Damage] b JOIN [info "
             "Weapons] w ON w.Guid = b.Id WHERE w.Name='Flame tongue'",
             106},
            {"an item's ranks in Spot",
             "SELECT b.Bonus FROM [info Intelligent Abilities Bonuses] b JOIN [info Skill] s ON "
             "s.Guid = b.SkillId WHERE s.Name='Spot'",
             10},
            {"luck of a purpose power",
             "SELECT SUM(Bonus) FROM [info Intelligent Purpose Powers "
             "Bonuses]",
             6},
        },
        value);
}

TEST_F(RulesDbContentTest, ClassExtrasAndItemListsAreComplete) {
    expectAll(
        {
            // A blackguard who was a 6th-level paladin has the first three extras.
            {"fallen paladin 6",
             "SELECT COUNT(*) FROM [info Fallen Paladin Features] p JOIN [info Features] f ON "
             "f.Id = p.FeatureId WHERE p.Level <= 6",
             3},
            {"fallen paladin 5",
             "SELECT f.Name FROM [info Fallen Paladin Features] p JOIN [info Features] f ON "
             "f.Id = p.FeatureId WHERE p.Level = 5",
             "Sneak attack +1d6 (Fallen paladin)"},
            {"the extra feat is a pick",
             "SELECT f.Type FROM [info Fallen Paladin Features] p JOIN [info Features] f ON "
             "f.Id = p.FeatureId WHERE p.Level = 11",
             2},
            {"bard weapons",
             "SELECT COUNT(*) FROM [info Bard Weapon Proficiency] b JOIN [info "
             "Weapons] w ON w.Guid = b.Id",
             6},
            {"bard rapier",
             "SELECT COUNT(*) FROM [info Bard Weapon Proficiency] WHERE "
             "Id='{D68A9C21-C5C1-4620-B2B0-9CD33AD415CA}'",
             1},
            {"gray bag of tricks",
             "SELECT COUNT(*) FROM [info Wondrous Items Sub] s JOIN [info Wondrous Items] i ON "
             "i.Guid = s.Id WHERE i.Name='Bag of tricks, gray'",
             5},
            {"cube of force faces",
             "SELECT MAX(s.SubId) FROM [info Wondrous Items Sub] s JOIN "
             "[info Wondrous Items] i ON i.Guid = s.Id WHERE i.Name='Cube "
             "of force'",
             6},
            {"intelligent categories", "SELECT COUNT(*) FROM [types Intelligent Categories]", 8},
            {"equip locations", "SELECT Name FROM [types Equip Item] WHERE Id=2", "Armor"},
        },
        value);
}

} // namespace
