#include "DSpellLevelInfo.h"

#include "DColumnPositions.h"
#include "ResultSet.h"

#include <cstring>

namespace {
enum Column : int { Id, ClassId, DomainId, Level, ColumnCount };

constexpr std::array<const char*, ColumnCount> kColumnNames = {"Id", "ClassId", "DomainId",
                                                               "Level"};

// QUuid's own order ranks the variant first; sets of these records need plain byte order.
int compareBytes(const QUuid& left, const QUuid& right) {
    const QByteArray leftBytes = left.toRfc4122();
    const QByteArray rightBytes = right.toRfc4122();
    return std::memcmp(leftBytes.constData(), rightBytes.constData(), 16);
}
} // namespace

void DSpellLevelInfo::SetData(odbc::ResultSet* resultSet) {
    // Spell levels are always read with "SELECT *" on their table: the positions found once
    // hold.
    static const auto column = DFindColumnPositions(resultSet, kColumnNames);

    mSpellId = resultSet->getGUID(column[Id]);
    mClassId = resultSet->getGUID(column[ClassId]);
    mDomainId = resultSet->getGUID(column[DomainId]);
    mLevel = resultSet->getInt(column[Level]);
}

bool DSpellLevelInfo::operator<(const FCObject& other) const {
    const auto* right = dynamic_cast<const DSpellLevelInfo*>(&other);
    if (!right)
        return FCObject::operator<(other);
    const int bySpell = compareBytes(mSpellId, right->mSpellId);
    if (bySpell != 0)
        return bySpell < 0;
    if (!mClassId.isNull())
        return compareBytes(mClassId, right->mClassId) < 0;
    return compareBytes(mDomainId, right->mDomainId) < 0;
}
