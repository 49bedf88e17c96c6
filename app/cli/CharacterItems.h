#pragma once

#include <QStringList>

class CliContext;
class DCharacter;
class QJsonObject;

// The equipment of "hoard character": adding, buying, equipping and removing items, and the
// equipment, load and attack lines of a character's description.
class CharacterItems {
public:
    CharacterItems() = delete;

    // "add-item FILE ITEM [--count N] [--masterwork] [--enhancement N] [--ability NAME]...
    // [--buy] [--equip] [--two-hands]".
    static int RunAddItem(CliContext& context, QStringList args);
    // "equip FILE ITEM [--two-hands]", "unequip FILE ITEM", "remove-item FILE ITEM [--sell]".
    static int RunEquip(CliContext& context, QStringList args);
    static int RunUnequip(CliContext& context, QStringList args);
    static int RunRemoveItem(CliContext& context, QStringList args);

    // Adds "equipment", "load", "speed", "armor_check_penalty", "spell_failure", "max_dex",
    // "money" and "attacks".
    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const QJsonObject& description);
    static QString HelpText();
};
