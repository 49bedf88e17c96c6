#pragma once

#include "DInfo.h"
#include "FCString.h"

// One speed modifier of "[types Speed]", shown beside a speed that has it.
class DSpeedModTypeInfo : public DInfo {
    FC_DECLARE_CLASS(DSpeedModTypeInfo)
public:
    FCObject* Clone() const override { return new DSpeedModTypeInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSpeedModTypeId; }

    int GetSpeedModTypeId() const { return mSpeedModTypeId; }
    const FCString& GetSpeedModTypeName() const { return mSpeedModTypeName; }

private:
    int mSpeedModTypeId = -1;
    FCString mSpeedModTypeName;
};
