#include "DLoadInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DLoadInfo, "DInfo", nullptr)

void DLoadInfo::SetData(odbc::ResultSet* resultSet) {
    mLoadId = int(resultSet->getLong(QStringLiteral("Id")));
    mLoadName = resultSet->getString(QStringLiteral("Name"));
    mMaxDex = resultSet->getInt(QStringLiteral("MaxDex"));
    mCheckPenalty = resultSet->getInt(QStringLiteral("CheckPenalty"));
    mSpeedMultiplier = resultSet->getFloat(QStringLiteral("SpeedMultiplier"));
    mRunMultiplier = resultSet->getInt(QStringLiteral("RunMultiplier"));
}
