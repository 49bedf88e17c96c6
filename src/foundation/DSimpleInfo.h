#pragma once

#include "DInfo.h"
#include "FCString.h"

// A row of a code table: an integer id and a name.
class DSimpleInfo : public DInfo {
    FC_DECLARE_CLASS(DSimpleInfo)
public:
    FCObject* Clone() const override { return new DSimpleInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mInfoId; }

    int GetInfoId() const { return mInfoId; }
    const FCString& GetInfoName() const { return mInfoName; }

private:
    int mInfoId = -1;
    FCString mInfoName;
};
