#include "DAlignmentInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DAlignmentInfo, "DInfo", nullptr)

void DAlignmentInfo::SetData(odbc::ResultSet* resultSet) {
    mAlignmentId = int(resultSet->getLong(QStringLiteral("ID")));
    mSortValue = resultSet->getInt(QStringLiteral("SORTNUM"));
    mAlignmentName = resultSet->getString(QStringLiteral("NAME"));
    mAlignmentShortName = resultSet->getString(QStringLiteral("ShortName"));
    for (int i = 0; i < kOneOffCount; ++i)
        mOneOff[i] = resultSet->getInt(QStringLiteral("ONEOFF%1").arg(i));
}

bool DAlignmentInfo::GetIsOneOffAlignment(int id) const {
    if (id == mAlignmentId)
        return true;
    for (const int neighbour : mOneOff) {
        if (id == neighbour)
            return true;
    }
    return false;
}
