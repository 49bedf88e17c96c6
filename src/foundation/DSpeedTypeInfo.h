#pragma once

#include "DInfo.h"
#include "FCString.h"

// One kind of movement of "[info Speed]" (land, fly, swim, ...) and how armor and load scale it.
class DSpeedTypeInfo : public DInfo {
    FC_DECLARE_CLASS(DSpeedTypeInfo)
public:
    // Armor weight: light, medium, heavy. Load: light, medium, heavy, over.
    static constexpr int kArmorWeightCount = 3;
    static constexpr int kLoadCount = 4;

    FCObject* Clone() const override { return new DSpeedTypeInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSpeedTypeId; }

    int GetSpeedTypeId() const { return mSpeedTypeId; }
    const FCString& GetSpeedTypeName() const { return mSpeedTypeName; }
    // 0 outside the index range.
    float GetArmorWeightMult(int weightType) const;
    float GetLoadMult(int loadType) const;

private:
    static const FCString mArmorColumnNames[kArmorWeightCount];
    static const FCString mLoadColumnNames[kLoadCount];

    int mSpeedTypeId = -1;
    FCString mSpeedTypeName;
    float mArmorWeightMult[kArmorWeightCount] = {};
    float mLoadMult[kLoadCount] = {};
};
