#include "DSpecialCostInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSpecialCostInfo, "DInfo", nullptr)

void DSpecialCostInfo::SetData(odbc::ResultSet* resultSet) {
    mSpecialCostId = qint32(resultSet->getLong(QStringLiteral("Id")));
    mCost = resultSet->getInt(QStringLiteral("CoinCount"));
    mCostCoinType = resultSet->getInt(QStringLiteral("CoinType"));
    mOverrideCost = resultSet->getBoolean(QStringLiteral("Override"));
}
