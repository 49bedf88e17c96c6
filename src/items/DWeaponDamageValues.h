#pragma once

#include <QtGlobal>

// The damage dice of a weapon: head 0 is the weapon, head 1 the second head of a double
// weapon. A die id of 1 is a flat amount: the count is the damage.
struct DWeaponDamageValues {
    qint32 mDieCount[2] = {0, 0};
    qint32 mDieId[2] = {0, 0};

    bool operator==(const DWeaponDamageValues& other) const = default;
};
