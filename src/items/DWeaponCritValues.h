#pragma once

#include <QtGlobal>

// The critical range and multipliers of a weapon. A minimum of 0 threatens on a 20 only.
struct DWeaponCritValues {
    qint32 mCriticalMin = 0;
    qint32 mMultiplier[2] = {0, 0};

    bool operator==(const DWeaponCritValues& other) const = default;
};
