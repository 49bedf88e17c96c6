#include "DCoinData.h"

#include "FCArchive.h"
#include "ResultSet.h"

void DCoinData::SetData(odbc::ResultSet* resultSet) {
    mCoinCount = resultSet->getInt(QStringLiteral("CoinCount"));
    mCoinType = resultSet->getInt(QStringLiteral("CoinType"));
}

void DCoinData::Serialize(FCArchive& archive) {
    archive.Transfer(mCoinCount);
    archive.Transfer(mCoinType);
}
