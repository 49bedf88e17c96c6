#pragma once

#include "DInfo.h"

// Ability changes of one age category, from "[info Advancement Age]", by ability index
// (Strength, Dexterity, Constitution, Intelligence, Wisdom, Charisma).
class DAgeChangeInfo : public DInfo {
    FC_DECLARE_CLASS(DAgeChangeInfo)
public:
    static constexpr int kAbilityCount = 6;

    FCObject* Clone() const override { return new DAgeChangeInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mAgeChangeId; }

    int GetAgeChangeId() const { return mAgeChangeId; }
    // 0 for an index outside 0 to 5.
    int GetAdjustValue(int ability) const;

private:
    int mAgeChangeId = -1;
    int mAdjustValues[kAbilityCount] = {};
};
