#pragma once

#include <QString>

class DCharacter;

// The rows of the character view that list the class features: those that came with levels
// and those the player picked, each class on a row of its own.
class CharacterFeatureRows {
public:
    CharacterFeatureRows() = delete;

    // HTML table rows; empty for a character without class features.
    static QString Build(const DCharacter& character);
};
