#include "DSpeedModTypeInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSpeedModTypeInfo, "DInfo", nullptr)

void DSpeedModTypeInfo::SetData(odbc::ResultSet* resultSet) {
    mSpeedModTypeId = int(resultSet->getLong(QStringLiteral("ID")));
    mSpeedModTypeName = resultSet->getString(QStringLiteral("NAME"));
}
