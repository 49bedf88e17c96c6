#pragma once

#include "DInfo.h"
#include "FCString.h"

// A row of a GUID-keyed table read for its identity and name only.
class DSimpleGuidInfo : public DInfo {
    FC_DECLARE_CLASS(DSimpleGuidInfo)
public:
    FCObject* Clone() const override { return new DSimpleGuidInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mInfoGuid; }

    const QUuid& GetInfoGuid() const { return mInfoGuid; }
    const FCString& GetInfoName() const { return mInfoName; }

private:
    QUuid mInfoGuid;
    FCString mInfoName;
};
