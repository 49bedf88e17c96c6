#include "DFamiliarBonus.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DFamiliarBonus, "FCObject", nullptr)

DFamiliarBonus::DFamiliarBonus(const DFamiliarBonus& other)
    : FCObject(other), mBonusType(other.mBonusType), mBonusValue(other.mBonusValue),
      mTargetData(other.mTargetData ? other.mTargetData->Clone() : nullptr) {}

DFamiliarBonus& DFamiliarBonus::operator=(const DFamiliarBonus& other) {
    if (this != &other) {
        mBonusType = other.mBonusType;
        mBonusValue = other.mBonusValue;
        SetTargetData(other.mTargetData);
    }
    return *this;
}

DFamiliarBonus::~DFamiliarBonus() {
    ReplaceTargetData(nullptr);
}

void DFamiliarBonus::Serialize(FCArchive& archive) {
    archive.Transfer(mBonusType);
    archive.Transfer(mBonusValue);
    if (archive.IsStoring()) {
        archive.WriteObject(mTargetData);
        return;
    }
    FCObject* target = archive.ReadObject();
    if (target && !IsTargetData(target)) {
        target->Release();
        target = nullptr;
        archive.SetFailed();
    }
    ReplaceTargetData(target);
}

void DFamiliarBonus::SetTargetData(const FCObject* target) {
    ReplaceTargetData(IsTargetData(target) ? target->Clone() : nullptr);
}

bool DFamiliarBonus::IsTargetData(const FCObject* object) {
    const FCClassInfo* targetClass = FCClassInfo::Find("DTargetData");
    return object && targetClass && object->IsKindOf(targetClass);
}

void DFamiliarBonus::ReplaceTargetData(FCObject* target) {
    if (mTargetData == target)
        return;
    if (mTargetData)
        mTargetData->Release();
    mTargetData = target;
}
