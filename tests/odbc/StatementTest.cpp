#include "Statement.h"

#include "ResultSet.h"
#include "SQLException.h"
#include "SqliteFixture.h"

namespace {

class StatementTest : public SqliteFixture {
protected:
    void SetUp() override {
        SqliteFixture::SetUp();
        exec("CREATE TABLE [types Dice] (Id INTEGER PRIMARY KEY, Name TEXT)");
        exec("INSERT INTO [types Dice] VALUES (4, 'd4'), (6, 'd6'), (8, 'd8')");
    }
};

TEST_F(StatementTest, BadStatementCarriesDriverText) {
    const struct {
        const char* sql;
        const char* driverText;
    } cases[] = {
        {"SELEC * FROM [types Dice]", "syntax error"},
        {"SELECT * FROM [types Die]", "no such table"},
        {"SELECT Sides FROM [types Dice]", "no such column"},
    };
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sql);
        try {
            statement->executeQuery(QString::fromUtf8(c.sql));
            ADD_FAILURE() << "no exception";
        } catch (const odbc::SQLException& e) {
            EXPECT_TRUE(e.getMessage().contains(QString::fromUtf8(c.driverText))) << e.what();
            EXPECT_STREQ(e.what(), e.getMessage().toUtf8().constData());
        }
    }
    // A failed statement stays usable.
    odbc::ResultSet* rs =
        statement->executeQuery(QStringLiteral("SELECT Name FROM [types Dice] WHERE Id = 6"));
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getString(1), QStringLiteral("d6"));
}

TEST_F(StatementTest, ExecuteReportsRowsAndUpdateCountsThem) {
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    EXPECT_EQ(statement->executeUpdate(QStringLiteral("UPDATE [types Dice] SET Name = "
                                                      "upper(Name) WHERE Id >= 6")),
              2);
    EXPECT_EQ(statement->executeUpdate(QStringLiteral("DELETE FROM [types Dice] WHERE Id = 20")),
              0);
    EXPECT_TRUE(statement->execute(QStringLiteral("SELECT * FROM [types Dice]")));
    EXPECT_FALSE(statement->execute(QStringLiteral("INSERT INTO [types Dice] VALUES (10, 'd10')")));

    odbc::ResultSet* rs = statement->executeQuery(
        QStringLiteral("SELECT COUNT(*) AS RecordCount FROM [types Dice] WHERE Name = 'D8'"));
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(QStringLiteral("RecordCount")), 1);
}

TEST_F(StatementTest, EachQueryReplacesTheLastResult) {
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    odbc::ResultSet* first =
        statement->executeQuery(QStringLiteral("SELECT Id FROM [types Dice] ORDER BY Id"));
    ASSERT_TRUE(first->next());
    EXPECT_EQ(first->getInt(1), 4);
    odbc::ResultSet* second = statement->executeQuery(
        QStringLiteral("SELECT Name, Id FROM [types Dice] ORDER BY Id DESC"));
    ASSERT_EQ(second->getColumnCount(), 2);
    ASSERT_TRUE(second->next());
    EXPECT_EQ(second->getString(1), QStringLiteral("d8"));
}

TEST_F(StatementTest, StatementOutlivingConnectionFailsCleanly) {
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    ASSERT_TRUE(statement->executeQuery(QStringLiteral("SELECT * FROM [types Dice]"))->next());
    mConnection.reset();
    EXPECT_THROW(statement->executeQuery(QStringLiteral("SELECT * FROM [types Dice]")),
                 odbc::SQLException);
}

TEST_F(StatementTest, RefusesUnsupportedKinds) {
    EXPECT_THROW(mConnection->createStatement(odbc::ResultSet::TYPE_FORWARD_ONLY, 1008),
                 odbc::SQLException);
    EXPECT_THROW(mConnection->createStatement(1005, odbc::ResultSet::CONCUR_READ_ONLY),
                 odbc::SQLException);
}

} // namespace
