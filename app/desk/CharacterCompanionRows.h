#pragma once

#include <QString>

class DCharacter;

// The rows of the character view for its familiar, special mount or animal companion: each
// with its race, its master's level and its own combat line.
class CharacterCompanionRows {
public:
    CharacterCompanionRows() = delete;

    // HTML table rows, one per companion; none for a character without one.
    static QString Build(const DCharacter& character);
};
