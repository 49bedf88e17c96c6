#include "DSimpleItemInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSimpleItemInfo, "DItemInfo", nullptr)

void DSimpleItemInfo::Serialize(FCArchive& archive) {
    DItemInfo::Serialize(archive);
    archive.Transfer(mSimpleItemType);
}

void DSimpleItemInfo::SetData(odbc::ResultSet* resultSet) {
    SetItemGuid(resultSet->getGUID(QStringLiteral("Guid")));
    SetItemName(resultSet->getString(QStringLiteral("Name")));
    if (mSimpleItemType == kItemArtObject || mSimpleItemType == kItemGem) {
        SetCost(resultSet->getInt(QStringLiteral("CoinCount")));
        SetCostCoinType(resultSet->getInt(QStringLiteral("CoinType")));
    }
}
