#pragma once

#include "FCOwnership.h"
#include "FCPointer.h"

#include <set>

// Objects kept unique and sorted by their own operator<. Look-ups take a temporary object
// that carries the key fields.
template <typename T> class FCPointerSet {
public:
    FCPointerSet() = default;
    FCPointerSet(const FCPointerSet&) = delete;
    FCPointerSet& operator=(const FCPointerSet&) = delete;
    ~FCPointerSet() { RemoveAll(); }

    int GetOwnership() const { return mMode; }
    void SetOwnership(int mode) { mMode = mode; }

    int GetCount() const { return int(mItems.size()); }
    bool IsEmpty() const { return mItems.empty(); }

    // False, with nothing retained, if an equal object is already there.
    bool Add(T* object) {
        if (!mItems.insert(FCPointer<T>(object)).second)
            return false;
        fc_detail::adopt(mMode, object);
        return true;
    }
    T* Find(const T& key) const {
        const auto it = mItems.find(FCPointer<T>(const_cast<T*>(&key)));
        return it == mItems.end() ? nullptr : it->Get();
    }
    bool Contains(const T& key) const { return Find(key) != nullptr; }
    // Removes the element equal to `key`.
    bool Remove(const T& key) {
        const auto it = mItems.find(FCPointer<T>(const_cast<T*>(&key)));
        if (it == mItems.end())
            return false;
        T* object = it->Get();
        mItems.erase(it);
        fc_detail::drop(mMode, object);
        return true;
    }
    void RemoveAll() {
        std::set<FCPointer<T>> items;
        items.swap(mItems);
        for (const FCPointer<T>& item : items)
            fc_detail::drop(mMode, item.Get());
    }
    void CloneFrom(const FCPointerSet& other) {
        RemoveAll();
        mMode = other.mMode;
        for (const FCPointer<T>& item : other.mItems)
            mItems.insert(FCPointer<T>(fc_detail::copyElement(mMode, item.Get())));
    }

    // Iterates FCPointer<T> in sorted order.
    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

    void Serialize(FCArchive& archive) {
        if (archive.IsStoring()) {
            fc_detail::transferMode(archive, mMode);
            archive.TransferCount(GetCount(), 2);
            for (const FCPointer<T>& item : mItems)
                archive.WriteObject(item.Get());
            return;
        }
        RemoveAll();
        mMode = fc_detail::transferMode(archive, mMode);
        const qint32 count = fc_detail::loadCount(archive, mMode);
        for (qint32 i = 0; i < count && archive.IsOk(); ++i) {
            T* object = fc_detail::readElement<T>(archive);
            if (!object)
                break;
            // A duplicate in a file is dropped rather than trusted.
            if (!mItems.insert(FCPointer<T>(object)).second)
                object->Release();
        }
    }

private:
    std::set<FCPointer<T>> mItems;
    int mMode = kFCBorrowed;
};
