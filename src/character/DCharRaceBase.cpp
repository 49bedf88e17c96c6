#include "DCharRaceBase.h"

#include "DAttackInfo.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DOffenseGroup.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCharRaceBase, "FCObject", nullptr)

DCharRaceBase::DCharRaceBase() {
    mSkillSet.SetOwnership(kFCRetained);
    mFeatSet.SetOwnership(kFCRetained);
    mLanguageMap.SetOwnership(kFCRetained);
    mAttackMap.SetOwnership(kFCRetained);
    mOffenseGroupArray.SetOwnership(kFCRetained);
    mSpeedArray.SetOwnership(kFCRetained);
}

DCharRaceBase::DCharRaceBase(const DCharRaceBase& other) : DCharRaceBase() {
    CopyBase(other);
}

DCharRaceBase& DCharRaceBase::operator=(const DCharRaceBase& other) {
    if (this != &other)
        CopyBase(other);
    return *this;
}

DCharRaceBase::~DCharRaceBase() = default;

void DCharRaceBase::CopyBase(const DCharRaceBase& other) {
    mSkillSet.CloneFrom(other.mSkillSet);
    mFeatSet.CloneFrom(other.mFeatSet);
    mLanguageMap.CloneFrom(other.mLanguageMap);
    mNextAttackId = other.mNextAttackId;
    mAttackMap.CloneFrom(other.mAttackMap);
    mOffenseGroupArray.CloneFrom(other.mOffenseGroupArray);
    mSpeedArray.CloneFrom(other.mSpeedArray);
    mPortraitName = other.mPortraitName;
    mSoundName = other.mSoundName;
}

void DCharRaceBase::ClearBase() {
    mSkillSet.RemoveAll();
    mFeatSet.RemoveAll();
    mLanguageMap.RemoveAll();
    mNextAttackId = 0;
    mAttackMap.RemoveAll();
    mOffenseGroupArray.RemoveAll();
    mSpeedArray.RemoveAll();
    mPortraitName.clear();
    mSoundName.clear();
}

void DCharRaceBase::Serialize(FCArchive& archive) {
    mSkillSet.Serialize(archive);
    mFeatSet.Serialize(archive);
    mLanguageMap.Serialize(archive);
    archive.Transfer(mNextAttackId);
    archive.Transfer(mPortraitName);
    archive.Transfer(mSoundName);
    mAttackMap.Serialize(archive);
    mOffenseGroupArray.Serialize(archive);
    mSpeedArray.Serialize(archive);
}

DChosenSkill* DCharRaceBase::GetSkillPointer(const QUuid& skill, const QUuid& subSkill) const {
    DChosenSkill key;
    key.SetSkillId(skill);
    key.SetSubSkillId(subSkill);
    return mSkillSet.Find(key);
}

bool DCharRaceBase::HasSkill(const QUuid& skill, const QUuid& subSkill) const {
    return GetSkillPointer(skill, subSkill) != nullptr;
}

bool DCharRaceBase::HasAnySkill(const QUuid& skill) const {
    for (const auto& entry : mSkillSet) {
        if (entry->GetSkillId() == skill)
            return true;
    }
    return false;
}

bool DCharRaceBase::RemoveSkill(const QUuid& skill, const QUuid& subSkill) {
    DChosenSkill key;
    key.SetSkillId(skill);
    key.SetSubSkillId(subSkill);
    return mSkillSet.Remove(key);
}

DChosenFeat* DCharRaceBase::GetFeat(const QUuid& feat, const QUuid& target,
                                    const QUuid& subTarget) const {
    for (const auto& entry : mFeatSet) {
        if (entry->GetFeatGuid() == feat && entry->GetTargetGuid() == target &&
            entry->GetTargetSubGuid() == subTarget)
            return entry.Get();
    }
    return nullptr;
}

DChosenFeat* DCharRaceBase::GetFeat(const QUuid& feat, int target, int subTarget) const {
    // -1 stands for no target; any other number is compared with the stored whole number.
    const auto matches = [](const QUuid& stored, int storedLong, int wanted) {
        return wanted == -1 ? stored.isNull() : storedLong == wanted;
    };
    for (const auto& entry : mFeatSet) {
        if (entry->GetFeatGuid() == feat &&
            matches(entry->GetTargetGuid(), entry->GetTargetLong(), target) &&
            matches(entry->GetTargetSubGuid(), entry->GetTargetSubLong(), subTarget))
            return entry.Get();
    }
    return nullptr;
}

bool DCharRaceBase::HasFeat(const QUuid& feat, const QUuid& target, const QUuid& subTarget) const {
    return GetFeat(feat, target, subTarget) != nullptr;
}

bool DCharRaceBase::HasFeat(const QUuid& feat, int target, int subTarget) const {
    return GetFeat(feat, target, subTarget) != nullptr;
}

int DCharRaceBase::GetFeatCount(const QUuid& feat, const QUuid& target,
                                const QUuid& subTarget) const {
    int count = 0;
    for (const auto& entry : mFeatSet) {
        if (entry->GetFeatGuid() == feat && entry->GetTargetGuid() == target &&
            entry->GetTargetSubGuid() == subTarget)
            count += entry->GetCount();
    }
    return count;
}

int DCharRaceBase::GetFeatTypeCount(int featType) const {
    int count = 0;
    for (const auto& entry : mFeatSet) {
        const DFeatInfo* info = DDatabase::GetFeatInfo(entry->GetFeatGuid());
        if (info && int(info->GetFeatType()) == featType)
            count += entry->GetCount();
    }
    return count;
}

bool DCharRaceBase::RemoveFeat(DChosenFeat* feat) {
    return feat && mFeatSet.Remove(*feat);
}

DChosenLanguage* DCharRaceBase::GetLanguagePointer(const QUuid& language) const {
    return mLanguageMap.Lookup(language);
}

void DCharRaceBase::AddLanguage(DChosenLanguage* language) {
    mLanguageMap.SetAt(language->GetLanguageGuid(), language);
}

int DCharRaceBase::AddAttack(DAttackInfo* attack) {
    const int id = mNextAttackId;
    AddAttack(attack, id);
    return id;
}

void DCharRaceBase::AddAttack(DAttackInfo* attack, int id) {
    mAttackMap.SetAt(id, attack);
    if (id == mNextAttackId)
        FindNextAttackId();
}

bool DCharRaceBase::RemoveAttack(int id) {
    if (!mAttackMap.RemoveKey(id))
        return false;
    if (id < mNextAttackId)
        mNextAttackId = id;
    return true;
}

void DCharRaceBase::RemoveAllAttacks() {
    mAttackMap.RemoveAll();
    mNextAttackId = 0;
}

void DCharRaceBase::FindNextAttackId() {
    mNextAttackId = mAttackMap.FindFreeKey(mNextAttackId);
}

DChosenSpeed* DCharRaceBase::GetSpeedPointer(int speedType) const {
    for (DChosenSpeed* speed : mSpeedArray) {
        if (speed->GetSpeedId() == speedType)
            return speed;
    }
    return nullptr;
}

DChosenSpeed* DCharRaceBase::GetBaseSpeedPointer() const {
    if (DChosenSpeed* land = GetSpeedPointer(1))
        return land;
    return mSpeedArray.At(0);
}

bool DCharRaceBase::RemoveSpeed(int speedType) {
    DChosenSpeed* speed = GetSpeedPointer(speedType);
    return speed && mSpeedArray.Remove(speed);
}

void DCharRaceBase::AddOffenseToGroup(int group, const DOffenseItem& item) {
    if (group < 0)
        return;
    while (mOffenseGroupArray.GetCount() <= group) {
        auto* added = new DOffenseGroup;
        mOffenseGroupArray.Add(added);
        added->Release();
    }
    mOffenseGroupArray.At(group)->AddOffenseItem(item);
}

bool DCharRaceBase::RemoveOffenseFromGroup(int group, const DOffenseItem& item) {
    DOffenseGroup* offense = GetOffenseGroup(group);
    return offense && offense->RemoveOffenseItem(item);
}

void DCharRaceBase::RemoveWeaponFromAllGroups(int itemId) {
    const DOffenseItem weapon(DOffenseItem::kOffenseWeapon, itemId);
    for (DOffenseGroup* group : mOffenseGroupArray) {
        while (group->RemoveOffenseItem(weapon)) {
        }
    }
}
