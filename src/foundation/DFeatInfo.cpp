#include "DFeatInfo.h"

#include "DColumnPositions.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DFeatInfo, "DInfo", nullptr)

namespace {
enum Column : int { Guid, Name, Type, StackType, Target, ColumnCount };

constexpr std::array<const char*, ColumnCount> kColumnNames = {"Guid", "Name", "Type", "StackType",
                                                               "Target"};
} // namespace

void DFeatInfo::SetData(odbc::ResultSet* resultSet) {
    // Feats are always read with "SELECT *" on their table: the positions found once hold.
    static const auto column = DFindColumnPositions(resultSet, kColumnNames);

    mFeatGuid = resultSet->getGUID(column[Guid]);
    mFeatName = resultSet->getString(column[Name]);
    mFeatType = resultSet->getInt(column[Type]);
    mFeatStackType = resultSet->getInt(column[StackType]);
    mFeatTargetType = resultSet->getInt(column[Target]);
}

const FCString& DFeatInfo::GetFeatShortName() const {
    return mFeatShortName.isEmpty() ? mFeatName : mFeatShortName;
}
