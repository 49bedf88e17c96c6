#pragma once

#include <QtGlobal>

#include <array>

class DCoinData;
class FCArchive;
class QString;

// An amount of money held coin by coin, indexed by DCoinType. The arithmetic operators work
// on each coin on its own; the exchange operations trade 10 of a coin for one of the next.
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

    // "12 gp": the count and the coin's short name; "12 Unknown" without the coin's row.
    static QString BuildCoinString(int count, int coinType);
    // The coins from platinum down, each held amount by BuildCoinString; "0 gp" when empty.
    QString GetCostDescription() const;

    // Copper, silver and gold, silver and copper brought to 0..9; platinum becomes gold.
    void Balance();
    // Pays off every negative coin, cheaper coins first, then by borrowing from dearer ones.
    void MakePositive();
    void MakeCoinTypePositive(int coinType);
    qint64 GetCopperCost() const;
    qint64 GetConvertedToGoldAmount() const { return GetCopperCost() / 100; }
    // "12 gp", or "12+ gp" when other coins are held too; empty without a gold coin row.
    QString GetGoldDescription() const;
    // The dearest coin held, written into `out`; all zero leaves `out` alone.
    void GetPrimaryCoinData(DCoinData* out) const;

    // Copper, silver, gold, platinum.
    void Serialize(FCArchive& archive);

private:
    std::array<qint32, kCoinTypeCount> mAmounts{};
};
