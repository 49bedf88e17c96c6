#include "DChosenSkill.h"

#include "DGuid.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenSkill, "FCObject", nullptr)

FCObject* DChosenSkill::Clone() const {
    return new DChosenSkill(*this);
}

bool DChosenSkill::operator<(const FCObject& other) const {
    const auto* skill = FCDynamicCast<DChosenSkill>(&other);
    if (!skill)
        return FCObject::operator<(other);
    const int bySkill = DGuid::Compare(mSkillId, skill->mSkillId);
    if (bySkill != 0)
        return bySkill < 0;
    return DGuid::Less(mSubSkillId, skill->mSubSkillId);
}

void DChosenSkill::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mSkillId);
    archive.Transfer(mSubSkillId);
    mRankInfoArray.Serialize(archive);
    archive.Transfer(mAbilityMod);
    archive.Transfer(mRaceMod);
    archive.Transfer(mFeatMod);
    archive.Transfer(mFamiliarMod);
    archive.Transfer(mMagicMod);
    archive.Transfer(mSkillMod);
    archive.Transfer(mMiscMod);
    archive.Transfer(mUserMod);
    archive.Transfer(mSkillFlags);
}

DSkillRankInfo* DChosenSkill::GetSkillRankInfo(const QUuid& classGuid) {
    const int index = mRankInfoArray.Find(DSkillRankInfo(classGuid, 0, 0.0f));
    return index < 0 ? nullptr : &mRankInfoArray.At(index);
}

const DSkillRankInfo* DChosenSkill::GetSkillRankInfo(const QUuid& classGuid) const {
    const int index = mRankInfoArray.Find(DSkillRankInfo(classGuid, 0, 0.0f));
    return index < 0 ? nullptr : &mRankInfoArray.At(index);
}

float DChosenSkill::GetRanks(const QUuid& classGuid) const {
    const DSkillRankInfo* info = GetSkillRankInfo(classGuid);
    return info ? info->mRanks : 0.0f;
}

float DChosenSkill::GetLockedRanks(const QUuid& classGuid) const {
    const DSkillRankInfo* info = GetSkillRankInfo(classGuid);
    return info ? info->mLockedRanks : 0.0f;
}

void DChosenSkill::SetRanks(const QUuid& classGuid, DSkillUsabilityType usability, float ranks) {
    if (DSkillRankInfo* info = GetSkillRankInfo(classGuid)) {
        info->mUsability = usability;
        info->mRanks = ranks;
        return;
    }
    mRankInfoArray.Add(DSkillRankInfo(classGuid, usability, ranks));
}

float DChosenSkill::GetTotalRanks() const {
    float total = 0.0f;
    for (const DSkillRankInfo& info : mRankInfoArray)
        total += info.mRanks + info.mLockedRanks;
    return total;
}

int DChosenSkill::GetTotalMods() const {
    return mAbilityMod + mRaceMod + mFeatMod + mFamiliarMod + mMagicMod + mSkillMod + mMiscMod +
           mUserMod;
}

int DChosenSkill::GetTotalSkillPointValue() const {
    int total = 0;
    for (const DSkillRankInfo& info : mRankInfoArray)
        total += int(info.mUsability == 1 ? info.mRanks : info.mRanks * 2.0f);
    return total;
}

bool DChosenSkill::DoesSkillHaveValues() const {
    for (const DSkillRankInfo& info : mRankInfoArray) {
        if (info.mRanks != 0.0f || info.mLockedRanks != 0.0f)
            return true;
    }
    // Each mod on its own: a bonus and a penalty that cancel are still values to show.
    for (const qint32 mod : {mAbilityMod, mRaceMod, mFeatMod, mFamiliarMod, mMagicMod, mSkillMod,
                             mMiscMod, mUserMod}) {
        if (mod != 0)
            return true;
    }
    return false;
}

void DChosenSkill::HandleLevelUp() {
    AddSkillFlag(kSkillFixed);
    for (int i = 0; i < mRankInfoArray.GetCount(); ++i) {
        DSkillRankInfo& info = mRankInfoArray.At(i);
        info.mLockedRanks += info.mRanks;
        info.mRanks = 0.0f;
    }
}
