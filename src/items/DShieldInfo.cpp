#include "DShieldInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DShieldInfo, "DArmorShieldBaseInfo", nullptr)

void DShieldInfo::Serialize(FCArchive& archive) {
    DArmorShieldBaseInfo::Serialize(archive);
    archive.Transfer(mCanBash);
    archive.Transfer(mCanHaveSpikes);
}

void DShieldInfo::SetData(odbc::ResultSet* resultSet) {
    DArmorShieldBaseInfo::SetData(resultSet);
    mCanBash = resultSet->getBoolean(QStringLiteral("CanBash"));
    mCanHaveSpikes = resultSet->getBoolean(QStringLiteral("CanHaveSpikes"));
}
