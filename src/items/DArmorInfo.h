#pragma once

#include "DArmorShieldBaseInfo.h"

// A suit of armor of "[info Armor]".
class DArmorInfo : public DArmorShieldBaseInfo {
    FC_DECLARE_CLASS(DArmorInfo)
public:
    DArmorInfo() = default;
    DArmorInfo(const DArmorInfo&) = default;
    DArmorInfo& operator=(const DArmorInfo&) = default;

    DArmorInfo* Clone() const override { return new DArmorInfo(*this); }
    // The armor and shield part; weight type; max dex.
    void Serialize(FCArchive& archive) override;
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemArmor; }

    // 0 light, 1 medium, 2 heavy.
    qint32 GetWeightType() const { return mWeightType; }
    void SetWeightType(qint32 type) { mWeightType = type; }
    qint32 GetMaxDex() const { return mMaxDex; }
    void SetMaxDex(qint32 maxDex) { mMaxDex = maxDex; }

private:
    qint32 mWeightType = 0;
    qint32 mMaxDex = 0;
};
