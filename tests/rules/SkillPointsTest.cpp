// Skill points earned per level. Expected values are worked from the SRD: (class points + Int
// modifier) x 4 at first level, at least 1 per level, a human's 4 extra at first level and 1 at
// every later one; a creature's racial hit dice earn by their type's own formula.
#include "RulesTestSupport.h"

#include "DCharHistory.h"
#include "DCharacterClass.h"

namespace {

using rulestest::Ref;

class SkillPointsTest : public rulestest::RulesFixture {
protected:
    // Every ability 10 but Intelligence; a human-like race has the human's extra points.
    Ref<DFileObject> Race(const QString& name, int intelligence, bool humanLike,
                          const QString& typeClass = "Humanoid", float hitDice = 0.0f) {
        DRace race;
        race.SetClassGuid(ClassGuid(typeClass));
        race.SetHitDieCount(hitDice);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, ability == kAbilityIntelligence ? intelligence : 10);
        if (humanLike) {
            race.SetExtraSkillPointsFirstLevel(4);
            race.SetExtraSkillPointsPerLevel(1);
        }
        return SaveRace(race, name);
    }

    int BasePoints(const DCharacter& character, const QString& className) {
        const DCharacterClass* characterClass = character.GetClassPointer(ClassGuid(className));
        return characterClass ? characterClass->GetBaseSkillPoints() : -1;
    }
};

TEST_F(SkillPointsTest, EarnedPerClassAndLevel) {
    struct Case {
        const char* what;
        int intelligence;
        bool humanLike;
        QStringList classes; // the first makes the character, each further one is a level-up
        QList<QPair<QString, int>> perClass;
    };
    const Case cases[] = {
        // (8 + 3) x 4 + 4.
        {"human rogue 1, Int 16", 16, true, {"Rogue"}, {{"Rogue", 48}}},
        // 48, then 8 + 3 + 1 at each of levels 2 and 3.
        {"human rogue 3, Int 16", 16, true, {"Rogue", "Rogue", "Rogue"}, {{"Rogue", 72}}},
        // (2 - 1) x 4.
        {"wizard 1, Int 8", 8, false, {"Wizard"}, {{"Wizard", 4}}},
        // 2 - 2 is below the floor of 1 a level: 1 x 4.
        {"wizard 1, Int 6", 6, false, {"Wizard"}, {{"Wizard", 4}}},
        // Fighter (2 + 1) x 4, then rogue 8 + 1, then wizard 2 + 1.
        {"fighter 1 / rogue 1 / wizard 1, Int 12",
         12,
         false,
         {"Fighter", "Rogue", "Wizard"},
         {{"Fighter", 12}, {"Rogue", 9}, {"Wizard", 3}}},
        // The human's extra point follows every level after the first, whatever the class.
        {"human fighter 2 / rogue 1, Int 10",
         10,
         true,
         {"Fighter", "Fighter", "Rogue"},
         {{"Fighter", 12 + 3}, {"Rogue", 9}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = Race(c.what, c.intelligence, c.humanLike);
        Ref<DCharacter> character = LevelledCharacter(race.get(), c.classes);
        int total = 0;
        for (const auto& [className, points] : c.perClass) {
            EXPECT_EQ(BasePoints(*character, className), points) << className.toStdString();
            total += points;
        }
        EXPECT_EQ(character->GetRemainingSkillPoints(), total) << "nothing spent yet";
    }
}

TEST_F(SkillPointsTest, RacialHitDiceEarnByTheirTypeThenTheFirstClassLevelQuadruples) {
    // Humanoid hit dice earn (2 + Int modifier) per die: 2 dice at Int 12 give 6. The first
    // class level is still the first level: fighter (2 + 1) x 4 = 12.
    Ref<DFileObject> race = Race("gnoll-like", 12, false, "Humanoid", 2.0f);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    EXPECT_EQ(BasePoints(*character, "Humanoid"), 6);
    EXPECT_EQ(BasePoints(*character, "Fighter"), 12);
    EXPECT_EQ(character->GetHistoryAtPosition(0)->getSkillpoints(), 6);

    // A creature alone keeps its racial points; a one-die race adds none to a classed
    // character.
    Ref<DFileObject> ogreLike = Race("ogre-like", 10, false, "Giant", 4.0f);
    EXPECT_EQ(BasePoints(*NewCharacter(ogreLike.get(), {}), "Giant"), 8);
    Ref<DFileObject> oneDie = Race("one-die", 10, false, "Humanoid", 1.0f);
    Ref<DCharacter> classed = NewCharacter(oneDie.get(), {"Rogue"});
    EXPECT_EQ(classed->GetRemainingSkillPoints(), 32);
}

TEST_F(SkillPointsTest, IntelligenceRiseCountsFromTheLevelItIsTakenAt) {
    Ref<DFileObject> race = Race("human-like", 10, true);
    Ref<DCharacter> character = LevelledCharacter(race.get(), {"Rogue", "Rogue", "Rogue", "Rogue"});
    // 36 at first level, then 9 at each of the next three.
    ASSERT_EQ(BasePoints(*character, "Rogue"), 36 + 3 * 9);

    // Int 10 to 12 at level 4: only the fourth level's share grows, by one.
    DHandBook::RecomputeAndSetSkillPoints(character.get(), 3, 2);
    EXPECT_EQ(BasePoints(*character, "Rogue"), 36 + 3 * 9 + 1);
    EXPECT_EQ(character->GetHistoryAtPosition(1)->getSkillpoints(), 36);
    EXPECT_EQ(character->GetLastHistory()->getSkillpoints(), 10);

    // A change that leaves the modifier alone (12 to 13) changes nothing.
    character->SetAbilityStatBase(kAbilityIntelligence, 12);
    character->SetAbilityStatBonus(kAbilityIntelligence, 0);
    DHandBook::RecomputeAndSetSkillPoints(character.get(), 3, 1);
    EXPECT_EQ(BasePoints(*character, "Rogue"), 36 + 3 * 9 + 1);
}

TEST_F(SkillPointsTest, RaceFormulaTexts) {
    struct Case {
        DSkillPointValues values;
        const char* first;
        const char* second;
    };
    const Case cases[] = {
        {{2, 1, 0, 3, 2, 1, 0, 2}, "(2 + INT mod) x HD", "--"},
        {{8, 3, 0, -1, 0, 0, 2, 1}, "8 x ", "+2 / EHD"},
        {{2, 5, 6, 0, 1, 0, 0, 0}, "2 - 6 STR score", "--"},
        {{0, 0, 0, -1, 0, 0, 0, 0}, "--", "--"},
    };
    for (const Case& c : cases) {
        FCString first, second;
        DHandBook::GetSkillPointStrings(c.values, first, second);
        EXPECT_EQ(first.toStdString(), c.first);
        EXPECT_EQ(second.toStdString(), c.second);
    }
}

} // namespace
