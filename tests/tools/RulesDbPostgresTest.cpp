// The PostgreSQL path: faults of the loader's connection text, and, on the server HOARD_TEST_PG
// names ("host=... port=... dbname=... user=..."; `./hoard test` starts a throwaway one), the
// project's rules loaded there, read back, and a character built against them.
#include "RulesDbRun.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct ProgramRun {
    int exitCode = -1;
    QString out;
    QString err;
};

ProgramRun runProgram(const QString& program, const QStringList& args) {
    QProcess process;
    process.start(program, args);
    ProgramRun result;
    if (!process.waitForFinished(300000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return result;
}

ProgramRun runLoader(const QString& connection) {
    return runProgram(QStringLiteral(HOARD_RULESDB_PG_TOOL),
                      {RulesDbRun::projectSources(), connection});
}

// The key=value words of a connection text, in a QPSQL connection.
void configure(QSqlDatabase& db, const QString& connection) {
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
}

QString valueOf(const QString& connection, const QString& key) {
    for (const QString& word : connection.split(u' ', Qt::SkipEmptyParts))
        if (word.section(u'=', 0, 0) == key)
            return word.section(u'=', 1);
    return {};
}

TEST(RulesDbPostgresTest, RejectsABadConnectionTextBeforeConnecting) {
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
        const ProgramRun run = runLoader(QString::fromLatin1(c.connection));
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.err.toStdString(), c.message);
    }
}

// Each test has a database of its own on the server, as the tests run side by side; it is
// dropped at the end.
class RulesDbPostgresServerTest : public ::testing::Test {
protected:
    void SetUp() override {
        mServer = qEnvironmentVariable("HOARD_TEST_PG");
        if (mServer.isEmpty()) {
            const QString why = qEnvironmentVariable("HOARD_TEST_PG_SKIP");
            GTEST_SKIP() << (why.isEmpty() ? "HOARD_TEST_PG names no server (./hoard test "
                                             "starts one)"
                                           : why.toStdString());
        }
        mName = QStringLiteral("hoard_test_%1").arg(QCoreApplication::applicationPid());
        ASSERT_TRUE(admin(QStringLiteral("DROP DATABASE IF EXISTS %1").arg(mName)));
        ASSERT_TRUE(admin(QStringLiteral("CREATE DATABASE %1").arg(mName)));
        mCreated = true;
    }

    void TearDown() override {
        if (mCreated) {
            QSqlDatabase::removeDatabase(mName);
            EXPECT_TRUE(admin(QStringLiteral("DROP DATABASE %1").arg(mName)));
        }
    }

    // The loader's connection text for this test's database.
    QString connection() const {
        QString text;
        for (const QString& word : mServer.split(u' ', Qt::SkipEmptyParts))
            if (word.section(u'=', 0, 0) != QLatin1String("dbname"))
                text += word + u' ';
        return text + QLatin1String("dbname=") + mName;
    }

    // The same database as the programs' --db address.
    QString address() const {
        const QString port = valueOf(mServer, QStringLiteral("port"));
        return QStringLiteral("postgresql://%1@%2%3/%4")
            .arg(valueOf(mServer, QStringLiteral("user")), valueOf(mServer, QStringLiteral("host")),
                 port.isEmpty() ? QString() : u':' + port, mName);
    }

    QSqlDatabase open() const {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), mName);
        configure(db, connection());
        return db;
    }

private:
    // Runs one statement on the server's own database, outside this test's.
    bool admin(const QString& statement) const {
        const QString name = mName + QLatin1String("_admin");
        bool done = false;
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
            configure(db, mServer);
            if (db.open()) {
                QSqlQuery query(db);
                done = query.exec(statement);
            }
        }
        QSqlDatabase::removeDatabase(name);
        return done;
    }

    QString mServer;
    QString mName;
    bool mCreated = false;
};

TEST_F(RulesDbPostgresServerTest, LoadsTheRulesAndLoadsThemAgain) {
    // Twice: the second load replaces the first's tables.
    for (int load = 0; load < 2; ++load) {
        const ProgramRun run = runLoader(connection());
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    }

    QSqlDatabase db = open();
    ASSERT_TRUE(db.open());
    const struct {
        const char* statement;
        const char* expected;
    } checks[] = {
        // the registry's 212 tables, the one rows name and the two companion tables
        {"SELECT COUNT(*) FROM information_schema.tables WHERE table_schema = 'public' AND "
         "table_name IN (SELECT table_name FROM information_schema.columns)",
         "215"},
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
}

// A character made, taught, levelled and shown against the PostgreSQL rules reads exactly as
// the same steps against the built SQLite rules: every rule the steps look up comes through
// the other engine's names, types and quoting.
TEST_F(RulesDbPostgresServerTest, BuildsTheSameCharacterAsTheSqliteRules) {
    const ProgramRun load = runLoader(connection());
    ASSERT_EQ(load.exitCode, 0) << load.err.toStdString();

    const QString file = QStringLiteral("%1/Mialee.chr");
    const QList<QStringList> steps = {
        {"character", "new", "--name", "Mialee", "--race", "Elf", "--class", "Wizard", "--level",
         "3", "-o", file},
        {"character", "set-ability", file, "INT", "16"},
        {"character", "set-ability", file, "WIS", "14"},
        {"character", "add-spell", file, "Magic Missile"},
        {"character", "prepare", file, "Magic Missile", "--count", "2"},
        {"character", "add-feat", file, "Spell Focus", "--target", "Evocation"},
        {"character", "add-skill", file, "Concentration", "3"},
        {"character", "level-up", file, "--class", "Cleric"},
        {"character", "prepare", file, "Bless", "--class", "Cleric"},
        {"statblock", file},
        {"--json", "character", "show", file},
    };
    QTemporaryDir sqliteUser;
    QTemporaryDir postgresUser;
    ASSERT_TRUE(sqliteUser.isValid() && postgresUser.isValid());
    for (const QStringList& step : steps) {
        SCOPED_TRACE(step.join(u' ').toStdString());
        const auto run = [&step](const QTemporaryDir& user, const QStringList& db) {
            QStringList args = db + QStringList{"--seed", "7", "--user", user.path()};
            for (const QString& word : step)
                args << (word == QLatin1String("%1/Mialee.chr") ? word.arg(user.path()) : word);
            ProgramRun result = runProgram(QStringLiteral(HOARD_CLI), args);
            result.out.replace(user.path(), QLatin1String("USER"));
            return result;
        };
        const ProgramRun expected = run(sqliteUser, {});
        const ProgramRun actual = run(postgresUser, {"--db", address()});
        ASSERT_EQ(expected.exitCode, 0) << expected.err.toStdString();
        EXPECT_EQ(actual.exitCode, 0) << actual.err.toStdString();
        EXPECT_EQ(actual.err.toStdString(), expected.err.toStdString());
        EXPECT_EQ(actual.out.toStdString(), expected.out.toStdString());
    }
}

} // namespace
