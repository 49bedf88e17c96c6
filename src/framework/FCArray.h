#pragma once

#include "FCOwnership.h"

#include <algorithm>
#include <vector>

// A growable array of plain values (ints, QUuids, strings, small value structs).
template <typename T> class FCArray {
public:
    int GetCount() const { return int(mItems.size()); }
    bool IsEmpty() const { return mItems.empty(); }
    const T& At(int i) const { return mItems[size_t(i)]; }
    T& At(int i) { return mItems[size_t(i)]; }
    void Add(const T& value) { mItems.push_back(value); }
    void InsertAt(int i, const T& value) { mItems.insert(mItems.begin() + i, value); }
    void RemoveAt(int i) { mItems.erase(mItems.begin() + i); }
    void RemoveAll() { mItems.clear(); }
    int Find(const T& value) const {
        const auto it = std::find(mItems.begin(), mItems.end(), value);
        return it == mItems.end() ? -1 : int(it - mItems.begin());
    }
    bool Remove(const T& value) {
        const int i = Find(value);
        if (i >= 0)
            RemoveAt(i);
        return i >= 0;
    }
    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }
    bool operator==(const FCArray& other) const { return mItems == other.mItems; }

    // Count, then the values.
    void Serialize(FCArchive& archive) {
        const qint32 count = archive.TransferCount(GetCount(), 1);
        if (archive.IsLoading()) {
            mItems.clear();
            for (qint32 i = 0; i < count && archive.IsOk(); ++i) {
                T value{};
                fc_detail::transferValue(archive, value);
                if (archive.IsOk())
                    mItems.push_back(value);
            }
        } else {
            for (T& value : mItems)
                fc_detail::transferValue(archive, value);
        }
    }

private:
    std::vector<T> mItems;
};
