#include "DMagicBonus.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DMagicBonus, "FCObject", nullptr)

namespace {
// Modify types whose target is a skill GUID (one skill), and those whose target is an ability
// index (one ability; the skills keyed to one ability).
constexpr qint32 kModifySkill = 0;
constexpr qint32 kModifyAbility = 2;
constexpr qint32 kModifyAbilitySkills = 6;
} // namespace

DMagicBonus::DMagicBonus(qint32 bonusType, qint32 bonus, qint32 modifyType)
    : mBonusType(bonusType), mBonus(bonus), mModifyType(modifyType) {
    SetTargetData(-1);
}

void DMagicBonus::Serialize(FCArchive& archive) {
    archive.Transfer(mBonusType);
    archive.Transfer(mBonus);
    archive.Transfer(mModifyType);
    archive.Transfer(mTarget);
    archive.Transfer(mSourceItemType);
    archive.Transfer(mIsApplied);
}

bool DMagicBonus::operator==(const DMagicBonus& other) const {
    return mBonusType == other.mBonusType && mBonus == other.mBonus &&
           mModifyType == other.mModifyType && mTarget == other.mTarget;
}

void DMagicBonus::SetData(odbc::ResultSet* resultSet) {
    mBonusType = resultSet->getInt(QStringLiteral("BonusType"));
    mBonus = resultSet->getInt(QStringLiteral("Bonus"));
    mModifyType = resultSet->getInt(QStringLiteral("ModifyType"));
    if (mModifyType == kModifySkill)
        mTarget = resultSet->getGUID(QStringLiteral("SkillId"));
    else if (mModifyType == kModifyAbility || mModifyType == kModifyAbilitySkills)
        SetTargetData(resultSet->getInt(QStringLiteral("AbilityType")));
}
