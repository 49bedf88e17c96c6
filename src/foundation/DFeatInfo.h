#pragma once

#include "DInfo.h"
#include "FCString.h"

// One feat of "[info Feat]".
class DFeatInfo : public DInfo {
    FC_DECLARE_CLASS(DFeatInfo)
public:
    FCObject* Clone() const override { return new DFeatInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mFeatGuid; }

    const QUuid& GetFeatGuid() const { return mFeatGuid; }
    void SetFeatGuid(const QUuid& guid) { mFeatGuid = guid; }
    const FCString& GetFeatName() const { return mFeatName; }
    // The short name, or the name when there is none.
    const FCString& GetFeatShortName() const;
    // Row ids of "[types Feat]", "[types Feat Stacking]" and "[types Feat Target]".
    int GetFeatType() const { return mFeatType; }
    int GetFeatStackType() const { return mFeatStackType; }
    int GetFeatTargetType() const { return mFeatTargetType; }

private:
    QUuid mFeatGuid;
    FCString mFeatName;
    FCString mFeatShortName; // no column: stays empty unless a later source fills it
    int mFeatType = 0;
    int mFeatStackType = 0;
    int mFeatTargetType = 0;
};
