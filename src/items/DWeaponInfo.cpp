#include "DWeaponInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DWeaponInfo, "DOffenseInfo", nullptr)

namespace {
bool isHead(int head) {
    return head == 0 || head == 1;
}
} // namespace

int DWeaponInfo::AdjustMasterWorkCost(int cost) const {
    return (mUseType == kUseDouble ? 2 : GetOffenseCount()) * cost;
}

qint32 DWeaponInfo::GetDamageDieCount(int head) const {
    return isHead(head) ? mDamageValues.mDieCount[head] : 0;
}

qint32 DWeaponInfo::GetDamageDieId(int head) const {
    return isHead(head) ? mDamageValues.mDieId[head] : 0;
}

qint32 DWeaponInfo::GetCriticalMultiplier(int head) const {
    return isHead(head) ? mCriticalValues.mMultiplier[head] : 0;
}

void DWeaponInfo::Serialize(FCArchive& archive) {
    DOffenseInfo::Serialize(archive);
    archive.Transfer(mSizeType);
    archive.Transfer(mSkillType);
    archive.TransferArray(mDamageValues.mDieCount);
    archive.TransferArray(mDamageValues.mDieId);
    archive.Transfer(mCriticalValues.mCriticalMin);
    archive.TransferArray(mCriticalValues.mMultiplier);
    archive.Transfer(mRangeIncrement);
    archive.Transfer(mDamageType);
    archive.Transfer(mUseType);
    archive.Transfer(mApplyStrModType);
    archive.Transfer(mMaxStrBonus);
    archive.Transfer(mMagicBonus);
    archive.Transfer(mActsAsWeaponId);
    archive.Transfer(mFamilyId);
    archive.Transfer(mWeaponFlags);
}

void DWeaponInfo::SetData(odbc::ResultSet* resultSet) {
    DItemInfo::SetData(resultSet);
    auto readInt = [resultSet](const char* column) {
        return resultSet->getInt(QString::fromLatin1(column));
    };
    auto readBool = [resultSet](const char* column) {
        return resultSet->getBoolean(QString::fromLatin1(column));
    };
    SetOffenseCount(readInt("Count"));
    SetRangeType(readInt("RangeId"));
    mSkillType = readInt("SkillId");
    mSizeType = readInt("SizeId");
    mDamageValues.mDieCount[0] = readInt("DmgDieCount1");
    mDamageValues.mDieCount[1] = readInt("DmgDieCount2");
    mDamageValues.mDieId[0] = readInt("DmgDieId1");
    mDamageValues.mDieId[1] = readInt("DmgDieId2");
    mCriticalValues.mCriticalMin = readInt("CriticalMin");
    mCriticalValues.mMultiplier[0] = readInt("CriticalX");
    mCriticalValues.mMultiplier[1] = readInt("CriticalX2");
    mRangeIncrement = readInt("RangeInc");
    mDamageType = readInt("DamageType");
    mUseType = readInt("WeaponUse");
    mApplyStrModType = readInt("StrBonus");
    mMaxStrBonus = readInt("MaxStrBonus");
    mMagicBonus = readInt("MagicBonus");
    mActsAsWeaponId = resultSet->getGUID(QStringLiteral("ActsAs"));
    mFamilyId = readInt("FamilyId");
    SetWeaponFlag(kWeaponFlagSubdual, readBool("SubdualDamage"));
    SetWeaponFlag(kWeaponFlagTwoHandedMultiplier, readBool("2HandedMultiplier"));
    // These two columns hold numbers rather than yes/no: any non-zero value counts.
    SetWeaponFlag(kWeaponFlagMonkUnarmed, readInt("MonkUnarmedWeapon") != 0);
    SetWeaponFlag(kWeaponFlagGrenadeLike, readInt("GrenadeLike") != 0);
    SetWeaponFlag(kWeaponFlagMagic, readBool("IsMagic"));
    SetWeaponFlag(kWeaponFlagCantBuy, readBool("CantBuy"));
}
