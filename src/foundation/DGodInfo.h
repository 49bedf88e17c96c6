#pragma once

#include "DInfo.h"
#include "FCString.h"

// One deity of "[info God]".
class DGodInfo : public DInfo {
    FC_DECLARE_CLASS(DGodInfo)
public:
    FCObject* Clone() const override { return new DGodInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mGodGuid; }

    const QUuid& GetGodGuid() const { return mGodGuid; }
    void SetGodGuid(const QUuid& guid) { mGodGuid = guid; }
    const FCString& GetGodName() const { return mGodName; }
    int GetAlignmentId() const { return mAlignmentId; }
    int GetRestrictedAlignment() const { return mRestrictedAlignment; }
    bool GetIsRestrictedByRace() const { return mIsRestrictedByRace; }

private:
    QUuid mGodGuid;
    FCString mGodName;
    int mAlignmentId = 4;
    int mRestrictedAlignment = 0;
    bool mIsRestrictedByRace = false;
};
