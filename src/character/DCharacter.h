#pragma once

#include "DCharHistory.h"
#include "DCharRaceBase.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenFeature.h"
#include "DChosenItem.h"
#include "DChosenSpell.h"
#include "DClassSkillType.h"
#include "DCurrency.h"
#include "DMagicBonus.h"
#include "DSpellCaster.h"
#include "FCArray.h"
#include "FCSet.h"

class DCharacterWatcher;
class DFileObject;
class DRace;
class DSizeInfo;

// A character or a monster: the choices it was built from and the statistics the rules
// engine derives from them. The file holds choices and rule keys, never rule text.
class DCharacter : public DCharRaceBase {
    FC_DECLARE_CLASS(DCharacter)
public:
    static constexpr int kStatCount = 61;
    static constexpr int kRefereeStatCount = 5;
    static constexpr int kAbilityCount = 6;
    static constexpr int kAnimalCount = 6;
    static constexpr int kFeatureArrayCount = 3;
    static constexpr int kEquipSlotCount = 3;
    static constexpr quint32 kFileSignature = 0x08080808;

    enum : unsigned { kInfoMonster = 0x1 };
    enum : unsigned {
        kProfSimple = 0x1,
        kProfMartial = 0x2,
        kProfLightArmor = 0x8,
        kProfMediumArmor = 0x10,
        kProfHeavyArmor = 0x20,
        kProfShield = 0x40,
    };
    enum : unsigned { kFlagOwnPortrait = 0x100000, kFlagOwnSound = 0x400000 };

    DCharacter();
    DCharacter(const DCharacter& other);
    DCharacter& operator=(const DCharacter& other);
    ~DCharacter() override;

    FCObject* Clone() const override { return new DCharacter(*this); }
    void Serialize(FCArchive& archive) override;
    void SetPortraitName(const FCString& name) override;
    void SetSoundName(const FCString& name) override;

    // Files.
    static DCharacter* CreateFromFile(const FCString& path, bool headerOnly, DCharacter* into);
    bool SaveToFile(const FCString& path) const;
    static FCString GetCharacterFileExtension() { return FCString("chr"); }
    static FCString GetMonsterFileExtension() { return FCString("mon"); }
    static FCString GetCharacterFileDirectory() { return FCString("Characters\\"); }
    static FCString GetMonsterFileDirectory() { return FCString("Monsters\\"); }

    // Names and identity.
    const FCString& GetFileCharacterName() const { return mFileCharacterName; }
    const FCString& GetCharacterName() const { return mCharacterName; }
    void SetCharacterName(const FCString& name) { mCharacterName = name; }
    const FCString& GetPlayerName() const { return mPlayerName; }
    void SetPlayerName(const FCString& name) { mPlayerName = name; }

    unsigned GetInfoFlags() const { return mInfoFlags; }
    void AddInfoFlag(unsigned flag) { mInfoFlags |= flag; }
    void RemoveInfoFlag(unsigned flag) { mInfoFlags &= ~flag; }
    bool HasInfoFlag(unsigned flag) const { return (mInfoFlags & flag) != 0; }

    // Race.
    const QUuid& GetRaceClassGuid() const { return mRaceClassGuid; }
    void SetRaceClassGuid(const QUuid& guid) { mRaceClassGuid = guid; }
    DRace* GetRace() const { return mRace; }
    void SetRace(DRace* race);
    DFileObject* GetRaceFileObject() const { return mRaceFileObject; }
    // Takes over `entry` (the character owns its race entry).
    void SetRaceFileObject(DFileObject* entry);
    int GetLoadResult() const { return mLoadResult; }
    void SetLoadResult(int result) { mLoadResult = result; }
    bool GetIsComplete() const { return mIsComplete; }

    // History and classes.
    FCPointerArray<DCharHistory>& GetHistoryArray() { return mHistoryArray; }
    const FCPointerArray<DCharHistory>& GetHistoryArray() const { return mHistoryArray; }
    int GetHistoryCount() const { return mHistoryArray.GetCount(); }
    DCharHistory* GetHistoryAtPosition(int i) const { return mHistoryArray.At(i); }
    DCharHistory* GetLastHistory() const { return mHistoryArray.GetLast(); }
    QUuid GetLastHistoryClassGuid() const;
    DCharHistory* AddHistory(const QUuid& classGuid, float level);
    void RemoveHistory(DCharHistory* history) { mHistoryArray.Remove(history); }
    void RemoveLastHistory();
    int GetHistoryCharacterLevel(const DCharHistory* upTo = nullptr) const;
    bool IsMonsterClassOnly() const { return mHistoryArray.GetCount() == 1; }

    FCPointerArray<DCharacterClass>& GetClassList() { return mClassList; }
    const FCPointerArray<DCharacterClass>& GetClassList() const { return mClassList; }
    DCharacterClass* AddClass(const QUuid& guid);
    void AddClass(DCharacterClass* characterClass) { mClassList.Add(characterClass); }
    DCharacterClass* GetClassPointer(const QUuid& guid) const;
    DCharacterClass* GetClassAtPosition(int i) const { return mClassList.At(i); }
    int GetClassCount() const { return mClassList.GetCount(); }
    int GetClassLevel(const QUuid& guid) const;
    bool IsClass(const QUuid& guid) const { return GetClassPointer(guid) != nullptr; }
    bool IsClassLevel(const QUuid& guid, int level) const { return GetClassLevel(guid) >= level; }
    QUuid GetLastClassGuid() const;
    void RemoveLastClass();
    DCharacterClass* GetRaceClassPointer() const { return GetClassPointer(mRaceClassGuid); }
    DCharacterClass* GetFirstNonRaceClassPointer() const;
    int GetPlayerClassCount() const;
    // Levels of every class but the race's, truncated: racial hit dice are not class levels.
    int GetNonRaceCharacterLevel() const;
    bool HasClassWithCasterFlag(unsigned mask) const;
    void SetActiveClassId(const QUuid& guid) { mActiveClassId = guid; }
    const QUuid& GetActiveClassId() const { return mActiveClassId; }
    DCharacterClass* GetActiveClassPointer() const { return GetClassPointer(mActiveClassId); }
    // Skill points earned less spent, over all classes.
    int GetRemainingSkillPoints() const;
    // Each class's previous level takes its level.
    void PrepareForLevelUp();

    float GetCharacterLevel() const { return mCharacterLevel; }
    void SetCharacterLevel(float level) { mCharacterLevel = level; }
    float GetPreviousCharacterLevel() const { return mPreviousCharacterLevel; }
    void SetPreviousCharacterLevel(float level) { mPreviousCharacterLevel = level; }
    float GetActiveCharacterLevels() const { return mCharacterLevel - mPreviousCharacterLevel; }

    int GetAlignmentId() const { return mAlignmentId; }
    void SetAlignmentId(int id) { mAlignmentId = id; }
    int GetGender() const { return mGender; }
    void SetGender(int gender) { mGender = gender; }

    // Abilities, by index 0 Strength .. 5 Charisma.
    int GetAbilityStatBase(int a) const { return mAbilityStatBase[a]; }
    void SetAbilityStatBase(int a, int value) { mAbilityStatBase[a] = value; }
    int GetAbilityStatBonus(int a) const { return mAbilityStatBonus[a]; }
    void SetAbilityStatBonus(int a, int value) { mAbilityStatBonus[a] = value; }
    void AdjustAbilityStatBonus(int a, int delta) { mAbilityStatBonus[a] += delta; }
    int GetAbilityStatEquipBonus(int a) const { return mAbilityStatEquipBonus[a]; }
    void SetAbilityStatEquipBonus(int a, int value) { mAbilityStatEquipBonus[a] = value; }
    int GetAbilityStatUserMod(int a) const { return mAbilityStatUserMod[a]; }
    void SetAbilityStatUserMod(int a, int value) { mAbilityStatUserMod[a] = value; }
    void ClearAbilityStatUserMods();
    // The race decides which abilities a creature lacks; without a race a negative base does.
    bool IsNullAbility(int a) const;
    int GetAbilityStat(int a) const;
    int GetAbilityStatNoEquipBonus(int a) const;
    int GetTotalAbilityStatBonus(int a) const {
        return mAbilityStatBonus[a] + mAbilityStatEquipBonus[a];
    }

    // Ability increases, packed five 5-bit entries to a word; each entry is the level taken.
    int GetEarnedAbilityStat(int a) const { return CountPacked(mEarnedAbilityStat[a]); }
    void SetEarnedAbilityStat(int a, int entry) { AppendPacked(mEarnedAbilityStat[a], entry); }
    int GetInherentAbilityStat(int a) const { return CountPacked(mInherentAbilityStat[a]); }
    void SetInherentAbilityStat(int a, int entry) { AppendPacked(mInherentAbilityStat[a], entry); }
    static constexpr int kAbilitySlotCount = 5;
    // The level stored in one slot of a packed earned or inherent word; 0 for a free slot.
    static int GetPackedSlot(int word, int slot);
    // The used slots of a packed word: they fill from the lowest up.
    static int CountPacked(int word);
    int GetTotalEarnedAbilityStats() const;
    int GetTotalInherentAbilityStats() const;
    int GetEarnedAbilityStatRaw(int a) const { return mEarnedAbilityStat[a]; }
    void SetEarnedAbilityStatRaw(int a, int raw) { mEarnedAbilityStat[a] = raw; }
    int GetInherentAbilityStatRaw(int a) const { return mInherentAbilityStat[a]; }
    void SetInherentAbilityStatRaw(int a, int raw) { mInherentAbilityStat[a] = raw; }

    int GetSkillBonus(int a) const { return mSkillBonus[a]; }
    void SetSkillBonus(int a, int value) { mSkillBonus[a] = value; }
    void AdjustSkillBonus(int a, int delta) { mSkillBonus[a] += delta; }

    // Statistics by DCharStatType.
    int GetCharacterStat(int stat) const { return ValidStat(stat) ? mCharacterStat[stat] : 0; }
    void SetCharacterStat(int stat, int value);
    void AdjustCharacterStat(int stat, int delta);
    int GetCharacterRefereeStat(int stat) const;
    void SetCharacterRefereeStat(int stat, int value);
    void AdjustCharacterRefereeStat(int stat, int delta);

    DSizeInfo* GetSizeInfo() const { return mSizeInfo; }
    void SetSizeInfo(DSizeInfo* size) { mSizeInfo = size; }

    // Money and items.
    DCurrency& GetCurrency() { return mCurrency; }
    const DCurrency& GetCurrency() const { return mCurrency; }
    int GetBaselineGold() const { return mBaselineGold; }
    void SetBaselineGold(int gold) { mBaselineGold = gold; }
    FCPointerMap<int, DChosenItem>& GetItemMap() { return mItemMap; }
    const FCPointerMap<int, DChosenItem>& GetItemMap() const { return mItemMap; }
    DChosenItem* GetItem(int id) const { return mItemMap.Lookup(id); }
    // Files the item under the next free id and returns that id.
    int AddChosenItem(DChosenItem* item);
    int GetNextItemId() const { return mNextItemId; }
    bool RemoveItem(int id);
    void RemoveAllItems();
    DCurrency& GetInventoryValue() { return mInventoryValue; }
    DChosenItem* GetEquipment(int slot) const;
    // A new inventory item holding `info` (retained); the character owns it.
    DChosenItem* AddItemWithInfo(DItemInfo* info);
    // A copy of `item` filed in the inventory, not equipped.
    DChosenItem* AddCopyOfItem(const DItem& item);
    // Armor to the armor slot, a shield to the first free shield slot (the second when both
    // are taken), anything else is marked equipped.
    void EquipItem(DChosenItem* item);
    void UnEquipItem(DChosenItem* item);
    // The first inventory item of that item type made from the rule row `infoGuid`.
    DChosenItem* GetItemWithTypeAndInfoId(int itemType, const QUuid& infoGuid) const;
    // The stored bonus with the same source, type, modify type, bonus and target.
    DMagicBonus* FindMagicBonus(const DMagicBonus& bonus) const;
    // 1 while armor is worn (slot 0), else 0.
    int GetArmorCount() const { return mEquipment[0] ? 1 : 0; }
    FCPointerArray<DMagicBonus>& GetMagicBonusArray() { return mMagicBonusArray; }
    float GetCarriedWeight() const { return mCarriedWeight; }
    void SetCarriedWeight(float weight) { mCarriedWeight = weight; }
    int GetAdvancedHitDie() const { return mAdvancedHitDie; }
    void SetAdvancedHitDie(int dice) { mAdvancedHitDie = dice; }

    // Features, spells, gods and domains.
    FCPointerArray<DChosenFeature>& GetFeatureArray(int arrayType);
    // A feature of that type whose data is `data` in the array; false for an array out of range.
    bool HasFeature(DFeatureType type, int data, int arrayType) const;
    // The array retains `feature`; an array out of range takes nothing.
    void AddFeature(DChosenFeature* feature, int arrayType);
    bool RemoveFeature(DChosenFeature* feature, int arrayType);
    // The first feature of the group in the array, or null.
    DChosenFeature* GetFeatureInGroup(DFeatureGroupType group, int arrayType) const;
    bool HasFeatureWithId(const QUuid& feature, int arrayType) const;
    // A feature of that type whose data is the GUID `data`.
    bool HasFeatureWithType(DFeatureType type, const QUuid& data, int arrayType) const;
    const QUuid& GetGod() const { return mGod; }
    void SetGod(const QUuid& god) { mGod = god; }
    bool HasPickedGod() const { return !mGod.isNull(); }
    const QUuid& GetDomain(int index) const { return mDomain[index]; }
    void SetDomain(int index, const QUuid& domain) { mDomain[index] = domain; }
    bool HasPickedDomain() const { return !mDomain[0].isNull() || !mDomain[1].isNull(); }
    bool HasPickedAllDomains() const { return !mDomain[0].isNull() && !mDomain[1].isNull(); }
    int GetDomainIndex(const QUuid& domain) const;
    int GetSchool() const { return mSchool; }
    void SetSchool(int school) { mSchool = school; }
    bool HasPickedSchool() const { return mSchool != -1; }
    int GetNumProhibitedSchools() const { return mNumProhibitedSchools; }
    void SetNumProhibitedSchools(int count) { mNumProhibitedSchools = count; }
    FCArray<int>& GetProhibitedSchoolArray() { return mProhibitedSchoolArray; }
    FCPointerSet<DChosenSpell>& GetKnownSpellSet() { return mKnownSpellSet; }
    FCPointerSet<DChosenSpell>& GetPreparedSpellSet() { return mPreparedSpellSet; }
    FCPointerArray<DSpellCaster>& GetRaceSpellCasterArray() { return mRaceSpellCasterArray; }
    DSpellCaster* GetRaceSpellCaster(const QUuid& classGuid) const;
    void AddRaceSpellCaster(DSpellCaster* caster) { mRaceSpellCasterArray.Add(caster); }
    bool HasRaceSpellCasters() const { return !mRaceSpellCasterArray.IsEmpty(); }
    DChosenAnimal* GetAnimal(int type) const;
    // Takes over `animal`.
    void SetAnimal(int type, DChosenAnimal* animal);
    FCSet<DClassSkillType>& GetClassSkillSet() { return mClassSkillSet; }
    bool AddClassSkill(const QUuid& classGuid, const QUuid& skill) {
        return mClassSkillSet.Add(DClassSkillType(classGuid, skill));
    }
    bool RemoveClassSkill(const QUuid& classGuid, const QUuid& skill) {
        return mClassSkillSet.Remove(DClassSkillType(classGuid, skill));
    }
    bool HasClassSkill(const QUuid& classGuid, const QUuid& skill) const {
        return mClassSkillSet.Contains(DClassSkillType(classGuid, skill));
    }
    void RemoveAllClassSkills() { mClassSkillSet.RemoveAll(); }

    unsigned GetProfFlags() const { return mProfFlags; }
    void AddProfFlag(unsigned flag) { mProfFlags |= flag; }
    void RemoveProfFlag(unsigned flag) { mProfFlags &= ~flag; }
    bool HasProfFlag(unsigned flag) const { return (mProfFlags & flag) != 0; }
    unsigned GetCharacterFlags() const { return mCharacterFlags; }
    void AddCharacterFlag(unsigned flag) { mCharacterFlags |= flag; }
    void RemoveCharacterFlag(unsigned flag) { mCharacterFlags &= ~flag; }
    bool HasCharacterFlag(unsigned flag) const { return (mCharacterFlags & flag) != 0; }
    unsigned GetChangeFlags() const { return mChangeFlags; }
    void AddChangeFlag(unsigned flag) { mChangeFlags |= flag; }
    bool HasChangeFlag(unsigned flag) const { return (mChangeFlags & flag) != 0; }
    void ClearChangeFlags() { mChangeFlags = 0; }

    void SetWatcher(DCharacterWatcher* watcher) { mWatcher = watcher; }
    void HandleHasChanged();
    void ActivateSpecificFrame(int frame);

    // Empties every list and restores the defaults.
    void Clear();
    void InitialSetup();

private:
    void Initialize();
    void CopyFrom(const DCharacter& other);
    bool LoadRace(FCArchive& archive);
    void SerializeEquipment(FCArchive& archive);
    static bool ValidStat(int stat) { return stat >= 0 && stat < kStatCount; }
    static void AppendPacked(int& word, int entry);

    unsigned mInfoFlags = 0;
    FCString mFileCharacterName;
    FCString mCharacterName;
    FCString mPlayerName;
    QUuid mRaceClassGuid;
    DRace* mRace = nullptr;
    DFileObject* mRaceFileObject = nullptr;
    FCPointerArray<DCharHistory> mHistoryArray;
    FCPointerArray<DCharacterClass> mClassList;
    float mCharacterLevel = 0;
    float mPreviousCharacterLevel = 0;
    QUuid mActiveClassId;
    int mAlignmentId = 9;
    int mGender = 0;
    int mAbilityStatBase[kAbilityCount] = {};
    int mAbilityStatBonus[kAbilityCount] = {};
    int mAbilityStatEquipBonus[kAbilityCount] = {};
    int mAbilityStatUserMod[kAbilityCount] = {};
    int mEarnedAbilityStat[kAbilityCount] = {};
    int mInherentAbilityStat[kAbilityCount] = {};
    int mCharacterStat[kStatCount] = {};
    int mCharacterRefereeStat[kRefereeStatCount] = {};
    int mSkillBonus[kAbilityCount] = {};
    DSizeInfo* mSizeInfo = nullptr;
    DCurrency mCurrency;
    int mBaselineGold = 0;
    int mNextItemId = 0;
    FCPointerMap<int, DChosenItem> mItemMap;
    DCurrency mInventoryValue;
    DChosenItem* mEquipment[kEquipSlotCount] = {};
    FCPointerArray<DMagicBonus> mMagicBonusArray;
    float mCarriedWeight = 0;
    int mAdvancedHitDie = 0;
    FCPointerArray<DChosenFeature> mFeatureArray[kFeatureArrayCount];
    QUuid mGod;
    QUuid mDomain[2];
    int mSchool = -1;
    int mNumProhibitedSchools = 1;
    FCArray<int> mProhibitedSchoolArray;
    FCPointerSet<DChosenSpell> mKnownSpellSet;
    FCPointerSet<DChosenSpell> mPreparedSpellSet;
    FCPointerArray<DSpellCaster> mRaceSpellCasterArray;
    DChosenAnimal* mAnimal[kAnimalCount] = {};
    FCSet<DClassSkillType> mClassSkillSet;
    unsigned mProfFlags = 0;
    unsigned mCharacterFlags = 0;
    unsigned mChangeFlags = 0;
    DCharacterWatcher* mWatcher = nullptr;
    int mLoadResult = 0;
    bool mIsComplete = true;
};
