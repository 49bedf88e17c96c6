#pragma once

#include "DInfo.h"
#include "FCString.h"

// One language of "[info Language]".
class DLanguageInfo : public DInfo {
    FC_DECLARE_CLASS(DLanguageInfo)
public:
    FCObject* Clone() const override { return new DLanguageInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mLanguageId; }
    QUuid GetPrimaryKeyGuid() const override { return mLanguageGuid; }

    const QUuid& GetLanguageGuid() const { return mLanguageGuid; }
    void SetLanguageGuid(const QUuid& guid) { mLanguageGuid = guid; }
    int GetLanguageId() const { return mLanguageId; }
    const FCString& GetLanguageName() const { return mLanguageName; }
    bool GetIsSecret() const { return mIsSecret; }
    bool GetIsAutoOnly() const { return mIsAutoOnly; }
    // Not read with the row: help text is fetched on its own when shown.
    const FCString& GetHelpText() const { return mHelpText; }

private:
    QUuid mLanguageGuid;
    int mLanguageId = -1;
    FCString mLanguageName;
    bool mIsSecret = false;
    bool mIsAutoOnly = false;
    FCString mHelpText;
};
