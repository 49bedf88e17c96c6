#pragma once

#include "FCClassInfo.h"

class FCArchive;

// Root of every persistent and reference-counted object. An object is born with a count of one:
// whoever creates it holds that reference and gives it up with Release.
class FCObject {
public:
    FCObject() = default;
    // A copy is a new object: it starts with its own single reference.
    FCObject(const FCObject&) {}
    FCObject& operator=(const FCObject&) { return *this; }
    virtual ~FCObject() = default;

    virtual FCClassInfo* GetClassInfoA() const { return &mClassFCObject; }
    virtual FCObject* Clone() const { return nullptr; }
    // Address order unless a class defines a value order; only sorted sets rely on it.
    virtual bool operator<(const FCObject& other) const { return this < &other; }
    virtual void Serialize(FCArchive&) {}

    void Retain() { ++mRetainCount; }
    void Release() {
        if (--mRetainCount <= 0)
            delete this;
    }
    int GetRetainCount() const { return mRetainCount; }
    bool IsKindOf(const FCClassInfo* info) const { return GetClassInfoA()->IsDerivedFrom(info); }

    static FCClassInfo* GetStaticClassInfo() { return &mClassFCObject; }
    static FCClassInfo mClassFCObject;

private:
    int mRetainCount = 1;
};

// Checked down-cast through the class registry.
template <typename T> T* FCDynamicCast(FCObject* object) {
    return object && object->IsKindOf(T::GetStaticClassInfo()) ? static_cast<T*>(object) : nullptr;
}
template <typename T> const T* FCDynamicCast(const FCObject* object) {
    return object && object->IsKindOf(T::GetStaticClassInfo()) ? static_cast<const T*>(object)
                                                               : nullptr;
}
