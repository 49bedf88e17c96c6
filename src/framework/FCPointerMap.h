#pragma once

#include "FCOwnership.h"

#include <map>
#include <type_traits>

// Objects by key (int or QUuid). Iteration is in key order.
template <typename K, typename V> class FCPointerMap {
public:
    FCPointerMap() = default;
    FCPointerMap(const FCPointerMap&) = delete;
    FCPointerMap& operator=(const FCPointerMap&) = delete;
    ~FCPointerMap() { RemoveAll(); }

    int GetOwnership() const { return mMode; }
    void SetOwnership(int mode) { mMode = mode; }

    int GetCount() const { return int(mItems.size()); }
    bool IsEmpty() const { return mItems.empty(); }
    V* Lookup(const K& key) const {
        const auto it = mItems.find(key);
        return it == mItems.end() ? nullptr : it->second;
    }
    bool Contains(const K& key) const { return mItems.count(key) > 0; }
    // The first key from `from` upward that holds nothing: how numbered lists hand out ids.
    K FindFreeKey(K from) const requires std::is_integral_v<K> {
        while (Contains(from))
            ++from;
        return from;
    }

    // Stores `object` under `key`, dropping what was there before.
    void SetAt(const K& key, V* object) {
        auto [it, inserted] = mItems.try_emplace(key, object);
        // Storing the entry's own object again must not drop it (mode 1 would delete it).
        if (!inserted && it->second == object)
            return;
        fc_detail::adopt(mMode, object);
        if (!inserted) {
            V* old = it->second;
            it->second = object;
            fc_detail::drop(mMode, old);
        }
    }
    bool RemoveKey(const K& key) {
        const auto it = mItems.find(key);
        if (it == mItems.end())
            return false;
        V* object = it->second;
        mItems.erase(it);
        fc_detail::drop(mMode, object);
        return true;
    }
    void RemoveAll() {
        std::map<K, V*> items;
        items.swap(mItems);
        for (auto& [key, object] : items)
            fc_detail::drop(mMode, object);
    }
    void CloneFrom(const FCPointerMap& other) {
        RemoveAll();
        mMode = other.mMode;
        for (const auto& [key, object] : other.mItems)
            mItems.emplace(key, fc_detail::copyElement(mMode, object));
    }

    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

    // Mode, count, then per entry the key and the object.
    void Serialize(FCArchive& archive) {
        if (archive.IsStoring()) {
            fc_detail::transferMode(archive, mMode);
            archive.TransferCount(GetCount(), 2);
            for (auto& [key, object] : mItems) {
                K stored = key;
                fc_detail::transferValue(archive, stored);
                archive.WriteObject(object);
            }
            return;
        }
        RemoveAll();
        mMode = fc_detail::transferMode(archive, mMode);
        const qint32 count = fc_detail::loadCount(archive, mMode);
        for (qint32 i = 0; i < count && archive.IsOk(); ++i) {
            K key{};
            fc_detail::transferValue(archive, key);
            V* object = fc_detail::readElement<V>(archive);
            if (!object)
                break;
            auto [it, inserted] = mItems.try_emplace(key, object);
            if (!inserted)
                object->Release(); // a repeated key in a file keeps the first
        }
    }

private:
    std::map<K, V*> mItems;
    int mMode = kFCBorrowed;
};
