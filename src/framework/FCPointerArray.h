#pragma once

#include "FCOwnership.h"

#include <algorithm>
#include <vector>

// An ordered list of objects; the ownership mode decides what insert and removal do.
template <typename T> class FCPointerArray {
public:
    FCPointerArray() = default;
    FCPointerArray(const FCPointerArray&) = delete;
    FCPointerArray& operator=(const FCPointerArray&) = delete;
    ~FCPointerArray() { RemoveAll(); }

    int GetOwnership() const { return mMode; }
    void SetOwnership(int mode) { mMode = mode; }

    int GetCount() const { return int(mItems.size()); }
    bool IsEmpty() const { return mItems.empty(); }
    T* At(int i) const { return i >= 0 && i < GetCount() ? mItems[size_t(i)] : nullptr; }
    T* GetLast() const { return mItems.empty() ? nullptr : mItems.back(); }
    int Find(const T* object) const {
        const auto it = std::find(mItems.begin(), mItems.end(), object);
        return it == mItems.end() ? -1 : int(it - mItems.begin());
    }

    int Add(T* object) {
        fc_detail::adopt(mMode, object);
        mItems.push_back(object);
        return GetCount() - 1;
    }
    void InsertAt(int i, T* object) {
        fc_detail::adopt(mMode, object);
        mItems.insert(mItems.begin() + i, object);
    }
    void RemoveAt(int i) {
        T* object = mItems[size_t(i)];
        mItems.erase(mItems.begin() + i);
        fc_detail::drop(mMode, object);
    }
    bool Remove(T* object) {
        const int i = Find(object);
        if (i >= 0)
            RemoveAt(i);
        return i >= 0;
    }
    void RemoveAll() {
        std::vector<T*> items;
        items.swap(mItems);
        for (T* object : items)
            fc_detail::drop(mMode, object);
    }
    // Moves an element without touching its count.
    void Move(int from, int to) {
        T* object = mItems[size_t(from)];
        mItems.erase(mItems.begin() + from);
        mItems.insert(mItems.begin() + to, object);
    }

    // Replaces the contents with clones of `other`'s elements (a deep copy).
    void CloneFrom(const FCPointerArray& other) {
        RemoveAll();
        mMode = other.mMode;
        for (T* object : other.mItems) {
            mItems.push_back(fc_detail::copyElement(mMode, object));
        }
    }

    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

    // Mode, count, then each object with its class name.
    void Serialize(FCArchive& archive) {
        if (archive.IsStoring()) {
            fc_detail::transferMode(archive, mMode);
            archive.TransferCount(GetCount(), 2);
            for (T* object : mItems)
                archive.WriteObject(object);
            return;
        }
        RemoveAll();
        mMode = fc_detail::transferMode(archive, mMode);
        const qint32 count = fc_detail::loadCount(archive, mMode);
        for (qint32 i = 0; i < count && archive.IsOk(); ++i) {
            T* object = fc_detail::readElement<T>(archive);
            if (!object)
                break;
            mItems.push_back(object); // the reader's reference is the container's
        }
    }

private:
    std::vector<T*> mItems;
    int mMode = kFCBorrowed;
};
