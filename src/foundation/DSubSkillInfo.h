#pragma once

#include "DInfo.h"
#include "FCString.h"

// One sub-skill of "[info Skill Sub]" (a craft, a knowledge, ...), named by its skill and its own
// GUID.
class DSubSkillInfo : public DInfo {
public:
    FCObject* Clone() const override { return new DSubSkillInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;

    const QUuid& GetSkillGuid() const { return mSkillGuid; }
    const QUuid& GetSubSkillGuid() const { return mSubSkillGuid; }
    const FCString& GetSubSkillName() const { return mSubSkillName; }
    // Not read with the row: help text is fetched on its own when shown.
    const FCString& GetHelpText() const { return mHelpText; }

private:
    QUuid mSkillGuid;
    QUuid mSubSkillGuid;
    FCString mSubSkillName;
    FCString mHelpText;
};
