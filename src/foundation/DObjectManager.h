#pragma once

#include "DFileObject.h"
#include "FCPointerSet.h"

class DEditWatcher;
class DFileObjectCollection;

// Catalogues of the object files in the Core and User trees. Entries are cheap: the object
// behind one is read only when it is asked for.
class DObjectManager {
public:
    DObjectManager() = delete;

    static void StartUp();
    static void ShutDown() {}
    static bool HasStarted() { return mHasStarted; }

    static FCString GetObjectPath(DObjectType type, DFileObjectType tree);
    static FCString GetObjectExtension(DObjectType type);

    static DFileObject* CreateFileObject(DObjectType type, DFileObjectType tree,
                                         const FCString& relativePath);
    static void DestroyFileObject(DFileObject* entry);

    static FCPointerSet<DFileObject>& GetRaceFileSet() { return mRaceFileSet; }
    // The race of that base name (any case), the user's before a ready one; null if none.
    static DFileObject* FindRaceFile(const QString& baseName);
    static FCPointerSet<DFileObject>& GetCharacterSet() { return mCharacterSet; }
    static FCPointerSet<DFileObject>& GetMonsterSet() { return mMonsterSet; }
    static FCPointerSet<DFileObject>& GetTreasureSet() { return mTreasureSet; }
    static FCPointerSet<DFileObject>& GetTableSet() { return mTableSet; }
    static FCPointerSet<DFileObject>& GetEncounterSet() { return mEncounterSet; }

    static void HandleRaceSave(const FCString& path);
    static void HandleCharacterSave(const FCString& path);
    static void HandleTreasureSave(const FCString& path);
    static void HandleTableSave(const FCString& path);
    static void HandleEncounterSave(const FCString& path);

    static void EditCollectionObject(int id, DFileObjectCollection* collection,
                                     DEditWatcher* watcher);
    static void AcceptObjectEdit(FCObject* edited, const FCString& name);
    static void CancelObjectEdit();
    static void ClearObjectEdit();
    static DFileObject* GetActiveEditFileObject() { return mActiveEditFileObj; }

private:
    static void LoadRaceFileSet();
    static void LoadObjectSet(DObjectType type);
    static void LoadTreasureSet();
    static void LoadTableSet();
    static void LoadEncounterSet();
    static void AddRacesToFileSet(DFileObjectType tree, const FCString& mask, bool checkExisting);
    static void AddFileObjectsToSet(DFileObjectType tree, DObjectType type, const FCString& mask,
                                    FCPointerSet<DFileObject>& set, bool keepLoaded,
                                    bool checkExisting, unsigned flags);

    static FCPointerSet<DFileObject> mRaceFileSet;
    static FCPointerSet<DFileObject> mCharacterSet;
    static FCPointerSet<DFileObject> mMonsterSet;
    static FCPointerSet<DFileObject> mTreasureSet;
    static FCPointerSet<DFileObject> mTableSet;
    static FCPointerSet<DFileObject> mEncounterSet;
    static bool mHasStarted;

    static DFileObject* mActiveEditFileObj;
    static int mActiveEditFileObjId;
    static DFileObjectCollection* mActiveEditCollection;
    static DEditWatcher* mActiveEditWatcher;
    static unsigned mActiveEditLoadFlags;
};
