#include "DFileObject.h"

#include "DObjectManager.h"
#include "FCArchive.h"
#include "FCFileManager.h"

#include <QFileInfo>

FC_IMPLEMENT_CLASS(DFileObject, "FCObject", nullptr)

DFileObject::DFileObject(DObjectType type, DFileObjectType tree, const FCString& relativePath)
    : mObjectType(type), mFileObjectType(tree), mRelativeFilePath(relativePath) {}

DFileObject::DFileObject(const DFileObject& other)
    : FCObject(other), mObjectType(other.mObjectType), mFileObjectType(other.mFileObjectType),
      mRelativeFilePath(other.mRelativeFilePath), mFlags(other.mFlags) {}

DFileObject& DFileObject::operator=(const DFileObject& other) {
    mObjectType = other.mObjectType;
    mFileObjectType = other.mFileObjectType;
    mRelativeFilePath = other.mRelativeFilePath;
    return *this;
}

DFileObject::~DFileObject() {
    SetCoreObject(nullptr);
}

bool DFileObject::operator<(const FCObject& other) const {
    const auto* entry = FCDynamicCast<DFileObject>(&other);
    if (!entry)
        return FCObject::operator<(other);
    if (mObjectType != entry->mObjectType)
        return mObjectType < entry->mObjectType;
    if (mFileObjectType != entry->mFileObjectType)
        return mFileObjectType < entry->mFileObjectType;
    // Compared in place: building lower-cased copies on every comparison made the start-up scan
    // of a few hundred files slow.
    return mRelativeFilePath.compare(entry->mRelativeFilePath, Qt::CaseInsensitive) < 0;
}

bool DFileObject::operator==(const DFileObject& other) const {
    return mObjectType == other.mObjectType && mFileObjectType == other.mFileObjectType &&
           mRelativeFilePath.compare(other.mRelativeFilePath, Qt::CaseInsensitive) == 0;
}

void DFileObject::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mObjectType);
    archive.Transfer(mFileObjectType);
    archive.Transfer(mRelativeFilePath);
    archive.Transfer(mCollectionReferenceCount);
}

FCString DFileObject::GetAccessFilePath() const {
    return FCString(DObjectManager::GetObjectPath(mObjectType, mFileObjectType) +
                    mRelativeFilePath);
}

FCString DFileObject::GetBaseFileName() const {
    QString path = mRelativeFilePath;
    path.replace('\\', '/');
    return FCString(QFileInfo(path).completeBaseName());
}

FCObject* DFileObject::GetCoreObject(unsigned flags) {
    EnsureLoaded(flags);
    return mCoreObject;
}

void DFileObject::SetCoreObject(FCObject* object) {
    if (object == mCoreObject)
        return;
    if (object)
        object->Retain();
    if (mCoreObject)
        mCoreObject->Release();
    mCoreObject = object;
}

unsigned DFileObject::EnsureLoaded(unsigned flags) {
    const unsigned found = mFlags;
    if (!mCoreObject) {
        mFlags &= ~(kFlagEdit | kFlagHeaderOnly | kFlagNoLoad);
        mFlags |= flags;
        LoadCoreObject();
        return found;
    }
    bool reload = false;
    if (HasFlag(kFlagHeaderOnly) && (flags & kFlagEdit)) {
        // A header-only read always stops before the object's body, so the body is missing.
        mFlags &= ~kFlagHeaderOnly;
        reload = true;
    }
    if (!(flags & kFlagReload) && !reload)
        return found;
    mFlags |= flags;
    ReloadCoreObject();
    return found;
}

void DFileObject::RestoreLoadStatus(unsigned savedFlags) {
    if (!((savedFlags & kFlagHeaderOnly) && !HasFlag(kFlagEdit)))
        SetCoreObject(nullptr);
    mFlags = savedFlags;
}

bool DFileObject::LoadCoreObject() {
    FCObject* object = LoadObject(nullptr);
    if (!object)
        return false;
    SetCoreObject(object);
    object->Release();
    return true;
}

void DFileObject::ReloadCoreObject() {
    if (mCoreObject)
        LoadObject(mCoreObject);
}

void DFileObject::SaveCoreObject() {
    const quint32 signature = GetSignature(mObjectType);
    if (!mCoreObject || signature == 0)
        return;
    FCArchive::WriteFile(FCFileManager::ResolvePath(GetAccessFilePath()), signature, kFileVersion,
                         mCoreObject);
}

FCObject* DFileObject::LoadObject(FCObject* into) {
    const quint32 signature = GetSignature(mObjectType);
    if (HasFlag(kFlagNoLoad) || signature == 0)
        return nullptr;
    const FCClassInfo* expected = FCClassInfo::Find(GetObjectClassName(mObjectType));
    if (!expected)
        return nullptr;
    return FCArchive::ReadFile(FCFileManager::ResolvePath(GetAccessFilePath()), signature,
                               HasFlag(kFlagHeaderOnly), into, expected);
}

quint32 DFileObject::GetSignature(DObjectType type) {
    switch (type) {
    case kObjectRace:
        return 0x01010101;
    case kObjectTreasure:
        return 0x02020202;
    case kObjectCharacter:
    case kObjectMonster:
        return 0x08080808;
    case kObjectTable:
        return 0x09090909;
    default:
        return 0;
    }
}

const char* DFileObject::GetObjectClassName(DObjectType type) {
    switch (type) {
    case kObjectRace:
        return "DRace";
    case kObjectTreasure:
        return "DTreasure";
    case kObjectCharacter:
    case kObjectMonster:
        return "DCharacter";
    case kObjectTable:
        return "DTable";
    default:
        return nullptr;
    }
}
