#pragma once

#include <QtGlobal>

class FCArchive;

namespace odbc {
class ResultSet;
}

// One amount of one coin type.
class DCoinData {
public:
    DCoinData() = default;
    DCoinData(qint32 coinCount, qint32 coinType) : mCoinType(coinType), mCoinCount(coinCount) {}

    qint32 GetCoinType() const { return mCoinType; }
    void SetCoinType(qint32 coinType) { mCoinType = coinType; }
    qint32 GetCoinCount() const { return mCoinCount; }
    void SetCoinCount(qint32 coinCount) { mCoinCount = coinCount; }

    bool operator==(const DCoinData& other) const = default;

    // Reads "CoinCount" and "CoinType"; throws odbc::SQLException for a missing column.
    void SetData(odbc::ResultSet* resultSet);
    // Count, then coin type.
    void Serialize(FCArchive& archive);

private:
    qint32 mCoinType = 0;
    qint32 mCoinCount = 0;
};
