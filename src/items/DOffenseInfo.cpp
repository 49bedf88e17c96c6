#include "DOffenseInfo.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DOffenseInfo, "DItemInfo", nullptr)

void DOffenseInfo::Serialize(FCArchive& archive) {
    DItemInfo::Serialize(archive);
    archive.Transfer(mOffenseCount);
    archive.Transfer(mRangeType);
}
