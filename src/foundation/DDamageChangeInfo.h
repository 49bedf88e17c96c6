#pragma once

#include "DDieData.h"
#include "DInfo.h"

// What a damage die becomes one size step up or down, from "[info Advancement Damage]".
class DDamageChangeInfo : public DInfo {
    FC_DECLARE_CLASS(DDamageChangeInfo)
public:
    FCObject* Clone() const override { return new DDamageChangeInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mFromDieId; }

    int GetFromDieId() const { return mFromDieId; }
    const DDieData& GetUpDieData() const { return mUpDieData; }
    const DDieData& GetDownDieData() const { return mDownDieData; }

private:
    int mFromDieId = -1;
    DDieData mUpDieData;
    DDieData mDownDieData;
};
