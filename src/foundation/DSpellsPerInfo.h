#pragma once

#include "DInfo.h"

// Spells per day (or spells known) of one class at one class level, by spell level 0 to 9.
class DSpellsPerInfo : public DInfo {
public:
    static constexpr int kSpellLevelCount = 10;

    FCObject* Clone() const override { return new DSpellsPerInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;

    const QUuid& GetClassId() const { return mClassId; }
    int GetLevel() const { return mLevel; }
    // Negative: the class has no slot of that level at all, as for a level outside 0 to 9.
    int GetSpellsPer(int spellLevel) const;
    int GetLevelNeedingBonus() const { return mLevelNeedingBonus; }

private:
    QUuid mClassId;
    int mLevel = 0;
    int mSpellsPer[kSpellLevelCount] = {};
    int mLevelNeedingBonus = 0;
};
