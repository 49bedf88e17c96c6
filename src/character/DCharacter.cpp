#include "DCharacter.h"

#include "DCharHistory.h"
#include "DCharacterClass.h"
#include "DCharacterWatcher.h"
#include "DChosenAnimal.h"
#include "DChosenFeature.h"
#include "DChosenItem.h"
#include "DChosenSpell.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DItemInfo.h"
#include "DItemType.h"
#include "DMagicBonus.h"
#include "DRace.h"
#include "DSizeInfo.h"
#include "DSpellCaster.h"
#include "FCArchive.h"
#include "FCFileManager.h"

#include <QFileInfo>

FC_IMPLEMENT_CLASS(DCharacter, "DCharRaceBase", nullptr)

namespace {
constexpr int kPackedBits = 5;
constexpr int kPackedEntries = DCharacter::kAbilitySlotCount;
constexpr int kPackedMask = (1 << kPackedBits) - 1;
} // namespace

DCharacter::DCharacter() {
    mHistoryArray.SetOwnership(kFCRetained);
    mClassList.SetOwnership(kFCRetained);
    mItemMap.SetOwnership(kFCRetained);
    mMagicBonusArray.SetOwnership(kFCRetained);
    for (auto& features : mFeatureArray)
        features.SetOwnership(kFCRetained);
    mKnownSpellSet.SetOwnership(kFCRetained);
    mPreparedSpellSet.SetOwnership(kFCRetained);
    mRaceSpellCasterArray.SetOwnership(kFCRetained);
    mRaceFileObject = new DFileObject();
    Initialize();
}

DCharacter::DCharacter(const DCharacter& other) : DCharacter() {
    CopyFrom(other);
}

DCharacter& DCharacter::operator=(const DCharacter& other) {
    if (this != &other)
        CopyFrom(other);
    return *this;
}

DCharacter::~DCharacter() {
    SetRace(nullptr);
    if (mRaceFileObject)
        mRaceFileObject->Release();
    for (DChosenAnimal*& animal : mAnimal) {
        if (animal)
            animal->Release();
        animal = nullptr;
    }
}

void DCharacter::Initialize() {
    mInfoFlags = 0;
    mFileCharacterName = FCString("New Character");
    mCharacterName = FCString("New Character");
    mPlayerName = FCString("Unknown");
    mCharacterLevel = 0;
    mPreviousCharacterLevel = 0;
    mActiveClassId = QUuid();
    mAlignmentId = 9;
    mGender = 0;
    for (int a = 0; a < kAbilityCount; ++a) {
        mAbilityStatBase[a] = mAbilityStatBonus[a] = mAbilityStatEquipBonus[a] = 0;
        mAbilityStatUserMod[a] = mEarnedAbilityStat[a] = mInherentAbilityStat[a] = 0;
        mSkillBonus[a] = 0;
    }
    std::fill(std::begin(mCharacterStat), std::end(mCharacterStat), 0);
    std::fill(std::begin(mCharacterRefereeStat), std::end(mCharacterRefereeStat), 0);
    mSizeInfo = nullptr;
    mCurrency = DCurrency();
    mBaselineGold = 0;
    mNextItemId = 0;
    mInventoryValue = DCurrency();
    std::fill(std::begin(mEquipment), std::end(mEquipment), nullptr);
    mCarriedWeight = 0;
    mAdvancedHitDie = 0;
    mGod = QUuid();
    mDomain[0] = mDomain[1] = QUuid();
    mSchool = -1;
    mNumProhibitedSchools = 1;
    mProfFlags = 0;
    mCharacterFlags = 0;
    mChangeFlags = 0;
    mLoadResult = 0;
    mIsComplete = true;
}

void DCharacter::CopyFrom(const DCharacter& other) {
    CopyBase(other);
    mInfoFlags = other.mInfoFlags;
    mFileCharacterName = other.mFileCharacterName;
    mCharacterName = other.mCharacterName;
    mPlayerName = other.mPlayerName;
    mRaceClassGuid = other.mRaceClassGuid;
    SetRace(other.mRace);
    SetRaceFileObject(static_cast<DFileObject*>(other.mRaceFileObject->Clone()));
    mHistoryArray.CloneFrom(other.mHistoryArray);
    mClassList.CloneFrom(other.mClassList);
    mCharacterLevel = other.mCharacterLevel;
    mPreviousCharacterLevel = other.mPreviousCharacterLevel;
    mActiveClassId = other.mActiveClassId;
    mAlignmentId = other.mAlignmentId;
    mGender = other.mGender;
    std::copy_n(other.mAbilityStatBase, kAbilityCount, mAbilityStatBase);
    std::copy_n(other.mAbilityStatBonus, kAbilityCount, mAbilityStatBonus);
    std::copy_n(other.mAbilityStatEquipBonus, kAbilityCount, mAbilityStatEquipBonus);
    std::copy_n(other.mAbilityStatUserMod, kAbilityCount, mAbilityStatUserMod);
    std::copy_n(other.mEarnedAbilityStat, kAbilityCount, mEarnedAbilityStat);
    std::copy_n(other.mInherentAbilityStat, kAbilityCount, mInherentAbilityStat);
    std::copy_n(other.mCharacterStat, kStatCount, mCharacterStat);
    std::copy_n(other.mCharacterRefereeStat, kRefereeStatCount, mCharacterRefereeStat);
    std::copy_n(other.mSkillBonus, kAbilityCount, mSkillBonus);
    mSizeInfo = other.mSizeInfo;
    mCurrency = other.mCurrency;
    mBaselineGold = other.mBaselineGold;
    mNextItemId = other.mNextItemId;
    mItemMap.CloneFrom(other.mItemMap);
    mInventoryValue = other.mInventoryValue;
    // Equipment points into the item map, so the copy points into its own map.
    for (int slot = 0; slot < kEquipSlotCount; ++slot) {
        const DChosenItem* item = other.mEquipment[slot];
        mEquipment[slot] = item ? GetItem(item->GetItemId()) : nullptr;
    }
    mMagicBonusArray.CloneFrom(other.mMagicBonusArray);
    mCarriedWeight = other.mCarriedWeight;
    mAdvancedHitDie = other.mAdvancedHitDie;
    for (int i = 0; i < kFeatureArrayCount; ++i)
        mFeatureArray[i].CloneFrom(other.mFeatureArray[i]);
    mGod = other.mGod;
    mDomain[0] = other.mDomain[0];
    mDomain[1] = other.mDomain[1];
    mSchool = other.mSchool;
    mNumProhibitedSchools = other.mNumProhibitedSchools;
    mProhibitedSchoolArray = other.mProhibitedSchoolArray;
    mKnownSpellSet.CloneFrom(other.mKnownSpellSet);
    mPreparedSpellSet.CloneFrom(other.mPreparedSpellSet);
    mRaceSpellCasterArray.CloneFrom(other.mRaceSpellCasterArray);
    for (int i = 0; i < kAnimalCount; ++i)
        SetAnimal(i, other.mAnimal[i] ? static_cast<DChosenAnimal*>(other.mAnimal[i]->Clone())
                                      : nullptr);
    mClassSkillSet = other.mClassSkillSet;
    mProfFlags = other.mProfFlags;
    mCharacterFlags = other.mCharacterFlags;
    mChangeFlags = other.mChangeFlags;
    mLoadResult = other.mLoadResult;
    mIsComplete = other.mIsComplete;
}

void DCharacter::Clear() {
    mHistoryArray.RemoveAll();
    mClassList.RemoveAll();
    mItemMap.RemoveAll();
    mMagicBonusArray.RemoveAll();
    for (auto& features : mFeatureArray)
        features.RemoveAll();
    mProhibitedSchoolArray.RemoveAll();
    mKnownSpellSet.RemoveAll();
    mPreparedSpellSet.RemoveAll();
    mRaceSpellCasterArray.RemoveAll();
    mClassSkillSet.RemoveAll();
    for (int i = 0; i < kAnimalCount; ++i)
        SetAnimal(i, nullptr);
    ClearBase();
    Initialize();
}

void DCharacter::InitialSetup() {
    if (IsMonsterClassOnly())
        AddInfoFlag(kInfoMonster);
}

void DCharacter::SetRace(DRace* race) {
    if (race == mRace)
        return;
    if (race)
        race->Retain();
    if (mRace)
        mRace->Release();
    mRace = race;
    if (mRace)
        mRaceClassGuid = mRace->GetClassGuid();
}

void DCharacter::SetRaceFileObject(DFileObject* entry) {
    if (entry == mRaceFileObject)
        return;
    if (mRaceFileObject)
        mRaceFileObject->Release();
    mRaceFileObject = entry ? entry : new DFileObject();
}

void DCharacter::SetPortraitName(const FCString& name) {
    const bool own = !mRace || name.toLower() != mRace->GetRaceName().toLower();
    own ? AddCharacterFlag(kFlagOwnPortrait) : RemoveCharacterFlag(kFlagOwnPortrait);
    DCharRaceBase::SetPortraitName(name);
}

void DCharacter::SetSoundName(const FCString& name) {
    const bool own = !mRace || name.toLower() != mRace->GetRaceName().toLower();
    own ? AddCharacterFlag(kFlagOwnSound) : RemoveCharacterFlag(kFlagOwnSound);
    DCharRaceBase::SetSoundName(name);
}

DCharacter* DCharacter::CreateFromFile(const FCString& path, bool headerOnly, DCharacter* into) {
    if (into)
        into->Clear();
    FCObject* object = FCArchive::ReadFile(FCFileManager::ResolvePath(path), kFileSignature,
                                           headerOnly, into, GetStaticClassInfo());
    return static_cast<DCharacter*>(object);
}

bool DCharacter::SaveToFile(const FCString& path) const {
    return FCArchive::WriteFile(FCFileManager::ResolvePath(path), kFileSignature,
                                DFileObject::kFileVersion, this);
}

bool DCharacter::LoadRace(FCArchive& archive) {
    mRaceFileObject->Serialize(archive);
    SetRace(nullptr);
    if (!archive.IsOk())
        return false;
    DRace* race = DRace::CreateFromFile(mRaceFileObject->GetAccessFilePath(), archive.mHeaderOnly);
    if (!race && mRaceFileObject->GetFileObjectType() == kFileUser) {
        // A user who deleted his copy of a race falls back to the core race of that name.
        mRaceFileObject->SetFileObjectType(kFileCore);
        race = DRace::CreateFromFile(mRaceFileObject->GetAccessFilePath(), archive.mHeaderOnly);
    }
    if (!race) {
        mLoadResult = 1;
        return false;
    }
    SetRace(race);
    race->Release();
    mRaceClassGuid = race->GetClassGuid();
    return true;
}

void DCharacter::Serialize(FCArchive& archive) {
    const bool loading = archive.IsLoading();
    if (loading)
        Clear();
    FCObject::Serialize(archive);
    archive.Transfer(mInfoFlags);
    archive.Transfer(mRaceClassGuid);
    if (loading) {
        if (!LoadRace(archive))
            return;
    } else {
        mRaceFileObject->Serialize(archive);
    }
    if (loading && archive.mHeaderOnly) {
        mIsComplete = false;
        return;
    }
    archive.Transfer(mCharacterName);
    archive.Transfer(mPlayerName);
    mHistoryArray.Serialize(archive);
    mClassList.Serialize(archive);
    archive.Transfer(mCharacterLevel);
    archive.Transfer(mPreviousCharacterLevel);
    archive.Transfer(mAlignmentId);
    archive.Transfer(mGender);
    for (int a = 0; a < kAbilityCount; ++a) {
        archive.Transfer(mAbilityStatBase[a]);
        archive.Transfer(mAbilityStatBonus[a]);
        archive.Transfer(mAbilityStatEquipBonus[a]);
        archive.Transfer(mAbilityStatUserMod[a]);
        archive.Transfer(mEarnedAbilityStat[a]);
        archive.Transfer(mInherentAbilityStat[a]);
        archive.Transfer(mSkillBonus[a]);
    }
    archive.TransferArray(mCharacterStat);
    archive.TransferArray(mCharacterRefereeStat);
    qint32 sizeId = mSizeInfo ? mSizeInfo->GetSizeId() : -1;
    archive.Transfer(sizeId);
    if (loading)
        mSizeInfo = DDatabase::GetSizeInfo(sizeId);
    DCharRaceBase::Serialize(archive);
    mCurrency.Serialize(archive);
    archive.Transfer(mBaselineGold);
    archive.Transfer(mNextItemId);
    mItemMap.Serialize(archive);
    mInventoryValue.Serialize(archive);
    SerializeEquipment(archive);
    mMagicBonusArray.Serialize(archive);
    archive.Transfer(mCarriedWeight);
    archive.Transfer(mAdvancedHitDie);
    for (auto& features : mFeatureArray)
        features.Serialize(archive);
    archive.Transfer(mGod);
    archive.Transfer(mDomain[0]);
    archive.Transfer(mDomain[1]);
    archive.Transfer(mSchool);
    archive.Transfer(mNumProhibitedSchools);
    mProhibitedSchoolArray.Serialize(archive);
    mKnownSpellSet.Serialize(archive);
    mPreparedSpellSet.Serialize(archive);
    mRaceSpellCasterArray.Serialize(archive);
    for (int i = 0; i < kAnimalCount; ++i) {
        if (loading)
            SetAnimal(i, FCDynamicCast<DChosenAnimal>(archive.ReadObject()));
        else
            archive.WriteObject(mAnimal[i]);
    }
    mClassSkillSet.Serialize(archive);
    archive.Transfer(mProfFlags);
    archive.Transfer(mCharacterFlags);
    if (!loading || !archive.IsOk())
        return;
    // The race's own flags and grants are applied by the rules engine when it sets the
    // character up; the record only reads what was stored.
    mIsComplete = true;
    mLoadResult = 0;
    if (!archive.GetFilePath().isEmpty())
        mFileCharacterName = FCString(QFileInfo(archive.GetFilePath()).completeBaseName());
}

void DCharacter::SerializeEquipment(FCArchive& archive) {
    for (DChosenItem*& slot : mEquipment) {
        qint32 id = slot ? slot->GetItemId() : -1;
        archive.Transfer(id);
        if (archive.IsLoading())
            slot = GetItem(id);
    }
}

QUuid DCharacter::GetLastHistoryClassGuid() const {
    const DCharHistory* last = GetLastHistory();
    return last ? last->GetClassGuid() : QUuid();
}

DCharHistory* DCharacter::AddHistory(const QUuid& classGuid, float level) {
    auto* history = new DCharHistory();
    history->SetClassGuid(classGuid);
    history->SetLevel(level);
    mHistoryArray.Add(history);
    history->Release();
    return history;
}

void DCharacter::RemoveLastHistory() {
    if (!mHistoryArray.IsEmpty())
        mHistoryArray.RemoveAt(mHistoryArray.GetCount() - 1);
}

int DCharacter::GetHistoryCharacterLevel(const DCharHistory* upTo) const {
    int level = 0;
    for (const DCharHistory* history : mHistoryArray) {
        // Racial hit dice of one or less do not count as character levels.
        const bool raceEntry = history->GetClassGuid() == mRaceClassGuid;
        if (!(raceEntry && history->GetLevel() <= 1.0f))
            level = int(float(level) + history->GetLevel());
        if (history == upTo)
            break;
    }
    return level;
}

DCharacterClass* DCharacter::AddClass(const QUuid& guid) {
    auto* characterClass = new DCharacterClass();
    characterClass->SetClassGuid(guid);
    characterClass->SetLevel(1.0f);
    mClassList.Add(characterClass);
    characterClass->Release();
    return characterClass;
}

DCharacterClass* DCharacter::GetClassPointer(const QUuid& guid) const {
    for (DCharacterClass* characterClass : mClassList) {
        if (characterClass->GetClassGuid() == guid)
            return characterClass;
    }
    return nullptr;
}

int DCharacter::GetClassLevel(const QUuid& guid) const {
    const DCharacterClass* characterClass = GetClassPointer(guid);
    return characterClass ? int(characterClass->GetLevel()) : 0;
}

QUuid DCharacter::GetLastClassGuid() const {
    const DCharacterClass* last = mClassList.GetLast();
    return last ? last->GetClassGuid() : QUuid();
}

void DCharacter::RemoveLastClass() {
    if (!mClassList.IsEmpty())
        mClassList.RemoveAt(mClassList.GetCount() - 1);
}

DCharacterClass* DCharacter::GetFirstNonRaceClassPointer() const {
    for (DCharacterClass* characterClass : mClassList) {
        if (characterClass->GetClassGuid() != mRaceClassGuid)
            return characterClass;
    }
    return nullptr;
}

int DCharacter::GetRemainingSkillPoints() const {
    int points = 0;
    for (const DCharacterClass* characterClass : mClassList)
        points += characterClass->GetRemainingSkillPoints();
    return points;
}

int DCharacter::GetPlayerClassCount() const {
    int count = 0;
    for (const DCharacterClass* characterClass : mClassList)
        count += characterClass->GetClassGuid() != mRaceClassGuid ? 1 : 0;
    return count;
}

int DCharacter::GetNonRaceCharacterLevel() const {
    float level = 0.0f;
    for (const DCharacterClass* characterClass : mClassList) {
        if (characterClass->GetClassGuid() != mRaceClassGuid)
            level += characterClass->GetLevel();
    }
    return int(level);
}

bool DCharacter::HasFeature(DFeatureType type, int data, int arrayType) const {
    if (arrayType < 0 || arrayType >= kFeatureArrayCount)
        return false;
    for (const DChosenFeature* feature : mFeatureArray[arrayType]) {
        if (feature->GetFeatureType() == type && feature->GetFeatureData() == data)
            return true;
    }
    return false;
}

void DCharacter::AddFeature(DChosenFeature* feature, int arrayType) {
    if (feature && arrayType >= 0 && arrayType < kFeatureArrayCount)
        mFeatureArray[arrayType].Add(feature);
}

bool DCharacter::RemoveFeature(DChosenFeature* feature, int arrayType) {
    if (arrayType < 0 || arrayType >= kFeatureArrayCount)
        return false;
    return mFeatureArray[arrayType].Remove(feature);
}

DChosenFeature* DCharacter::GetFeatureInGroup(DFeatureGroupType group, int arrayType) const {
    if (arrayType < 0 || arrayType >= kFeatureArrayCount)
        return nullptr;
    for (DChosenFeature* feature : mFeatureArray[arrayType]) {
        if (feature->GetFeatureGroup() == group)
            return feature;
    }
    return nullptr;
}

bool DCharacter::HasFeatureWithId(const QUuid& feature, int arrayType) const {
    if (arrayType < 0 || arrayType >= kFeatureArrayCount)
        return false;
    for (const DChosenFeature* held : mFeatureArray[arrayType]) {
        if (held->GetFeatureGuid() == feature)
            return true;
    }
    return false;
}

bool DCharacter::HasFeatureWithType(DFeatureType type, const QUuid& data, int arrayType) const {
    if (arrayType < 0 || arrayType >= kFeatureArrayCount)
        return false;
    for (const DChosenFeature* held : mFeatureArray[arrayType]) {
        if (held->GetFeatureType() == type && held->GetFeatureDataGuid() == data)
            return true;
    }
    return false;
}

void DCharacter::PrepareForLevelUp() {
    for (DCharacterClass* characterClass : mClassList)
        characterClass->PrepareForLevelUp();
}

DSpellCaster* DCharacter::GetRaceSpellCaster(const QUuid& classGuid) const {
    for (DSpellCaster* caster : mRaceSpellCasterArray) {
        if (caster->GetClassGuid() == classGuid)
            return caster;
    }
    return nullptr;
}

bool DCharacter::HasClassWithCasterFlag(unsigned mask) const {
    for (const DCharacterClass* characterClass : mClassList) {
        if (characterClass->HasCasterFlag(mask))
            return true;
    }
    return false;
}

void DCharacter::ClearAbilityStatUserMods() {
    std::fill(std::begin(mAbilityStatUserMod), std::end(mAbilityStatUserMod), 0);
}

bool DCharacter::IsNullAbility(int a) const {
    return mRace ? mRace->GetNoAbility(a) : mAbilityStatBase[a] < 0;
}

int DCharacter::GetAbilityStat(int a) const {
    if (IsNullAbility(a))
        return -1;
    const int total = mAbilityStatBase[a] + mAbilityStatBonus[a] + mAbilityStatEquipBonus[a] +
                      mAbilityStatUserMod[a];
    return std::max(total, 1);
}

int DCharacter::GetAbilityStatNoEquipBonus(int a) const {
    if (mAbilityStatBase[a] < 0)
        return mAbilityStatBase[a];
    return std::max(mAbilityStatBase[a] + mAbilityStatBonus[a], 1);
}

int DCharacter::CountPacked(int word) {
    int count = 0;
    for (int i = 0; i < kPackedEntries; ++i) {
        if (((unsigned(word) >> (i * kPackedBits)) & kPackedMask) == 0)
            break;
        ++count;
    }
    return count;
}

int DCharacter::GetPackedSlot(int word, int slot) {
    if (slot < 0 || slot >= kPackedEntries)
        return 0;
    return int((unsigned(word) >> (slot * kPackedBits)) & kPackedMask);
}

void DCharacter::AppendPacked(int& word, int entry) {
    const int count = CountPacked(word);
    if (count >= kPackedEntries)
        return;
    word = int(unsigned(word) | ((unsigned(entry) & kPackedMask) << (count * kPackedBits)));
}

int DCharacter::GetTotalEarnedAbilityStats() const {
    int total = 0;
    for (int a = 0; a < kAbilityCount; ++a)
        total += GetEarnedAbilityStat(a);
    return total;
}

int DCharacter::GetTotalInherentAbilityStats() const {
    int total = 0;
    for (int a = 0; a < kAbilityCount; ++a)
        total += GetInherentAbilityStat(a);
    return total;
}

void DCharacter::SetCharacterStat(int stat, int value) {
    if (ValidStat(stat))
        mCharacterStat[stat] = value;
}

void DCharacter::AdjustCharacterStat(int stat, int delta) {
    if (ValidStat(stat))
        mCharacterStat[stat] += delta;
}

int DCharacter::GetCharacterRefereeStat(int stat) const {
    return stat >= 0 && stat < kRefereeStatCount ? mCharacterRefereeStat[stat] : 0;
}

void DCharacter::SetCharacterRefereeStat(int stat, int value) {
    if (stat >= 0 && stat < kRefereeStatCount)
        mCharacterRefereeStat[stat] = value;
}

void DCharacter::AdjustCharacterRefereeStat(int stat, int delta) {
    if (stat >= 0 && stat < kRefereeStatCount)
        mCharacterRefereeStat[stat] += delta;
}

int DCharacter::AddChosenItem(DChosenItem* item) {
    const int id = mNextItemId;
    item->SetItemId(id);
    // An item owned by a character is no longer part of a treasure.
    item->RemoveItemFlag(0x80);
    mItemMap.SetAt(id, item);
    mNextItemId = mItemMap.FindFreeKey(mNextItemId);
    return id;
}

bool DCharacter::RemoveItem(int id) {
    DChosenItem* item = GetItem(id);
    if (!item)
        return false;
    for (DChosenItem*& slot : mEquipment) {
        if (slot == item)
            slot = nullptr;
    }
    mItemMap.RemoveKey(id);
    if (id < mNextItemId)
        mNextItemId = id;
    return true;
}

void DCharacter::RemoveAllItems() {
    std::fill(std::begin(mEquipment), std::end(mEquipment), nullptr);
    mItemMap.RemoveAll();
    mNextItemId = 0;
}

DChosenItem* DCharacter::GetEquipment(int slot) const {
    return slot >= 0 && slot < kEquipSlotCount ? mEquipment[slot] : nullptr;
}

DChosenItem* DCharacter::AddItemWithInfo(DItemInfo* info) {
    auto* item = new DChosenItem(-1, info);
    AddChosenItem(item);
    item->Release();
    return item;
}

DChosenItem* DCharacter::AddCopyOfItem(const DItem& item) {
    auto* copy = new DChosenItem(item);
    AddChosenItem(copy);
    copy->Release();
    return copy;
}

void DCharacter::EquipItem(DChosenItem* item) {
    if (!item)
        return;
    switch (item->GetBaseItemType()) {
    case kItemArmor:
        mEquipment[0] = item;
        item->SetItemLocation(DChosenItem::kLocationArmor);
        break;
    case kItemShield: {
        const int slot = mEquipment[1] && mEquipment[1] != item ? 2 : 1;
        if (mEquipment[slot] && mEquipment[slot] != item)
            mEquipment[slot]->SetItemLocation(DChosenItem::kLocationNone);
        mEquipment[slot] = item;
        item->SetItemLocation(slot == 1 ? DChosenItem::kLocationFirstShield
                                        : DChosenItem::kLocationSecondShield);
        break;
    }
    default:
        item->SetItemLocation(DChosenItem::kLocationEquipped);
        break;
    }
}

void DCharacter::UnEquipItem(DChosenItem* item) {
    if (!item)
        return;
    for (DChosenItem*& slot : mEquipment) {
        if (slot == item)
            slot = nullptr;
    }
    item->SetItemLocation(DChosenItem::kLocationNone);
}

DChosenItem* DCharacter::GetItemWithTypeAndInfoId(int itemType, const QUuid& infoGuid) const {
    for (const auto& [id, item] : mItemMap) {
        const DItemInfo* info = item->GetItemInfo();
        if (info && info->GetItemType() == itemType && info->GetItemGuid() == infoGuid)
            return item;
    }
    return nullptr;
}

DMagicBonus* DCharacter::FindMagicBonus(const DMagicBonus& bonus) const {
    for (DMagicBonus* stored : mMagicBonusArray) {
        if (stored->GetSourceItemType() == bonus.GetSourceItemType() && *stored == bonus)
            return stored;
    }
    return nullptr;
}

FCPointerArray<DChosenFeature>& DCharacter::GetFeatureArray(int arrayType) {
    return mFeatureArray[qBound(0, arrayType, kFeatureArrayCount - 1)];
}

int DCharacter::GetDomainIndex(const QUuid& domain) const {
    if (mDomain[0] == domain)
        return 0;
    if (mDomain[1] == domain)
        return 1;
    return -1;
}

DChosenAnimal* DCharacter::GetAnimal(int type) const {
    return type >= 0 && type < kAnimalCount ? mAnimal[type] : nullptr;
}

void DCharacter::SetAnimal(int type, DChosenAnimal* animal) {
    if (type < 0 || type >= kAnimalCount) {
        if (animal)
            animal->Release();
        return;
    }
    if (mAnimal[type] && mAnimal[type] != animal)
        mAnimal[type]->Release();
    mAnimal[type] = animal;
}

void DCharacter::HandleHasChanged() {
    if (!mWatcher)
        return;
    mWatcher->HandleCharacterHasChanged(this);
    mChangeFlags = 0;
}

void DCharacter::ActivateSpecificFrame(int frame) {
    if (mWatcher)
        mWatcher->ActivateFrame(frame);
}
