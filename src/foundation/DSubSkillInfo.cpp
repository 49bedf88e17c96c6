#include "DSubSkillInfo.h"

#include "ResultSet.h"

void DSubSkillInfo::SetData(odbc::ResultSet* resultSet) {
    mSkillGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mSubSkillGuid = resultSet->getGUID(QStringLiteral("SubGuid"));
    mSubSkillName = resultSet->getString(QStringLiteral("NAME"));
}
