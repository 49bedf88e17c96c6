#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

class CliContext;
class DCharacter;
class QJsonObject;

// God, domains, school and languages in "hoard character", "hoard gods" and "hoard domains",
// and the devotion and education block of a character's description.
class CharacterGods {
public:
    CharacterGods() = delete;

    struct Named {
        QUuid guid;
        QString name;
    };
    // The rows of a rules table with a Guid and a Name, by name.
    static QList<Named> NamedRows(int table);
    // The domains of a god, by name.
    static QList<Named> GodDomains(const QUuid& god);

    // "set-alignment FILE.chr ALIGNMENT": a name or its two letters (LG, N, CE, ...).
    static int RunSetAlignment(CliContext& context, QStringList args);
    static int RunSetGod(CliContext& context, QStringList args);
    static int RunAddDomain(CliContext& context, QStringList args);
    // "set-school FILE.chr SCHOOL [--prohibit A,B]".
    static int RunSetSchool(CliContext& context, QStringList args);
    static int RunAddLanguage(CliContext& context, QStringList args);

    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const QJsonObject& description);
};
