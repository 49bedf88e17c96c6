// A weapon in hand has no place on the body: it is equipped by standing in an offense group,
// any of them, and only as a weapon.
#include "DWielding.h"

#include "DCharacter.h"
#include "DOffenseItem.h"

#include <gtest/gtest.h>

namespace {

TEST(Wielding, AWeaponInAnyOffenseGroupIsInHand) {
    DCharacter character;
    character.AddOffenseToGroup(
        0, DOffenseItem(DOffenseItem::kOffenseWeapon, 3, DOffenseItem::kOffenseOneHand));
    // A second way of fighting, with a two-handed weapon, in the third group.
    character.AddOffenseToGroup(
        2, DOffenseItem(DOffenseItem::kOffenseWeapon, 5, DOffenseItem::kOffenseTwoHands));
    // A natural attack that happens to bear an item's number holds no item.
    character.AddOffenseToGroup(0, DOffenseItem(DOffenseItem::kOffenseNatural, 4));
    const struct {
        int itemId;
        bool wielded;
    } cases[] = {{3, true}, {5, true}, {4, false}, {6, false}};
    for (const auto& c : cases)
        EXPECT_EQ(DWielding::IsWielded(character, c.itemId), c.wielded) << c.itemId;

    character.RemoveWeaponFromAllGroups(5);
    EXPECT_FALSE(DWielding::IsWielded(character, 5));
    EXPECT_TRUE(DWielding::IsWielded(character, 3));
}

} // namespace
