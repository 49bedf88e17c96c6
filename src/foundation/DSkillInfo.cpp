#include "DSkillInfo.h"

#include "DColumnPositions.h"
#include "ResultSet.h"

#include <iterator>

FC_IMPLEMENT_CLASS(DSkillInfo, "DInfo", nullptr)

namespace {
enum Column : int {
    Guid,
    Id,
    Name,
    StatId,
    IsMulti,
    Untrain,
    ACPen,
    NPACPen,
    Exclusive,
    PenaltyPounds,
    ColumnCount
};

constexpr std::array<const char*, ColumnCount> kColumnNames = {
    "Guid",    "ID",    "NAME",    "StatId",    "IsMulti",
    "Untrain", "ACPen", "NPACPen", "Exclusive", "PenaltyPounds"};

// Flag bit of each boolean column, in column order from IsMulti.
constexpr unsigned kFlagBits[] = {DSkillInfo::kSkillIsMulti, DSkillInfo::kSkillUntrained,
                                  DSkillInfo::kSkillACPenalty, DSkillInfo::kSkillNonProfACPenalty,
                                  DSkillInfo::kSkillExclusive};
} // namespace

void DSkillInfo::SetData(odbc::ResultSet* resultSet) {
    // Skills are always read with "SELECT *" on their table: the positions found once hold.
    static const auto column = DFindColumnPositions(resultSet, kColumnNames);

    mSkillGuid = resultSet->getGUID(column[Guid]);
    mSkillId = int(resultSet->getLong(column[Id]));
    mSkillName = resultSet->getString(column[Name]);
    mAbilityModId = resultSet->getInt(column[StatId]);
    mSkillInfoFlags = 0;
    for (int i = 0; i < int(std::size(kFlagBits)); ++i) {
        if (resultSet->getBoolean(column[IsMulti + i]))
            mSkillInfoFlags |= kFlagBits[i];
    }
    mPenaltyPounds = resultSet->getInt(column[PenaltyPounds]);
}

const FCString& DSkillInfo::GetSkillShortName() const {
    return mSkillShortName.isEmpty() ? mSkillName : mSkillShortName;
}
