#pragma once

#include <QString>

class DCharacter;

// The rows of the character view for devotion and education: god, domains with their granted
// powers, specialist school and prohibited schools, languages and proficiencies.
class CharacterGodRows {
public:
    CharacterGodRows() = delete;

    // HTML table rows; a row whose value is not chosen is left out.
    static QString Build(const DCharacter& character);
};
