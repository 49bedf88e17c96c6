#pragma once

#include "DFileObject.h"
#include "FCPointerMap.h"

// A numbered list of file entries that a host-side object owns (a treasure's or an
// encounter's references to other files). Ids above 0 are valid.
class DFileObjectCollection {
public:
    explicit DFileObjectCollection(DFileObjectType tree = kFileUser);

    DFileObjectType GetFileObjectType() const { return mFileObjectType; }
    DFileObject* GetFileObject(int id) const { return mMap.Lookup(id); }
    const FCPointerMap<int, DFileObject>& GetMap() const { return mMap; }
    int GetNextId() const { return mNextId; }

    int AddFileObject(DFileObject* entry);
    // The id of an equal entry (counted again when `add`), a new id for a clone when `add`,
    // or -1.
    int FindFileObject(const DFileObject& entry, bool add);
    // Drops one use; the last use of an entry in this collection's own tree deletes its file.
    void ReleaseFileObject(int id);
    void RemoveFileObject(int id);

    void Serialize(FCArchive& archive);

private:
    void AdvanceNextId();

    FCPointerMap<int, DFileObject> mMap;
    int mNextId = 1;
    DFileObjectType mFileObjectType;
};
