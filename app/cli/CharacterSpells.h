#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

class CliContext;
class DCharacter;
class QJsonObject;

// The spells of "hoard character" and "hoard spells": the class lists, learning and preparing,
// and each caster's block in a character's description.
class CharacterSpells {
public:
    CharacterSpells() = delete;

    struct Spell {
        QUuid guid;
        QString name;
        int level = 0;
    };
    // The spells on a class's list (the wizard reads the sorcerer's), by level then name; a
    // level of -1 takes every level.
    static QList<Spell> ClassSpells(const QUuid& classGuid, int level);
    static QStringList SpellNames();

    // "add-spell FILE.chr SPELL [--class C]": known, or bought into a wizard's spellbook.
    static int RunAddSpell(CliContext& context, QStringList args);
    // "prepare FILE.chr SPELL [--class C] [--count N]".
    static int RunPrepare(CliContext& context, QStringList args);

    // Adds "casters" to a character's description.
    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const QJsonObject& description);
};
