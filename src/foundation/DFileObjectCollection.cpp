#include "DFileObjectCollection.h"

#include "DObjectManager.h"

DFileObjectCollection::DFileObjectCollection(DFileObjectType tree) : mFileObjectType(tree) {
    mMap.SetOwnership(kFCRetained);
}

int DFileObjectCollection::AddFileObject(DFileObject* entry) {
    const int id = mNextId;
    mMap.SetAt(id, entry);
    entry->CollectionRetain();
    AdvanceNextId();
    return id;
}

int DFileObjectCollection::FindFileObject(const DFileObject& entry, bool add) {
    for (const auto& [id, held] : mMap) {
        if (*held == entry) {
            if (add)
                held->CollectionRetain();
            return id;
        }
    }
    if (!add)
        return -1;
    auto* copy = static_cast<DFileObject*>(entry.Clone());
    const int id = AddFileObject(copy);
    copy->Release();
    return id;
}

void DFileObjectCollection::ReleaseFileObject(int id) {
    DFileObject* entry = mMap.Lookup(id);
    if (!entry)
        return;
    entry->CollectionRelease();
    if (entry->GetCollectionReferenceCount() > 0)
        return;
    if (entry->GetFileObjectType() == mFileObjectType)
        DObjectManager::DestroyFileObject(entry);
    RemoveFileObject(id);
}

void DFileObjectCollection::RemoveFileObject(int id) {
    if (mMap.RemoveKey(id) && id < mNextId)
        mNextId = id;
}

void DFileObjectCollection::Serialize(FCArchive& archive) {
    mMap.Serialize(archive);
    archive.Transfer(mNextId);
    if (archive.IsLoading() && mNextId < 1)
        mNextId = 1;
}

void DFileObjectCollection::AdvanceNextId() {
    mNextId = mMap.FindFreeKey(mNextId);
}
