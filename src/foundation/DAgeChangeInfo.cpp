#include "DAgeChangeInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DAgeChangeInfo, "DInfo", nullptr)

void DAgeChangeInfo::SetData(odbc::ResultSet* resultSet) {
    mAgeChangeId = int(resultSet->getLong(QStringLiteral("Id")));
    static const char* const kAdjustColumns[kAbilityCount] = {"AdjStr", "AdjDex", "AdjCon",
                                                              "AdjInt", "AdjWis", "AdjCha"};
    for (int ability = 0; ability < kAbilityCount; ++ability)
        mAdjustValues[ability] = resultSet->getInt(QString::fromLatin1(kAdjustColumns[ability]));
}

int DAgeChangeInfo::GetAdjustValue(int ability) const {
    return ability >= 0 && ability < kAbilityCount ? mAdjustValues[ability] : 0;
}
