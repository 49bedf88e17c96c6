#pragma once

#include <QString>
#include <QStringList>
#include <QUuid>

class DCharacter;
class DFileObject;

// Random characters and monsters built by the rules, for the generators: every random choice
// is drawn from FC::GetRandom, so a seeded run repeats.
//
// A character: race and class as asked or drawn (the seven player races, the eleven base
// classes), an alignment the class allows, abilities rolled 4d6 drop the lowest and placed by
// the class's needs, the levels taken one by one, skill ranks bought at the rank limit in the
// class skills the character is best at, feats taken from a class list as their prerequisites
// allow, and arms and armor the class can use bought with the wealth of its level.
class DCharacterGenerator {
public:
    DCharacterGenerator() = delete;

    struct Request {
        DFileObject* race = nullptr; // null: drawn from the player races
        QUuid classGuid;             // null: drawn from the base classes
        int level = 0;               // 0: drawn from 1 to 20
        int alignmentId = -1;        // -1: drawn from those the class allows
    };

    // A new character (one reference for the caller), or null with `error` saying why.
    static DCharacter* GenerateCharacter(const Request& request, QString& error);
    // A monster of the race with `hitDice` racial hit dice (0: the race's own); null with
    // `error` when the race cannot be read or cannot advance that far.
    static DCharacter* GenerateMonster(DFileObject* race, int hitDice, QString& error);

    static QStringList PlayerRaceNames();
    static bool IsBaseClass(const QUuid& classGuid);
    static bool IsAlignmentAllowed(const QUuid& classGuid, int alignmentId);
};
