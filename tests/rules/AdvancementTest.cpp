// Monster advancement worked by hand from the open 3.5 rules: each size step up adds the size
// table's changes (Large: Str +8, Dex -2, Con +4, natural armor +2; Huge: +8, -2, +4, +3), a
// natural weapon's die grows one step per size, and hit dice drive hit points, base attack and
// saves by the creature type.
#include "RulesTestSupport.h"

#include "BuiltRulesTest.h"
#include "DAttackInfo.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DRaceAdvance.h"
#include "DSizeInfo.h"

namespace {

using rulestest::Ref;

class AdvancementTest : public rulestest::RulesFixture {
protected:
    // A Medium magical beast of 2 HD, all scores 10 but Constitution 12, natural armor
    // `naturalArmor`, a 1d6 bite, that is Medium up to 2 HD, Large at 3-4 and Huge at 5-6.
    Ref<DCharacter> Beast(int naturalArmor = 1) {
        DRace race;
        race.SetClassGuid(ClassGuid(QStringLiteral("Magical Beast")));
        race.SetHitDieCount(2);
        race.SetSizeId(4);
        race.SetNaturalAC(naturalArmor);
        // Good saves as the creature type gives them: Fortitude and Reflex.
        DHandBook::InitialRaceSetup(&race);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, ability == kAbilityConstitution ? 12 : 10);
        for (const auto& [from, to, size] : {std::tuple{1, 2, 4}, {3, 4, 5}, {5, 6, 6}}) {
            Ref<DRaceAdvance> advance(new DRaceAdvance(from, to, size));
            race.AddAdvance(advance.get());
        }
        Ref<DAttackInfo> bite(new DAttackInfo);
        bite->SetDamageDieCount(1);
        bite->SetDamageDieId(6);
        race.AddAttack(bite.get());
        Ref<DFileObject> entry = SaveRace(race, QStringLiteral("Beast %1").arg(++mCount));
        return NewCharacter(entry.get(), {});
    }

    static QString Bite(const DCharacter& character) {
        const DAttackInfo* bite = character.GetAttackMap().begin()->second;
        return QStringLiteral("%1d%2").arg(bite->GetDamageDieCount()).arg(bite->GetDamageDieId());
    }

    static void Advance(DCharacter& character, float hitDice) {
        DHandBook::AdvanceCharacterWithHD(&character, character.GetHistoryAtPosition(0)->GetLevel(),
                                          hitDice, false);
    }

    int mCount = 0;
};

TEST_F(AdvancementTest, HitDiceWithinOneSizeChangeOnlyTheDiceNumbers) {
    Ref<DCharacter> beast = Beast();
    // 2d10 with Con +1: 11 + 2; full base attack; good Fortitude and Reflex.
    EXPECT_EQ(beast->GetCharacterStat(kStatHitPoints), 13);
    EXPECT_EQ(beast->GetCharacterStat(kStatBaseAttack), 2);
    EXPECT_EQ(beast->GetCharacterStat(kStatFortitude), 2 / 2 + 2 + 1);
    DHandBook::AdvanceCharacterWithHD(beast.get(), 2, 1, false);
    EXPECT_EQ(beast->GetSizeInfo()->GetSizeId(), 4);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityStrength), 10);
    EXPECT_EQ(Bite(*beast), QStringLiteral("1d6"));
    EXPECT_EQ(beast->GetCharacterStat(kStatBaseAttack), 1);
    EXPECT_EQ(beast->GetAdvancedHitDie(), 0);
}

TEST_F(AdvancementTest, TwoSizeStepsUpAndBackDown) {
    Ref<DCharacter> beast = Beast();
    Advance(*beast, 6);
    EXPECT_EQ(beast->GetSizeInfo()->GetSizeId(), 6);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityStrength), 10 + 8 + 8);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityDexterity), 10 - 2 - 2);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityConstitution), 12 + 4 + 4);
    EXPECT_EQ(beast->GetCharacterStat(kStatNaturalArmor), 1 + 2 + 3);
    // 1d6 grows to 1d8, then 2d6.
    EXPECT_EQ(Bite(*beast), QStringLiteral("2d6"));
    // 6d10 averages 33, Con 20 adds 5 a die; base attack +6, Fortitude 5 + 5, Reflex 5 - 2.
    EXPECT_EQ(beast->GetCharacterStat(kStatHitPoints), 33 + 30);
    EXPECT_EQ(beast->GetCharacterStat(kStatBaseAttack), 6);
    EXPECT_EQ(beast->GetCharacterStat(kStatFortitude), 10);
    EXPECT_EQ(beast->GetCharacterStat(kStatReflex), 3);
    // Huge: -2 on armor class; 10 - 2 + Dex -2 + natural 6.
    EXPECT_EQ(beast->GetCharacterStat(kStatArmorClass), 12);

    Advance(*beast, 2);
    EXPECT_EQ(beast->GetSizeInfo()->GetSizeId(), 4);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityStrength), 10);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityDexterity), 10);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityConstitution), 12);
    EXPECT_EQ(beast->GetCharacterStat(kStatNaturalArmor), 1);
    EXPECT_EQ(beast->GetCharacterStat(kStatHitPoints), 13);
    // The down columns are not the inverse of the up ones: 2d6 shrinks to 2d4, then 2d3.
    EXPECT_EQ(Bite(*beast), QStringLiteral("2d3"));
}

TEST_F(AdvancementTest, NaturalArmorNeverFallsBelowZero) {
    Ref<DCharacter> beast = Beast(0);
    DHandBook::AdvanceCharacter(beast.get(), 5, 4, false);
    EXPECT_EQ(beast->GetCharacterStat(kStatNaturalArmor), 0);
    EXPECT_EQ(beast->GetSizeInfo()->GetSizeId(), 4);
}

TEST_F(AdvancementTest, StoredHitDiceComeBackOnANewSetup) {
    Ref<DCharacter> beast = Beast();
    Advance(*beast, 4);
    // A fresh setup from the history alone puts the Large body back on top of the race's own.
    DHandBook::CharacterSetup(beast.get(), true);
    EXPECT_EQ(beast->GetSizeInfo()->GetSizeId(), 5);
    EXPECT_EQ(beast->GetAbilityStat(kAbilityStrength), 18);
    EXPECT_EQ(beast->GetCharacterStat(kStatNaturalArmor), 3);
    EXPECT_EQ(beast->GetCharacterStat(kStatBaseAttack), 4);
}

// Ready creatures by the open rules: 1 feat + 1 per 3 hit dice, of which the feats the race lists
// are the ones its stat block spent; feats beyond them are bonus feats and cost nothing. Dice
// added by advancement leave their feats to the user.
class RaceFeatPointsTest : public hoardtest::BuiltRulesTest {};

TEST_F(RaceFeatPointsTest, TheRacesFeatsAreBoughtWithItsDice) {
    const struct {
        const char* race;
        float hitDice; // 0 keeps the race's own
        const char* className;
        int open;
    } cases[] = {
        {"Owlbear", 0.0f, nullptr, 0}, // 1 + 5 / 3 = 2: Alertness, Track
        {"Owlbear", 6.0f, nullptr, 1}, // 1 + 6 / 3 = 3, less the same 2
        {"Owlbear", 8.0f, nullptr, 1}, // 1 + 8 / 3 = 3
        {"Owlbear", 9.0f, nullptr, 2}, // 1 + 9 / 3 = 4
        {"Badger", 0.0f, nullptr, 0},  // 1 + 1 / 3 = 1: Track, Weapon Finesse the bonus one
        {"Badger", 2.0f, nullptr, 0},  // 1 + 2 / 3 = 1
        {"Human", 0.0f, "Fighter", 2}, // level 1 and the human's own; no race dice or feats
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 %2").arg(c.race).arg(c.hitDice).toStdString());
        FCRef<DCharacter> creature;
        if (c.className) {
            FCRef<DFileObject> race(DObjectManager::CreateFileObject(
                kObjectRace, kFileCore, FCString(QString::fromLatin1(c.race) + ".rac")));
            creature = FCRef<DCharacter>(new DCharacter());
            DHandBook::SetupCharacterWithRace(creature.get(), race.get());
            creature->AddHistory(hoardtest::classGuid(QString::fromLatin1(c.className)), 1.0f);
            DHandBook::CharacterSetup(creature.get(), true);
        } else {
            creature = Monster(QString::fromLatin1(c.race));
        }
        ASSERT_NE(creature.get(), nullptr);
        if (c.hitDice > 0.0f)
            DHandBook::AdvanceCharacterWithHD(
                creature.get(), creature->GetHistoryAtPosition(0)->GetLevel(), c.hitDice, false);
        EXPECT_EQ(creature->GetCharacterStat(kStatFeatPoints) -
                      creature->GetCharacterStat(kStatSpentFeatPoints),
                  c.open);
    }
}

} // namespace
