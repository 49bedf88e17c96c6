#pragma once

#include "DSkillRankInfo.h"
#include "FCArray.h"
#include "FCObject.h"

#include <QUuid>

// A skill, or one sub-skill of it, that a character or race has: ranks per class and the
// modifiers from every source.
class DChosenSkill : public FCObject {
    FC_DECLARE_CLASS(DChosenSkill)
public:
    // Skill flags.
    enum : unsigned {
        kSkillFixed = 0x8, // kept at zero ranks: from a race, usable untrained, or levelled up
    };

    DChosenSkill() = default;
    DChosenSkill(const QUuid& skillId, const QUuid& subSkillId)
        : mSkillId(skillId), mSubSkillId(subSkillId) {}
    DChosenSkill(const DChosenSkill& other) = default;
    DChosenSkill& operator=(const DChosenSkill& other) = default;
    ~DChosenSkill() override = default;

    FCObject* Clone() const override;
    // By skill, then sub-skill, each as its stored bytes.
    bool operator<(const FCObject& other) const override;
    void Serialize(FCArchive& archive) override;

    QUuid GetSkillId() const { return mSkillId; }
    void SetSkillId(const QUuid& id) { mSkillId = id; }
    QUuid GetSubSkillId() const { return mSubSkillId; }
    void SetSubSkillId(const QUuid& id) { mSubSkillId = id; }

    const FCArray<DSkillRankInfo>& GetRankInfoArray() const { return mRankInfoArray; }
    FCArray<DSkillRankInfo>& GetRankInfoArray() { return mRankInfoArray; }
    // The record of that class, or null.
    DSkillRankInfo* GetSkillRankInfo(const QUuid& classGuid);
    const DSkillRankInfo* GetSkillRankInfo(const QUuid& classGuid) const;

    // 0 for a class without a record.
    float GetRanks(const QUuid& classGuid) const;
    float GetLockedRanks(const QUuid& classGuid) const;
    // Updates the class's record, or appends one.
    void SetRanks(const QUuid& classGuid, DSkillUsabilityType usability, float ranks);
    void RemoveRankInfo(const DSkillRankInfo& info) { mRankInfoArray.Remove(info); }
    void RemoveAllRanks() { mRankInfoArray.RemoveAll(); }

    int GetAbilityMod() const { return mAbilityMod; }
    void SetAbilityMod(int mod) { mAbilityMod = mod; }
    int GetRaceMod() const { return mRaceMod; }
    void SetRaceMod(int mod) { mRaceMod = mod; }
    int GetFeatMod() const { return mFeatMod; }
    void SetFeatMod(int mod) { mFeatMod = mod; }
    int GetFamiliarMod() const { return mFamiliarMod; }
    void SetFamiliarMod(int mod) { mFamiliarMod = mod; }
    int GetMagicMod() const { return mMagicMod; }
    void SetMagicMod(int mod) { mMagicMod = mod; }
    int GetSkillMod() const { return mSkillMod; }
    void SetSkillMod(int mod) { mSkillMod = mod; }
    int GetMiscMod() const { return mMiscMod; }
    void SetMiscMod(int mod) { mMiscMod = mod; }
    int GetUserMod() const { return mUserMod; }
    void SetUserMod(int mod) { mUserMod = mod; }

    unsigned GetSkillFlags() const { return mSkillFlags; }
    void AddSkillFlag(unsigned flag) { mSkillFlags |= flag; }
    void RemoveSkillFlag(unsigned flag) { mSkillFlags &= ~flag; }
    bool HasSkillFlag(unsigned flag) const { return (mSkillFlags & flag) != 0; }

    // Ranks and locked ranks of every class.
    float GetTotalRanks() const;
    int GetTotalMods() const;
    float GetTotalBonus() const { return GetTotalRanks() + float(GetTotalMods()); }
    // The points the unlocked ranks cost: a cross-class rank costs two.
    int GetTotalSkillPointValue() const;
    bool DoesSkillHaveValues() const;
    bool IsEmptySkill() const { return GetTotalRanks() == 0.0f; }
    // Fixes the ranks bought so far, so that the next level spends points anew.
    void HandleLevelUp();

private:
    QUuid mSkillId;
    QUuid mSubSkillId;
    FCArray<DSkillRankInfo> mRankInfoArray;
    qint32 mAbilityMod = 0;
    qint32 mRaceMod = 0;
    qint32 mFeatMod = 0;
    qint32 mFamiliarMod = 0;
    qint32 mMagicMod = 0;
    qint32 mSkillMod = 0;
    qint32 mMiscMod = 0;
    qint32 mUserMod = 0;
    quint32 mSkillFlags = 0;
};
