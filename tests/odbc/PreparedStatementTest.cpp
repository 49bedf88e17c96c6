#include "PreparedStatement.h"

#include "ResultSet.h"
#include "SQLException.h"
#include "SqliteFixture.h"

#include <QUuid>

namespace {

class PreparedStatementTest : public SqliteFixture {
protected:
    void SetUp() override {
        SqliteFixture::SetUp();
        exec("CREATE TABLE [info Spell Level] (Id TEXT, ClassId TEXT, Level INTEGER)");
        exec("CREATE TABLE [info Spell] (Guid TEXT, Name TEXT)");
        exec("INSERT INTO [info Spell] VALUES ('{00000000-0000-0000-0000-0000000000A1}', 'Light'), "
             "('{00000000-0000-0000-0000-0000000000A2}', 'Sleep'), "
             "('{00000000-0000-0000-0000-0000000000A3}', 'Fireball')");
        exec("INSERT INTO [info Spell Level] VALUES "
             "('{00000000-0000-0000-0000-0000000000A1}', '{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}', "
             "0), "
             "('{00000000-0000-0000-0000-0000000000A2}', '{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}', "
             "1), "
             "('{00000000-0000-0000-0000-0000000000A3}', '{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}', "
             "3), "
             "('{00000000-0000-0000-0000-0000000000A1}', '{DC103390-3378-411F-9A3A-CAB0CFD00B68}', "
             "0)");
    }
};

// The join and bracket use of the spell-list queries, run with one statement and new bindings.
TEST_F(PreparedStatementTest, RebindsAndReexecutes) {
    std::unique_ptr<odbc::PreparedStatement> statement(mConnection->prepareStatement(
        QStringLiteral("SELECT [Guid], Name, [info Spell Level].Level FROM [info Spell] "
                       "INNER JOIN [info Spell Level] ON [info Spell].[Guid] = [info Spell "
                       "Level].[Id] WHERE ([info Spell Level].[ClassId] = ?) AND ([info Spell "
                       "Level].[Level] = ?)")));
    // Lower-case input must still match the stored upper-case text.
    const QUuid sorcerer(QStringLiteral("{46fbfe80-c7ce-4bea-b211-ce668c73ed38}"));
    const QUuid wizard(QStringLiteral("{dc103390-3378-411f-9a3a-cab0cfd00b68}"));
    const struct {
        QUuid classId;
        int level;
        const char* name; // nullptr: no row
    } cases[] = {{sorcerer, 3, "Fireball"}, {sorcerer, 1, "Sleep"}, {wizard, 0, "Light"},
                 {wizard, 1, nullptr},      {sorcerer, 0, "Light"}, {sorcerer, 2, nullptr}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.level);
        statement->setGUID(1, c.classId);
        statement->setInt(2, c.level);
        odbc::ResultSet* rs = statement->executeQuery();
        ASSERT_NE(rs, nullptr);
        if (!c.name) {
            EXPECT_FALSE(rs->next());
            continue;
        }
        ASSERT_TRUE(rs->next());
        EXPECT_EQ(rs->getString(QStringLiteral("Name")), QString::fromUtf8(c.name));
        EXPECT_EQ(rs->getInt(QStringLiteral("Level")), c.level);
        EXPECT_FALSE(rs->next());
    }
}

TEST_F(PreparedStatementTest, BindingsHoldUntilSetAgain) {
    std::unique_ptr<odbc::PreparedStatement> statement(mConnection->prepareStatement(QStringLiteral(
        "SELECT COUNT(*) FROM [info Spell Level] WHERE ClassId = ? AND Level >= ?")));
    statement->setGUID(1, QUuid(QStringLiteral("{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}")));
    statement->setInt(2, 1);
    odbc::ResultSet* rs = statement->executeQuery();
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(1), 2);
    statement->setInt(2, 0);
    rs = statement->executeQuery();
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getInt(1), 3);
}

TEST_F(PreparedStatementTest, WritesEveryBoundType) {
    exec("CREATE TABLE [info Goods] (Guid TEXT, Name TEXT, Cost INTEGER, Big INTEGER, "
         "Flag INTEGER)");
    std::unique_ptr<odbc::PreparedStatement> insert(mConnection->prepareStatement(
        QStringLiteral("INSERT INTO [info Goods] VALUES (?, ?, ?, ?, ?)")));
    const QUuid rope(QStringLiteral("{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}"));
    insert->setGUID(1, rope);
    insert->setString(2, QStringLiteral("Rope, hempen (50 ft.)"));
    insert->setInt(3, -7);
    insert->setLong(4, Q_INT64_C(-6000000000));
    insert->setBoolean(5, true);
    EXPECT_EQ(insert->executeUpdate(), 1);

    std::unique_ptr<odbc::Statement> select(mConnection->createStatement());
    odbc::ResultSet* rs = select->executeQuery(QStringLiteral("SELECT * FROM [info Goods]"));
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getString(QStringLiteral("Guid")),
              QStringLiteral("{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}"));
    EXPECT_EQ(rs->getGUID(QStringLiteral("Guid")), rope);
    EXPECT_EQ(rs->getString(QStringLiteral("Name")), QStringLiteral("Rope, hempen (50 ft.)"));
    EXPECT_EQ(rs->getInt(QStringLiteral("Cost")), -7);
    EXPECT_EQ(rs->getLong(QStringLiteral("Big")), Q_INT64_C(-6000000000));
    EXPECT_TRUE(rs->getBoolean(QStringLiteral("Flag")));
    EXPECT_FALSE(rs->next());
}

TEST_F(PreparedStatementTest, BadTextThrowsOnPrepare) {
    EXPECT_THROW(
        mConnection->prepareStatement(QStringLiteral("SELECT * FROM [no such] WHERE Id = ?")),
        odbc::SQLException);
}

// Only real placeholders count: question marks in literals, quoted names and comments do not.
TEST_F(PreparedStatementTest, BindingBeyondLastPlaceholderThrows) {
    const struct {
        const char* sql;
        int placeholders;
    } cases[] = {
        {"SELECT Name FROM [info Spell]", 0},
        {"SELECT Name FROM [info Spell] WHERE Guid = ?", 1},
        {"SELECT Name FROM [info Spell] WHERE Name = '?' AND Guid = ?", 1},
        {"SELECT Name FROM [info Spell] WHERE Name = 'it''s?' AND Guid = ? AND Name <> ?", 2},
        {"SELECT Name AS [why?], \"Guid\" AS \"how?\" FROM [info Spell] WHERE Guid = ?", 1},
        {"SELECT Name FROM [info Spell] -- which?\nWHERE Guid = ?", 1},
        {"SELECT Name /* ? */ FROM [info Spell] WHERE Guid = ? OR Name = ?", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sql);
        std::unique_ptr<odbc::PreparedStatement> statement(
            mConnection->prepareStatement(QString::fromUtf8(c.sql)));
        for (int index = 1; index <= c.placeholders; ++index)
            statement->setString(index, QStringLiteral("Sleep"));
        EXPECT_NO_THROW(statement->executeQuery());
        EXPECT_THROW(statement->setInt(c.placeholders + 1, 1), odbc::SQLException);
        EXPECT_THROW(statement->setInt(0, 1), odbc::SQLException);
    }
}

} // namespace
