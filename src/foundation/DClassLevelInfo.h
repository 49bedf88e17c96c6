#pragma once

#include "DInfo.h"

// Starting gold of a character of one level, from "[info Level Gold]".
class DClassLevelInfo : public DInfo {
    FC_DECLARE_CLASS(DClassLevelInfo)
public:
    FCObject* Clone() const override { return new DClassLevelInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mClassLevel; }

    int GetClassLevel() const { return mClassLevel; }
    int GetStartingGold() const { return mStartingGold; }

private:
    int mClassLevel = -1;
    int mStartingGold = 0;
};
