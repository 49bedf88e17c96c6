#pragma once

#include "FCArchive.h"
#include "FCObject.h"

// Ownership modes of the pointer containers, stored in files with the container.
enum FCOwnership : int {
    kFCBorrowed = 0, // nothing on insert or removal
    kFCDeleted = 1,  // deleted on removal
    kFCRetained = 2, // retained on insert, released on removal
};

namespace fc_detail {

inline void adopt(int mode, FCObject* object) {
    if (object && mode == kFCRetained)
        object->Retain();
}

inline void drop(int mode, FCObject* object) {
    if (!object)
        return;
    if (mode == kFCRetained)
        object->Release();
    else if (mode == kFCDeleted)
        delete object;
}

// Reads the stored mode; only the three known values are accepted.
inline int transferMode(FCArchive& archive, int mode) {
    qint32 raw = mode;
    archive.Transfer(raw);
    if (archive.IsLoading() && (raw < kFCBorrowed || raw > kFCRetained)) {
        archive.SetFailed();
        return mode;
    }
    return raw;
}

// Reads one element of type T; null if the stored object is missing or of another class.
template <typename T> T* readElement(FCArchive& archive) {
    FCObject* object = archive.ReadObject();
    if (!object) {
        archive.SetFailed(); // containers never hold null
        return nullptr;
    }
    T* typed = FCDynamicCast<T>(object);
    if (!typed) {
        object->Release();
        archive.SetFailed();
    }
    return typed;
}

// A borrowing container cannot own what a file creates, so a file that stores elements in
// one is refused; the others keep the reader's reference as their own.
inline qint32 loadCount(FCArchive& archive, int mode) {
    const qint32 count = archive.TransferCount(0, 2);
    if (count > 0 && mode == kFCBorrowed) {
        archive.SetFailed();
        return 0;
    }
    return count;
}

// A copy of `object` that a container in `mode` may hold: owning modes clone, borrowing
// containers share.
template <typename T> T* copyElement(int mode, T* object) {
    return mode == kFCBorrowed ? object : static_cast<T*>(object->Clone());
}

// Transfers a value of plain type or a struct with its own Serialize.
template <typename T> void transferValue(FCArchive& archive, T& value) {
    if constexpr (requires { value.Serialize(archive); })
        value.Serialize(archive);
    else
        archive.Transfer(value);
}

} // namespace fc_detail
