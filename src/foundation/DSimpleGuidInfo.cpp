#include "DSimpleGuidInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSimpleGuidInfo, "DInfo", nullptr)

void DSimpleGuidInfo::SetData(odbc::ResultSet* resultSet) {
    mInfoGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mInfoName = resultSet->getString(QStringLiteral("Name"));
}
