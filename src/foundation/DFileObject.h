#pragma once

#include "FCObject.h"
#include "FCString.h"

// Kinds of object file; the numbers are stored in files.
enum DObjectType : int {
    kObjectRace = 0,
    kObjectTreasure = 1,
    kObjectCharacter = 6,
    kObjectMonster = 7,
    kObjectTable = 8,
    kObjectEncounter = 9,
};

// Trees an object file lives in.
enum DFileObjectType : int {
    kFileCore = 0,
    kFileUser = 1,
    kFileEncounter = 3,
};

// One catalogue entry: which object file, and the object once it is read.
class DFileObject : public FCObject {
    FC_DECLARE_CLASS(DFileObject)
public:
    // Load-state bits of mFlags.
    enum : unsigned {
        kFlagEdit = 0x2,       // the whole object is wanted
        kFlagHeaderOnly = 0x4, // characters and races read up to their race
        kFlagNoLoad = 0x8,     // never read the file
        kFlagReload = 0x10,    // a request: read again even if an object is held
    };

    DFileObject() = default;
    DFileObject(DObjectType type, DFileObjectType tree, const FCString& relativePath);
    DFileObject(const DFileObject& other);
    DFileObject& operator=(const DFileObject& other);
    ~DFileObject() override;

    FCObject* Clone() const override { return new DFileObject(*this); }
    bool operator<(const FCObject& other) const override;
    void Serialize(FCArchive& archive) override;
    virtual bool operator==(const DFileObject& other) const;

    DObjectType GetObjectType() const { return mObjectType; }
    void SetObjectType(DObjectType type) { mObjectType = type; }
    DFileObjectType GetFileObjectType() const { return mFileObjectType; }
    void SetFileObjectType(DFileObjectType tree) { mFileObjectType = tree; }
    const FCString& GetRelativeFilePath() const { return mRelativeFilePath; }
    void SetRelativeFilePath(const FCString& path) { mRelativeFilePath = path; }

    // The object directory of the entry's kind and tree, then the relative path.
    FCString GetAccessFilePath() const;
    FCString GetBaseFileName() const;

    FCObject* GetCoreObjectRaw() const { return mCoreObject; }
    FCObject* GetCoreObject(unsigned flags);
    void SetCoreObject(FCObject* object);

    unsigned GetFlags() const { return mFlags; }
    void SetFlags(unsigned flags) { mFlags = flags; }
    void AddFlag(unsigned flag) { mFlags |= flag; }
    void RemoveFlag(unsigned flag) { mFlags &= ~flag; }
    bool HasFlag(unsigned flag) const { return (mFlags & flag) != 0; }

    void CollectionRetain() { ++mCollectionReferenceCount; }
    void CollectionRelease() { --mCollectionReferenceCount; }
    int GetCollectionReferenceCount() const { return mCollectionReferenceCount; }

    // Returns the flags it found, for RestoreLoadStatus.
    unsigned EnsureLoaded(unsigned flags);
    void RestoreLoadStatus(unsigned savedFlags);
    bool LoadCoreObject();
    void ReloadCoreObject();
    void SaveCoreObject();
    void PurgeCoreObject() { SetCoreObject(nullptr); }
    void Edit() { EditCoreObject(); }

    // Signature and class of each object kind's files; 0 and null for kinds without files.
    static quint32 GetSignature(DObjectType type);
    static const char* GetObjectClassName(DObjectType type);
    static constexpr quint32 kFileVersion = 0x10001;

protected:
    virtual FCObject* LoadObject(FCObject* into);
    virtual void EditCoreObject() {}

private:
    DObjectType mObjectType = kObjectRace;
    DFileObjectType mFileObjectType = kFileCore;
    FCString mRelativeFilePath;
    FCObject* mCoreObject = nullptr;
    unsigned mFlags = 0;
    int mCollectionReferenceCount = 0;
};
