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
    EXPECT_EQ(
        value(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type='table'")).toInt(),
        212);
    for (const char* name :
         {"[info Coin]", "[info Weapons]", "[Table 8-6 and 8-7 Special Abilities]",
          "[Text ZKB231 Item Randomly Cursed]", "[types Table Element]"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(
            value(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(name))).isValid());
    }
}

TEST_F(RulesDbContentTest, ClassRowsFollowTheRules) {
    expectAll(
        {
            // Fighter: d10, base attack equal to level, good Fortitude only, 2 + Int skill points.
            {"fighter hit die", "SELECT DieId FROM [info Class] WHERE Name='Fighter'", 10},
            {"fighter attack",
             "SELECT AttackBonusMultiplier FROM [info Class] WHERE Name='Fighter'", 1.0},
            {"fighter Fortitude", "SELECT HIFORT FROM [info Class] WHERE Name='Fighter'", 1},
            {"fighter Reflex", "SELECT HIREF FROM [info Class] WHERE Name='Fighter'", 0},
            {"fighter Will", "SELECT HIWILL FROM [info Class] WHERE Name='Fighter'", 0},
            {"fighter skill points", "SELECT SkillPPL FROM [info Class] WHERE Name='Fighter'", 2},
            // A fighter has bonus feats at 1st and every even level: 1 + level / 2.
            {"fighter bonus feats", "SELECT BonusFP FROM [info Class] WHERE Name='Fighter'", 1},
            {"fighter bonus feat interval",
             "SELECT LevelsForBonusFP FROM [info Class] WHERE Name='Fighter'", 2},
            // Wizard: d4, half base attack, good Will, casts from Intelligence (ability 3).
            {"wizard hit die",
             "SELECT DieId FROM [info Class] WHERE Guid='{DC103390-3378-411F-9A3A-CAB0CFD00B68}'",
             4},
            {"wizard attack", "SELECT AttackBonusMultiplier FROM [info Class] WHERE Name='Wizard'",
             0.5},
            {"wizard casting ability", "SELECT SpAbility FROM [info Class] WHERE Name='Wizard'", 3},
            {"rogue skill points",
             "SELECT SkillPPL FROM [info Class] WHERE "
             "Guid='{D6BD23C8-0DC0-4510-91C4-4A4F7126F083}'",
             8},
            {"cleric attack", "SELECT AttackBonusMultiplier FROM [info Class] WHERE Name='Cleric'",
             0.75},
            {"monk good saves",
             "SELECT HIFORT + HIREF + HIWILL FROM [info Class] WHERE Name='Monk'", 3},
            // Creature types: a dragon has d12 and full base attack; an undead d12 and half.
            {"dragon hit die", "SELECT DieId FROM [info Class] WHERE Name='Dragon'", 12},
            {"dragon attack", "SELECT AttackBonusMultiplier FROM [info Class] WHERE Name='Dragon'",
             1.0},
            {"undead attack", "SELECT AttackBonusMultiplier FROM [info Class] WHERE Name='Undead'",
             0.5},
            {"outsider skill points", "SELECT SkillPPL FROM [info Class] WHERE Name='Outsider'", 8},
            // A paladin must be lawful good: the eight other alignments are barred.
            {"paladin alignments",
             "SELECT COUNT(*) FROM [info Class Alignment Restrictions] r "
             "JOIN [info Class] c ON c.Guid = r.ClassId WHERE c.Name='Paladin'",
             8},
            {"climb is a fighter class skill",
             "SELECT u.Usability FROM [info Class Skill Usability] u "
             "JOIN [info Class] c ON c.Guid = u.ClassId "
             "JOIN [info Skill] s ON s.Guid = u.SkillId "
             "WHERE c.Name='Fighter' AND s.Name='Climb'",
             1},
        },
        value);
}

TEST_F(RulesDbContentTest, SpellsPerDayFollowTheClassTables) {
    expectAll(
        {
            // A 5th-level wizard prepares 4 cantrips, then 3, 2 and 1 spells of 1st to 3rd level.
            {"wizard 5 level 0",
             "SELECT [0] FROM [info Spells Per Day] WHERE "
             "Id='{DC103390-3378-411F-9A3A-CAB0CFD00B68}' AND SubId=5",
             4},
            {"wizard 5 level 1",
             "SELECT [1] FROM [info Spells Per Day] WHERE "
             "Id='{DC103390-3378-411F-9A3A-CAB0CFD00B68}' AND SubId=5",
             3},
            {"wizard 5 level 2",
             "SELECT [2] FROM [info Spells Per Day] WHERE "
             "Id='{DC103390-3378-411F-9A3A-CAB0CFD00B68}' AND SubId=5",
             2},
            {"wizard 5 level 3",
             "SELECT [3] FROM [info Spells Per Day] WHERE "
             "Id='{DC103390-3378-411F-9A3A-CAB0CFD00B68}' AND SubId=5",
             1},
            {"wizard 5 level 4",
             "SELECT [4] FROM [info Spells Per Day] WHERE "
             "Id='{DC103390-3378-411F-9A3A-CAB0CFD00B68}' AND SubId=5",
             -1},
            // A 4th-level paladin has 1st-level slots only through a high Wisdom.
            {"paladin 4 level 1",
             "SELECT [1] FROM [info Spells Per Day] WHERE "
             "Id='{369261F4-1D0C-473F-B053-59D862213469}' AND SubId=4",
             0},
            {"paladin 4 bonus level",
             "SELECT LevelNeedingBonus FROM [info Spells Per Day] WHERE "
             "Id='{369261F4-1D0C-473F-B053-59D862213469}' AND SubId=4",
             1},
            {"paladin 3 has no slot",
             "SELECT MAX([0], [1], [2], [3], [4]) FROM [info Spells Per Day] WHERE "
             "Id='{369261F4-1D0C-473F-B053-59D862213469}' AND SubId=3",
             -1},
            // A 1st-level sorcerer knows 4 cantrips and 2 1st-level spells.
            {"sorcerer 1 knows level 0",
             "SELECT [0] FROM [info Spells Can Know] WHERE "
             "Id='{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}' AND SubId=1",
             4},
            {"sorcerer 1 knows level 1",
             "SELECT [1] FROM [info Spells Can Know] WHERE "
             "Id='{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}' AND SubId=1",
             2},
            // The wizard's list is the sorcerer's: fireball is 3rd level there, and the
            // wizard has no rows of its own.
            {"fireball",
             "SELECT l.Level FROM [info Spell Level] l JOIN [info Spell] s ON s.Guid = l.Id "
             "WHERE s.Name='Fireball' AND l.ClassId='{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}'",
             3},
            {"cure light wounds, cleric",
             "SELECT l.Level FROM [info Spell Level] l JOIN [info Spell] s ON s.Guid = l.Id "
             "JOIN [info Class] c ON c.Guid = l.ClassId WHERE s.Name='Cure Light Wounds' AND "
             "c.Name='Cleric'",
             1},
            {"wizard rows",
             "SELECT COUNT(*) FROM [info Spell Level] WHERE "
             "ClassId='{DC103390-3378-411F-9A3A-CAB0CFD00B68}'",
             0},
            {"fireball school",
             "SELECT sc.Name FROM [info Spell] s JOIN [info Spell Schools] sc ON sc.Id = "
             "s.SchoolId WHERE s.Name='Fireball'",
             "Evocation"},
        },
        value);
}

TEST_F(RulesDbContentTest, SizesCarryTheirModifiers) {
    expectAll(
        {
            {"small attack and AC", "SELECT ArmorMod FROM [info Size] WHERE Name='Small'", 1},
            {"huge attack and AC", "SELECT ArmorMod FROM [info Size] WHERE Name='Huge'", -2},
            {"medium is id 4", "SELECT Id FROM [info Size] WHERE Name='Medium'", 4},
            // Growing from Medium to Large: Str +8, Dex -2, Con +4, natural armor +2.
            {"large Str", "SELECT ModStr FROM [info Size] WHERE Name='Large'", 8},
            {"large Dex", "SELECT ModDex FROM [info Size] WHERE Name='Large'", -2},
            {"large Con", "SELECT ModCon FROM [info Size] WHERE Name='Large'", 4},
            {"large natural armor", "SELECT ModNatAC FROM [info Size] WHERE Name='Large'", 2},
            {"large carries double", "SELECT CapMod FROM [info Size] WHERE Name='Large'", 2.0},
            {"hide bonus when small",
             "SELECT b.Bonus FROM [info Skill Bonuses Size] b JOIN [info Skill] s ON s.Guid = "
             "b.SkillId "
             "WHERE s.Name='Hide' AND b.SizeId=3",
             4},
            {"large tall reach", "SELECT NatReach FROM [info Size Scale] WHERE Id=5 AND SubId=0",
             10},
            {"large long reach", "SELECT NatReach FROM [info Size Scale] WHERE Id=5 AND SubId=1",
             5},
        },
        value);
}

TEST_F(RulesDbContentTest, FeatChainsAndSynergiesFollowTheRules) {
    expectAll(
        {
            // Power Attack needs Str 13: an ability row (type 4) on Strength (0) with 13.
            {"power attack ability",
             "SELECT p.AbStat FROM [info Feat Prerequisites] p JOIN [info Feat] f ON f.Guid = p.Id "
             "WHERE f.Name='Power Attack' AND p.Type=4",
             0},
            {"power attack score",
             "SELECT p.Data FROM [info Feat Prerequisites] p JOIN [info Feat] f ON f.Guid = p.Id "
             "WHERE f.Name='Power Attack' AND p.Type=4",
             13},
            // Cleave needs Power Attack: a feat row (type 0) naming it.
            {"cleave needs power attack",
             "SELECT g.Name FROM [info Feat Prerequisites] p JOIN [info Feat] f ON f.Guid = p.Id "
             "JOIN [info Feat] g ON g.Guid = p.FeatId WHERE f.Name='Cleave' AND p.Type=0",
             "Power Attack"},
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
            {"toughness gives 3 hit points",
             "SELECT b.Data FROM [info Feat Bonuses] b JOIN [info Feat] f ON f.Guid = b.Id "
             "WHERE f.Name='Toughness' AND b.Type=7",
             3},
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

TEST_F(RulesDbContentTest, SmallRuleTablesHoldTheRulesNumbers) {
    expectAll(
        {
            {"a gold piece is ten silver", "SELECT SilverEx FROM [info Coin] WHERE Id=2", 10.0},
            {"a platinum piece is ten gold", "SELECT GoldEx FROM [info Coin] WHERE ShortName='pp'",
             10.0},
            {"the default alignment", "SELECT Name FROM [info Alignment] WHERE Id=9",
             "Lawful Good"},
            {"lawful good is lawful and good",
             "SELECT (Id & 1) * 10 + (Id & 8) / 8 FROM [info Alignment] WHERE Name='Lawful Good'",
             11},
            {"neutral's neighbours",
             "SELECT ONEOFF0 + ONEOFF1 + ONEOFF2 + ONEOFF3 FROM [info Alignment] WHERE "
             "Name='Neutral'",
             10 + 17 + 20 + 34},
            {"d8 grows to 2d6",
             "SELECT UpDieCount * 100 + UpDieId FROM [info Advancement Damage] WHERE FromDieId=8",
             206},
            {"Str 18 heavy load", "SELECT HeavyLoad FROM [info Load Capacity] WHERE Strength=18",
             300},
            {"Str 10 light load", "SELECT LightLoad FROM [info Load Capacity] WHERE Strength=10",
             33},
            {"venerable Str", "SELECT AdjStr FROM [info Advancement Age] WHERE Id=2", -3},
            {"longsword damage",
             "SELECT DmgDieCount1 * 100 + DmgDieId1 FROM [info Weapons] WHERE Name='Longsword'",
             108},
            {"longsword critical",
             "SELECT CriticalMin * 10 + CriticalX FROM [info Weapons] WHERE Name='Longsword'", 192},
            {"unarmed strike row",
             "SELECT Name FROM [info Weapons] WHERE Guid='{C1A1E4F7-8D20-4CF7-A9A9-4D9DA567A6AF}'",
             "Unarmed strike"},
            {"full plate",
             "SELECT ArmorBonus * 100 + MaxDex FROM [info Armor] WHERE Name='Full plate'", 801},
            {"monk 1 medium damage",
             "SELECT DieCount * 100 + DieId FROM [info Monk Unarmed Damage] WHERE SizeId=4 AND "
             "Level>=1 ORDER BY Level",
             106},
            // An enhancement bonus costs its square times 1,000 gp on armor, 2,000 gp on weapons.
            {"+3 armor",
             "SELECT CoinCount FROM [Table 8-3 Armor and Shields] WHERE ItemType=1 AND Bonus=3",
             9000},
            {"+4 weapon", "SELECT CoinCount FROM [Table 8-10 Weapons] WHERE ItemType=1 AND Bonus=4",
             32000},
            // A level 1 hoard rolling 60 has 2d8 x 10 gp.
            {"level 1 coins",
             "SELECT DieCount * 1000 + DieType * 100 + CoinCount + CoinType FROM [Table 7-4 "
             "Treasure Coins] "
             "WHERE Level=1 AND Min<=60 AND Max>=60",
             2000 + 800 + 10 + 2},
            {"familiar Int at master 5",
             "SELECT Int FROM [info Familiar] WHERE 5 >= MasterLevelMin AND 5 <= MasterLevelMax",
             8},
        },
        value);
}

} // namespace
