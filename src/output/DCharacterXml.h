#pragma once

#include <QString>
#include <QTextStream>

class DCharacter;

// The `character` and `monster` documents: what a character holds, in the element tree the
// style sheets under xml/Character and xml/Monster read. Sections whose rules are not computed
// yet are left out rather than filled with figures nobody worked out.
class DCharacterXml {
public:
    DCharacterXml() = delete;

    // The root is `monster` for a creature that is its race alone, else `character`.
    static void Write(DCharacter* character, QTextStream& out, const QString& styleSheet,
                      int number = 0, bool omitDeclaration = false);
    static void WriteCharacter(DCharacter* character, QTextStream& out, const QString& styleSheet,
                               int number, bool omitDeclaration);
    static void WriteMonster(DCharacter* character, QTextStream& out, const QString& styleSheet,
                             int number, bool omitDeclaration);
    // The document as bytes, ready for the transformation.
    static QByteArray ToBytes(DCharacter* character, const QString& styleSheet);
    // The document with no style sheet to `path`, replaced whole or not at all.
    static bool SaveToXML(DCharacter* character, const QString& path);
    // "Character" or "Monster": the folder of the kind's style sheets.
    static QString KindWord(const DCharacter* character);
};
