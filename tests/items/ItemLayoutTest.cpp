#include "DAttackInfo.h"
#include "DItem.h"
#include "DMagicBonus.h"
#include "DWeaponInfo.h"
#include "ItemsSamples.h"

#include <gtest/gtest.h>

using namespace itemstest;

// The byte layouts below are worked out by hand from the field orders of the file formats:
// integers 4 bytes big-endian, booleans 1 byte, GUIDs 16, strings a byte count and UTF-16.

TEST(ItemLayout, MagicBonusIsThirtyThreeBytesInFieldOrder) {
    DMagicBonus bonus(3, -2, 2);
    bonus.SetTargetData(4);
    bonus.SetSourceItemType(1);
    bonus.SetIsApplied(false);
    const QByteArray expected = QByteArray::fromHex("00000003"                 // bonus type
                                                    "FFFFFFFE"                 // bonus
                                                    "00000002"                 // modify type
                                                    "00000004"                 // target word
                                                    "000000000000000000000000" // rest of target
                                                    "00000001"                 // source type
                                                    "00");                     // not applied
    EXPECT_EQ(storeFields(bonus).toHex(), expected.toHex());
    // As an object it has no base part: only the class name comes first.
    EXPECT_EQ(storeObject(&bonus).toHex(),
              (QByteArray::fromHex("000B") + "DMagicBonus" + expected).toHex());
}

TEST(ItemLayout, AttackInfoIsEightyOneBytesInFieldOrder) {
    DAttackInfo attack;
    attack.SetItemGuid(QUuid(QStringLiteral("{00112233-4455-6677-8899-AABBCCDDEEFF}")));
    attack.SetItemName(QStringLiteral("Claw"));
    attack.SetCostCoinType(2);
    attack.SetWeight(1.5f);
    attack.AddInfoFlag(DItemInfo::kInfoFlagChanged);
    attack.SetOffenseCount(2);
    attack.SetItemId(7);
    attack.SetAttackTypeId(3);
    attack.SetAttackRangeIsTouch(true);
    attack.SetAttackTotalBonus(5);
    attack.SetAttackUserMod(-1);
    attack.SetDamageDieCount(1);
    attack.SetDamageDieId(4);
    attack.SetDamageBonus(2);
    const QByteArray expected = QByteArray::fromHex("00112233445566778899AABBCCDDEEFF" // GUID
                                                    "00000008"         // name: 8 bytes of UTF-16
                                                    "0043006C00610077" // "Claw"
                                                    "00000000"         // cost
                                                    "00000002"         // coin type
                                                    "3FC00000"   // weight 1.5 as a 4-byte float
                                                    "00000001"   // info flags
                                                    "00000002"   // offense count
                                                    "00000000"   // range type
                                                    "00000007"   // item id
                                                    "00000003"   // attack type
                                                    "01"         // touch
                                                    "00000005"   // total bonus
                                                    "FFFFFFFF"   // user mod
                                                    "00000001"   // die count
                                                    "00000004"   // die id
                                                    "00000002"); // damage bonus
    const QByteArray actual = storeFields(attack);
    EXPECT_EQ(actual.size(), 81);
    EXPECT_EQ(actual.toHex(), expected.toHex());
}

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

TEST(ItemLayout, WeaponFieldsFollowTheItemPartInOrder) {
    DWeaponInfo weapon;
    weapon.SetOffenseCount(1);
    weapon.SetRangeType(2);
    weapon.SetSizeType(3);
    weapon.SetSkillType(4);
    weapon.SetDamageValues(DWeaponDamageValues{{5, 6}, {7, 8}});
    weapon.SetCriticalValues(DWeaponCritValues{9, {10, 11}});
    weapon.SetRangeIncrement(12);
    weapon.SetDamageType(13);
    weapon.SetUseType(14);
    weapon.SetApplyStrModType(15);
    weapon.SetMaxStrBonus(16);
    weapon.SetMagicBonus(17);
    weapon.SetActsAsWeaponId(QUuid(QStringLiteral("{00112233-4455-6677-8899-AABBCCDDEEFF}")));
    weapon.SetFamilyId(18);
    weapon.SetWeaponFlags(0x13);
    const QByteArray bytes = storeFields(weapon);
    // Item part: GUID 16, a null name as its 4-byte marker, four 4-byte fields.
    ASSERT_EQ(bytes.size(), 36 + 4 * 17 + 16 + 8);
    EXPECT_EQ(bytes.mid(16, 4), QByteArray::fromHex("FFFFFFFF"));
    QByteArray expected;
    for (quint32 value = 1; value <= 17; ++value)
        expected += QByteArray::fromHex(QByteArray::number(value, 16).rightJustified(8, '0'));
    expected += QByteArray::fromHex("00112233445566778899AABBCCDDEEFF");
    expected += QByteArray::fromHex("0000001200000013");
    EXPECT_EQ(bytes.mid(36).toHex(), expected.toHex());
}
