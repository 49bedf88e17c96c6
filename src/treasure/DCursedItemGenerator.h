#pragma once

#include <QString>

class DCursedData;
class DItem;
class DItemInfo;

// Random curses: whether a magic item is cursed, the kind of curse with its detail, and the
// specific cursed items that take the place of the item found.
class DCursedItemGenerator {
public:
    DCursedItemGenerator() = delete;

    // Percent chance that an item of this kind is cursed, 0 if none.
    static int GetChanceOfCursed(const DItemInfo* info);
    // A percentile roll against that chance; a custom item by its base item.
    static bool ShouldItemBeCursed(const DItem* item);
    // Curses the item with a common curse, or replaces it by a specific cursed item (the old
    // item and its price are gone; the new one is priced as the table lists it).
    static void GenerateCursedItem(DItem* item);
    // A new curse of that kind with its detail; one reference for the caller.
    static DCursedData* GenerateCursedData(int curseType);

    // Whether the item is one of the specific cursed items.
    static bool IsSpecificCursedItem(const DItem& item);
    // "Kind[, how it fails][: detail]"; for a specific cursed item the kind of curse that put it
    // there; empty for an item without a curse.
    static QString GetCurseDescription(const DItem& item);
};
