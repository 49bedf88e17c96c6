#include "DSimpleInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSimpleInfo, "DInfo", nullptr)

void DSimpleInfo::SetData(odbc::ResultSet* resultSet) {
    mInfoId = int(resultSet->getLong(QStringLiteral("Id")));
    mInfoName = resultSet->getString(QStringLiteral("Name"));
}
