#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

// What every command shares: the global options, the library's start-up, and output.
class CliContext {
public:
    // Parses and removes the global options from `args`; false with `error` set on a bad one.
    bool ParseGlobalOptions(QStringList& args, QString& error);

    // Starts the rules database and the object catalogues; false (after one message) if the
    // database cannot be opened.
    bool StartLibrary();
    void StopLibrary();
    bool IsLibraryStarted() const { return mStarted; }

    const QString& DataDir() const { return mDataDir; }
    const QString& UserDir() const { return mUserDir; }
    QString DatabaseConnection() const;
    bool WantsJson() const { return mJson; }
    void SetWantsJson(bool json) { mJson = json; }

    static void PrintLine(const QString& text);
    static void PrintJson(const QJsonValue& value);
    // One clear line on standard error; returns the user-error exit status.
    static int Fail(const QString& message);

    static QString GlobalOptionsHelp();

private:
    QString mDataDir;
    QString mUserDir;
    QString mDatabase;
    bool mJson = false;
    bool mStarted = false;
};
