#pragma once

#include <QString>

class DCharacter;

// The rows of the character view that show money, equipment, load and speed, and the attacks.
class CharacterItemRows {
public:
    CharacterItemRows() = delete;

    // HTML table rows.
    static QString Build(const DCharacter& character);
};
