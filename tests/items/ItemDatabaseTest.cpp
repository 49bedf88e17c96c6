#include "Connection.h"
#include "DAttackInfo.h"
#include "DCoinItemInfo.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DItem.h"
#include "DMagicBonus.h"
#include "DSimpleItemInfo.h"
#include "DWeaponInfo.h"
#include "DriverManager.h"
#include "ItemsCompare.h"
#include "ItemsTestSupport.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "Statement.h"
#include "TestSupport.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace itemstest;

namespace {

const QUuid kLongsword(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A101}"));
const QUuid kArrows(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A102}"));
const QUuid kMithralBlade(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A103}"));
const QUuid kUnarmed(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A104}"));
const QUuid kBow(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A105}"));
const QUuid kClimb(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A106}"));

// A rules database of the few tables these tests read, made with QtSql itself.
class ItemDatabase : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mDir.isValid());
        mPath = mDir.filePath(QStringLiteral("rules.db"));
        const QString name = QStringLiteral("items-test-setup");
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
            db.setDatabaseName(mPath);
            ASSERT_TRUE(db.open()) << db.lastError().text().toStdString();
            QSqlQuery query(db);
            for (const char* sql : kStatements)
                ASSERT_TRUE(query.exec(QString::fromLatin1(sql)))
                    << sql << ": " << query.lastError().text().toStdString();
            db.close();
        }
        QSqlDatabase::removeDatabase(name);
        hoardtest::addRequiredTables(mPath);
        mConnection.reset(odbc::DriverManager::getConnection(mPath));
        mStatement.reset(mConnection->createStatement());
    }

    odbc::ResultSet* rowOf(const char* sql) {
        odbc::ResultSet* rows = mStatement->executeQuery(QString::fromLatin1(sql));
        EXPECT_TRUE(rows && rows->next()) << sql;
        return rows;
    }

    // SRD weapons (damage dice by row of "[types Dice]": 4 is d6, 5 is d8), a made-up one with
    // an overriding masterwork price, and the monk's unarmed strike.
    static constexpr const char* kStatements[] = {
        "CREATE TABLE [info Weapons] (Guid TEXT, Name TEXT, CoinCount INTEGER, CoinType INTEGER,"
        " Weight REAL, Masterwork INTEGER, Count INTEGER, RangeId INTEGER, SkillId INTEGER,"
        " SizeId INTEGER, DmgDieCount1 INTEGER, DmgDieCount2 INTEGER, DmgDieId1 INTEGER,"
        " DmgDieId2 INTEGER, CriticalMin INTEGER, CriticalX INTEGER, CriticalX2 INTEGER,"
        " RangeInc INTEGER, DamageType INTEGER, WeaponUse INTEGER, StrBonus INTEGER,"
        " MaxStrBonus INTEGER, MagicBonus INTEGER, ActsAs TEXT, FamilyId INTEGER,"
        " SubdualDamage INTEGER, [2HandedMultiplier] INTEGER, MonkUnarmedWeapon INTEGER,"
        " GrenadeLike INTEGER, IsMagic INTEGER, CantBuy INTEGER)",
        "INSERT INTO [info Weapons] VALUES ('{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A101}', 'Longsword',"
        " 15, 2, 4.0, 1, 1, 0, 2, 4, 1, 0, 5, 0, 19, 2, 0, 0, 4, 1, 0, 0, 0, NULL, 3,"
        " 0, 1, 0, 0, 0, 0)",
        "INSERT INTO [info Weapons] VALUES ('{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A102}', 'Arrows',"
        " 1, 2, 3.0, 2, 20, 1, 2, 1, 1, 0, 4, 0, 0, 3, 0, 0, 2, 4, 2, 0, 0,"
        " '{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A105}', 7, 0, 0, 0, 0, 0, 1)",
        "INSERT INTO [info Weapons] VALUES ('{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A103}',"
        " 'Mithral blade', 15, 2, 2.0, 3, 1, 0, 2, 4, 1, 0, 5, 0, 19, 2, 0, 0, 4, 1, 0, 0, 1,"
        " NULL, 3, 0, 1, 0, 0, 1, 0)",
        "INSERT INTO [info Weapons] VALUES ('{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A104}',"
        " 'Unarmed strike', 0, 2, 0.0, 0, 1, 0, 1, 4, 1, 0, 3, 0, 0, 2, 0, 0, 1, 1, 0, 0, 0,"
        " NULL, 0, 1, 0, 2, 0, 0, 1)",
        "CREATE TABLE [info Masterwork Costs] (Id INTEGER, CoinCount INTEGER, CoinType INTEGER,"
        " Override INTEGER)",
        "INSERT INTO [info Masterwork Costs] VALUES (1, 300, 2, 0)",
        "INSERT INTO [info Masterwork Costs] VALUES (2, 6, 2, 0)",
        "INSERT INTO [info Masterwork Costs] VALUES (3, 150, 2, 1)",
        "CREATE TABLE [info Coin] (Id INTEGER, Name TEXT, ShortName TEXT, CopperEx REAL,"
        " SilverEx REAL, GoldEx REAL, PlatinumEx REAL)",
        "INSERT INTO [info Coin] VALUES (2, 'Gold', 'gp', 100, 10, 1, 0.1)",
        "CREATE TABLE [types Race Attack] (Id INTEGER, Name TEXT)",
        "INSERT INTO [types Race Attack] VALUES (3, 'Claw')",
        "CREATE TABLE [types Weapon Range] (Id INTEGER, Name TEXT)",
        "INSERT INTO [types Weapon Range] VALUES (0, 'Melee')",
        "INSERT INTO [types Weapon Range] VALUES (1, 'Ranged')",
        "CREATE TABLE [info Gem] (Guid TEXT, Name TEXT, CoinCount INTEGER, CoinType INTEGER)",
        "INSERT INTO [info Gem] VALUES ('{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A107}', 'Bloodstone',"
        " 50, 2)",
        "CREATE TABLE [info Wondrous Bonuses] (Id INTEGER, BonusType INTEGER, Bonus INTEGER,"
        " ModifyType INTEGER, SkillId TEXT, AbilityType INTEGER)",
        "INSERT INTO [info Wondrous Bonuses] VALUES (1, 4, 5, 0,"
        " '{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A106}', 0)",
        "INSERT INTO [info Wondrous Bonuses] VALUES (2, 9, 4, 2, NULL, 1)",
        "INSERT INTO [info Wondrous Bonuses] VALUES (3, 9, 2, 6, NULL, 3)",
        "INSERT INTO [info Wondrous Bonuses] VALUES (4, 6, 1, 1, NULL, 5)",
    };

    QTemporaryDir mDir;
    QString mPath;
    std::unique_ptr<odbc::Connection> mConnection;
    std::unique_ptr<odbc::Statement> mStatement;
};

} // namespace

TEST_F(ItemDatabase, MissingColumnsThrowAndTypeDecidesWhatIsRead) {
    DWeaponInfo weapon;
    EXPECT_THROW(weapon.SetData(rowOf("SELECT Guid, Name FROM [info Weapons]")),
                 odbc::SQLException);

    DSimpleItemInfo generic;
    EXPECT_NO_THROW(generic.SetData(rowOf("SELECT Guid, Name FROM [info Gem]")));
    EXPECT_EQ(generic.GetItemName(), QStringLiteral("Bloodstone"));
    EXPECT_EQ(generic.GetCost(), 0);

    DSimpleItemInfo gem(kItemGem);
    EXPECT_THROW(gem.SetData(rowOf("SELECT Guid, Name FROM [info Gem]")), odbc::SQLException);
    gem.SetData(rowOf("SELECT * FROM [info Gem]"));
    EXPECT_EQ(gem.GetCost(), 50);
    EXPECT_EQ(gem.GetCostCoinType(), 2);
    EXPECT_EQ(gem.GetWeight(), 0.0f);
}

TEST_F(ItemDatabase, MagicBonusTargetDependsOnModifyType) {
    struct Case {
        int id;
        qint32 bonusType, bonus, modifyType;
        QUuid target;
    } cases[] = {
        {1, 4, 5, 0, kClimb},
        {2, 9, 4, 2, QUuid(1u, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)},
        {3, 9, 2, 6, QUuid(3u, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)},
        // Armor class has no target: the row's ability column is not read.
        {4, 6, 1, 1, QUuid()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        const QByteArray sql =
            "SELECT * FROM [info Wondrous Bonuses] WHERE Id = " + QByteArray::number(c.id);
        DMagicBonus bonus;
        bonus.SetData(rowOf(sql.constData()));
        EXPECT_EQ(bonus.GetBonusType(), c.bonusType);
        EXPECT_EQ(bonus.GetBonus(), c.bonus);
        EXPECT_EQ(bonus.GetModifyType(), c.modifyType);
        EXPECT_EQ(bonus.GetTargetGuid(), c.target);
    }
}

// One test, as the rules database is process-wide: start, use, shut down.
TEST_F(ItemDatabase, SharedRecordsAndMasterworkPricesComeFromTheRulesDatabase) {
    mStatement.reset();
    mConnection.reset();
    ASSERT_TRUE(DDatabase::StartUp(mPath));

    auto* sword = FCDynamicCast<DWeaponInfo>(DDatabase::GetWeaponInfo(kLongsword));
    auto* arrows = FCDynamicCast<DWeaponInfo>(DDatabase::GetWeaponInfo(kArrows));
    auto* mithral = FCDynamicCast<DWeaponInfo>(DDatabase::GetWeaponInfo(kMithralBlade));
    ASSERT_TRUE(sword && arrows && mithral);

    // Masterwork: a longsword pays 300 gp more; each of 20 arrows 6 gp; the third row replaces
    // the price; no masterwork row leaves the price alone.
    EXPECT_EQ(sword->ComputeMasterWorkCost(15), 315);
    EXPECT_EQ(arrows->ComputeMasterWorkCost(1), 121);
    EXPECT_EQ(mithral->ComputeMasterWorkCost(15), 150);
    Ref<DWeaponInfo> noRow(sword->Clone());
    noRow->SetMasterWorkType(9);
    EXPECT_EQ(noRow->ComputeMasterWorkCost(15), 15);
    noRow->SetMasterWorkType(0);
    EXPECT_EQ(noRow->ComputeMasterWorkCost(15), 15);

    // Coins are named from the coin table; a coin type it lacks is "Unknown".
    DCoinItemInfo coins;
    coins.SetCost(12);
    coins.SetCostCoinType(kCoinGold);
    EXPECT_EQ(coins.GetDescription(), QStringLiteral("12 Gold"));
    coins.SetCostCoinType(kCoinPlatinum);
    EXPECT_EQ(coins.GetDescription(), QStringLiteral("12 Unknown"));

    DAttackInfo claws;
    claws.SetAttackTypeId(3);
    claws.SetOffenseCount(2);
    claws.SetRangeType(1);
    EXPECT_EQ(claws.GetAttackDescription(), QStringLiteral("2 Claw"));
    EXPECT_EQ(claws.GetAttackRangeDescription(), QStringLiteral("Ranged"));
    claws.SetOffenseCount(1);
    claws.SetRangeType(0);
    claws.SetAttackRangeIsTouch(true);
    EXPECT_EQ(claws.GetAttackDescription(), QStringLiteral("Claw"));
    EXPECT_EQ(claws.GetAttackRangeDescription(), QStringLiteral("Melee (touch)"));

    // Saved by GUID, the weapon reads back as the database's own record.
    DItem item;
    item.SetItemInfo(sword);
    item.SetCount(2);
    Ref<DItem> read = roundTrip(item);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->GetItemInfo(), sword);
    EXPECT_EQ(read->GetCount(), 2);

    // A resized copy is stored in full and stays private to the item.
    Ref<DWeaponInfo> small(sword->Clone());
    small->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    small->SetSizeType(3);
    item.SetItemInfo(small.get());
    read = roundTrip(item);
    ASSERT_TRUE(read);
    EXPECT_NE(read->GetItemInfo(), sword);
    EXPECT_NE(read->GetItemInfo(), small.get());
    expectSameInfo(small.get(), read->GetItemInfo(), false);
    EXPECT_EQ(sword->GetSizeType(), 4);

    // A magic weapon stores its magic part in full and names its unchanged base by GUID.
    Ref<DCustomMagicItemInfo> flaming(new DCustomMagicItemInfo);
    flaming->SetBaseItemInfo(sword);
    flaming->SetBonus(1);
    flaming->AddSpecialAbility(7, 1, 1, 1);
    item.SetItemInfo(flaming.get());
    read = roundTrip(item);
    ASSERT_TRUE(read);
    auto* readFlaming = FCDynamicCast<DCustomMagicItemInfo>(read->GetItemInfo());
    ASSERT_TRUE(readFlaming);
    EXPECT_NE(readFlaming, flaming.get());
    EXPECT_EQ(readFlaming->GetBaseItemInfo(), sword);
    expectSameInfo(flaming.get(), readFlaming, false);

    // A weapon the database does not know reads back as no info.
    Ref<DWeaponInfo> unknown(sword->Clone());
    unknown->SetItemGuid(QUuid(QStringLiteral("{5B1C8D1E-0A33-4F6E-9B7A-2C51D0E4A1FF}")));
    item.SetItemInfo(unknown.get());
    read = roundTrip(item);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->GetItemInfo(), nullptr);

    DDatabase::ShutDown();
}
