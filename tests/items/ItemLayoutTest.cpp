#include "DAttackInfo.h"
#include "DItem.h"
#include "DMagicBonus.h"
#include "DWeaponInfo.h"
#include "ItemsSamples.h"

#include <gtest/gtest.h>

using namespace itemstest;

// The byte layouts below are worked out by hand from the field orders of the file formats:
// integers 4 bytes big-endian, booleans 1 byte, GUIDs 16, strings a byte count and UTF-16.

TEST(ItemLayout, ItemNamesASharedRecordByGuidAndType) {
    Ref<DWeaponInfo> weapon = sampleWeapon();
    DItem item;
    item.SetItemInfo(weapon.get());
    item.SetItemFlags(DItem::kItemFlagCarried);
    item.AddMarketCost(5, kCoinSilver);
    item.AddMarketCost(15, kCoinGold);
    const QByteArray expected = QByteArray::fromHex("00000002"                         // flags
                                                    "00000001"                         // count
                                                    "00000000000000050000000F00000000" // money
                                                    "1000000120003000405060708090A001" // GUID
                                                    "00000000");                       // weapon
    EXPECT_EQ(storeFields(item).toHex(), expected.toHex());
}

TEST(ItemLayout, ItemWritesAChangedRecordInFull) {
    Ref<DWeaponInfo> weapon(sampleWeapon()->Clone());
    weapon->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    DItem item;
    item.SetItemInfo(weapon.get());
    const QByteArray bytes = storeFields(item);
    // Flags, count and money (24), 16 zero bytes, then the weapon as an object: name length
    // (2) and "DWeaponInfo" (11), item part 16 + 4 + 18 + 16, offense 8, weapon 15 words,
    // acts-as GUID 16, family and flags 8: 146 bytes of fields.
    EXPECT_EQ(bytes.size(), 24 + 16 + 2 + 11 + 146);
    EXPECT_EQ(bytes.mid(24, 16), QByteArray(16, '\0'));
    EXPECT_EQ(bytes.mid(40, 13), QByteArray::fromHex("000B") + "DWeaponInfo");
}

TEST(ItemLayout, NullInfoIsZeroGuidAndNullObject) {
    DItem item;
    const QByteArray bytes = storeFields(item);
    EXPECT_EQ(bytes.size(), 24 + 16 + 2);
    EXPECT_EQ(bytes.right(18), QByteArray(18, '\0'));
}
