// Adding a level and taking it back: a level-down undoes the level-up to the byte, and never
// takes the race's entry or the first class level.
#include "RulesTestSupport.h"

#include "DCharHistory.h"

#include <utility>

namespace {

using rulestest::Ref;

class LevelUpDownTest : public rulestest::RulesFixture {};

TEST_F(LevelUpDownTest, ALevelUpThenALevelDownRestoresTheSavedRecord) {
    struct Case {
        const char* what;
        const char* typeClass;
        float hitDice;
        QStringList built; // levelled one class level at a time
        const char* added;
        const char* classesUp;
        float levelUp;
    };
    const Case cases[] = {
        {"human fighter 1, one more", "Humanoid", 1.0f, {"Fighter"}, "Fighter", "Fighter 2", 2.0f},
        {"human fighter 1 takes rogue",
         "Humanoid",
         1.0f,
         {"Fighter"},
         "Rogue",
         "Fighter 1, Rogue 1",
         2.0f},
        {"fighter 2 / rogue 3, one more rogue",
         "Humanoid",
         1.0f,
         {"Fighter", "Fighter", "Rogue", "Rogue", "Rogue"},
         "Rogue",
         "Fighter 2, Rogue 4",
         6.0f},
        {"fighter 2 / rogue 3 takes wizard",
         "Humanoid",
         1.0f,
         {"Fighter", "Fighter", "Rogue", "Rogue", "Rogue"},
         "Wizard",
         "Fighter 2, Rogue 3, Wizard 1",
         6.0f},
        // Four Giant dice and one fighter level make level 5; the level-up makes 6.
        {"ogre fighter 1", "Giant", 4.0f, {"Fighter"}, "Fighter", "Giant 4, Fighter 2", 6.0f},
        {"ogre fighter 2",
         "Giant",
         4.0f,
         {"Fighter", "Fighter"},
         "Fighter",
         "Giant 4, Fighter 3",
         7.0f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = SaveRace(c.what, c.typeClass, c.hitDice);
        Ref<DCharacter> character = LevelledCharacter(race.get(), c.built);
        const QByteArray before = SavedBytes(*character, ScratchPath("before.chr"));
        ASSERT_FALSE(before.isEmpty());
        const int baselineGold = character->GetBaselineGold();

        ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid(c.added), false));
        EXPECT_EQ(ClassLevels(*character).toStdString(), c.classesUp);
        EXPECT_FLOAT_EQ(character->GetCharacterLevel(), c.levelUp);
        EXPECT_FLOAT_EQ(character->GetPreviousCharacterLevel(), c.levelUp - 1.0f);
        EXPECT_NE(SavedBytes(*character, ScratchPath("up.chr")), before);

        ASSERT_TRUE(DHandBook::RemoveCharacterLevel(character.get(), false));
        EXPECT_FLOAT_EQ(character->GetCharacterLevel(), c.levelUp - 1.0f);
        // A first-level baseline is the gold rolled at the making, which nothing keeps: back at
        // level 1 the level-up's baseline stays. From level 2 on the level's row restores it.
        if (c.levelUp - 1.0f < 2.0f)
            character->SetBaselineGold(baselineGold);
        EXPECT_EQ(SavedBytes(*character, ScratchPath("after.chr")), before);
    }
}

TEST_F(LevelUpDownTest, TheFirstClassLevelAndTheRaceEntryStay) {
    struct Case {
        const char* what;
        const char* typeClass;
        float hitDice;
        QStringList history;
    };
    const Case cases[] = {
        {"human fighter 1", "Humanoid", 1.0f, {"Fighter"}},
        {"ogre fighter 1", "Giant", 4.0f, {"Fighter"}},
        {"ogre alone", "Giant", 4.0f, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = SaveRace(c.what, c.typeClass, c.hitDice);
        Ref<DCharacter> character = NewCharacter(race.get(), c.history);
        const QByteArray before = SavedBytes(*character, ScratchPath("before.chr"));
        character->ClearChangeFlags();
        EXPECT_FALSE(DHandBook::RemoveCharacterLevel(character.get(), false));
        EXPECT_EQ(SavedBytes(*character, ScratchPath("after.chr")), before);
        EXPECT_EQ(character->GetChangeFlags(), 0u);
    }
    EXPECT_FALSE(DHandBook::RemoveCharacterLevel(nullptr, false));
}

TEST_F(LevelUpDownTest, ALevelUpNeedsAClassAndARace) {
    Ref<DCharacter> raceless(new DCharacter());
    EXPECT_FALSE(DHandBook::AddCharacterLevel(raceless.get(), ClassGuid("Fighter"), false));
    EXPECT_EQ(raceless->GetHistoryCount(), 0);

    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    EXPECT_FALSE(DHandBook::AddCharacterLevel(character.get(), QUuid(), false));
    EXPECT_EQ(character->GetHistoryCount(), 2);
}

TEST_F(LevelUpDownTest, ALevelDownRestoresTheExStateOfTheClass) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> character = LevelledCharacter(race.get(), {"Paladin", "Paladin"});
    // The paladin falls at level 3, so the class is ex; taking that level back restores him.
    const QUuid paladin = ClassGuid("Paladin");
    character->AddHistory(paladin, 1.0f)->SetIsExClass(true);
    character->AddChangeFlag(0x800000);
    DHandBook::CharacterSetup(character.get(), false);
    ASSERT_TRUE(character->GetClassPointer(paladin)->GetIsExClass());
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(character.get(), false));
    EXPECT_FALSE(character->GetClassPointer(paladin)->GetIsExClass());
    EXPECT_FLOAT_EQ(character->GetClassPointer(paladin)->GetLevel(), 2.0f);
}

TEST_F(LevelUpDownTest, TheAbilityIncreaseOfTheLevelTakenBackGoesWithIt) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    // Str 15, Con 13 whatever the race adjusts, typed in at the making; two level-ups follow.
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    for (const auto& [ability, score] :
         {std::pair{kAbilityStrength, 15}, std::pair{kAbilityConstitution, 13}})
        DHandBook::ChangeAbilityStatBase(character.get(), ability,
                                         character->GetAbilityStatBase(ability) + score -
                                             character->GetAbilityStat(ability),
                                         false);
    for (int level = 2; level <= 3; ++level)
        ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid("Fighter"), false));
    const QByteArray third = SavedBytes(*character, ScratchPath("third.chr"));
    const int hitPoints = character->GetCharacterStat(kStatHitPoints);
    ASSERT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), 0);

    // The 4th level's increase, taken as the ability dialog takes it: Con 13 to 14 raises the
    // modifier to +2, one more hit point for each of the four levels.
    ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid("Fighter"), false));
    ASSERT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), 1);
    const int fourthDie = character->GetCharacterStat(kStatHitPoints) - hitPoints;
    DHandBook::RecomputeAndSetHitPoints(character.get(), 0, 1);
    character->SetEarnedAbilityStat(kAbilityConstitution, 4);
    DHandBook::SetCharacterAbilityStatBase(character.get(), kAbilityConstitution,
                                           character->GetAbilityStatBase(kAbilityConstitution) + 1,
                                           false);
    ASSERT_EQ(character->GetAbilityStat(kAbilityConstitution), 14);
    ASSERT_EQ(character->GetCharacterStat(kStatHitPoints), hitPoints + fourthDie + 4);

    // Fighter 3 again: Con 13, the hit points and the file of the third level, no increase.
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(character.get(), false));
    EXPECT_EQ(character->GetAbilityStat(kAbilityConstitution), 13);
    EXPECT_EQ(character->GetAbilityStat(kAbilityStrength), 15);
    EXPECT_EQ(character->GetEarnedAbilityStatRaw(kAbilityConstitution), 0);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), hitPoints);
    EXPECT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), 0);
    EXPECT_EQ(SavedBytes(*character, ScratchPath("down.chr")), third);
}

} // namespace
