#pragma once

#include "ItemsTestSupport.h"

class DCustomMagicItemInfo;
class DItemCollection;
class DItemInfo;
class DWeaponInfo;

namespace itemstest {

// Records with every field away from its default, for round trips and copies.

// A longsword-like weapon: GUID guid(1), not flagged, so items share it.
Ref<DWeaponInfo> sampleWeapon();
// One sample of every info class, in a fixed order; the custom one is sampleCustom().
std::vector<Ref<DItemInfo>> sampleInfos();
// A +2/+1 double weapon with two abilities (one with a target), a target and intelligent and
// cursed data; its base is a flagged copy of sampleWeapon(), so it is stored in full.
Ref<DCustomMagicItemInfo> sampleCustom();
// Items of every kind: shared weapon, flagged weapon, custom, scroll, wondrous, potion, and a
// chosen item with no info.
Ref<DItemCollection> sampleCollection();

} // namespace itemstest
