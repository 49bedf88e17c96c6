#pragma once

#include <QString>
#include <QStringList>
#include <QUuid>

class CliContext;
class DCharacter;
class QJsonObject;

// Class features in "hoard character": the list in a character's description, the picks of
// "add-feature" and the entry requirements a prestige level is checked against.
class CharacterFeatures {
public:
    CharacterFeatures() = delete;

    // "add-feature FILE.chr FEATURE [--class C]": one pick of a rogue, ranger, bard or
    // loremaster.
    static int RunAddFeature(CliContext& context, QStringList args);
    // "fall FILE.chr --class C" and "atone FILE.chr --class C": a paladin, druid or barbarian
    // loses what a fall takes, or gets it back.
    static int RunFall(CliContext& context, QStringList args, bool fallen);

    // Adds "features" to a character's description.
    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const QJsonObject& description);
};
