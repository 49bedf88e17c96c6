#pragma once

#include "DAttackInfo.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DChosenSpeed.h"
#include "DOffenseGroup.h"
#include "FCObject.h"
#include "FCPointerArray.h"
#include "FCPointerMap.h"
#include "FCPointerSet.h"
#include "FCString.h"

#include <QUuid>

// What a race and a character both hold: skills, feats, languages, attacks, offense groups,
// speeds, portrait and sound. Both write these the same way.
class DCharRaceBase : public FCObject {
    FC_DECLARE_CLASS(DCharRaceBase)
public:
    DCharRaceBase();
    DCharRaceBase(const DCharRaceBase& other);
    DCharRaceBase& operator=(const DCharRaceBase& other);
    ~DCharRaceBase() override;

    void Serialize(FCArchive& archive) override;
    virtual void SetPortraitName(const FCString& name) { mPortraitName = name; }
    virtual void SetSoundName(const FCString& name) { mSoundName = name; }
    virtual void Convert() {}

    // Skills, one entry per skill and sub-skill.
    FCPointerSet<DChosenSkill>& GetSkillSet() { return mSkillSet; }
    const FCPointerSet<DChosenSkill>& GetSkillSet() const { return mSkillSet; }
    bool HasSkill(const QUuid& skill, const QUuid& subSkill) const;
    DChosenSkill* GetSkillPointer(const QUuid& skill, const QUuid& subSkill) const;
    bool HasAnySkill(const QUuid& skill) const;
    bool AddSkill(DChosenSkill* skill) { return mSkillSet.Add(skill); }
    bool RemoveSkill(const QUuid& skill, const QUuid& subSkill);
    void RemoveAllSkills() { mSkillSet.RemoveAll(); }

    // Feats; a target given as an int uses -1 for none.
    FCPointerSet<DChosenFeat>& GetFeatSet() { return mFeatSet; }
    const FCPointerSet<DChosenFeat>& GetFeatSet() const { return mFeatSet; }
    DChosenFeat* GetFeat(const QUuid& feat, const QUuid& target = QUuid(),
                         const QUuid& subTarget = QUuid()) const;
    DChosenFeat* GetFeat(const QUuid& feat, int target, int subTarget = -1) const;
    bool HasFeat(const QUuid& feat, const QUuid& target = QUuid(),
                 const QUuid& subTarget = QUuid()) const;
    bool HasFeat(const QUuid& feat, int target, int subTarget = -1) const;
    int GetFeatCount(const QUuid& feat, const QUuid& target = QUuid(),
                     const QUuid& subTarget = QUuid()) const;
    int GetFeatTypeCount(int featType) const;
    // The feat equal to `feat` in the set's order (feat, class, targets and flags), or null.
    DChosenFeat* GetFeatPointer(const DChosenFeat& feat) const { return mFeatSet.Find(feat); }
    bool AddFeat(DChosenFeat* feat) { return mFeatSet.Add(feat); }
    bool RemoveFeat(DChosenFeat* feat);
    void RemoveAllFeats() { mFeatSet.RemoveAll(); }

    // Languages under their own GUID.
    FCPointerMap<QUuid, DChosenLanguage>& GetLanguageMap() { return mLanguageMap; }
    const FCPointerMap<QUuid, DChosenLanguage>& GetLanguageMap() const { return mLanguageMap; }
    DChosenLanguage* GetLanguagePointer(const QUuid& language) const;
    void AddLanguage(DChosenLanguage* language);
    bool RemoveLanguage(const QUuid& language) { return mLanguageMap.RemoveKey(language); }
    void RemoveAllLanguages() { mLanguageMap.RemoveAll(); }

    // Attacks by id.
    FCPointerMap<int, DAttackInfo>& GetAttackMap() { return mAttackMap; }
    const FCPointerMap<int, DAttackInfo>& GetAttackMap() const { return mAttackMap; }
    int AddAttack(DAttackInfo* attack);
    void AddAttack(DAttackInfo* attack, int id);
    DAttackInfo* GetAttack(int id) const { return mAttackMap.Lookup(id); }
    bool RemoveAttack(int id);
    void RemoveAllAttacks();
    int GetNextAttackId() const { return mNextAttackId; }

    FCPointerArray<DOffenseGroup>& GetOffenseGroupArray() { return mOffenseGroupArray; }
    const FCPointerArray<DOffenseGroup>& GetOffenseGroupArray() const { return mOffenseGroupArray; }
    void RemoveAllOffenseGroups() { mOffenseGroupArray.RemoveAll(); }
    DOffenseGroup* GetOffenseGroup(int group) const { return mOffenseGroupArray.At(group); }
    // Adds the item to the group, making the groups up to it as needed.
    void AddOffenseToGroup(int group, const DOffenseItem& item);
    bool RemoveOffenseFromGroup(int group, const DOffenseItem& item);
    // An inventory weapon that leaves the inventory leaves every group.
    void RemoveWeaponFromAllGroups(int itemId);

    // Speeds; type 1 is the base (land) speed.
    FCPointerArray<DChosenSpeed>& GetSpeedArray() { return mSpeedArray; }
    const FCPointerArray<DChosenSpeed>& GetSpeedArray() const { return mSpeedArray; }
    DChosenSpeed* GetSpeedPointer(int speedType) const;
    DChosenSpeed* GetBaseSpeedPointer() const;
    void AddSpeed(DChosenSpeed* speed) { mSpeedArray.Add(speed); }
    bool RemoveSpeed(int speedType);
    void RemoveAllSpeeds() { mSpeedArray.RemoveAll(); }

    const FCString& GetPortraitName() const { return mPortraitName; }
    const FCString& GetSoundName() const { return mSoundName; }

protected:
    void FindNextAttackId();
    void CopyBase(const DCharRaceBase& other);
    void ClearBase();

    FCString mPortraitName;
    FCString mSoundName;

private:
    FCPointerSet<DChosenSkill> mSkillSet;
    FCPointerSet<DChosenFeat> mFeatSet;
    FCPointerMap<QUuid, DChosenLanguage> mLanguageMap;
    int mNextAttackId = 0;
    FCPointerMap<int, DAttackInfo> mAttackMap;
    FCPointerArray<DOffenseGroup> mOffenseGroupArray;
    FCPointerArray<DChosenSpeed> mSpeedArray;
};
