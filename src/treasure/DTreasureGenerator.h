#pragma once

#include <QString>
#include <QUuid>

class DItemInfo;
class DRace;
class DTreasure;

// Fills a treasure at random from the treasure tables: every decision is a percentile roll
// that selects the table row whose Min and Max hold it; a table with no row for the roll skips
// that step. Generation only adds to the treasure.
class DTreasureGenerator {
public:
    DTreasureGenerator() = delete;

    // Classes of treasure in the tables.
    enum : int {
        kTreasureGems = 3,
        kTreasureArt = 4,
        kTreasureMundane = 5,
        kTreasureMinor = 6,
        kTreasureMedium = 7,
        kTreasureMajor = 8,
    };

    // A hoard for an encounter level: above 20 the hoard of level 20 and the extra major items
    // of the level (at most 30).
    static void GenerateTreasure(DTreasure* treasure, int level);
    // A creature's treasure by its three entries and its challenge rating.
    static void GenerateTreasure(DTreasure* treasure, const DRace* race);

    static void GenerateCoins(DTreasure* treasure, int level, int percent);
    static void GenerateGoods(DTreasure* treasure, int level);
    static void GenerateItems(DTreasure* treasure, int level);
    static void GenerateExtraItems(DTreasure* treasure, int level);
    static void PickGoods(DTreasure* treasure, int count, int treasureType);
    static void PickItems(DTreasure* treasure, int count, int treasureType);
    static void PickMundaneItem(DTreasure* treasure);
    // One magic item of the class (6 minor, 7 medium, 8 major); kinds without a table of their
    // own (scrolls and wands, whose spells are drawn from the spell lists) add nothing yet.
    static void PickMagicItem(DTreasure* treasure, int treasureType);

    // "Minor", "Med", "Major", or empty.
    static QString GetMinorMediumMajorPrefix(int treasureType);
};
