#pragma once

#include <QtGlobal>

#include <array>

class FCArchive;

// An amount of money held coin by coin, indexed by DCoinType. Nothing is exchanged here:
// every operation works on each coin on its own.
class DCurrency {
public:
    static constexpr int kCoinTypeCount = 4;

    // 0 for a coin type outside copper to platinum.
    qint32 GetAmount(int coinType) const;
    // A coin type outside copper to platinum is ignored by the three changers.
    void SetAmount(int coinType, qint32 amount);
    void AdjustAmount(int coinType, qint32 delta);
    void ClearAll() { mAmounts.fill(0); }
    bool IsEmpty() const;

    DCurrency& operator+=(const DCurrency& other);
    DCurrency& operator-=(const DCurrency& other);
    bool operator==(const DCurrency& other) const = default;

    // Copper, silver, gold, platinum.
    void Serialize(FCArchive& archive);

private:
    std::array<qint32, kCoinTypeCount> mAmounts{};
};
