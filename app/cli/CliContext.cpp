#include "CliContext.h"

#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "FCRandom.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

bool takeValue(QStringList& args, int i, QString& value, QString& error) {
    if (i + 1 >= args.size() || args[i + 1].startsWith("--")) {
        error = QStringLiteral("option %1 needs a value").arg(args[i]);
        return false;
    }
    value = args[i + 1];
    args.remove(i, 2);
    return true;
}

} // namespace

bool CliContext::ParseGlobalOptions(QStringList& args, QString& error) {
    mDataDir = DOptions::FindDefaultAppPath(FCString(HOARD_DATA_BUILD_DIR));
    for (int i = 0; i < args.size();) {
        const QString& arg = args[i];
        QString value;
        if (arg == "--data") {
            if (!takeValue(args, i, mDataDir, error))
                return false;
        } else if (arg == "--user") {
            // A bare "--user" is the user-tree filter of a command, not this option.
            if (i + 1 >= args.size() || args[i + 1].startsWith("--")) {
                ++i;
                continue;
            }
            takeValue(args, i, mUserDir, error);
        } else if (arg == "--db") {
            if (!takeValue(args, i, mDatabase, error))
                return false;
        } else if (arg == "--seed") {
            if (!takeValue(args, i, value, error))
                return false;
            bool ok = false;
            const qulonglong seed = value.toULongLong(&ok);
            if (!ok) {
                error =
                    QStringLiteral("--seed takes a whole number from 0 to 18446744073709551615, "
                                   "not '%1'")
                        .arg(value);
                return false;
            }
            FC::SeedRandom(seed);
        } else if (arg == "--json") {
            mJson = true;
            args.removeAt(i);
        } else {
            ++i;
        }
    }
    DOptions::mAppPath = FCString(QDir(mDataDir).absolutePath());
    if (!mUserDir.isEmpty())
        DOptions::SetUserDataPath(FCString(QDir(mUserDir).absolutePath()));
    mUserDir = DOptions::GetUserDataPath();
    return true;
}

QString CliContext::DatabaseConnection() const {
    return mDatabase.isEmpty() ? mDataDir + "/rules.db" : mDatabase;
}

bool CliContext::StartLibrary() {
    if (mStarted)
        return true;
    const int reportsBefore = DFailureReporter::GetReportCount();
    const bool connected = DDatabase::StartUp(FCString(DatabaseConnection()));
    DObjectManager::StartUp();
    mStarted = true;
    if (!connected && DFailureReporter::GetReportCount() == reportsBefore)
        Fail(QStringLiteral("cannot open the rules database %1").arg(DatabaseConnection()));
    return connected;
}

void CliContext::StopLibrary() {
    if (!mStarted)
        return;
    DObjectManager::ShutDown();
    DDatabase::ShutDown();
    mStarted = false;
}

void CliContext::PrintLine(const QString& text) {
    std::fputs(qUtf8Printable(text), stdout);
    std::fputc('\n', stdout);
}

void CliContext::PrintJson(const QJsonValue& value) {
    QJsonDocument document;
    if (value.isArray())
        document.setArray(value.toArray());
    else
        document.setObject(value.toObject());
    std::fputs(document.toJson(QJsonDocument::Indented).constData(), stdout);
}

int CliContext::Fail(const QString& message) {
    std::fprintf(stderr, "hoard: %s\n", qUtf8Printable(message));
    return 1;
}

QString CliContext::GlobalOptionsHelp() {
    return QStringLiteral(
        "Global options:\n"
        "  --data DIR         installed data: rules.db, Core/ (default: the build's data)\n"
        "  --user DIR         user data folder for User\\... files (default: "
        "$XDG_DATA_HOME/hoard)\n"
        "  --db CONNECTION    rules database: a path, sqlite:PATH, odbc:DSN or "
        "postgresql://...\n"
        "  --seed N           seed the random source so a run can be repeated\n"
        "  --json             machine-readable output (snake_case keys)\n"
        "  -h, --help         help for the program or a command\n"
        "  -v, --version      the program's version\n");
}
