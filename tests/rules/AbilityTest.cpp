// Ability scores: modifiers, the rolling methods against the seeded dice, point costs, the
// scores a race hands a new character, the setters and what a changed score sets off, earned
// increases and the text the roll dialog shows. Expected values are worked by hand from the
// 3.5 rules: a score's modifier is (score - 10) / 2 rounded down, a point-buy 8 costs nothing
// and an 18 costs 16, an earned increase comes every fourth class level.
#include "RulesTestSupport.h"

#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DDieRoller.h"
#include "FCRandom.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <vector>

namespace {

using rulestest::Ref;

// Draws `count` d6 after seeding, the way the engine rolls its dice.
std::vector<int> drawDice(std::uint64_t seed, int count) {
    FC::SeedRandom(seed);
    std::vector<int> dice;
    for (int i = 0; i < count; ++i)
        dice.push_back(DDieRoller::RollDie(6));
    return dice;
}

// The first seed whose `count` dice show the wanted pattern, so a case does not hang on
// whatever order the random source happens to give.
std::uint64_t seedWhere(int count, const std::function<bool(const std::vector<int>&)>& wanted) {
    for (std::uint64_t seed = 1; seed < 200000; ++seed) {
        if (wanted(drawDice(seed, count)))
            return seed;
    }
    ADD_FAILURE() << "no seed gives the wanted dice";
    return 0;
}

std::vector<int> sorted(std::vector<int> dice) {
    std::sort(dice.begin(), dice.end());
    return dice;
}

// Sum of the dice less the `dropped` lowest ones.
int keptSum(const std::vector<int>& dice, int dropped) {
    const std::vector<int> ordered = sorted(dice);
    return std::accumulate(ordered.begin() + dropped, ordered.end(), 0);
}

std::vector<int> toVector(const FCArray<int>& array) {
    std::vector<int> values;
    for (int i = 0; i < array.GetCount(); ++i)
        values.push_back(array.At(i));
    return values;
}

class AbilityTest : public rulestest::RulesFixture {
protected:
    // A race of the built Core tree, saved as a user race so the fixture's helpers take it;
    // `change` may alter it first.
    Ref<DFileObject> CoreRace(const QString& name,
                              const std::function<void(DRace&)>& change = nullptr) {
        const QString path = hoardtest::builtDataDir() + "/Core/Races/" + name + ".rac";
        Ref<DRace> race(DRace::CreateFromFile(FCString(path), false));
        EXPECT_NE(race, nullptr) << path.toStdString();
        if (!race)
            return nullptr;
        if (change)
            change(*race);
        return SaveRace(*race, name + " copy");
    }

    // A character of the race with the class levels, scores assigned and nothing else run.
    static Ref<DCharacter> Assigned(DFileObject* race, const QStringList& classes) {
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), race);
        for (const QString& name : classes)
            character->AddHistory(ClassGuid(name), 1.0f);
        DHandBook::AssignAbilityStats(character.get());
        return character;
    }
};

TEST(AbilityModifier, HalfTheDistanceFromTenRoundedDown) {
    const struct {
        int score;
        int modifier;
    } cases[] = {{-1, 0}, {0, -5}, {1, -5}, {3, -4}, {8, -1}, {9, -1},  {10, 0},
                 {11, 0}, {12, 1}, {17, 3}, {18, 4}, {19, 4}, {30, 10}, {45, 17}};
    for (const auto& c : cases)
        EXPECT_EQ(DHandBook::GetAbilityModifier(c.score), c.modifier) << "score " << c.score;

    const struct {
        int from, to, change;
    } changes[] = {{10, 11, 0}, {11, 12, 1}, {9, 10, 1},   {8, 18, 5},
                   {18, 8, -5}, {-1, 14, 2}, {14, -1, -2}, {-1, 1, -5}};
    for (const auto& c : changes)
        EXPECT_EQ(DHandBook::GetAbilityModifierChange(c.from, c.to), c.change)
            << c.from << " to " << c.to;
}

TEST(AbilityPointCost, FollowsThePointBuyTable) {
    // The 3.5 point-buy table: 8 is free, one point a step to 14, two to 16, three beyond.
    const struct {
        int score;
        int cost;
    } cases[] = {{-1, 0}, {0, 0},  {3, 0},  {8, 0},   {9, 1},   {10, 2},  {11, 3},  {12, 4},
                 {13, 5}, {14, 6}, {15, 8}, {16, 10}, {17, 13}, {18, 16}, {19, 19}, {20, 22}};
    for (const auto& c : cases)
        EXPECT_EQ(DHandBook::ComputeStatPointValue(c.score), c.cost) << "score " << c.score;
    // The usual 25-point elite set: 15, 14, 13, 12, 10, 8.
    int total = 0;
    for (int score : {15, 14, 13, 12, 10, 8})
        total += DHandBook::ComputeStatPointValue(score);
    EXPECT_EQ(total, 25);
}

TEST(AbilityRoll, EachMethodRollsItsDiceAndDropsTheLowest) {
    using Dice = std::vector<int>;
    const struct {
        const char* what;
        DRollMethodType method;
        int dice;
        int dropped;
        int lowestTies; // how many dice show the lowest value; 0 for any
    } cases[] = {
        {"4d6, one lowest", kRoll4d6DropLowest, 4, 1, 1},
        // Only one of two equal lowest dice goes: 3 3 4 5 is 12, not 9.
        {"4d6, two equal lowest", kRoll4d6DropLowest, 4, 1, 2},
        {"4d6 in order", kRoll4d6InOrderRerollOne, 4, 1, 2},
        {"4d6 all equal", kRoll4d6ReplaceLowest, 4, 1, 4},
        {"3d6", kRoll3d6, 3, 0, 0},
        {"3d6 in order", kRoll3d6InOrder, 3, 0, 2},
        {"5d6, two lowest differ", kRoll5d6DropTwoLowest, 5, 2, 1},
        {"5d6, two lowest equal", kRoll5d6DropTwoLowest, 5, 2, 2},
        // Three equal lowest: two of them go and one stays.
        {"5d6, three lowest equal", kRoll5d6DropTwoLowest, 5, 2, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::uint64_t seed = seedWhere(c.dice, [&c](const Dice& d) {
            return c.lowestTies == 0 ||
                   std::count(d.begin(), d.end(), *std::min_element(d.begin(), d.end())) ==
                       c.lowestTies;
        });
        const Dice expected = drawDice(seed, c.dice);

        FC::SeedRandom(seed);
        FCArray<int> dice;
        dice.Add(99);
        dice.Add(98);
        const int score = DHandBook::RollAbilityStat(c.method, &dice);
        EXPECT_EQ(toVector(dice), expected) << "every die in the order rolled, dropped ones too";
        EXPECT_EQ(score, keptSum(expected, c.dropped));

        FC::SeedRandom(seed);
        const std::uint64_t before = FC::GetRandomDrawCount();
        EXPECT_EQ(DHandBook::RollAbilityStat(c.method, nullptr), score) << "without a dice list";
        EXPECT_EQ(FC::GetRandomDrawCount() - before, std::uint64_t(c.dice));
    }
}

TEST(AbilityRoll, MethodsWithoutDiceRollNothing) {
    for (DRollMethodType method : {kRollPointBuy, kRollPointBuyCampaign, kRollFixedArray,
                                   kRollFreeEntry, kRollMonster, DRollMethodType(42)}) {
        SCOPED_TRACE(int(method));
        FCArray<int> dice;
        dice.Add(7);
        const std::uint64_t before = FC::GetRandomDrawCount();
        EXPECT_EQ(DHandBook::RollAbilityStat(method, &dice), 0);
        EXPECT_TRUE(dice.IsEmpty());
        FCArray<int> scores;
        scores.Add(15);
        DHandBook::RollAbilityStats(method, scores);
        EXPECT_TRUE(scores.IsEmpty());
        EXPECT_EQ(FC::GetRandomDrawCount(), before);
    }
}

TEST_F(AbilityTest, TheRaceGivesTheScoresAndAnEvenAdjustment) {
    const int kNull = -1;
    const struct {
        const char* race;
        QStringList classes;
        int base[6];
        int bonus[6];
        int score[6];
    } cases[] = {
        // Ogre: Str 21, Dex 8, Con 15, Int 6, Wis 10, Cha 7. An odd score keeps 11 as base.
        {"Ogre", {}, {11, 10, 11, 10, 10, 11}, {10, -2, 4, -4, 0, -4}, {21, 8, 15, 6, 10, 7}},
        {"Ogre",
         {"Fighter"},
         {11, 10, 11, 10, 10, 11},
         {10, -2, 4, -4, 0, -4},
         {21, 8, 15, 6, 10, 7}},
        // Dire rat: Int 1 stays 1 for the animal; with a class level it becomes 3.
        {"Dire Rat", {}, {10, 11, 10, 11, 10, 10}, {0, 6, 2, -10, 2, -6}, {10, 17, 12, 1, 12, 4}},
        {"Dire Rat",
         {"Fighter"},
         {10, 11, 10, 13, 10, 10},
         {0, 6, 2, -10, 2, -6},
         {10, 17, 12, 3, 12, 4}},
        // Bat: Str 1 stays 1; an even Int 2 is raised to 3 only for a classed character.
        {"Bat", {}, {11, 11, 10, 10, 10, 10}, {-10, 4, 0, -8, 4, -6}, {1, 15, 10, 2, 14, 4}},
        {"Bat", {"Rogue"}, {11, 11, 10, 11, 10, 10}, {-10, 4, 0, -8, 4, -6}, {1, 15, 10, 3, 14, 4}},
        // Allip: no Strength, no Constitution.
        {"Allip",
         {},
         {kNull, 10, kNull, 11, 11, 10},
         {0, 2, 0, 0, 0, 8},
         {kNull, 12, kNull, 11, 11, 18}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.race) + " " + c.classes.join(",").toStdString());
        Ref<DFileObject> race = CoreRace(c.race);
        ASSERT_NE(race, nullptr);
        Ref<DCharacter> character = Assigned(race.get(), c.classes);
        for (int a = 0; a < kAbilityCount; ++a) {
            EXPECT_EQ(character->GetAbilityStatBase(a), c.base[a]) << "ability " << a;
            EXPECT_EQ(character->GetAbilityStatBonus(a), c.bonus[a]) << "ability " << a;
            EXPECT_EQ(character->GetAbilityStat(a), c.score[a]) << "ability " << a;
        }
    }
}

TEST_F(AbilityTest, AStrengthOfNothingBecomesOne) {
    Ref<DFileObject> race = CoreRace("Human", [](DRace& r) { r.SetAbility(0, 0); });
    ASSERT_NE(race, nullptr);
    Ref<DCharacter> character = Assigned(race.get(), {"Fighter"});
    EXPECT_EQ(character->GetAbilityStatBonus(kAbilityStrength), -10);
    EXPECT_EQ(character->GetAbilityStatBase(kAbilityStrength), 11);
    EXPECT_EQ(character->GetAbilityStat(kAbilityStrength), 1);
}

TEST_F(AbilityTest, ANullAbilityTakesNoBonus) {
    Ref<DFileObject> race = CoreRace("Allip");
    ASSERT_NE(race, nullptr);
    Ref<DCharacter> allip = NewCharacter(race.get(), {});
    DCharacter* c = allip.get();
    ASSERT_EQ(c->GetAbilityStat(kAbilityConstitution), -1);
    c->ClearChangeFlags();
    const int fortitude = c->GetCharacterStat(kStatFortitude);

    DHandBook::SetCharacterAbilityStatBonus(c, kAbilityConstitution, 4, false);
    DHandBook::AdjustCharacterAbilityStatBonus(c, kAbilityConstitution, 2, false);
    DHandBook::AdjustCharacterAbilityStatEquipBonus(c, kAbilityConstitution, 6, false);
    EXPECT_EQ(c->GetAbilityStatBonus(kAbilityConstitution), 0);
    EXPECT_EQ(c->GetAbilityStatEquipBonus(kAbilityConstitution), 0);
    EXPECT_EQ(c->GetAbilityStat(kAbilityConstitution), -1);
    EXPECT_EQ(DHandBook::GetAbilityModifier(c->GetAbilityStat(kAbilityConstitution)), 0);
    EXPECT_EQ(c->GetChangeFlags(), 0u) << "nothing happened, so nothing is announced";
    EXPECT_EQ(c->GetCharacterStat(kStatFortitude), fortitude);

    // The base setter has no such guard and writes the field, but the race still says the
    // creature has no Strength.
    DHandBook::SetCharacterAbilityStatBase(c, kAbilityStrength, 12, false);
    EXPECT_EQ(c->GetAbilityStatBase(kAbilityStrength), 12);
    EXPECT_EQ(c->GetAbilityStat(kAbilityStrength), -1);
}

TEST_F(AbilityTest, AChangedScoreRaisesItsFlagsAndMovesItsSave) {
    const unsigned kZero = kChangeAbilityModifierZero;
    const struct {
        const char* what;
        DAbilityStatType ability;
        int bonus; // standing race bonus
        int from, to;
        unsigned flag;
        DCharStatType save; // kStatCount for none
        int saveChange;
        bool crossesZero;
    } cases[] = {
        {"Str 10 to 11", kAbilityStrength, 0, 10, 11, kChangeStrength, kStatCount, 0, false},
        {"Str 10 to 12", kAbilityStrength, 0, 10, 12, kChangeStrength, kStatCount, 0, true},
        {"Str 12 to 16", kAbilityStrength, 0, 12, 16, kChangeStrength, kStatCount, 0, false},
        // The bonus counts: 11 to 12 in all, although the base goes 10 to 11.
        {"Str +1 bonus", kAbilityStrength, 1, 10, 11, kChangeStrength, kStatCount, 0, true},
        {"Dex 12 to 10", kAbilityDexterity, 0, 12, 10, kChangeDexterity, kStatReflex, -1, true},
        {"Dex 10 to 14", kAbilityDexterity, 0, 10, 14, kChangeDexterity, kStatReflex, 2, true},
        {"Con 10 to 14", kAbilityConstitution, 0, 10, 14, kChangeConstitution, kStatFortitude, 2,
         true},
        {"Wis 8 to 12", kAbilityWisdom, 0, 8, 12, kChangeWisdom, kStatWill, 2, false},
        {"Wis 13 to 12", kAbilityWisdom, 0, 13, 12, kChangeWisdom, kStatWill, 0, false},
        {"Cha 11 to 9", kAbilityCharisma, 0, 11, 9, kChangeCharisma, kStatCount, 0, true},
        {"Int 13 to 12", kAbilityIntelligence, 0, 13, 12, kChangeIntelligence, kStatCount, 0,
         false},
    };
    Ref<DFileObject> race = CoreRace("Human");
    ASSERT_NE(race, nullptr);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
        DCharacter* ch = character.get();
        ch->SetAbilityStatBonus(c.ability, c.bonus);
        DHandBook::SetCharacterAbilityStatBase(ch, c.ability, c.from, false);
        ch->ClearChangeFlags();
        int saves[3];
        for (int s = 0; s < 3; ++s)
            saves[s] = ch->GetCharacterStat(kStatFortitude + s);

        DHandBook::SetCharacterAbilityStatBase(ch, c.ability, c.to, false);
        const unsigned flags = ch->GetChangeFlags();
        EXPECT_TRUE(flags & c.flag);
        EXPECT_TRUE(flags & kChangeAbilityOrFeats);
        EXPECT_EQ((flags & kZero) != 0, c.crossesZero);
        for (unsigned other : {kChangeStrength, kChangeDexterity, kChangeConstitution,
                               kChangeIntelligence, kChangeWisdom, kChangeCharisma}) {
            if (other != c.flag) {
                EXPECT_FALSE(flags & other) << "flag " << other;
            }
        }
        for (int s = 0; s < 3; ++s) {
            const int expected = kStatFortitude + s == c.save ? c.saveChange : 0;
            EXPECT_EQ(ch->GetCharacterStat(kStatFortitude + s) - saves[s], expected)
                << "save " << s;
        }
        if (c.save != kStatCount && c.saveChange != 0) {
            EXPECT_TRUE(flags & kChangeSave);
        }
    }
}

TEST_F(AbilityTest, IntelligenceMovesRaceFeatPointsOnlyDuringSetup) {
    Ref<DFileObject> race = CoreRace("Human");
    ASSERT_NE(race, nullptr);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Wizard"});
    DCharacter* c = character.get();
    ASSERT_TRUE(c->HasCharacterFlag(kCharFlagRaceFeatPointsFixed));
    c->ClearChangeFlags();
    DHandBook::SetCharacterAbilityStatBase(c, kAbilityIntelligence, 14, false);
    EXPECT_TRUE(c->HasChangeFlag(kChangeLanguages));
    EXPECT_FALSE(c->HasChangeFlag(kChangeRaceFeatPoints));
    // Intelligence 14 is +2: two bonus languages.
    EXPECT_EQ(c->GetCharacterStat(kStatIntelligenceLanguagePoints), 2);

    c->RemoveCharacterFlag(kCharFlagRaceFeatPointsFixed);
    c->ClearChangeFlags();
    DHandBook::SetCharacterAbilityStatBase(c, kAbilityIntelligence, 16, false);
    EXPECT_TRUE(c->HasChangeFlag(kChangeRaceFeatPoints));
    EXPECT_EQ(c->GetCharacterStat(kStatIntelligenceLanguagePoints), 3);

    // A score below 10 gives no languages, not a debt of them.
    DHandBook::SetCharacterAbilityStatBase(c, kAbilityIntelligence, 6, false);
    EXPECT_EQ(c->GetCharacterStat(kStatIntelligenceLanguagePoints), 0);
}

TEST_F(AbilityTest, AnIncreaseIsEarnedEveryFourthClassLevel) {
    const struct {
        const char* race;
        int fighterLevels;
        int earned;
    } cases[] = {
        {"Human", 1, 0},
        {"Human", 3, 0},
        {"Human", 4, 1},
        {"Human", 7, 1},
        {"Human", 8, 2},
        {"Human", 20, 5},
        // The ogre's four giant hit dice are no class levels.
        {"Ogre", 3, 0},
        {"Ogre", 4, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.race) + " fighter " + std::to_string(c.fighterLevels));
        Ref<DFileObject> race = CoreRace(c.race);
        ASSERT_NE(race, nullptr);
        QStringList classes;
        for (int i = 0; i < c.fighterLevels; ++i)
            classes << "Fighter";
        Ref<DCharacter> character = NewCharacter(race.get(), classes);
        EXPECT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), c.earned);
        character->SetCharacterStat(kStatEarnedAbilityPoints, 99);
        DHandBook::ComputeAndSetEarnedAbilityPoints(character.get());
        EXPECT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), c.earned);
    }
}

TEST(AbilityText, EarnedAndInherentIncreasesByLevel) {
    struct Slot {
        int ability;
        int level;
    };
    const struct {
        const char* what;
        std::vector<Slot> earned;
        std::vector<Slot> inherent;
        const char* text;
    } cases[] = {
        {"none", {}, {}, ""},
        {"two at one level", {{0, 4}, {0, 4}}, {}, "Earned: STR: +2 (4th).<br><br>"},
        {"two levels, rising", {{0, 8}, {0, 4}}, {}, "Earned: STR: +1 (4th), +1 (8th).<br><br>"},
        {"two abilities", {{2, 8}, {0, 4}}, {}, "Earned: STR: +1 (4th).<br>CON: +1 (8th).<br><br>"},
        {"inherent only", {}, {{4, 3}, {4, 3}, {4, 11}}, "Inherent: WIS: +2 (3rd), +1 (11th).<br>"},
        {"both",
         {{1, 4}, {5, 12}, {5, 12}, {5, 16}},
         {{5, 1}, {3, 2}},
         "Earned: DEX: +1 (4th).<br>CHA: +2 (12th), +1 (16th).<br><br>"
         "Inherent: INT: +1 (2nd).<br>CHA: +1 (1st).<br>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character(new DCharacter());
        for (const Slot& slot : c.earned)
            character->SetEarnedAbilityStat(slot.ability, slot.level);
        for (const Slot& slot : c.inherent)
            character->SetInherentAbilityStat(slot.ability, slot.level);
        EXPECT_EQ(QString(DHandBook::BuildAbilityBonusesString(character.get())).toStdString(),
                  c.text);
    }
}

} // namespace
