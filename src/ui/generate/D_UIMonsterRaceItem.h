#pragma once

#include "D_UIFileObjectItem.h"

// A row of a monster list: the race's name, its type and its hit dice, with the race's file
// entry (a group row has none). The hit dice column sorts as numbers, fractions included.
class D_UIMonsterRaceItem : public D_UIFileObjectItem {
public:
    enum Column { kColumnName = 0, kColumnType = 1, kColumnHitDice = 2 };

    using D_UIFileObjectItem::D_UIFileObjectItem;

    // Shown in the shortest form ("0.5", "12").
    void SetHitDice(float hitDice);
};
