#include "DSchoolInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSchoolInfo, "DInfo", nullptr)

void DSchoolInfo::SetData(odbc::ResultSet* resultSet) {
    mSchoolId = int(resultSet->getLong(QStringLiteral("Id")));
    mSchoolName = resultSet->getString(QStringLiteral("Name"));
    mCategory = resultSet->getInt(QStringLiteral("Category"));
}
