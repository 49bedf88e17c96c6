#pragma once

#include "DOffenseInfo.h"
#include "DWeaponCritValues.h"
#include "DWeaponDamageValues.h"

// A weapon of "[info Weapons]".
class DWeaponInfo : public DOffenseInfo {
    FC_DECLARE_CLASS(DWeaponInfo)
public:
    enum : quint32 {
        kWeaponFlagResizable = 0x1,
        kWeaponFlagSubdual = 0x2,
        kWeaponFlagTwoHandedMultiplier = 0x4,
        kWeaponFlagMonkUnarmed = 0x8,
        kWeaponFlagGrenadeLike = 0x10,
        kWeaponFlagMagic = 0x20,
        kWeaponFlagCantBuy = 0x40,
    };
    static constexpr qint32 kMediumSize = 4;
    // Rows of "[types Weapon Use]" that change a weapon's price.
    static constexpr qint32 kUseDouble = 3;
    static constexpr qint32 kUseAmmunition = 5;

    DWeaponInfo() = default;
    DWeaponInfo(const DWeaponInfo&) = default;
    DWeaponInfo& operator=(const DWeaponInfo&) = default;

    DWeaponInfo* Clone() const override { return new DWeaponInfo(*this); }
    // DOffenseInfo; size; skill; the two die counts; the two die ids; critical minimum; the
    // two multipliers; range increment; damage type; use type; strength rule; strength cap;
    // magic bonus; acts-as GUID; family; weapon flags.
    void Serialize(FCArchive& archive) override;
    // The whole row, the item columns included. The resizable flag is left as it is.
    void SetData(odbc::ResultSet* resultSet) override;
    // Ammunition rows stand for several pieces, each of which pays for masterwork; a double
    // weapon pays for both heads.
    int AdjustMasterWorkCost(int cost) const override;
    bool CanBeResized() const override { return HasWeaponFlag(kWeaponFlagResizable); }
    int GetSizeType() const override { return mSizeType; }
    void SetSizeType(int sizeType) override { mSizeType = sizeType; }
    int GetItemType() const override { return kItemWeapon; }

    qint32 GetSkillType() const { return mSkillType; }
    void SetSkillType(qint32 skillType) { mSkillType = skillType; }

    const DWeaponDamageValues& GetDamageValues() const { return mDamageValues; }
    void SetDamageValues(const DWeaponDamageValues& values) { mDamageValues = values; }
    // Head 0 or 1; 0 for any other index.
    qint32 GetDamageDieCount(int head) const;
    qint32 GetDamageDieId(int head) const;

    const DWeaponCritValues& GetCriticalValues() const { return mCriticalValues; }
    void SetCriticalValues(const DWeaponCritValues& values) { mCriticalValues = values; }
    qint32 GetCriticalMin() const { return mCriticalValues.mCriticalMin; }
    // Head 0 or 1; 0 for any other index.
    qint32 GetCriticalMultiplier(int head) const;

    qint32 GetRangeIncrement() const { return mRangeIncrement; }
    void SetRangeIncrement(qint32 feet) { mRangeIncrement = feet; }
    qint32 GetDamageType() const { return mDamageType; }
    void SetDamageType(qint32 type) { mDamageType = type; }
    qint32 GetUseType() const { return mUseType; }
    void SetUseType(qint32 type) { mUseType = type; }
    qint32 GetApplyStrModType() const { return mApplyStrModType; }
    void SetApplyStrModType(qint32 type) { mApplyStrModType = type; }
    qint32 GetMaxStrBonus() const { return mMaxStrBonus; }
    void SetMaxStrBonus(qint32 bonus) { mMaxStrBonus = bonus; }
    qint32 GetMagicBonus() const { return mMagicBonus; }
    void SetMagicBonus(qint32 bonus) { mMagicBonus = bonus; }
    const QUuid& GetActsAsWeaponId() const { return mActsAsWeaponId; }
    void SetActsAsWeaponId(const QUuid& weapon) { mActsAsWeaponId = weapon; }
    qint32 GetFamilyId() const { return mFamilyId; }
    void SetFamilyId(qint32 family) { mFamilyId = family; }

    quint32 GetWeaponFlags() const { return mWeaponFlags; }
    void SetWeaponFlags(quint32 flags) { mWeaponFlags = flags; }
    bool HasWeaponFlag(quint32 mask) const { return (mWeaponFlags & mask) != 0; }
    void AddWeaponFlag(quint32 mask) { mWeaponFlags |= mask; }
    void RemoveWeaponFlag(quint32 mask) { mWeaponFlags &= ~mask; }
    bool GetIsSubdualDamage() const { return HasWeaponFlag(kWeaponFlagSubdual); }
    bool GetApply2HandedMultiplier() const { return HasWeaponFlag(kWeaponFlagTwoHandedMultiplier); }
    bool GetIsMonkUnarmored() const { return HasWeaponFlag(kWeaponFlagMonkUnarmed); }
    bool GetIsGrenadeLike() const { return HasWeaponFlag(kWeaponFlagGrenadeLike); }
    bool GetIsMagic() const { return HasWeaponFlag(kWeaponFlagMagic); }

private:
    void SetWeaponFlag(quint32 mask, bool on) { on ? AddWeaponFlag(mask) : RemoveWeaponFlag(mask); }

    qint32 mSkillType = 0;
    qint32 mSizeType = kMediumSize;
    DWeaponDamageValues mDamageValues;
    DWeaponCritValues mCriticalValues;
    qint32 mRangeIncrement = 0;
    qint32 mDamageType = 0;
    qint32 mUseType = 0;
    qint32 mApplyStrModType = 0;
    qint32 mMaxStrBonus = 0;
    qint32 mMagicBonus = 0;
    QUuid mActsAsWeaponId;
    qint32 mFamilyId = 0;
    quint32 mWeaponFlags = kWeaponFlagResizable;
};
