#pragma once

#include "DInfo.h"
#include "FCString.h"

// One load category of "[info Load]" and what it costs in armor and speed.
class DLoadInfo : public DInfo {
    FC_DECLARE_CLASS(DLoadInfo)
public:
    FCObject* Clone() const override { return new DLoadInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mLoadId; }

    int GetLoadId() const { return mLoadId; }
    const FCString& GetLoadName() const { return mLoadName; }
    int GetMaxDex() const { return mMaxDex; }
    int GetCheckPenalty() const { return mCheckPenalty; }
    float GetSpeedMultiplier() const { return mSpeedMultiplier; }
    int GetRunMultiplier() const { return mRunMultiplier; }

private:
    int mLoadId = -1;
    FCString mLoadName;
    int mMaxDex = 0;
    int mCheckPenalty = 0;
    float mSpeedMultiplier = 0.0f;
    int mRunMultiplier = 0;
};
