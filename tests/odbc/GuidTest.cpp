#include "Guid.h"

#include "PreparedStatement.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "SqliteFixture.h"
#include "Statement.h"

#include <QUuid>

namespace {

TEST(GuidTextTest, BracedUpperCaseWithAndWithoutQuotes) {
    const struct {
        QUuid guid;
        const char* text;
    } cases[] = {
        {QUuid(QStringLiteral("{2f44209f-da52-4037-83bb-7ddfd24d4ce1}")),
         "{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}"},
        {QUuid(0x46FBFE80, 0xC7CE, 0x4BEA, 0xB2, 0x11, 0xCE, 0x66, 0x8C, 0x73, 0xED, 0x38),
         "{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}"},
        {QUuid(), "{00000000-0000-0000-0000-000000000000}"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const QString text = QString::fromUtf8(c.text);
        EXPECT_EQ(odbc::guidText(c.guid), text);
        EXPECT_EQ(odbc::toStringODBC(c.guid), QLatin1Char('\'') + text + QLatin1Char('\''));
    }
}

class GuidColumnTest : public SqliteFixture {};

TEST_F(GuidColumnTest, ReadsEveryStoredForm) {
    exec("CREATE TABLE [info Feat] (Id INTEGER, Guid)");
    exec("INSERT INTO [info Feat] VALUES "
         "(1, '{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}'), "
         "(2, '{2f44209f-da52-4037-83bb-7ddfd24d4ce1}'), "
         "(3, '2F44209F-DA52-4037-83BB-7DDFD24D4CE1'), "
         "(4, X'2F44209FDA52403783BB7DDFD24D4CE1'), "
         "(5, '{00000000-0000-0000-0000-000000000000}'), "
         "(6, ''), "
         "(7, NULL)");
    const QUuid feat(QStringLiteral("{2F44209F-DA52-4037-83BB-7DDFD24D4CE1}"));
    const struct {
        int id;
        QUuid expected;
        bool null;
    } cases[] = {{1, feat, false},    {2, feat, false},    {3, feat, false},  {4, feat, false},
                 {5, QUuid(), false}, {6, QUuid(), false}, {7, QUuid(), true}};
    std::unique_ptr<odbc::PreparedStatement> statement(
        mConnection->prepareStatement(QStringLiteral("SELECT Guid FROM [info Feat] WHERE Id = ?")));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        statement->setInt(1, c.id);
        odbc::ResultSet* rs = statement->executeQuery();
        ASSERT_TRUE(rs->next());
        EXPECT_EQ(rs->getGUID(1), c.expected);
        EXPECT_EQ(rs->wasNull(), c.null);
    }
}

TEST_F(GuidColumnTest, TextThatIsNoGuidThrows) {
    exec("CREATE TABLE [info Feat] (Guid TEXT)");
    exec("INSERT INTO [info Feat] VALUES ('Power Attack')");
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    odbc::ResultSet* rs = statement->executeQuery(QStringLiteral("SELECT Guid FROM [info Feat]"));
    ASSERT_TRUE(rs->next());
    EXPECT_THROW(rs->getGUID(QStringLiteral("Guid")), odbc::SQLException);
}

TEST_F(GuidColumnTest, LiteralInStatementTextFindsStoredRow) {
    exec("CREATE TABLE [info Class] (Guid TEXT, Name TEXT)");
    exec("INSERT INTO [info Class] VALUES ('{DC103390-3378-411F-9A3A-CAB0CFD00B68}', 'Wizard'), "
         "('{46FBFE80-C7CE-4BEA-B211-CE668C73ED38}', 'Sorcerer')");
    const QUuid wizard(QStringLiteral("{dc103390-3378-411f-9a3a-cab0cfd00b68}"));
    std::unique_ptr<odbc::Statement> statement(mConnection->createStatement());
    odbc::ResultSet* rs = statement->executeQuery(
        QStringLiteral("SELECT * FROM %1 WHERE (Guid=%2)")
            .arg(QStringLiteral("[info Class]"), odbc::toStringODBC(wizard)));
    ASSERT_TRUE(rs->next());
    EXPECT_EQ(rs->getString(QStringLiteral("Name")), QStringLiteral("Wizard"));
    EXPECT_EQ(rs->getGUID(QStringLiteral("guid")), wizard);
    EXPECT_FALSE(rs->next());
}

} // namespace
