// Equipping, the stacking of magic bonuses, load and speed, worked by hand from the open 3.5
// rules: bonuses of one type do not stack, armor caps Dexterity and slows the wearer, and a
// Strength score carries its row of the carrying capacity table.
#include "ItemsTestSupport.h"

#include "DAdjChosenSpeed.h"
#include "DCharStatType.h"
#include "DWeaponInfo.h"

namespace {

using rulestest::Ref;

class EquipmentTest : public rulestest::ItemsFixture {
protected:
    static int LandSpeed(const DCharacter& character) {
        const auto* speed = FCDynamicCast<DAdjChosenSpeed>(character.GetBaseSpeedPointer());
        return speed ? speed->GetAdjSpeedValue() : -1;
    }
};

TEST_F(EquipmentTest, MagicBonusesOfOneTypeDoNotStack) {
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    const int bare = character->GetCharacterStat(kStatArmorClass);
    DChosenItem* plusOne = Give(*character, kItemRing, QStringLiteral("Protection +1"));
    DChosenItem* plusTwo = Give(*character, kItemRing, QStringLiteral("Protection +2"));
    DHandBook::EquipItem(character.get(), plusOne, true);
    DHandBook::EquipItem(character.get(), plusTwo, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare + 2);
    // A third ring finds no finger.
    DChosenItem* third = Give(*character, kItemRing, QStringLiteral("Protection +3"));
    EXPECT_FALSE(DHandBook::CanCharacterEquipMagicItem(character.get(), third));
    // Taking the higher off lets the lower count at once; taking the lower off changes nothing.
    DHandBook::UnEquipItem(character.get(), plusTwo, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare + 1);
    DHandBook::EquipItem(character.get(), plusTwo, true);
    DHandBook::UnEquipItem(character.get(), plusOne, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare + 2);
    DHandBook::UnEquipItem(character.get(), plusTwo, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare);
    EXPECT_TRUE(character->GetMagicBonusArray().IsEmpty());

    // Two equal bonuses: one counts, and the other takes over when the first goes.
    DChosenItem* twin = Give(*character, kItemRing, QStringLiteral("Protection +1"));
    DHandBook::EquipItem(character.get(), plusOne, true);
    DHandBook::EquipItem(character.get(), twin, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare + 1);
    DHandBook::UnEquipItem(character.get(), plusOne, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare + 1);
}

TEST_F(EquipmentTest, ArmorAndShieldEnhancementsBothCount) {
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    SetScore(*character, kAbilityDexterity, 16);
    const int bare = character->GetCharacterStat(kStatArmorClass);
    EXPECT_EQ(bare, 13);
    // +1 chainmail (5 + 1) caps Dexterity at +2; a +1 heavy steel shield gives 2 + 1.
    DChosenItem* mail = GiveMagic(*character, kItemArmor, QStringLiteral("Chainmail"), 1);
    DChosenItem* shield =
        GiveMagic(*character, kItemShield, QStringLiteral("Shield, heavy steel"), 1);
    DHandBook::EquipItem(character.get(), mail, true);
    DHandBook::EquipItem(character.get(), shield, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), 10 + 2 + 6 + 3);
    // The enhancements are part of the armor and shield bonuses, which touch attacks pass by.
    EXPECT_EQ(DHandBook::GetTouchArmorClass(character.get()), 10 + 2);
    EXPECT_EQ(DHandBook::GetFlatFootedArmorClass(character.get()), 10 + 6 + 3);
    DACValues parts;
    DHandBook::GetArmorClassValues(character.get(), parts);
    EXPECT_EQ(parts.armor, 6);
    EXPECT_EQ(parts.shield, 3);
    EXPECT_EQ(parts.magic, 0);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorCheckPenalty), -5 - 2);
    EXPECT_EQ(character->GetCharacterStat(kStatMaxDexterityBonus), 2);
    EXPECT_EQ(DHandBook::GetArcaneSpellFailure(character.get()), 30 + 15);
    DHandBook::UnEquipItem(character.get(), mail, true);
    DHandBook::UnEquipItem(character.get(), shield, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), bare);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorCheckPenalty), 0);

    // Masterwork armor is one step lighter on the skills.
    DChosenItem* masterwork =
        Give(*character, kItemArmor, QStringLiteral("Chainmail"), DItem::kItemFlagMasterwork);
    DHandBook::EquipItem(character.get(), masterwork, true);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorCheckPenalty), -4);
}

TEST_F(EquipmentTest, NonProficientArmorHurtsAttacks) {
    Ref<DCharacter> wizard = Make({QStringLiteral("Wizard")});
    DChosenItem* mail = Give(*wizard, kItemArmor, QStringLiteral("Chainmail"));
    DHandBook::EquipItem(wizard.get(), mail, true);
    EXPECT_EQ(wizard->GetCharacterStat(kStatNonProficientPenalty), -5);
    Ref<DCharacter> fighter = Make({QStringLiteral("Fighter")});
    mail = Give(*fighter, kItemArmor, QStringLiteral("Chainmail"));
    DHandBook::EquipItem(fighter.get(), mail, true);
    EXPECT_EQ(fighter->GetCharacterStat(kStatNonProficientPenalty), 0);
}

TEST_F(EquipmentTest, CarryingCapacityAndLoad) {
    struct Case {
        int strength;
        int size;
        float light, medium, heavy;
    };
    // Strength 31 reads the row of 21 four times over; Small carries three quarters.
    const Case cases[] = {{10, 4, 33, 66, 100},
                          {21, 4, 153, 306, 460},
                          {31, 4, 612, 1224, 1840},
                          {10, 3, 24.75f, 49.5f, 75},
                          {10, 5, 66, 132, 200}};
    for (const Case& c : cases) {
        DCarryInfo carry;
        DHandBook::ComputeCarryingCapcity(c.strength, c.size, carry);
        EXPECT_FLOAT_EQ(carry.light, c.light) << c.strength << " " << c.size;
        EXPECT_FLOAT_EQ(carry.medium, c.medium);
        EXPECT_FLOAT_EQ(carry.heavy, c.heavy);
    }

    // Strength 10 in chainmail (40 lb.) is a medium load: Dexterity +3 at most, -3 on checks,
    // and the armor's own -5 is the worse.
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    Give(*character, kItemArmor, QStringLiteral("Chainmail"));
    DHandBook::ComputeAndSetCharacterEncumberance(character.get());
    EXPECT_EQ(DHandBook::ComputeCharacterLoad(character.get()), 1);
    EXPECT_EQ(character->GetCharacterStat(kStatMaxDexterityBonus), 3);
    EXPECT_EQ(character->GetCharacterStat(kStatLoadCheckPenalty), -3);
    EXPECT_EQ(LandSpeed(*character), 20);
    SetScore(*character, kAbilityStrength, 14);
    DHandBook::ComputeAndSetCharacterEncumberance(character.get());
    EXPECT_EQ(DHandBook::ComputeCharacterLoad(character.get()), 0);
    EXPECT_EQ(LandSpeed(*character), 30);

    // A creature without Strength (an incorporeal undead) carrying nothing is not burdened: it
    // keeps its speed and Dexterity. Whatever it carries overloads it.
    Ref<DCharacter> shade = Make({QStringLiteral("Fighter")});
    shade->GetRace()->SetNoAbility(kAbilityStrength, true);
    DHandBook::ComputeAndSetCharacterEncumberance(shade.get());
    EXPECT_EQ(DHandBook::ComputeCharacterLoad(shade.get()), 0);
    EXPECT_EQ(shade->GetCharacterStat(kStatMaxDexterityBonus), 100);
    EXPECT_EQ(LandSpeed(*shade), 30);
    Give(*shade, kItemWeapon, QStringLiteral("Dagger"));
    DHandBook::ComputeAndSetCharacterEncumberance(shade.get());
    EXPECT_EQ(DHandBook::ComputeCharacterLoad(shade.get()), 3);
}

TEST_F(EquipmentTest, ArmorSlowsByTheNearestFiveFeet) {
    // The rules' table for medium and heavy armor: a quarter off, cut to whole feet, then to the
    // nearest 5 feet. 30 x 0.75 = 22.5: 22, then 20; 40: 30; 50: 37, then 35; 60: 45; 20: 15.
    const struct { int base, slowed; } table[] = {{20, 15}, {30, 20}, {40, 30}, {50, 35}, {60, 45}};
    for (const auto& row : table)
        EXPECT_EQ(DHandBook::ComputeArmorSpeed(row.base, 0.75f), row.slowed) << row.base;
    EXPECT_EQ(DHandBook::ComputeArmorSpeed(30, 1.0f), 30);

    Ref<DCharacter> human = Make({QStringLiteral("Fighter")});
    SetScore(*human, kAbilityStrength, 18);
    DHandBook::EquipItem(human.get(), Give(*human, kItemArmor, QStringLiteral("Full plate")), true);
    EXPECT_EQ(LandSpeed(*human), 20);
    EXPECT_EQ(human->GetCharacterStat(kStatRunMultiple), 3);
    // A race that keeps its pace in armor, as dwarves do.
    Ref<DCharacter> steady = Make({QStringLiteral("Fighter")}, 4, DRace::kFlagSteadySpeed);
    SetScore(*steady, kAbilityStrength, 18);
    DHandBook::EquipItem(steady.get(), Give(*steady, kItemArmor, QStringLiteral("Full plate")),
                         true);
    EXPECT_EQ(LandSpeed(*steady), 30);
    // The rules database's own multiplier: a 40 ft. walker in hide (an ogre) moves 30 ft.
    Ref<DCharacter> fast = Make({QStringLiteral("Fighter")});
    fast->GetBaseSpeedPointer()->SetSpeedValue(40);
    SetScore(*fast, kAbilityStrength, 18);
    DHandBook::EquipItem(fast.get(), Give(*fast, kItemArmor, QStringLiteral("Hide")), true);
    EXPECT_EQ(LandSpeed(*fast), 30);
}

TEST_F(EquipmentTest, BuyingAndSellingMoveTheMoney) {
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    character->GetCurrency().ClearAll();
    character->GetCurrency().SetAmount(2, 20);
    Ref<DItemInfo> longsword = Info(kItemWeapon, QStringLiteral("Longsword"));
    DChosenItem* bought =
        DHandBook::AddItemWithInfoToCharacter(character.get(), longsword.get(), 0, -1, false);
    EXPECT_EQ(character->GetCurrency().GetAmount(2), 5);
    EXPECT_EQ(character->GetInventoryValue().GetAmount(2), 15);
    // A Large character's longsword is fitted to it, and the price doubles.
    Ref<DCharacter> ogre = Make({QStringLiteral("Fighter")}, 5);
    DChosenItem* large =
        DHandBook::AddItemWithInfoToCharacter(ogre.get(), longsword.get(), 0, 5, true);
    const auto* fitted = static_cast<const DWeaponInfo*>(large->GetBaseItemInfo());
    EXPECT_EQ(fitted->GetDamageDieCount(0), 2);
    EXPECT_EQ(fitted->GetDamageDieId(0), 6);
    EXPECT_FLOAT_EQ(fitted->GetWeight(), 8.0f);
    DCurrency price;
    large->GetMarketCost(price);
    EXPECT_EQ(price.GetAmount(2), 30);
    EXPECT_EQ(static_cast<DWeaponInfo*>(longsword.get())->GetDamageDieId(0), 8)
        << "the row itself stays Medium";

    DHandBook::RemoveItem(character.get(), bought, false, true);
    EXPECT_EQ(character->GetCurrency().GetAmount(2), 20);
    EXPECT_TRUE(character->GetInventoryValue().IsEmpty());
}

} // namespace
