#pragma once

#include <QtGlobal>

#include <array>

class FCArchive;

// A set of spell counts kept aside by a caller; no character file holds one.
struct DSpellsPerDayValues {
    static constexpr int kSpellLevelCount = 10;

    qint32 mMaxSpellLevel = -1;
    std::array<qint32, kSpellLevelCount> mSpellsPerDay{};
    std::array<qint32, kSpellLevelCount> mBonusSpellsPerDay{};

    bool operator==(const DSpellsPerDayValues& other) const = default;
    void Serialize(FCArchive& archive);
};
