#include "DDamageChangeInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DDamageChangeInfo, "DInfo", nullptr)

void DDamageChangeInfo::SetData(odbc::ResultSet* resultSet) {
    mFromDieId = int(resultSet->getLong(QStringLiteral("FromDieId")));
    mUpDieData.SetDieCount(resultSet->getInt(QStringLiteral("UpDieCount")));
    mUpDieData.SetDieType(resultSet->getInt(QStringLiteral("UpDieId")));
    mDownDieData.SetDieCount(resultSet->getInt(QStringLiteral("DownDieCount")));
    mDownDieData.SetDieType(resultSet->getInt(QStringLiteral("DownDieId")));
}
