#pragma once

#include "DMagicItemInfo.h"

// A staff of "[info Staffs]" with its charges.
class DStaffInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DStaffInfo)
public:
    static constexpr qint32 kFullCharges = 50;

    DStaffInfo() = default;
    // A copy is always a staff of quality 0, whatever the copied record says.
    DStaffInfo(const DStaffInfo& other);
    DStaffInfo& operator=(const DStaffInfo&) = default;

    DStaffInfo* Clone() const override { return new DStaffInfo(*this); }
    // DMagicItemInfo; charges.
    void Serialize(FCArchive& archive) override;
    // SetDataNoMasterwork without the weight.
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemStaff; }

    qint32 GetCharges() const { return mCharges; }
    void SetCharges(qint32 charges) { mCharges = charges; }

private:
    qint32 mCharges = kFullCharges;
};
