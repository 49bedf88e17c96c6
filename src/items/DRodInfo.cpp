#include "DRodInfo.h"

FC_IMPLEMENT_CLASS(DRodInfo, "DMagicItemInfo", nullptr)

DRodInfo::DRodInfo() {
    SetMagicType(kMagicRod);
    SetQualityType(0);
}

void DRodInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, false);
}
