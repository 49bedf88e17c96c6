#include "DGoodsInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DGoodsInfo, "DItemInfo", nullptr)

void DGoodsInfo::Serialize(FCArchive& archive) {
    DItemInfo::Serialize(archive);
    archive.Transfer(mGoodsType);
    archive.Transfer(mCapacity);
    archive.Transfer(mCapacityId);
    archive.Transfer(mCanEquip);
    archive.Transfer(mCanBeMadeForSmall);
    archive.Transfer(mIsSuperior);
}

void DGoodsInfo::SetData(odbc::ResultSet* resultSet) {
    DItemInfo::SetData(resultSet);
    mGoodsType = resultSet->getInt(QStringLiteral("GoodsType"));
    mCapacity = resultSet->getFloat(QStringLiteral("Capacity"));
    mCapacityId = resultSet->getInt(QStringLiteral("CapacityUnit"));
    mCanEquip = resultSet->getBoolean(QStringLiteral("Equip"));
    mCanBeMadeForSmall = resultSet->getBoolean(QStringLiteral("Small"));
    mIsSuperior = resultSet->getBoolean(QStringLiteral("Superior"));
}
