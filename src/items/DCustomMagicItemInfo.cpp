#include "DCustomMagicItemInfo.h"

#include "DItemArchive.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCustomMagicItemInfo, "DMagicItemInfo", nullptr)

namespace {
// Bonuses may come from a file: their sum wraps instead of overflowing.
qint32 wrappingAdd(qint32 a, qint32 b) {
    return qint32(quint32(a) + quint32(b));
}
qint32 wrappingSub(qint32 a, qint32 b) {
    return qint32(quint32(a) - quint32(b));
}
} // namespace

DCustomMagicItemInfo::DCustomMagicItemInfo() {
    mSpecialAbilities.SetOwnership(kFCRetained);
}

DCustomMagicItemInfo::DCustomMagicItemInfo(const DCustomMagicItemInfo& other)
    : DMagicItemInfo(other), mBaseItemInfo(DItemInfo::ShareOrClone(other.mBaseItemInfo)),
      mCustomFlags(other.mCustomFlags), mTargetData(DCloneOrNull(other.mTargetData)),
      mBonus(other.mBonus), mSecondBonus(other.mSecondBonus),
      mSpecialAbilityBonus(other.mSpecialAbilityBonus) {
    DCloneList(mSpecialAbilities, other.mSpecialAbilities);
}

DCustomMagicItemInfo& DCustomMagicItemInfo::operator=(const DCustomMagicItemInfo& other) {
    if (this == &other)
        return *this;
    DMagicItemInfo::operator=(other);
    DItemInfo* base = DItemInfo::ShareOrClone(other.mBaseItemInfo);
    FCObject* target = DCloneOrNull(other.mTargetData);
    if (mBaseItemInfo)
        mBaseItemInfo->Release();
    if (mTargetData)
        mTargetData->Release();
    mBaseItemInfo = base;
    mTargetData = target;
    mCustomFlags = other.mCustomFlags;
    mBonus = other.mBonus;
    mSecondBonus = other.mSecondBonus;
    mSpecialAbilityBonus = other.mSpecialAbilityBonus;
    DCloneList(mSpecialAbilities, other.mSpecialAbilities);
    return *this;
}

DCustomMagicItemInfo::~DCustomMagicItemInfo() {
    if (mBaseItemInfo)
        mBaseItemInfo->Release();
    if (mTargetData)
        mTargetData->Release();
}

void DCustomMagicItemInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    if (archive.IsStoring()) {
        DItemInfo::SmartWriteInfo(archive, mBaseItemInfo);
    } else {
        DItemInfo* base = DItemInfo::SmartReadInfo(archive);
        if (mBaseItemInfo)
            mBaseItemInfo->Release();
        mBaseItemInfo = base;
    }
    archive.Transfer(mCustomFlags);
    DTransferOwnedObject(archive, mTargetData);
    archive.Transfer(mBonus);
    archive.Transfer(mSecondBonus);
    archive.Transfer(mSpecialAbilityBonus);
    DTransferOwnedList(archive, mSpecialAbilities);
}

bool DCustomMagicItemInfo::CanBeResized() const {
    return mBaseItemInfo && mBaseItemInfo->CanBeResized();
}

int DCustomMagicItemInfo::GetSizeType() const {
    return mBaseItemInfo ? mBaseItemInfo->GetSizeType() : -1;
}

void DCustomMagicItemInfo::SetSizeType(int sizeType) {
    if (mBaseItemInfo)
        mBaseItemInfo->SetSizeType(sizeType);
}

void DCustomMagicItemInfo::SetBaseItemInfo(DItemInfo* info) {
    DAssignRetained(mBaseItemInfo, info);
}

void DCustomMagicItemInfo::SetTargetData(FCObject* target) {
    DAssignRetained(mTargetData, target);
}

DMagicSpecialAbility* DCustomMagicItemInfo::AddSpecialAbility(qint32 type, qint32 category,
                                                              qint32 rank, qint32 bonus) {
    auto* ability = new DMagicSpecialAbility(type, category, rank, bonus);
    mSpecialAbilities.Add(ability);
    ability->Release();
    mSpecialAbilityBonus = wrappingAdd(mSpecialAbilityBonus, bonus);
    return ability;
}

bool DCustomMagicItemInfo::RemoveSpecialAbility(qint32 type) {
    DMagicSpecialAbility* ability = FindSpecialAbility(type);
    if (!ability)
        return false;
    mSpecialAbilityBonus = wrappingSub(mSpecialAbilityBonus, ability->GetBonus());
    mSpecialAbilities.Remove(ability);
    return true;
}

void DCustomMagicItemInfo::RemoveAllSpecialAbilities() {
    mSpecialAbilities.RemoveAll();
    mSpecialAbilityBonus = 0;
}

DMagicSpecialAbility* DCustomMagicItemInfo::FindSpecialAbility(qint32 type) const {
    for (DMagicSpecialAbility* ability : mSpecialAbilities) {
        if (ability->GetType() == type)
            return ability;
    }
    return nullptr;
}

DMagicSpecialAbility* DCustomMagicItemInfo::FindSpecialAbilityByCategory(qint32 category) const {
    for (DMagicSpecialAbility* ability : mSpecialAbilities) {
        if (ability->GetCategory() == category)
            return ability;
    }
    return nullptr;
}
