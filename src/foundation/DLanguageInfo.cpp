#include "DLanguageInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DLanguageInfo, "DInfo", nullptr)

void DLanguageInfo::SetData(odbc::ResultSet* resultSet) {
    mLanguageGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mLanguageId = int(resultSet->getLong(QStringLiteral("ID")));
    mLanguageName = resultSet->getString(QStringLiteral("Name"));
    mIsSecret = resultSet->getBoolean(QStringLiteral("IsSecret"));
    mIsAutoOnly = resultSet->getBoolean(QStringLiteral("AutoOnly"));
}
