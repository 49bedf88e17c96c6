#include "DSpellsPerInfo.h"

#include "ResultSet.h"

void DSpellsPerInfo::SetData(odbc::ResultSet* resultSet) {
    mClassId = resultSet->getGUID(QStringLiteral("Id"));
    mLevel = resultSet->getInt(QStringLiteral("SubId"));
    for (int spellLevel = 0; spellLevel < kSpellLevelCount; ++spellLevel)
        mSpellsPer[spellLevel] = resultSet->getInt(QString::number(spellLevel));
    mLevelNeedingBonus = resultSet->getInt(QStringLiteral("LevelNeedingBonus"));
}

int DSpellsPerInfo::GetSpellsPer(int spellLevel) const {
    return spellLevel >= 0 && spellLevel < kSpellLevelCount ? mSpellsPer[spellLevel] : -1;
}
