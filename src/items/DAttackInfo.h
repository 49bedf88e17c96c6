#pragma once

#include "DOffenseInfo.h"

// A natural or user-made attack of a creature. It has no row of its own in the rules database.
class DAttackInfo : public DOffenseInfo {
    FC_DECLARE_CLASS(DAttackInfo)
public:
    DAttackInfo() = default;
    DAttackInfo(const DAttackInfo&) = default;
    DAttackInfo& operator=(const DAttackInfo&) = default;

    DAttackInfo* Clone() const override { return new DAttackInfo(*this); }
    // DOffenseInfo; item id; attack type; touch; total bonus; user mod; die count; die id;
    // damage bonus.
    void Serialize(FCArchive& archive) override;
    int GetItemType() const override { return kItemAttack; }

    // The attack type's name, after the count and a blank for more than one attack: "2 Claw".
    FCString GetAttackDescription() const;
    // The range's name, and " (touch)" for a touch attack.
    FCString GetAttackRangeDescription() const;

    qint32 GetItemId() const { return mItemId; }
    void SetItemId(qint32 id) { mItemId = id; }
    qint32 GetAttackTypeId() const { return mAttackTypeId; }
    void SetAttackTypeId(qint32 id) { mAttackTypeId = id; }
    bool GetAttackRangeIsTouch() const { return mAttackRangeIsTouch; }
    void SetAttackRangeIsTouch(bool touch) { mAttackRangeIsTouch = touch; }
    qint32 GetAttackTotalBonus() const { return mAttackTotalBonus; }
    void SetAttackTotalBonus(qint32 bonus) { mAttackTotalBonus = bonus; }
    qint32 GetAttackUserMod() const { return mAttackUserMod; }
    void SetAttackUserMod(qint32 mod) { mAttackUserMod = mod; }
    qint32 GetDamageDieCount() const { return mDamageDieCount; }
    void SetDamageDieCount(qint32 count) { mDamageDieCount = count; }
    qint32 GetDamageDieId() const { return mDamageDieId; }
    void SetDamageDieId(qint32 id) { mDamageDieId = id; }
    qint32 GetDamageBonus() const { return mDamageBonus; }
    void SetDamageBonus(qint32 bonus) { mDamageBonus = bonus; }

private:
    qint32 mItemId = -1;
    qint32 mAttackTypeId = 0;
    bool mAttackRangeIsTouch = false;
    qint32 mAttackTotalBonus = 0;
    qint32 mAttackUserMod = 0;
    qint32 mDamageDieCount = 0;
    qint32 mDamageDieId = 0;
    qint32 mDamageBonus = 0;
};
