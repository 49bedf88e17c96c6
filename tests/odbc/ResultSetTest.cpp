#include "ResultSet.h"

#include "SQLException.h"
#include "SqliteFixture.h"
#include "Statement.h"

#include <QUuid>

#include <functional>

namespace {

class ResultSetTest : public SqliteFixture {
protected:
    void SetUp() override {
        SqliteFixture::SetUp();
        exec("CREATE TABLE [info Coin] (Id INTEGER, Name TEXT, Guid TEXT, [Base Value] REAL, "
             "Big INTEGER, Flag INTEGER)");
        exec("INSERT INTO [info Coin] VALUES (1, 'Copper piece', "
             "'{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}', 0.25, 5000000000, -1)");
        exec("INSERT INTO [info Coin] VALUES (2, 'Silver piece', "
             "'{8A3C1B2D-0000-4000-8000-00000000000A}', 1.5, 7, 0)");
        exec("INSERT INTO [info Coin] VALUES (3, NULL, NULL, NULL, NULL, NULL)");
        mStatement.reset(mConnection->createStatement());
    }

    void TearDown() override { mStatement.reset(); }

    odbc::ResultSet* selectAll() {
        return mStatement->executeQuery(QStringLiteral("SELECT * FROM [info Coin] ORDER BY [Id]"));
    }

    std::unique_ptr<odbc::Statement> mStatement;
};

TEST_F(ResultSetTest, ReadsBracketedTableByNameAndIndex) {
    odbc::ResultSet* rs = selectAll();
    ASSERT_NE(rs, nullptr);
    ASSERT_EQ(rs->getColumnCount(), 6);
    EXPECT_EQ(rs->getColumnName(4), QStringLiteral("Base Value"));

    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(1), 1);
    EXPECT_EQ(rs->getString(QStringLiteral("Name")), QStringLiteral("Copper piece"));
    EXPECT_EQ(rs->getString(2), QStringLiteral("Copper piece"));
    EXPECT_FLOAT_EQ(rs->getFloat(QStringLiteral("Base Value")), 0.25f);
    EXPECT_DOUBLE_EQ(rs->getDouble(4), 0.25);
    // Larger than any 32-bit int: must come through getLong whole.
    EXPECT_EQ(rs->getLong(QStringLiteral("Big")), Q_INT64_C(5000000000));
    // Access stores true as -1.
    EXPECT_TRUE(rs->getBoolean(QStringLiteral("Flag")));
    EXPECT_FALSE(rs->wasNull());

    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(QStringLiteral("Id")), 2);
    EXPECT_DOUBLE_EQ(rs->getDouble(QStringLiteral("Base Value")), 1.5);
    EXPECT_FALSE(rs->getBoolean(QStringLiteral("Flag")));

    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(1), 3);
    EXPECT_FALSE(rs->next());
}

TEST_F(ResultSetTest, NullReadsAsZeroEmptyFalseAndNullGuid) {
    struct Case {
        const char* what;
        std::function<bool(odbc::ResultSet&)> readsAsEmpty;
    };
    const Case cases[] = {
        {"getInt", [](odbc::ResultSet& rs) { return rs.getInt(QStringLiteral("Big")) == 0; }},
        {"getLong", [](odbc::ResultSet& rs) { return rs.getLong(QStringLiteral("Big")) == 0; }},
        {"getString",
         [](odbc::ResultSet& rs) { return rs.getString(QStringLiteral("Name")).isEmpty(); }},
        {"getBoolean", [](odbc::ResultSet& rs) { return !rs.getBoolean(QStringLiteral("Flag")); }},
        {"getFloat",
         [](odbc::ResultSet& rs) { return rs.getFloat(QStringLiteral("Base Value")) == 0.0f; }},
        {"getDouble",
         [](odbc::ResultSet& rs) { return rs.getDouble(QStringLiteral("Base Value")) == 0.0; }},
        {"getGUID",
         [](odbc::ResultSet& rs) { return rs.getGUID(QStringLiteral("Guid")).isNull(); }},
    };
    odbc::ResultSet* rs =
        mStatement->executeQuery(QStringLiteral("SELECT * FROM [info Coin] WHERE Id = 3"));
    ASSERT_TRUE(rs->next());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        // A non-null read first, so that wasNull has to change.
        EXPECT_EQ(rs->getInt(QStringLiteral("Id")), 3);
        EXPECT_FALSE(rs->wasNull());
        EXPECT_TRUE(c.readsAsEmpty(*rs));
        EXPECT_TRUE(rs->wasNull());
    }
}

TEST_F(ResultSetTest, FindColumnIgnoresCaseAndNamesMissingColumn) {
    odbc::ResultSet* rs = selectAll();
    const struct {
        const char* name;
        int column;
    } cases[] = {{"Id", 1}, {"id", 1}, {"ID", 1}, {"gUiD", 3}, {"base value", 4}, {"FLAG", 6}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(rs->findColumn(QString::fromUtf8(c.name)), c.column);
    }

    try {
        rs->findColumn(QStringLiteral("HelpText"));
        FAIL() << "a missing column was found";
    } catch (const odbc::SQLException& e) {
        EXPECT_TRUE(e.getMessage().contains(QStringLiteral("HelpText"))) << e.what();
    }
    ASSERT_TRUE(rs->next());
    EXPECT_THROW(rs->getInt(QStringLiteral("HelpText")), odbc::SQLException);
    EXPECT_THROW(rs->getInt(0), odbc::SQLException);
    EXPECT_THROW(rs->getInt(7), odbc::SQLException);
}

TEST_F(ResultSetTest, ReadingBeforeFirstRowThrows) {
    odbc::ResultSet* rs = selectAll();
    EXPECT_THROW(rs->getInt(1), odbc::SQLException);
}

TEST_F(ResultSetTest, AbsoluteMovesBothWaysOnScrollableStatement) {
    std::unique_ptr<odbc::Statement> scrolling(mConnection->createStatement(
        odbc::ResultSet::TYPE_SCROLL_INSENSITIVE, odbc::ResultSet::CONCUR_READ_ONLY));
    odbc::ResultSet* rs =
        scrolling->executeQuery(QStringLiteral("SELECT Id FROM [info Coin] ORDER BY Id DESC"));
    // Rows in order: 3, 2, 1.
    const struct {
        int row;
        bool found;
        int id;
    } moves[] = {{2, true, 2},  {3, true, 1},  {1, true, 3}, {-1, true, 1},
                 {-3, true, 3}, {4, false, 0}, {2, true, 2}, {0, false, 0}};
    for (const auto& m : moves) {
        SCOPED_TRACE(m.row);
        ASSERT_EQ(rs->absolute(m.row), m.found);
        if (m.found) {
            EXPECT_EQ(rs->getInt(1), m.id);
        }
    }
    // After absolute(0) the cursor is before the first row.
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(1), 3);
}

TEST_F(ResultSetTest, AbsoluteRefusedOnForwardOnlyStatement) {
    odbc::ResultSet* rs = selectAll();
    EXPECT_THROW(rs->absolute(1), odbc::SQLException);
}

} // namespace
