// DDatabase keeps its maps in statics that load once per process; ctest runs every test in a
// process of its own, so each test below starts from a fresh library.
#include "DDatabase.h"

#include "DAlignmentInfo.h"
#include "DClassInfo.h"
#include "DFailureReporter.h"
#include "DSimpleInfo.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "TestSupport.h"

#include "Connection.h"
#include "DriverManager.h"
#include "ResultSet.h"
#include "Statement.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

QString rulesDatabase() {
    return hoardtest::builtDataDir() + "/rules.db";
}

// Counts rows with a connection of the test's own, independent of DDatabase.
int countRows(const QString& table) {
    std::unique_ptr<odbc::Connection> connection(
        odbc::DriverManager::getConnection(rulesDatabase()));
    std::unique_ptr<odbc::Statement> statement(connection->createStatement());
    odbc::ResultSet* rows = statement->executeQuery("SELECT COUNT(*) FROM " + table);
    return rows->next() ? rows->getInt(1) : -1;
}

class QuietReports : public ::testing::Test {
protected:
    void SetUp() override {
        DFailureReporter::SetQuiet(true);
        DFailureReporter::ResetReports();
    }
    void TearDown() override { DFailureReporter::SetQuiet(false); }
};

class PreloadedDatabase : public QuietReports {
protected:
    void SetUp() override {
        QuietReports::SetUp();
        ASSERT_TRUE(QFile::exists(rulesDatabase())) << "build the rules database first";
        ASSERT_TRUE(DDatabase::StartUp(FCString(rulesDatabase())));
        ASSERT_EQ(DFailureReporter::GetReportCount(), 0)
            << DFailureReporter::GetLastText().toStdString();
    }
    void TearDown() override {
        DDatabase::ShutDown();
        QuietReports::TearDown();
    }
};

} // namespace

TEST_F(QuietReports, BrokenDatabasesFailOnceAtStartUpAndLookUpNothing) {
    const QByteArray rules = hoardtest::readFile(rulesDatabase());
    ASSERT_GT(rules.size(), 4096);
    struct Case {
        const char* what;
        QByteArray bytes; // empty: no file at all
        const char* dropTable;
        const char* reason;
    };
    const Case cases[] = {
        {"missing", {}, nullptr, "unable to open"},
        {"not a database", QByteArray(2048, 'x'), nullptr, "[info Class]"},
        {"truncated", rules.left(rules.size() / 8), nullptr, "cannot be read"},
        {"wrong schema", rules, "[info Feat]", "[info Feat]"},
        {"no helper table", rules, "[types Weapon Range]", "[types Weapon Range]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QTemporaryDir dir;
        const QString path = dir.path() + "/rules.db";
        if (!c.bytes.isEmpty()) {
            ASSERT_TRUE(hoardtest::writeFile(path, c.bytes));
        }
        if (c.dropTable) {
            std::unique_ptr<odbc::Connection> connection(odbc::DriverManager::getConnection(path));
            std::unique_ptr<odbc::Statement> statement(connection->createStatement());
            statement->executeUpdate(QStringLiteral("DROP TABLE %1").arg(c.dropTable));
        }
        DFailureReporter::ResetReports();
        EXPECT_FALSE(DDatabase::StartUp(FCString(path)));
        EXPECT_EQ(DFailureReporter::GetReportCount(), 1);
        EXPECT_EQ(DFailureReporter::GetLastCaption(), "Connect failed.");
        EXPECT_TRUE(DFailureReporter::GetLastText().contains(c.reason))
            << qPrintable(DFailureReporter::GetLastText());
        EXPECT_EQ(QFile::exists(path), !c.bytes.isEmpty())
            << "a failed connect must not create a database";
        EXPECT_EQ(DDatabase::GetConnection(), nullptr);
        EXPECT_EQ(DDatabase::GetSizeInfo(1), nullptr);
        EXPECT_EQ(DDatabase::GetClassInfoA(DDatabase::kWizardClassGuid), nullptr);
        EXPECT_EQ(DDatabase::GetRecordCount(kTableClass), 0);
        EXPECT_TRUE(DDatabase::PickRandomGuidFromTable(kTableClass).isNull());
        // No connection means no query and so no further report.
        EXPECT_EQ(DFailureReporter::GetReportCount(), 1);
        DDatabase::ShutDown();
    }
}

TEST_F(PreloadedDatabase, EveryPreloadedMapHoldsEveryRowOfItsTable) {
    EXPECT_EQ(DDatabase::GetClassInfoMap().GetCount(), countRows("[info Class]"));
    EXPECT_EQ(DDatabase::GetAlignmentInfoMap().GetCount(), countRows("[info Alignment]"));
    EXPECT_EQ(DDatabase::GetSizeInfoMap().GetCount(), countRows("[info Size]"));
    EXPECT_EQ(DDatabase::GetSkillInfoMap().GetCount(), countRows("[info Skill]"));
    EXPECT_EQ(DDatabase::GetFeatInfoMap().GetCount(), countRows("[info Feat]"));
    EXPECT_EQ(DDatabase::GetSchoolInfoMap().GetCount(), countRows("[info Spell Schools]"));
    const int helperTables[] = {193, 194, 195, 196, 27, 201, 203, 188};
    for (int helper = 0; helper < DDatabase::kHelperCount; ++helper)
        EXPECT_EQ(DDatabase::GetHelperInfoMap(helper).GetCount(),
                  countRows(DDatabase::GetTableName(helperTables[helper])))
            << "helper " << helper;
    EXPECT_GT(DDatabase::GetClassInfoMap().GetCount(), 10);
    EXPECT_EQ(DDatabase::GetSizeInfoMap().GetCount(), 9) << "Fine to Colossal";
}

TEST_F(PreloadedDatabase, LookUpsAnswerFromMemoryAndMissesAreNull) {
    const DClassInfo* wizard = DDatabase::GetClassInfoA(DDatabase::kWizardClassGuid);
    ASSERT_NE(wizard, nullptr);
    EXPECT_EQ(wizard->mName, "Wizard");
    EXPECT_EQ(DDatabase::GetHelperInfo(0, 999999), nullptr);
    EXPECT_EQ(DDatabase::GetHelperInfo(8, 1), nullptr);
    EXPECT_EQ(DDatabase::GetAlignmentInfo(-5), nullptr);

    // A kind other than familiar, mount or fiendish is refused without a query.
    DFailureReporter::ResetReports();
    EXPECT_FALSE(DDatabase::GetFamiliarMountInfo(5, 3, nullptr));
    EXPECT_TRUE(DDatabase::GetFamiliarMountInfo(5, 0, nullptr)) << "a level-5 familiar row";

    const int weaponsBefore = DDatabase::GetWeaponInfoMap().GetCount();
    EXPECT_EQ(DDatabase::GetWeaponInfo(QUuid::createUuid()), nullptr);
    EXPECT_EQ(DDatabase::GetWeaponInfoMap().GetCount(), weaponsBefore);
    EXPECT_EQ(DDatabase::GetSpellSchool(QUuid::createUuid()), -1);
    EXPECT_EQ(DFailureReporter::GetReportCount(), 0) << "a missing row is no failure";
}

TEST_F(PreloadedDatabase, FailedQueryReportsOnceAndGivesTheNeutralResult) {
    // An index past the registry names no table, so the statement itself is bad.
    EXPECT_EQ(DDatabase::GetRecordCount(kTableCount), 0);
    EXPECT_EQ(DFailureReporter::GetReportCount(), 1);
    EXPECT_EQ(DFailureReporter::GetLastCaption(), "Query failed");
    EXPECT_FALSE(DFailureReporter::GetLastText().isEmpty()) << "the driver's text is shown";
    EXPECT_EQ(DDatabase::ProbeRecordCount(kTableCount), -1);
    EXPECT_EQ(DFailureReporter::GetReportCount(), 1) << "probing reports nothing";
}

TEST_F(PreloadedDatabase, EveryStatementTextRunsAgainstTheBuiltSchema) {
    std::unique_ptr<odbc::Connection> connection(
        odbc::DriverManager::getConnection(rulesDatabase()));
    for (const QString& sql : DDatabase::GetStatementSamples()) {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        try {
            statement->executeQuery(sql);
        } catch (const std::exception& error) {
            ADD_FAILURE() << sql.toStdString() << "\n  " << error.what();
        }
    }
    for (auto* prepared :
         {DDatabase::GetSpellsForClassLevelStmt(), DDatabase::GetSpellsForClassStmt(),
          DDatabase::GetSpellsDetailedForClassLevelStmt(),
          DDatabase::GetSpellsDetailedForDomainLevelStmt(), DDatabase::GetSpellInfoStmt()})
        EXPECT_NE(prepared, nullptr);
    EXPECT_EQ(DFailureReporter::GetReportCount(), 0)
        << DFailureReporter::GetLastText().toStdString();
}

TEST_F(PreloadedDatabase, RandomGuidComesFromTheTable) {
    for (int draw = 0; draw < 20; ++draw) {
        const QUuid guid = DDatabase::PickRandomGuidFromTable(kTableClass);
        ASSERT_FALSE(guid.isNull());
        EXPECT_NE(DDatabase::GetClassInfoA(guid), nullptr);
    }
}

TEST_F(PreloadedDatabase, ColumnGuidsAreReadPerConnection) {
    QUuid hide, swim;
    for (const auto& [guid, info] : DDatabase::GetSkillInfoMap()) {
        const QString name = static_cast<const DSkillInfo*>(info)->GetSkillName();
        if (name == "Hide")
            hide = guid;
        else if (name == "Swim")
            swim = guid;
    }
    ASSERT_FALSE(hide.isNull());
    ASSERT_FALSE(swim.isNull());
    // Size changes Hide and no other skill.
    EXPECT_TRUE(DDatabase::ColumnHoldsGuid(kTableSkillBonusesSize, "SkillId", hide));
    EXPECT_FALSE(DDatabase::ColumnHoldsGuid(kTableSkillBonusesSize, "SkillId", swim));

    // A database without those rows, opened after this one, must not answer from the old one.
    QTemporaryDir dir;
    const QString copy = dir.path() + "/rules.db";
    ASSERT_TRUE(QFile::copy(rulesDatabase(), copy));
    DDatabase::ShutDown();
    ASSERT_TRUE(DDatabase::StartUp(FCString(copy)));
    std::unique_ptr<odbc::Statement> statement(DDatabase::GetConnection()->createStatement());
    statement->executeUpdate(
        QStringLiteral("DELETE FROM %1").arg(DDatabase::GetTableName(kTableSkillBonusesSize)));
    EXPECT_FALSE(DDatabase::ColumnHoldsGuid(kTableSkillBonusesSize, "SkillId", hide));
}
