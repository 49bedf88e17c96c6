#pragma once

#include <QString>
#include <QStringList>

class CliContext;

// "hoard character set-ability FILE.chr STR 16": gives a stored character a new rolled or
// bought score and lets the rules follow it (hit points, skill points, saves).
class CharacterAbility {
public:
    CharacterAbility() = delete;

    static constexpr int kMinScore = 1;
    static constexpr int kMaxScore = 99;

    static int RunSetAbility(CliContext& context, QStringList args);
    // 0 Strength .. 5 Charisma for "STR", "str", "Strength" and the like; -1 for anything else.
    static int FindAbility(const QString& text);
    static QString AbilityName(int ability);
};
