#pragma once

#include <QList>
#include <QString>

// Small value records of the equipment and offense computations.

// Load limits in pounds for a Strength score and size; the fourth value is unused.
struct DCarryInfo {
    float light = 0;
    float medium = 0;
    float heavy = 0;
    float unused = 0;
};

// What a worn armor or shield gives: armor bonus; max Dexterity (armor only); check penalty
// (one better for masterwork); arcane spell failure in percent; magic bonus; size.
struct DArmorShieldValues {
    int armorBonus = 0;
    int maxDexterity = 0;
    int checkPenalty = 0;
    int spellFailure = 0;
    int magicBonus = 0;
    int size = 0;
};

// The parts of one attack bonus, by the index the breakdown reads them at.
enum DOffenseBonusIndex : int {
    kOffenseBase = 0,
    kOffenseAbility = 1,
    kOffenseAbilityUsed = 2, // 0 Strength, 1 Dexterity: not part of the total
    kOffenseSize = 3,
    kOffensePool = 4,
    kOffenseArmorPenalty = 5,
    kOffenseMisc = 6,
    kOffenseHandOrder = 7,
    kOffenseFeat = 8,
    kOffenseMagic = 9,
    kOffenseValueCount = 10,
};

// The six values of an attack before weapon, hand and feats (the first six of the ten).
struct DOffenseBonusValues {
    int values[kOffenseValueCount] = {};

    int& operator[](int index) { return values[index]; }
    int operator[](int index) const { return values[index]; }
    int Total() const {
        int total = 0;
        for (int i = 0; i < kOffenseValueCount; ++i) {
            if (i != kOffenseAbilityUsed)
                total += values[i];
        }
        return total;
    }
};
using DAttackValues = DOffenseBonusValues;

// One attack as a sheet shows it: "Longsword +11/+6 (1d8+4/19-20)".
struct DOffenseLine {
    QString name;
    QList<int> bonuses;
    QString damage;
    QString critical; // "19-20/x2", "x3"; empty for a natural attack
    QString range;    // "110 ft", or "-" in melee
    int group = 0;    // the attack routine (offense group) it belongs to, counted from 0

    QString Text() const;
};
