#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace clitest {

struct CliRun {
    int status = -1; // -1 when the program crashed or did not end in time
    QString out;
    QString err;
};

// Runs the built `hoard` with `args` (and `--user userDir` when one is given). A run that does
// not end within `timeoutMs` is killed: a hang fails the test instead of stalling the suite.
CliRun runHoard(const QStringList& args, const QString& userDir = QString(), int timeoutMs = 60000);

QJsonObject jsonObject(const CliRun& run);

// A test with a user folder of its own, which every run of the program is given.
class CliFixture : public ::testing::Test {
protected:
    CliRun Hoard(const QStringList& args) const { return runHoard(args, mUser.path()); }
    QString UserFile(const QString& name) const { return mUser.path() + "/" + name; }

    // "character ARGS", which must succeed.
    void Ok(const QStringList& args) const;
    // A character made by "character new" as NAME.chr, then each score typed in with
    // set-ability as ABILITY VALUE pairs.
    QString NewCharacter(const QString& name, const QStringList& newArgs,
                         const QStringList& abilityValues = {}) const;
    // STR DEX CON INT WIS CHA as rolled, in that order, as the pairs NewCharacter takes.
    static QStringList InOrder(const QStringList& scores);
    // "character show --json".
    QJsonObject Show(const QString& file) const;
    // "character COMMAND FILE REST" is refused: exit 1, one line holding `message`, the file as
    // it was.
    void ExpectRefused(const QString& file, const QStringList& command, const char* message) const;

    QTemporaryDir mUser;
};

} // namespace clitest
