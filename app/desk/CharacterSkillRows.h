#pragma once

#include <QString>

class DCharacter;

// The rows of the character view for what the character has learned: its feats and the skills
// it has ranks in or gets more than its ability gives, each with its check total.
class CharacterSkillRows {
public:
    CharacterSkillRows() = delete;

    // HTML table rows; "none" where nothing is learned yet.
    static QString Build(const DCharacter& character);
};
