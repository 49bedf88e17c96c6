#pragma once

#include "FCArchive.h"
#include "FCObject.h"
#include "FCPointerArray.h"

// Archive steps shared by the item records.

// Writes `slot` as an object (null allowed) or replaces it with the object read, releasing the
// old one. Objects of the layers above (targets, spells, intelligent and cursed data) pass
// through here untyped; their users down-cast with FCDynamicCast.
void DTransferOwnedObject(FCArchive& archive, FCObject*& slot);

// An owned list as ownership mode, count and objects. Item records only ever own their lists
// by reference count, so a stored mode other than 2 is a corrupt file: the archive fails and
// the list is left empty and owning.
template <typename T> void DTransferOwnedList(FCArchive& archive, FCPointerArray<T>& list) {
    list.Serialize(archive);
    if (archive.IsLoading() && list.GetOwnership() != kFCRetained) {
        archive.SetFailed();
        list.RemoveAll();
        list.SetOwnership(kFCRetained);
    }
}

// Replaces `slot` with `object`, retaining the new before releasing the old.
template <typename T> void DAssignRetained(T*& slot, T* object) {
    if (object)
        object->Retain();
    if (slot)
        slot->Release();
    slot = object;
}

// Makes `to` an owning list of clones of `from`'s entries, whatever mode `from` has. An entry
// whose class cannot clone itself is left out rather than shared.
template <typename T> void DCloneList(FCPointerArray<T>& to, const FCPointerArray<T>& from) {
    to.RemoveAll();
    to.SetOwnership(kFCRetained);
    for (T* object : from) {
        auto* copy = static_cast<T*>(object ? object->Clone() : nullptr);
        if (copy) {
            to.Add(copy);
            copy->Release();
        }
    }
}

// A clone of `object` with one reference for the caller, or null.
template <typename T> T* DCloneOrNull(const T* object) {
    return object ? static_cast<T*>(object->Clone()) : nullptr;
}
