#pragma once

#include "FCObject.h"

#include <QUuid>

namespace odbc {
class ResultSet;
}

// One effect of a magic item on a character: a bonus of a stacking type to what the modify type
// and the target name (a skill by GUID, or an ability in the target's first word).
class DMagicBonus : public FCObject {
    FC_DECLARE_CLASS(DMagicBonus)
public:
    static constexpr qint32 kSourceGenericItem = 13;

    DMagicBonus() = default;
    // The target's first word starts at -1: no ability.
    DMagicBonus(qint32 bonusType, qint32 bonus, qint32 modifyType);
    DMagicBonus(const DMagicBonus&) = default;
    DMagicBonus& operator=(const DMagicBonus&) = default;

    DMagicBonus* Clone() const override { return new DMagicBonus(*this); }
    // Bonus type; bonus; modify type; 16 target bytes; source item type; applied.
    void Serialize(FCArchive& archive) override;
    // The type, the bonus and the target bytes; not the source or whether it is applied.
    bool operator==(const DMagicBonus& other) const;

    // "BonusType", "Bonus", "ModifyType", and the target: "SkillId" for modify type 0,
    // "AbilityType" for modify types 2 and 6. Throws odbc::SQLException for a missing column.
    void SetData(odbc::ResultSet* resultSet);

    // A DMagicBonusType: the class of bonuses that do not stack with each other.
    qint32 GetBonusType() const { return mBonusType; }
    void SetBonusType(qint32 type) { mBonusType = type; }
    qint32 GetBonus() const { return mBonus; }
    void SetBonus(qint32 bonus) { mBonus = bonus; }
    // A DMagicModifyType: what the bonus changes.
    qint32 GetModifyType() const { return mModifyType; }
    void SetModifyType(qint32 type) { mModifyType = type; }

    // All 16 target bytes, as a GUID.
    const QUuid& GetTargetGuid() const { return mTarget; }
    void SetTargetGuid(const QUuid& target) { mTarget = target; }
    // The target's first word; the other 12 bytes are left as they are.
    qint32 GetTargetData() const { return qint32(mTarget.data1); }
    void SetTargetData(qint32 value) { mTarget.data1 = quint32(value); }

    qint32 GetSourceItemType() const { return mSourceItemType; }
    void SetSourceItemType(qint32 type) { mSourceItemType = type; }
    bool GetIsApplied() const { return mIsApplied; }
    void SetIsApplied(bool applied) { mIsApplied = applied; }

private:
    qint32 mBonusType = 0;
    qint32 mBonus = 0;
    qint32 mModifyType = 0;
    QUuid mTarget;
    qint32 mSourceItemType = kSourceGenericItem;
    bool mIsApplied = true;
};
