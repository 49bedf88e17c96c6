// Age, height, weight and experience. Expected values come from the core race records (a
// dwarf is adult at 40, middle-aged at 125, old at 188, venerable at 250; a male dwarf is 45
// inches plus 2d4 and 130 pounds plus 2d4 x 2d6) and the open 3.5 experience table.
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DDieData.h"
#include "FCRandom.h"

#include <climits>

namespace {

using rulestest::Ref;

class VitalsTest : public rulestest::RulesFixture {
protected:
    Ref<DFileObject> CoreRace(const QString& name) {
        const QString path = hoardtest::builtDataDir() + "/Core/Races/" + name + ".rac";
        Ref<DRace> race(DRace::CreateFromFile(FCString(path), false));
        EXPECT_NE(race, nullptr) << path.toStdString();
        return race ? SaveRace(*race, name + " copy") : nullptr;
    }

    static void SetScore(DCharacter& character, DAbilityStatType ability, int score) {
        character.SetAbilityStatBase(ability, score);
        character.SetAbilityStatBonus(ability, 0);
    }
};

TEST(ExperienceTable, ThresholdsGrowByAThousandPerLevel) {
    const struct {
        int level;
        int needed;
    } cases[] = {{-3, 0},
                 {0, 0},
                 {1, 0},
                 {2, 1000},
                 {3, 3000},
                 {4, 6000},
                 {5, 10000},
                 {10, 45000},
                 {20, 190000},
                 {21, 210000},
                 {2072, 2145556000},
                 {2073, INT_MAX},
                 {100000, INT_MAX}};
    for (const auto& c : cases)
        EXPECT_EQ(DHandBook::ComputeNeededExperiencePoints(c.level), c.needed) << c.level;
}

TEST_F(VitalsTest, FirstSetupGivesExperienceForTheLevel) {
    Ref<DFileObject> dwarf = CoreRace("Dwarf");
    Ref<DFileObject> gnoll = CoreRace("Gnoll");
    const struct {
        const char* what;
        DFileObject* race;
        QStringList classes;
        int experience;
    } cases[] = {
        {"dwarf fighter 4", dwarf.get(), {"Fighter", "Fighter", "Fighter", "Fighter"}, 6000},
        {"dwarf fighter 1", dwarf.get(), {"Fighter"}, 0},
        // The gnoll's two Humanoid dice are levels too: character level 3.
        {"gnoll ranger 1", gnoll.get(), {"Ranger"}, 3000},
        {"gnoll alone", gnoll.get(), {}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = NewCharacter(c.race, c.classes);
        EXPECT_EQ(character->GetCharacterStat(kStatExperience), c.experience);
        // From then on the value is the user's: a level-up leaves it alone.
        character->SetCharacterStat(kStatExperience, 123);
        if (!c.classes.isEmpty()) {
            DHandBook::AddCharacterLevel(character.get(), ClassGuid("Fighter"), false);
            EXPECT_EQ(character->GetCharacterStat(kStatExperience), 123);
        }
    }
}

TEST_F(VitalsTest, StartingAgeByRaceAndFirstClass) {
    Ref<DFileObject> dwarf = CoreRace("Dwarf");
    Ref<DFileObject> elf = CoreRace("Elf");
    const struct {
        const char* what;
        DFileObject* race;
        QStringList classes;
        int low, high;
        int adult;
    } cases[] = {
        // Barbarian, rogue, sorcerer 3d6; fighter 5d6; wizard 7d6 for a dwarf.
        {"dwarf rogue", dwarf.get(), {"Rogue"}, 43, 58, 40},
        {"dwarf fighter", dwarf.get(), {"Fighter"}, 45, 70, 40},
        {"dwarf wizard", dwarf.get(), {"Wizard"}, 47, 82, 40},
        // Only the first class counts.
        {"dwarf wizard / rogue", dwarf.get(), {"Wizard", "Rogue"}, 47, 82, 40},
        {"elf wizard", elf.get(), {"Wizard"}, 120, 170, 110},
        // The race alone has no class for the table: exactly adulthood.
        {"dwarf alone", dwarf.get(), {}, 40, 40, 40},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        for (std::uint64_t seed = 1; seed <= 20; ++seed) {
            FC::SeedRandom(seed);
            Ref<DCharacter> character = NewCharacter(c.race, c.classes);
            const int age = character->GetCharacterStat(kStatAge);
            EXPECT_GE(age, c.low);
            EXPECT_LE(age, c.high);
        }
        Ref<DCharacter> character = NewCharacter(c.race, c.classes);
        int min = 0, max = 0;
        DHandBook::ComputeAgeMinMax(character.get(), min, max);
        EXPECT_EQ(min, c.adult);
        EXPECT_EQ(max, 9999);
    }
}

TEST_F(VitalsTest, AgeCategoriesMoveAbilityScores) {
    Ref<DFileObject> dwarf = CoreRace("Dwarf");
    Ref<DCharacter> character = NewCharacter(dwarf.get(), {"Fighter"});
    const int scores[kAbilityCount] = {15, 12, 14, 10, 13, 8};
    for (int ability = 0; ability < kAbilityCount; ++ability)
        SetScore(*character, DAbilityStatType(ability), scores[ability]);
    DHandBook::ComputeAndSetAllSavingThrows(character.get());
    DHandBook::SetCharacterAge(character.get(), 50);

    // Adult to middle age: -1 physical, +1 mental; to old -2 / +1 more; to venerable -3 / +1.
    const struct {
        int age;
        int physical;
        int mental;
    } steps[] = {{124, 0, 0},  {125, -1, 1}, {200, -3, 2}, {250, -6, 3},
                 {130, -1, 1}, {60, 0, 0},   {300, -6, 3}, {40, 0, 0}};
    for (const auto& step : steps) {
        SCOPED_TRACE("age " + std::to_string(step.age));
        DHandBook::SetCharacterAge(character.get(), step.age);
        EXPECT_EQ(character->GetCharacterStat(kStatAge), step.age);
        for (int ability = 0; ability < kAbilityCount; ++ability) {
            const int change = ability < kAbilityIntelligence ? step.physical : step.mental;
            EXPECT_EQ(character->GetAbilityStat(ability), scores[ability] + change) << ability;
        }
    }
    // The changes reach what hangs on the scores: venerable Con 14 - 6 = 8 costs the fighter
    // 2 on Fortitude (+2 good save at level 1).
    DHandBook::SetCharacterAge(character.get(), 250);
    EXPECT_EQ(character->GetCharacterStat(kStatFortitude), 2 - 1);
}

TEST_F(VitalsTest, HeightAndWeightShareOneRoll) {
    Ref<DFileObject> dwarf = CoreRace("Dwarf");
    for (const int gender : {0, 1}) {
        // Male 45 in. + 2d4, 130 lb. + 2d4 x 2d6; female 43 in., 100 lb.
        const int startHeight = gender == 0 ? 45 : 43;
        const int startWeight = gender == 0 ? 130 : 100;
        Ref<DCharacter> character = NewCharacter(dwarf.get(), {"Fighter"});
        character->SetGender(gender);
        int min = 0, max = 0;
        EXPECT_TRUE(DHandBook::ComputeHeightMinMax(character.get(), min, max));
        EXPECT_EQ(min, startHeight + 2);
        EXPECT_EQ(max, startHeight + 2 + 8);
        EXPECT_TRUE(DHandBook::ComputeWeightMinMax(character.get(), min, max));
        EXPECT_EQ(min, startWeight + 2 * 2);
        EXPECT_EQ(max, startWeight + 4 + 6 * 8 * 2);
        for (std::uint64_t seed = 1; seed <= 30; ++seed) {
            FC::SeedRandom(seed);
            int height = 0, weight = 0;
            DHandBook::ComputeRandomHeightAndWeight(character.get(), height, weight);
            const int roll = height - startHeight;
            EXPECT_GE(roll, 2);
            EXPECT_LE(roll, 8);
            const int extra = weight - startWeight;
            EXPECT_EQ(extra % roll, 0) << "the height roll scales the weight";
            EXPECT_GE(extra / roll, 2);
            EXPECT_LE(extra / roll, 12);
        }
    }
}

TEST_F(VitalsTest, RacesWithoutHeightDiceKeepTheirStartValues) {
    DRace race;
    race.SetClassGuid(ClassGuid("Humanoid"));
    race.SetStartHeight(0, 60);
    race.SetStartWeight(0, 150);
    race.SetHeightMod(0, 0, 4);
    race.SetWeightMod(0, 2, 6);
    Ref<DFileObject> file = SaveRace(race, "stiff");
    Ref<DCharacter> character = NewCharacter(file.get(), {"Fighter"});
    EXPECT_EQ(character->GetCharacterStat(kStatHeight), 60);
    EXPECT_EQ(character->GetCharacterStat(kStatWeight), 150);
    int min = 0, max = 0;
    EXPECT_FALSE(DHandBook::ComputeHeightMinMax(character.get(), min, max));
    EXPECT_EQ(min, 60);
    EXPECT_EQ(max, 11999);
    // Weight dice without height dice bound nothing beyond the start.
    EXPECT_TRUE(DHandBook::ComputeWeightMinMax(character.get(), min, max));
    EXPECT_EQ(min, 150);
    EXPECT_EQ(max, 150);
    race.SetWeightMod(0, 0, 6);
    race.SetHeightMod(0, 2, 4);
    Ref<DFileObject> tall = SaveRace(race, "tall");
    Ref<DCharacter> other = NewCharacter(tall.get(), {"Fighter"});
    EXPECT_TRUE(DHandBook::ComputeHeightMinMax(other.get(), min, max));
    // 60 + 2 at the least; the bound above is start + count + count x sides.
    EXPECT_EQ(min, 62);
    EXPECT_EQ(max, 70);
    EXPECT_FALSE(DHandBook::ComputeWeightMinMax(other.get(), min, max));
    EXPECT_EQ(min, 150);
    EXPECT_EQ(max, 99999);
    DDieData die;
    EXPECT_FALSE(DHandBook::GetRandomAgeModifier(other.get(), &die)) << "no family row";
    EXPECT_FALSE(DHandBook::GetRandomAgeModifier(other.get(), nullptr));
}

} // namespace
