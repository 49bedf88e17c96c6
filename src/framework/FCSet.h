#pragma once

#include "FCOwnership.h"

#include <set>

// Unique values in the order of T's operator<.
template <typename T> class FCSet {
public:
    int GetCount() const { return int(mItems.size()); }
    bool IsEmpty() const { return mItems.empty(); }
    bool Add(const T& value) { return mItems.insert(value).second; }
    bool Remove(const T& value) { return mItems.erase(value) > 0; }
    bool Contains(const T& value) const { return mItems.count(value) > 0; }
    void RemoveAll() { mItems.clear(); }
    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }
    bool operator==(const FCSet& other) const { return mItems == other.mItems; }

    // Count, then the values in order.
    void Serialize(FCArchive& archive) {
        const qint32 count = archive.TransferCount(GetCount(), 1);
        if (archive.IsLoading()) {
            mItems.clear();
            for (qint32 i = 0; i < count && archive.IsOk(); ++i) {
                T value{};
                fc_detail::transferValue(archive, value);
                if (archive.IsOk())
                    mItems.insert(value);
            }
        } else {
            for (T value : mItems)
                fc_detail::transferValue(archive, value);
        }
    }

private:
    std::set<T> mItems;
};
