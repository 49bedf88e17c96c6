#include "DAttackInfo.h"

#include "DDatabase.h"
#include "DSimpleInfo.h"
#include "FCArchive.h"

namespace {
constexpr int kRaceAttackTable = 26;
constexpr int kWeaponRangeHelper = 4;
} // namespace

FC_IMPLEMENT_CLASS(DAttackInfo, "DOffenseInfo", nullptr)

void DAttackInfo::Serialize(FCArchive& archive) {
    DOffenseInfo::Serialize(archive);
    archive.Transfer(mItemId);
    archive.Transfer(mAttackTypeId);
    archive.Transfer(mAttackRangeIsTouch);
    archive.Transfer(mAttackTotalBonus);
    archive.Transfer(mAttackUserMod);
    archive.Transfer(mDamageDieCount);
    archive.Transfer(mDamageDieId);
    archive.Transfer(mDamageBonus);
}

FCString DAttackInfo::GetAttackDescription() const {
    DSimpleInfo attackType;
    DDatabase::GetInfo(kRaceAttackTable, mAttackTypeId, &attackType);
    if (GetOffenseCount() > 1)
        return QString::number(GetOffenseCount()) + QLatin1Char(' ') + attackType.GetInfoName();
    return attackType.GetInfoName();
}

FCString DAttackInfo::GetAttackRangeDescription() const {
    const DSimpleInfo* range = DDatabase::GetHelperInfo(kWeaponRangeHelper, GetRangeType());
    FCString text = range ? range->GetInfoName() : FCString();
    if (mAttackRangeIsTouch)
        text += QStringLiteral(" (touch)");
    return text;
}
