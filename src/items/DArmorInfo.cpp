#include "DArmorInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DArmorInfo, "DArmorShieldBaseInfo", nullptr)

void DArmorInfo::Serialize(FCArchive& archive) {
    DArmorShieldBaseInfo::Serialize(archive);
    archive.Transfer(mWeightType);
    archive.Transfer(mMaxDex);
}

void DArmorInfo::SetData(odbc::ResultSet* resultSet) {
    DArmorShieldBaseInfo::SetData(resultSet);
    mWeightType = resultSet->getInt(QStringLiteral("WeightType"));
    mMaxDex = resultSet->getInt(QStringLiteral("MaxDex"));
}
