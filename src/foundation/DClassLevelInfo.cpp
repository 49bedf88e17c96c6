#include "DClassLevelInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DClassLevelInfo, "DInfo", nullptr)

void DClassLevelInfo::SetData(odbc::ResultSet* resultSet) {
    mClassLevel = int(resultSet->getLong(QStringLiteral("ID")));
    mStartingGold = resultSet->getInt(QStringLiteral("STARTGOLD"));
}
