#pragma once

#include <QtGlobal>

// A natural attack's item id names its kind (its "[types Race Attack]" row) above a base, so
// that one feat serves every attack of that kind: Weapon Focus (bite) targets the id of the
// bites, with sub-target 0, the offense type of a natural attack.
namespace DNaturalAttackKind {

inline constexpr qint32 kItemIdBase = 1000;

constexpr qint32 ItemId(int kind) {
    return kItemIdBase + kind;
}

// The kind an item id names, -1 for none.
constexpr int Kind(qint64 itemId) {
    return itemId >= kItemIdBase ? int(itemId - kItemIdBase) : -1;
}

} // namespace DNaturalAttackKind
