#include "DDomainInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DDomainInfo, "DInfo", nullptr)

void DDomainInfo::SetData(odbc::ResultSet* resultSet) {
    mDomainGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mDomainName = resultSet->getString(QStringLiteral("Name"));
    mDomainAbility = resultSet->getString(QStringLiteral("DomainAbility"));
    mRequiredAlignmentFlag = resultSet->getInt(QStringLiteral("RequiredAlignmentFlag"));
    mOpposingDomain = resultSet->getGUID(QStringLiteral("OpposingDomain"));
}
