#include "DFamiliarMountInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DFamiliarMountInfo, "DInfo", nullptr)

void DFamiliarMountInfo::SetData(odbc::ResultSet* resultSet) {
    mMasterLevelMin = resultSet->getInt(QStringLiteral("MasterLevelMin"));
    mMasterLevelMax = resultSet->getInt(QStringLiteral("MasterLevelMax"));
    mBonusHD = resultSet->getInt(QStringLiteral("BonusHD"));
    mNaturalArmor = resultSet->getInt(QStringLiteral("NaturalArmor"));
    mStrAdjust = resultSet->getInt(QStringLiteral("StrAdj"));
    mIntelligence = resultSet->getInt(QStringLiteral("Int"));
}
