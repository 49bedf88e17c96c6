#pragma once

#include "DInfo.h"
#include "FCString.h"

// One spell of "[info Spell]". The type getters give row ids of the matching "[types ...]" tables.
class DSpellInfo : public DInfo {
public:
    FCObject* Clone() const override { return new DSpellInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSpellId; }
    QUuid GetPrimaryKeyGuid() const override { return mSpellGuid; }

    const QUuid& GetSpellGuid() const { return mSpellGuid; }
    void SetSpellGuid(const QUuid& guid) { mSpellGuid = guid; }
    int GetSpellId() const { return mSpellId; }
    void SetSpellId(int id) { mSpellId = id; }
    const FCString& GetSpellName() const { return mSpellName; }
    // The short name, or the name when there is none.
    const FCString& GetSpellShortName() const;
    int GetSchoolId() const { return mSchoolId; }
    int GetCastingTime() const { return mCastingTime; }
    int GetCastingTimeType() const { return mCastingTimeType; }
    int GetRangeType() const { return mRangeType; }
    int GetDurationType() const { return mDurationType; }
    int GetSaveType() const { return mSaveType; }
    int GetMaterialCost() const { return mMaterialCost; }
    int GetWandCost() const { return mWandCost; }
    // Flags of "[types Spell Component Flags]".
    int GetComponentsId() const { return mComponentsId; }
    int GetResistanceId() const { return mResistanceId; }
    // Flags of "[types Spell Descriptors]".
    int GetDescriptorsId() const { return mDescriptorsId; }

private:
    QUuid mSpellGuid;
    int mSpellId = -1;
    FCString mSpellName;
    FCString mSpellShortName;
    int mSchoolId = 0;
    int mCastingTime = 0;
    int mCastingTimeType = 0;
    int mRangeType = 0;
    int mDurationType = 0;
    int mSaveType = 0;
    int mMaterialCost = 0;
    int mWandCost = 0;
    int mComponentsId = 0;
    int mResistanceId = 0;
    int mDescriptorsId = 0;
};
