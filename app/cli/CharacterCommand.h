#pragma once

#include "CliCommand.h"

class DCharacter;
class QJsonObject;
class QJsonValue;
class QUuid;

// "hoard character new|show|level-up|level-down": make, inspect and level character files.
class CharacterCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("character"); }
    QString Summary() const override {
        return QStringLiteral("make, level, edit and show character files");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

    // The guid of the class of that name (any case) in the rules database; null if none.
    static QUuid FindClass(const QString& name);
    // Reads a character file and brings in what was added to its race since it was saved. Null
    // with `error` set when it cannot.
    static DCharacter* LoadCharacter(const QString& path, QString& error);
    // A character file named on the command line, loaded with the library started; null after
    // a message. `path` gets the absolute path.
    static DCharacter* LoadFileArgument(CliContext& context, const QString& file, QString& path);
    // Saves a changed character where it came from and prints it; the exit status.
    static int SaveAndShow(CliContext& context, DCharacter& character, const QString& path);
    static QJsonObject Describe(const DCharacter& character);
    static void PrintCharacter(const DCharacter& character, const QString& file, bool json);
    // "+3", "-1": a bonus as a sheet shows it.
    static QString SignedNumber(int value);
    // "14 (+2)", or "-" for a creature without the ability.
    static QString AbilityText(const QJsonValue& score);

private:
    int RunNew(CliContext& context, QStringList args);
    int RunShow(CliContext& context, QStringList args);
    int RunLevelUp(CliContext& context, QStringList args);
    int RunLevelDown(CliContext& context, QStringList args);
};
