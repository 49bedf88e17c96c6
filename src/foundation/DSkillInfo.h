#pragma once

#include "DInfo.h"
#include "FCString.h"

// One skill of "[info Skill]".
class DSkillInfo : public DInfo {
    FC_DECLARE_CLASS(DSkillInfo)
public:
    // Bits of the skill flags.
    enum : unsigned {
        kSkillIsMulti = 0x1,          // has sub-skills
        kSkillUntrained = 0x2,        // usable untrained
        kSkillACPenalty = 0x4,        // armor check penalty applies
        kSkillNonProfACPenalty = 0x8, // penalty of armor worn without proficiency applies
        kSkillExclusive = 0x10,
    };

    FCObject* Clone() const override { return new DSkillInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mSkillId; }
    QUuid GetPrimaryKeyGuid() const override { return mSkillGuid; }

    const QUuid& GetSkillGuid() const { return mSkillGuid; }
    void SetSkillGuid(const QUuid& guid) { mSkillGuid = guid; }
    const FCString& GetSkillName() const { return mSkillName; }
    // The short name, or the name when there is none.
    const FCString& GetSkillShortName() const;
    int GetAbilityModId() const { return mAbilityModId; }
    unsigned GetSkillInfoFlags() const { return mSkillInfoFlags; }
    bool HasSkillInfoFlag(unsigned mask) const { return (mSkillInfoFlags & mask) != 0; }
    bool GetIsMultiType() const { return HasSkillInfoFlag(kSkillIsMulti); }
    bool GetUseUntrained() const { return HasSkillInfoFlag(kSkillUntrained); }
    bool GetDoesACPenaltyApply() const { return HasSkillInfoFlag(kSkillACPenalty); }
    bool GetDoesNonProfACPenaltyApply() const { return HasSkillInfoFlag(kSkillNonProfACPenalty); }
    bool GetIsExclusive() const { return HasSkillInfoFlag(kSkillExclusive); }
    int GetPenaltyPounds() const { return mPenaltyPounds; }

private:
    QUuid mSkillGuid;
    int mSkillId = -1;
    FCString mSkillName;
    FCString mSkillShortName; // no column: stays empty unless a later source fills it
    int mAbilityModId = 0;
    unsigned mSkillInfoFlags = 0;
    int mPenaltyPounds = 0;
};
