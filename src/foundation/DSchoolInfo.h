#pragma once

#include "DInfo.h"
#include "FCString.h"

// One school of magic of "[info Spell Schools]".
class DSchoolInfo : public DInfo {
    FC_DECLARE_CLASS(DSchoolInfo)
public:
    FCObject* Clone() const override { return new DSchoolInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSchoolId; }

    int GetSchoolId() const { return mSchoolId; }
    const FCString& GetSchoolName() const { return mSchoolName; }
    int GetCategory() const { return mCategory; }

private:
    int mSchoolId = -1;
    FCString mSchoolName;
    int mCategory = 0;
};
