// A monster of the core races checked line by line against the open 3.5 rules worked by hand
// (the player races are worked through the command line in CharacterCombatCliTest). Racial
// dice are averaged; a class level on top is the first level and takes its full die.
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DSizeInfo.h"

#include <algorithm>

namespace {

using rulestest::Ref;

struct Expected {
    int hitPoints;
    int armorClass, touch, flatFooted;
    int initiative;
    int baseAttack;
    int strengthPlusSize; // the grapple check less base attack
    int fortitude, reflex, will;
    int experience;
};

class HandWorkedCharactersTest : public rulestest::RulesFixture {
protected:
    // A race of the built Core tree, saved as a user race under its own name.
    Ref<DFileObject> CoreRaceEntry(const QString& name) {
        const QString path = hoardtest::builtDataDir() + "/Core/Races/" + name + ".rac";
        Ref<DRace> race(DRace::CreateFromFile(FCString(path), false));
        EXPECT_NE(race, nullptr) << path.toStdString();
        return race ? SaveRace(*race, name) : nullptr;
    }

    static void Check(DCharacter* character, const Expected& expected) {
        EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), expected.hitPoints) << "HP";
        DACValues ac;
        DHandBook::GetArmorClassValues(character, ac);
        EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), expected.armorClass) << "AC";
        EXPECT_EQ(ac.Total(), expected.armorClass);
        EXPECT_EQ(ac.Total() - ac.armor - ac.shield - ac.natural, expected.touch) << "touch";
        EXPECT_EQ(ac.Total() - std::max(ac.dexterity, 0), expected.flatFooted) << "flat";
        EXPECT_EQ(character->GetCharacterStat(kStatInitiative), expected.initiative) << "init";
        EXPECT_EQ(character->GetCharacterStat(kStatBaseAttack), expected.baseAttack) << "BAB";
        const int sizeSteps = character->GetSizeInfo()->GetSizeId() - 4;
        EXPECT_EQ(DHandBook::GetAbilityModifier(character->GetAbilityStat(kAbilityStrength)) +
                      4 * sizeSteps,
                  expected.strengthPlusSize)
            << "grapple less base attack";
        EXPECT_EQ(character->GetCharacterStat(kStatFortitude), expected.fortitude) << "Fort";
        EXPECT_EQ(character->GetCharacterStat(kStatReflex), expected.reflex) << "Ref";
        EXPECT_EQ(character->GetCharacterStat(kStatWill), expected.will) << "Will";
        EXPECT_EQ(character->GetCharacterStat(kStatExperience), expected.experience) << "XP";
    }
};

TEST_F(HandWorkedCharactersTest, OgreWithItsGiantSaveFlags) {
    // The ogre's Giant dice have good Fortitude; the race record carries that flag, as the race
    // editor sets it. Four d8 at Con 15 (+2): 4 x 6.5 = 26, and 3 for the race's Toughness.
    // AC 10 - 1 size - 1 Dex + 5.
    // Base attack 3, Fort 4 + 2, Ref 1 - 1, Will 1 + 0. Grapple 3 + 5 + 4.
    const QString path = hoardtest::builtDataDir() + "/Core/Races/Ogre.rac";
    Ref<DRace> ogre(DRace::CreateFromFile(FCString(path), false));
    ASSERT_NE(ogre, nullptr);
    for (int save = 0; save < kSaveCount; ++save)
        ogre->SetHasGoodSaves(
            save, DHandBook::DoesClassHaveGoodSaves(ogre->GetClassGuid(), DSaveType(save)));
    Ref<DFileObject> file = SaveRace(*ogre, "Ogre copy");
    Ref<DCharacter> character = NewCharacter(file.get(), {});
    Check(character.get(), {26 + 3, 13, 8, 13, -1, 3, 5 + 4, 6, 0, 1, 0});

    // An ogre fighter 1: the fighter level is its first (10 + 2), the Giant dice stay.
    Ref<DCharacter> fighter = NewCharacter(file.get(), {"Fighter"});
    Check(fighter.get(), {26 + 3 + 12, 13, 8, 13, -1, 3 + 1, 5 + 4, 6 + 2, 0, 1, 10000});
}

TEST_F(HandWorkedCharactersTest, RaceChangeRecomputesTheCombatBlock) {
    // A dwarf fighter 2 (race scores: Con 12, Cha 8) becomes a halfling: Str 8, Dex 12,
    // Con 10, Small. Fort 3 + 0 + 1, Ref 0 + 1 + 1, Will 0 + 0 + 1; AC 10 + 1 + 1.
    // The first die stays full (10), the second is rolled: 1 to 10 at Con +0.
    Ref<DFileObject> dwarf = CoreRaceEntry("Dwarf");
    Ref<DFileObject> halfling = CoreRaceEntry("Halfling");
    Ref<DCharacter> character = NewCharacter(dwarf.get(), {"Fighter", "Fighter"});
    ASSERT_NE(character->GetRace(), nullptr);
    ASSERT_EQ(character->GetCharacterStat(kStatHitPoints), 11 + 6);
    DHandBook::ChangeCharacterRace(character.get(), halfling.get());
    ASSERT_EQ(character->GetRace()->GetRaceName(), "Halfling");
    const int hitPoints = character->GetCharacterStat(kStatHitPoints);
    EXPECT_GE(hitPoints, 10 + 1);
    EXPECT_LE(hitPoints, 10 + 10);
    Check(character.get(), {hitPoints, 12, 12, 11, 1, 2, -1 - 4, 4, 2, 1, 1000});
    EXPECT_EQ(character->GetCurrency().GetAmount(2), 900) << "level 2 wealth, cash reset";
}

} // namespace
