#include "DGodInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DGodInfo, "DInfo", nullptr)

void DGodInfo::SetData(odbc::ResultSet* resultSet) {
    mGodGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mGodName = resultSet->getString(QStringLiteral("Name"));
    mAlignmentId = resultSet->getInt(QStringLiteral("AlignmentId"));
    mRestrictedAlignment = resultSet->getInt(QStringLiteral("RestrictedAlignment"));
    mIsRestrictedByRace = resultSet->getBoolean(QStringLiteral("RestrictedByRace"));
}
