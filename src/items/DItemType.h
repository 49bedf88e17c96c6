#pragma once

// What an item is: the value of DItemInfo::GetItemType, stored in files.
enum DItemType : int {
    kItemWeapon = 0,
    kItemArmor = 1,
    kItemShield = 2,
    kItemGoods = 3,
    kItemMagic = 4,
    kItemPotion = 5,
    kItemRing = 6,
    kItemRod = 7,
    kItemScroll = 8,
    kItemStaff = 9,
    kItemWand = 10,
    kItemWondrous = 11,
    kItemCoins = 12,
    kItemGeneric = 13,
    kItemArtObject = 14,
    kItemGem = 15,
    kItemCustomMagic = 16,
    kItemAttack = 18,
};

// The MagicType field of a magic info. 12 to 14 are 9 to 11 seen as an inventory group.
enum DMagicType : int {
    kMagicNone = 0,
    kMagicPotion = 1,
    kMagicRing = 2,
    kMagicRod = 3,
    kMagicScroll = 4,
    kMagicStaff = 5,
    kMagicWand = 6,
    kMagicWondrous = 7,
    kMagicCustomWeapon = 9,
    kMagicCustomArmor = 10,
    kMagicCustomShield = 11,
    kMagicWeaponGroup = 12,
    kMagicArmorGroup = 13,
    kMagicShieldGroup = 14,
};

// Coin types; each coin is worth ten of the one below it.
enum DCoinType : int {
    kCoinCopper = 0,
    kCoinSilver = 1,
    kCoinGold = 2,
    kCoinPlatinum = 3,
};

// Mundane weapon, armor, shield or good: the kinds the rules database shares between items.
constexpr bool DIsCoreItemType(int type) {
    return type >= kItemWeapon && type <= kItemGoods;
}

// Plain magic items and the custom magic weapons, armor and shields.
constexpr bool DIsMagicItemType(int type) {
    return (type >= kItemMagic && type <= kItemWondrous) || type == kItemCustomMagic;
}
