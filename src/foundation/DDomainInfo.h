#pragma once

#include "DInfo.h"
#include "FCString.h"

// One cleric domain of "[info Domain]".
class DDomainInfo : public DInfo {
    FC_DECLARE_CLASS(DDomainInfo)
public:
    FCObject* Clone() const override { return new DDomainInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mDomainGuid; }

    const QUuid& GetDomainGuid() const { return mDomainGuid; }
    void SetDomainGuid(const QUuid& guid) { mDomainGuid = guid; }
    const FCString& GetDomainName() const { return mDomainName; }
    const FCString& GetDomainAbility() const { return mDomainAbility; }
    // Flags of "[types Alignment Flags]".
    int GetRequiredAlignmentFlag() const { return mRequiredAlignmentFlag; }
    const QUuid& GetOpposingDomain() const { return mOpposingDomain; }

private:
    QUuid mDomainGuid;
    FCString mDomainName;
    FCString mDomainAbility;
    int mRequiredAlignmentFlag = 0;
    QUuid mOpposingDomain;
};
