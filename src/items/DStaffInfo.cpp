#include "DStaffInfo.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DStaffInfo, "DMagicItemInfo", nullptr)

DStaffInfo::DStaffInfo(const DStaffInfo& other) : DMagicItemInfo(other), mCharges(other.mCharges) {
    SetMagicType(kMagicStaff);
    SetQualityType(0);
}

void DStaffInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    archive.Transfer(mCharges);
}

void DStaffInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, false);
}
