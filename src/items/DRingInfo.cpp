#include "DRingInfo.h"

FC_IMPLEMENT_CLASS(DRingInfo, "DMagicItemInfo", nullptr)

DRingInfo::DRingInfo() {
    SetMagicType(kMagicRing);
    SetQualityType(0);
}

void DRingInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, false);
}
