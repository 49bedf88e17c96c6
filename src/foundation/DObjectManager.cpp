#include "DObjectManager.h"

#include "DDatabase.h"
#include "DEditWatcher.h"
#include "DFileObjectCollection.h"
#include "FCFileManager.h"

#include <QFileInfo>

FCPointerSet<DFileObject> DObjectManager::mRaceFileSet;
FCPointerSet<DFileObject> DObjectManager::mCharacterSet;
FCPointerSet<DFileObject> DObjectManager::mMonsterSet;
FCPointerSet<DFileObject> DObjectManager::mTreasureSet;
FCPointerSet<DFileObject> DObjectManager::mTableSet;
FCPointerSet<DFileObject> DObjectManager::mEncounterSet;
bool DObjectManager::mHasStarted = false;
DFileObject* DObjectManager::mActiveEditFileObj = nullptr;
int DObjectManager::mActiveEditFileObjId = 0;
DFileObjectCollection* DObjectManager::mActiveEditCollection = nullptr;
DEditWatcher* DObjectManager::mActiveEditWatcher = nullptr;
unsigned DObjectManager::mActiveEditLoadFlags = 0;

namespace {
constexpr DFileObjectType kTrees[] = {kFileCore, kFileUser};

FCString fileNameOf(const FCString& path) {
    QString unix = path;
    unix.replace('\\', '/');
    return FCString(QFileInfo(unix).fileName());
}
} // namespace

void DObjectManager::StartUp() {
    if (mHasStarted)
        return;
    for (auto* set :
         {&mRaceFileSet, &mCharacterSet, &mMonsterSet, &mTreasureSet, &mTableSet, &mEncounterSet})
        set->SetOwnership(kFCRetained);
    LoadRaceFileSet();
    LoadObjectSet(kObjectCharacter);
    LoadObjectSet(kObjectMonster);
    LoadTreasureSet();
    LoadTableSet();
    mHasStarted = true;
}

DFileObject* DObjectManager::FindRaceFile(const QString& baseName) {
    const auto find = [](const QString& name) {
        DFileObject* found = nullptr;
        for (const auto& entry : mRaceFileSet) {
            if (QString(entry->GetBaseFileName()).compare(name, Qt::CaseInsensitive) != 0)
                continue;
            if (!found || entry->GetFileObjectType() == kFileUser)
                found = entry.Get();
        }
        return found;
    };
    if (DFileObject* found = find(baseName.trimmed()))
        return found;
    // Names in the spoken order find the ready ones that put the kind first: "Adult Red
    // Dragon" is "Red Dragon, Adult", "Huge Air Elemental" is "Air Elemental, Huge".
    const QStringList words = baseName.simplified().split(QLatin1Char(' '));
    for (qsizetype split = 1; split < words.size(); ++split) {
        const QString reordered = words.mid(split).join(QLatin1Char(' ')) + QStringLiteral(", ") +
                                  words.mid(0, split).join(QLatin1Char(' '));
        if (DFileObject* found = find(reordered))
            return found;
    }
    return nullptr;
}

FCString DObjectManager::GetObjectPath(DObjectType type, DFileObjectType tree) {
    if (tree == kFileEncounter)
        return FCString("User\\Encounters\\");
    QString path = tree == kFileCore ? "Core\\" : "User\\";
    switch (type) {
    case kObjectRace:
        path += "Races\\";
        break;
    case kObjectTreasure:
        path += "Treasure\\";
        break;
    case kObjectCharacter:
        path += "Characters\\";
        break;
    case kObjectMonster:
        path += "Monsters\\";
        break;
    case kObjectTable:
        path += "Table\\";
        break;
    default:
        break;
    }
    return FCString(path);
}

FCString DObjectManager::GetObjectExtension(DObjectType type) {
    switch (type) {
    case kObjectRace:
        return FCString("rac");
    case kObjectTreasure:
        return FCString("trs");
    case kObjectCharacter:
        return FCString("chr");
    case kObjectMonster:
        return FCString("mon");
    case kObjectTable:
        return FCString("tbl");
    case kObjectEncounter:
        return FCString("enc");
    }
    return FCString();
}

DFileObject* DObjectManager::CreateFileObject(DObjectType type, DFileObjectType tree,
                                              const FCString& relativePath) {
    return new DFileObject(type, tree, relativePath);
}

void DObjectManager::DestroyFileObject(DFileObject* entry) {
    if (entry)
        FCFileManager::RemoveFile(entry->GetAccessFilePath());
}

void DObjectManager::LoadRaceFileSet() {
    for (DFileObjectType tree : kTrees)
        AddRacesToFileSet(tree, FCString("*.rac"), false);
}

void DObjectManager::LoadObjectSet(DObjectType type) {
    auto& set = type == kObjectCharacter ? mCharacterSet : mMonsterSet;
    set.RemoveAll();
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, type, FCString("*." + GetObjectExtension(type)), set, true, false,
                            DFileObject::kFlagHeaderOnly);
}

void DObjectManager::LoadTreasureSet() {
    mTreasureSet.RemoveAll();
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, kObjectTreasure, FCString("*.trs"), mTreasureSet, false, false,
                            DFileObject::kFlagNoLoad);
}

void DObjectManager::LoadTableSet() {
    mTableSet.RemoveAll();
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, kObjectTable, FCString("*.tbl"), mTableSet, false, false, 0);
}

void DObjectManager::LoadEncounterSet() {
    mEncounterSet.RemoveAll();
    AddFileObjectsToSet(kFileUser, kObjectEncounter, FCString("*.enc"), mEncounterSet, false, false,
                        0);
}

void DObjectManager::AddRacesToFileSet(DFileObjectType tree, const FCString& mask,
                                       bool checkExisting) {
    FCFileInfoList list;
    FCFileManager::CreateFileInfoList(FCString(GetObjectPath(kObjectRace, tree) + mask), list);
    for (int i = 0; i < list.mCount; ++i) {
        if (!FCFileManager::IsFile(list, i))
            continue;
        DFileObject* entry = CreateFileObject(kObjectRace, tree, FCString(list.mNames[i]));
        if (!checkExisting || !mRaceFileSet.Contains(*entry))
            mRaceFileSet.Add(entry);
        entry->Release();
    }
    FCFileManager::DestroyFileInfolist(list);
}

void DObjectManager::AddFileObjectsToSet(DFileObjectType tree, DObjectType type,
                                         const FCString& mask, FCPointerSet<DFileObject>& set,
                                         bool keepLoaded, bool checkExisting, unsigned flags) {
    FCFileInfoList list;
    FCFileManager::CreateFileInfoList(FCString(GetObjectPath(type, tree) + mask), list);
    for (int i = 0; i < list.mCount; ++i) {
        if (!FCFileManager::IsFile(list, i))
            continue;
        DFileObject* entry = CreateFileObject(type, tree, FCString(list.mNames[i]));
        const bool add = !checkExisting || !set.Contains(*entry);
        const unsigned saved = entry->EnsureLoaded(flags);
        if (!keepLoaded)
            entry->RestoreLoadStatus(saved);
        if (add)
            set.Add(entry);
        entry->Release();
    }
    FCFileManager::DestroyFileInfolist(list);
}

void DObjectManager::HandleRaceSave(const FCString& path) {
    const FCString name = fileNameOf(path);
    for (DFileObjectType tree : kTrees)
        AddRacesToFileSet(tree, name, true);
}

void DObjectManager::HandleCharacterSave(const FCString& path) {
    const FCString name = fileNameOf(path);
    const bool isCharacter = QFileInfo(name).suffix().compare(GetObjectExtension(kObjectCharacter),
                                                              Qt::CaseInsensitive) == 0;
    const DObjectType type = isCharacter ? kObjectCharacter : kObjectMonster;
    auto& set = isCharacter ? mCharacterSet : mMonsterSet;
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, type, name, set, true, true, DFileObject::kFlagHeaderOnly);
}

void DObjectManager::HandleTreasureSave(const FCString& path) {
    const FCString name = fileNameOf(path);
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, kObjectTreasure, name, mTreasureSet, false, true, 0);
}

void DObjectManager::HandleTableSave(const FCString& path) {
    const FCString name = fileNameOf(path);
    for (DFileObjectType tree : kTrees)
        AddFileObjectsToSet(tree, kObjectTable, name, mTableSet, false, true,
                            DFileObject::kFlagNoLoad);
}

void DObjectManager::HandleEncounterSave(const FCString& path) {
    AddFileObjectsToSet(kFileUser, kObjectEncounter, fileNameOf(path), mEncounterSet, false, true,
                        DFileObject::kFlagNoLoad);
}

void DObjectManager::EditCollectionObject(int id, DFileObjectCollection* collection,
                                          DEditWatcher* watcher) {
    DFileObject* entry = collection ? collection->GetFileObject(id) : nullptr;
    if (!entry)
        return;
    mActiveEditFileObjId = id;
    mActiveEditCollection = collection;
    mActiveEditWatcher = watcher;
    mActiveEditFileObj = entry;
    DDatabase::PreloadIfNeeded();
    mActiveEditLoadFlags = entry->EnsureLoaded(DFileObject::kFlagEdit);
    entry->Edit();
}

void DObjectManager::AcceptObjectEdit(FCObject* edited, const FCString& name) {
    if (!mActiveEditFileObj) {
        ClearObjectEdit();
        return;
    }
    DFileObject* target = mActiveEditFileObj;
    int newId = -1;
    const DFileObjectType tree = mActiveEditCollection->GetFileObjectType();
    if (target->GetFileObjectType() != tree) {
        target = CreateFileObject(mActiveEditFileObj->GetObjectType(), tree, name);
        const QFileInfo info(FCFileManager::ResolvePath(target->GetAccessFilePath()));
        FCString unique;
        if (FCFileManager::FindUniqueFileName(FCString(info.absolutePath()),
                                              FCString(info.completeBaseName()),
                                              FCString(info.suffix()), unique))
            target->SetRelativeFilePath(unique);
        newId = mActiveEditCollection->FindFileObject(*target, true);
    }
    target->SetCoreObject(edited);
    target->SaveCoreObject();
    if (target != mActiveEditFileObj) {
        target->SetCoreObject(nullptr);
        target->Release();
    }
    mActiveEditFileObj->RestoreLoadStatus(mActiveEditLoadFlags);
    const int oldId = mActiveEditFileObjId;
    if (newId > 0 && oldId > 0)
        mActiveEditCollection->ReleaseFileObject(oldId);
    if (mActiveEditWatcher)
        mActiveEditWatcher->HandleEditAccepted(oldId, newId);
    ClearObjectEdit();
}

void DObjectManager::CancelObjectEdit() {
    if (mActiveEditFileObj)
        mActiveEditFileObj->SetCoreObject(nullptr);
    ClearObjectEdit();
}

void DObjectManager::ClearObjectEdit() {
    mActiveEditFileObj = nullptr;
    mActiveEditFileObjId = 0;
    mActiveEditCollection = nullptr;
    mActiveEditWatcher = nullptr;
    mActiveEditLoadFlags = 0;
}
