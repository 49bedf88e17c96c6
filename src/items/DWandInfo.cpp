#include "DWandInfo.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DWandInfo, "DMagicItemInfo", nullptr)

DWandInfo::DWandInfo() {
    SetMagicType(kMagicWand);
    SetQualityType(0);
}

void DWandInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    DItemSpellData::Serialize(archive);
    archive.Transfer(mCharges);
}
