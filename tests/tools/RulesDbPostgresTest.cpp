// The PostgreSQL loader: faults of the connection text, and, when HOARD_TEST_PG names a server
// ("host=... port=... dbname=... user=..."), the project's rules loaded there and read back.
#include "RulesDbRun.h"

#include <QFileInfo>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <gtest/gtest.h>

namespace {

// Built on request only, beside the SQLite tool.
QString loaderPath() {
    return QFileInfo(QStringLiteral(HOARD_RULESDB_TOOL)).absolutePath() +
           QStringLiteral("/hoard-rulesdb-pg");
}

struct LoaderRun {
    int exitCode = -1;
    QString errorText;
};

LoaderRun runLoader(const QString& connection) {
    QProcess process;
    process.start(loaderPath(), {RulesDbRun::projectSources(), connection});
    LoaderRun result;
    if (!process.waitForFinished(300000))
        return result;
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.errorText = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return result;
}

class RulesDbPostgresTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!QFileInfo::exists(loaderPath()))
            GTEST_SKIP() << "hoard-rulesdb-pg is not built";
    }
};

TEST_F(RulesDbPostgresTest, RejectsABadConnectionTextBeforeConnecting) {
    const struct {
        const char* connection;
        const char* message;
    } cases[] = {
        {"host=/tmp nonsense", "connection:0: 'nonsense' is not key=value"},
        {"host=/tmp port=five dbname=x", "connection:0: port 'five' is not a number"},
        {"host=/tmp user=me", "connection:0: no dbname= in the connection text"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.connection);
        const LoaderRun run = runLoader(QString::fromLatin1(c.connection));
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errorText.toStdString(), c.message);
    }
}

TEST_F(RulesDbPostgresTest, LoadsTheRulesAndLoadsThemAgain) {
    const QString connection = qEnvironmentVariable("HOARD_TEST_PG");
    if (connection.isEmpty())
        GTEST_SKIP() << "HOARD_TEST_PG names no server";
    // Twice: the second load replaces the first's tables.
    for (int load = 0; load < 2; ++load) {
        const LoaderRun run = runLoader(connection);
        ASSERT_EQ(run.exitCode, 0) << run.errorText.toStdString();
    }

    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), QStringLiteral("pg"));
    for (const QString& word : connection.split(u' ', Qt::SkipEmptyParts)) {
        const QString key = word.section(u'=', 0, 0);
        const QString value = word.section(u'=', 1);
        if (key == QLatin1String("host"))
            db.setHostName(value);
        else if (key == QLatin1String("port"))
            db.setPort(value.toInt());
        else if (key == QLatin1String("dbname"))
            db.setDatabaseName(value);
        else if (key == QLatin1String("user"))
            db.setUserName(value);
    }
    ASSERT_TRUE(db.open());
    const struct {
        const char* statement;
        const char* expected;
    } checks[] = {
        // the registry's 212 tables and the one rows name
        {"SELECT COUNT(*) FROM information_schema.tables WHERE table_schema = 'public' AND "
         "table_name IN (SELECT table_name FROM information_schema.columns)",
         "213"},
        {"SELECT coincount FROM \"info weapons\" WHERE name = 'Longsword'", "15"},
        // mixed-case column names read as on the other engines
        {"SELECT ArmorBonus FROM \"info armor\" WHERE Name = 'Full plate'", "8"},
        {"SELECT capmod FROM \"info size\" WHERE id = 5", "2"},
        {"SELECT guid FROM \"info class\" WHERE name = 'Wizard'",
         "{DC103390-3378-411F-9A3A-CAB0CFD00B68}"},
        {"SELECT COUNT(*) FROM pg_indexes WHERE indexname = 'ix spell level class'", "1"},
    };
    for (const auto& check : checks) {
        SCOPED_TRACE(check.statement);
        QSqlQuery query(QString::fromLatin1(check.statement), db);
        ASSERT_TRUE(query.next());
        EXPECT_EQ(query.value(0).toString().toStdString(), check.expected);
    }
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("pg"));
}

} // namespace
