#pragma once

#include <QString>
#include <QUuid>

#include <memory>

class DCustomMagicItemInfo;
class DItem;
class DItemInfo;
class DRace;
class DTreasure;
class DTreasureTables;

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

    // Kinds of magic item, the "MagicItemType" of the magic item table.
    enum : int {
        kKindAny = 0,
        kKindArmor = 1,
        kKindWeapon = 2,
        kKindPotion = 3,
        kKindRing = 4,
        kKindRod = 5,
        kKindScroll = 6,
        kKindStaff = 7,
        kKindWand = 8,
        kKindWondrous = 9,
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
    // One magic item of the class (6 minor, 7 medium, 8 major) into the treasure.
    static void PickMagicItem(DTreasure* treasure, int treasureType);
    // One magic item of the class and of a kind (kKindAny rolls the kind), made intelligent or
    // cursed by chance; one reference for the caller, null when the roll makes nothing (the
    // tables hold no minor rods or staffs, for instance).
    static DItem* CreateMagicItem(int treasureType, int kind = kKindAny);

    // Rolls the special abilities of a magic weapon, armor or shield: `count` rolls, each
    // adding one ability of the class's table, within a total bonus of 10.
    static void AddSpecialAbilitiesFromTable(int treasureType, DCustomMagicItemInfo* item,
                                             int count);

    // "Id" of the row a percentile roll selects, -1 without one.
    static int PickRandomId(int table);
    // "Id" and "Special" of the row a percentile roll selects, both -1 without one.
    static void PickRandomIdAndSpecial(int table, int& id, int& special);

    // "Minor", "Med", "Major", or empty.
    static QString GetMinorMediumMajorPrefix(int treasureType);
    // 1 minor, 2 medium, 3 major, else 0.
    static int GetMagicQuality(int treasureType);

    // The tables read so far for the open rules database; read again after a reconnection.
    static DTreasureTables& Tables();
    // Drops the tables read so far (the next roll reads them again).
    static void ReleaseTables();

private:
    static std::unique_ptr<DTreasureTables> mTables;
};
