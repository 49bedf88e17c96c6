#pragma once

#include <QStringList>

class CliContext;
class DCharacter;
class QJsonObject;

// Familiars, special mounts and animal companions in "hoard character", and the companions
// block of a character's description.
class CharacterCompanions {
public:
    CharacterCompanions() = delete;

    // "add-companion FILE.chr familiar|companion|mount RACE".
    static int RunAddCompanion(CliContext& context, QStringList args);
    // "remove-companion FILE.chr [RACE]": the only companion when RACE is left out.
    static int RunRemoveCompanion(CliContext& context, QStringList args);

    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const QJsonObject& description);
    static QString HelpText();
};
