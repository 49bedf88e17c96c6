#pragma once

#include <QString>

class DCharacter;

// The rows of the character view that show each caster: caster level, spells per day (with
// the domain or school slot as "+1"), spells known and the spells known and prepared.
class CharacterSpellRows {
public:
    CharacterSpellRows() = delete;

    // HTML table rows; empty for a character that casts nothing.
    static QString Build(const DCharacter& character);
};
