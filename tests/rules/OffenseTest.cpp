// Attack bonuses, damage and critical texts worked by hand from the open 3.5 rules: iterative
// attacks every 5 points of base attack, half again Strength with two hands and half in the off
// hand, -6/-10 for two weapons (-4/-8 with a light off-hand weapon), and weapon dice that step
// with size.
#include "ItemsTestSupport.h"

#include "DCharStatType.h"
#include "DChosenFeat.h"
#include "DGuid.h"
#include "DOffenseGroup.h"
#include "DWeaponInfo.h"

namespace {

using rulestest::Ref;

class OffenseTest : public rulestest::ItemsFixture {
protected:
    // Wields `name` in the first group with the grip and returns its offense item.
    static DOffenseItem Wield(DCharacter& character, const QString& name, quint32 grip) {
        DChosenItem* item = Give(character, kItemWeapon, name);
        const auto* weapon = static_cast<const DWeaponInfo*>(item->GetBaseItemInfo());
        if (DHandBook::IsWeaponLight(&character, weapon))
            grip |= DOffenseItem::kOffenseLight;
        character.AddOffenseToGroup(
            0, DOffenseItem(DOffenseItem::kOffenseWeapon, item->GetItemId(), grip));
        return Current(character, item->GetItemId());
    }

    // The item as the group holds it now, with the flags its usage gave it.
    static DOffenseItem Current(const DCharacter& character, int itemId) {
        for (const DOffenseItem& offense : character.GetOffenseGroup(0)->GetOffenseItemArray()) {
            if (offense.GetOffenseId() == itemId)
                return offense;
        }
        ADD_FAILURE() << "weapon " << itemId << " is in no group";
        return DOffenseItem();
    }

    static int Bonus(DCharacter& character, const DOffenseItem& offense) {
        DOffenseBonusValues values;
        return DHandBook::GetOffenseBonus(&character, offense, values, false);
    }
};

TEST_F(OffenseTest, IterativeAttacksEveryFivePoints) {
    struct Case {
        int baseAttack;
        QList<int> bonuses;
    };
    const Case cases[] = {
        {5, {5}}, {6, {6, 1}}, {11, {11, 6, 1}}, {16, {16, 11, 6, 1}}, {20, {20, 15, 10, 5}}};
    for (const Case& c : cases)
        EXPECT_EQ(DHandBook::BuildIterativeBonuses(c.baseAttack, c.baseAttack, false), c.bonuses)
            << c.baseAttack;
    // A total that drops to 0 or below loses the attack.
    EXPECT_EQ(DHandBook::BuildIterativeBonuses(3, 6, false), QList<int>({3}));
}

TEST_F(OffenseTest, StrengthByGripAndWeapon) {
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    SetScore(*character, kAbilityStrength, 18);
    struct Case {
        QString weapon;
        quint32 grip;
        QString damage;
    };
    // Strength 18 (+4): a greatsword in two hands +6, a longsword +4, a composite bow that is
    // not mighty nothing.
    const Case cases[] = {
        {QStringLiteral("Greatsword"), DOffenseItem::kOffenseTwoHands, QStringLiteral("2d6+6")},
        {QStringLiteral("Longsword"), DOffenseItem::kOffenseOneHand, QStringLiteral("1d8+4")},
        {QStringLiteral("Longbow, composite"), DOffenseItem::kOffenseTwoHands,
         QStringLiteral("1d8")},
    };
    for (const Case& c : cases) {
        character->RemoveAllOffenseGroups();
        const DOffenseItem offense = Wield(*character, c.weapon, c.grip);
        EXPECT_EQ(DHandBook::BuildOffenseDamageString(character.get(), offense), c.damage)
            << c.weapon.toStdString();
    }
    // Strength 8 (-1) is never halved or multiplied, and counts on a composite bow.
    SetScore(*character, kAbilityStrength, 8);
    character->RemoveAllOffenseGroups();
    DOffenseItem bow =
        Wield(*character, QStringLiteral("Longbow, composite"), DOffenseItem::kOffenseTwoHands);
    EXPECT_EQ(DHandBook::BuildOffenseDamageString(character.get(), bow), QStringLiteral("1d8-1"));
    character->RemoveAllOffenseGroups();
    DOffenseItem great =
        Wield(*character, QStringLiteral("Greatsword"), DOffenseItem::kOffenseTwoHands);
    EXPECT_EQ(DHandBook::BuildOffenseDamageString(character.get(), great), QStringLiteral("2d6-1"));
}

TEST_F(OffenseTest, TwoWeaponsAndTheFeatsThatHelp) {
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    SetScore(*character, kAbilityStrength, 14);
    character->RemoveAllOffenseGroups();
    const int main = Wield(*character, QStringLiteral("Longsword"), DOffenseItem::kOffenseOneHand)
                         .GetOffenseId();
    // Alone the longsword is at base attack +1 and Strength +2.
    EXPECT_EQ(Bonus(*character, Current(*character, main)), 3);
    const int off =
        Wield(*character, QStringLiteral("Dagger"), DOffenseItem::kOffenseOneHand).GetOffenseId();
    // A light off-hand weapon: -4 main, -8 off; the off hand adds half Strength.
    EXPECT_EQ(Bonus(*character, Current(*character, main)), 3 - 4);
    EXPECT_EQ(Bonus(*character, Current(*character, off)), 3 - 8);
    EXPECT_EQ(DHandBook::BuildOffenseDamageString(character.get(), Current(*character, off)),
              QStringLiteral("1d4+1"));
    TakeFeat(*character, QStringLiteral("Two-Weapon Fighting"));
    EXPECT_EQ(Bonus(*character, Current(*character, main)), 3 - 2);
    EXPECT_EQ(Bonus(*character, Current(*character, off)), 3 - 2);
    // Weapon Focus in the longsword, and a weapon the fighter was never taught (-4).
    TakeFeat(*character, QStringLiteral("Weapon Focus"),
             ItemGuid(kItemWeapon, QStringLiteral("Longsword")));
    EXPECT_EQ(Bonus(*character, Current(*character, main)), 3 - 2 + 1);
    Ref<DCharacter> wizard = Make({QStringLiteral("Wizard")});
    const DOffenseItem sword =
        Wield(*wizard, QStringLiteral("Longsword"), DOffenseItem::kOffenseOneHand);
    EXPECT_EQ(Bonus(*wizard, sword), 0 + 0 - 4);
}

TEST_F(OffenseTest, WeaponFinesseServesWhatCanBeFinessed) {
    // Str 8 (-1), Dex 16 (+3), base attack +1. With Weapon Finesse a rapier and a dagger use
    // Dexterity; a longsword, which cannot be finessed, keeps Strength.
    Ref<DCharacter> rogue = Make({QStringLiteral("Fighter")});
    SetScore(*rogue, kAbilityStrength, 8);
    SetScore(*rogue, kAbilityDexterity, 16);
    const struct {
        const char* weapon;
        int without, with;
    } cases[] = {{"Rapier", 0, 4}, {"Dagger", 0, 4}, {"Longsword", 0, 0}};
    for (const bool finesse : {false, true}) {
        if (finesse)
            TakeFeat(*rogue, QStringLiteral("Weapon Finesse"));
        for (const auto& c : cases) {
            rogue->RemoveAllOffenseGroups();
            const DOffenseItem offense =
                Wield(*rogue, QString::fromLatin1(c.weapon), DOffenseItem::kOffenseOneHand);
            EXPECT_EQ(Bonus(*rogue, offense), finesse ? c.with : c.without) << c.weapon;
        }
    }
}

TEST_F(OffenseTest, WeaponFeatsStoredWithTheWeaponTableCount) {
    // The editors and the ready races store a weapon feat's target with sub-target 1 (the
    // weapon table). A fighter 1 with Str 10: a bastard sword unlearnt is at -4; Exotic Weapon
    // Proficiency takes that away, Weapon Focus adds 1, Improved Critical doubles 19-20.
    Ref<DCharacter> fighter = Make({QStringLiteral("Fighter")});
    const QUuid sword = ItemGuid(kItemWeapon, QStringLiteral("Sword, bastard"));
    const DOffenseItem offense =
        Wield(*fighter, QStringLiteral("Sword, bastard"), DOffenseItem::kOffenseTwoHands);
    EXPECT_EQ(Bonus(*fighter, offense), 1 - 4);
    QUuid weaponTable;
    DGuid::SetLong(weaponTable, 1);
    for (const char* feat : {"Exotic Weapon Proficiency", "Weapon Focus", "Improved Critical"}) {
        Ref<DChosenFeat> chosen(new DChosenFeat());
        chosen->SetFeatGuid(FeatGuid(QString::fromLatin1(feat)));
        chosen->SetTargetGuid(sword);
        chosen->SetTargetSubGuid(weaponTable);
        DHandBook::AddFeat(fighter.get(), true, chosen.get());
    }
    DHandBook::ComputeAndSetProficiencies(fighter.get());
    EXPECT_EQ(Bonus(*fighter, offense), 1 + 1);
    const DOffenseLine line = DHandBook::BuildOffenseLines(fighter.get()).value(0);
    EXPECT_EQ(line.critical, QStringLiteral("17-20/x2"));
}

TEST_F(OffenseTest, CriticalAndRangeTexts) {
    EXPECT_EQ(DHandBook::BuildSimpleWeaponCriticalString(19, 2, 0, false),
              QStringLiteral("19-20/x2"));
    EXPECT_EQ(DHandBook::BuildSimpleWeaponCriticalString(0, 3, 0, false), QStringLiteral("x3"));
    EXPECT_EQ(DHandBook::BuildSimpleWeaponCriticalString(0, 2, 3, true), QStringLiteral("x2/x3"));
    Ref<DCharacter> character = Make({QStringLiteral("Fighter")});
    const QUuid longsword = ItemGuid(kItemWeapon, QStringLiteral("Longsword"));
    const QUuid warhammer = ItemGuid(kItemWeapon, QStringLiteral("Warhammer"));
    TakeFeat(*character, QStringLiteral("Improved Critical"), longsword);
    TakeFeat(*character, QStringLiteral("Improved Critical"), warhammer);
    DWeaponCritValues nineteen{19, {2, 0}};
    DWeaponCritValues twenty{0, {3, 0}};
    EXPECT_EQ(DHandBook::BuildWeaponCriticalString(character.get(), longsword, nineteen, false),
              QStringLiteral("17-20/x2"));
    EXPECT_EQ(DHandBook::BuildWeaponCriticalString(character.get(), warhammer, twenty, false),
              QStringLiteral("19-20/x3"));
    EXPECT_EQ(DHandBook::BuildWeaponRangeString(character.get(), 0), QStringLiteral("-"));
    EXPECT_EQ(DHandBook::BuildWeaponRangeString(character.get(), 110), QStringLiteral("110 ft"));
    TakeFeat(*character, QStringLiteral("Far Shot"));
    EXPECT_EQ(DHandBook::BuildWeaponRangeString(character.get(), 110), QStringLiteral("165 ft"));
}

TEST_F(OffenseTest, DiceStepWithSizeAndTheUnarmedStrikeIsKeptOnce) {
    struct Case {
        int count, die, from, to, count2, die2;
    };
    // 1d8 one size up is 2d6, 1d4 one up 1d6, 1d6 down 1d4; a d20 has no row and stays.
    const Case cases[] = {
        {1, 8, 4, 5, 2, 6}, {1, 4, 4, 5, 1, 6}, {1, 6, 4, 3, 1, 4}, {1, 20, 4, 5, 1, 20}};
    for (const Case& c : cases) {
        DWeaponDamageValues values;
        values.mDieCount[0] = c.count;
        values.mDieId[0] = c.die;
        DHandBook::GetDamageChange(values, c.from, c.to);
        EXPECT_EQ(values.mDieCount[0], c.count2) << c.count << "d" << c.die;
        EXPECT_EQ(values.mDieId[0], c.die2);
    }
    EXPECT_EQ(DHandBook::BuildWeaponDamageString(DWeaponDamageValues{{1, 1}, {8, 6}}, true, 1),
              QStringLiteral("1d8+1/1d6+1"));
    EXPECT_EQ(DHandBook::BuildSimpleWeaponDamageString(3, 1, 0, 0), QStringLiteral("3"));

    // Medium strikes for 1d3, Small for 1d2; setting up again keeps one unarmed strike.
    for (const auto& [size, die] : {std::pair{4, 3}, std::pair{3, 2}}) {
        Ref<DCharacter> character = Make({QStringLiteral("Fighter")}, size);
        DHandBook::SetupUnarmedAttack(character.get());
        int unarmed = 0;
        for (const auto& [id, item] : character->GetItemMap()) {
            if (item->HasItemFlag(DItem::kItemFlagUnarmed)) {
                ++unarmed;
                EXPECT_EQ(
                    static_cast<const DWeaponInfo*>(item->GetBaseItemInfo())->GetDamageDieId(0),
                    die);
            }
        }
        EXPECT_EQ(unarmed, 1) << size;
    }
}

} // namespace
