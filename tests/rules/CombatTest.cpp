// Hit points, saves, armor class, initiative, base attack and starting gold of the engine,
// each worked by hand from the open 3.5 rules: a d8 averages 4.5, a good save is level / 2 + 2,
// a poor one level / 3, and every class's base attack is cut by itself.
#include "RulesTestSupport.h"

#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DClassLevelInfo.h"
#include "DRuleGuids.h"
#include "FCRandom.h"

namespace {

using rulestest::Ref;

class CombatTest : public rulestest::RulesFixture {
protected:
    // A Medium race of `typeClass` dice whose six scores are 10.
    Ref<DFileObject> PlainRace(const QString& typeClass, float hitDice) {
        DRace race;
        race.SetClassGuid(ClassGuid(typeClass));
        race.SetHitDieCount(hitDice);
        race.SetSizeId(4);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, 10);
        return SaveRace(race, QStringLiteral("%1 %2").arg(typeClass).arg(++mRaceCount));
    }

    // A character of such a race with the classes, set up anew.
    Ref<DCharacter> Make(const QString& typeClass, float hitDice, const QStringList& classes) {
        return NewCharacter(PlainRace(typeClass, hitDice).get(), classes);
    }

    // Scores straight into the record, as a loaded file has them; nothing is recomputed.
    static void SetScore(DCharacter& character, DAbilityStatType ability, int score) {
        character.SetAbilityStatBase(ability, score);
        character.SetAbilityStatBonus(ability, 0);
    }

private:
    int mRaceCount = 0;
};

TEST_F(CombatTest, HitDiceWalkGivesEachEntryItsPoints) {
    struct Case {
        const char* what;
        const char* typeClass;
        float hitDice;
        QStringList classes;
        int constitution;
        int expected;
    };
    const Case cases[] = {
        // The first class level takes the whole die, Constitution included, at least 1.
        {"wizard 1, Con -3", "Humanoid", 1.0f, {"Wizard"}, 5, 1},
        {"wizard 1, Con -5", "Humanoid", 1.0f, {"Wizard"}, 1, 1},
        {"fighter 1, Con +2", "Humanoid", 1.0f, {"Fighter"}, 14, 12},
        // Later levels take the average, each entry cut by itself: 10 + 5 + 5.
        {"fighter 3", "Humanoid", 1.0f, {"Fighter", "Fighter", "Fighter"}, 10, 20},
        // Fighter 2 (10 + 6) / rogue 1 (3.5 + 1 = 4): the rogue level is no first level.
        {"fighter 2 / rogue 1", "Humanoid", 1.0f, {"Fighter", "Fighter", "Rogue"}, 12, 21},
        // Two Humanoid dice stay averaged (4.5 + 4.5) and leave the fighter level the first.
        {"two racial dice + fighter 1", "Humanoid", 2.0f, {"Fighter"}, 10, 19},
        // With Con +1 the racial entry is 4.5 + 1 + 4.5 + 1 = 11, the fighter 10 + 1.
        {"gnoll fighter 1", "Humanoid", 2.0f, {"Fighter"}, 13, 22},
        // A monster averages every die: four Giant d8 at Con +2 are 6.5 each.
        {"ogre", "Giant", 4.0f, {}, 15, 26},
        // Half a d8 counts half, Constitution with it: (4.5 + 2) / 2.
        {"half-die animal", "Animal", 0.5f, {}, 14, 3},
        {"half-die animal, Con -5", "Animal", 0.5f, {}, 1, 0},
        // No hit dice at all: nothing to divide, nothing gained.
        {"zero-die race alone", "Humanoid", 0.0f, {}, 10, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = Make(c.typeClass, c.hitDice, c.classes);
        SetScore(*character, kAbilityConstitution, c.constitution);
        character->SetPreviousCharacterLevel(0.0f);
        EXPECT_EQ(DHandBook::RollForBaseHitPoints(character.get(), true, -1, 0), c.expected);
        int stored = 0;
        for (const DCharHistory* entry : character->GetHistoryArray())
            stored += entry->getHitpoints();
        EXPECT_EQ(stored, c.expected) << "the base is the sum of the entries";
    }
}

TEST_F(CombatTest, FractionOfAClassDieCountsHalfWithFullConstitution) {
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Fighter"});
    character->AddHistory(ClassGuid("Rogue"), 0.5f);
    SetScore(*character, kAbilityConstitution, 14);
    character->SetPreviousCharacterLevel(0.0f);
    // Fighter 10 + 2; half a rogue die 3.5 / 2 = 1.75, then + 2 = 3.75, cut to 3.
    EXPECT_EQ(DHandBook::RollForBaseHitPoints(character.get(), true, -1, 0), 15);
    EXPECT_EQ(character->GetHistoryAtPosition(2)->getHitpoints(), 3);
}

TEST_F(CombatTest, LevelUpRollsOnlyTheNewLevel) {
    Ref<DFileObject> race = PlainRace("Humanoid", 1.0f);
    for (std::uint64_t seed : {1u, 2u, 3u, 4u, 5u}) {
        FC::SeedRandom(seed);
        Ref<DCharacter> character = LevelledCharacter(race.get(), {"Fighter", "Fighter", "Rogue"});
        const int fighter1 = character->GetHistoryAtPosition(1)->getHitpoints();
        const int fighter2 = character->GetHistoryAtPosition(2)->getHitpoints();
        const int rogue = character->GetHistoryAtPosition(3)->getHitpoints();
        EXPECT_EQ(fighter1, 10) << "the first level keeps its full die";
        EXPECT_GE(fighter2, 1);
        EXPECT_LE(fighter2, 10);
        EXPECT_GE(rogue, 1);
        EXPECT_LE(rogue, 6);
        EXPECT_EQ(character->GetCharacterStat(kStatBaseHitPoints), fighter1 + fighter2 + rogue);
        EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), fighter1 + fighter2 + rogue);
    }
}

TEST_F(CombatTest, ConstitutionStepsMoveEveryLevelOnce) {
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Fighter", "Fighter", "Fighter"});
    SetScore(*character, kAbilityConstitution, 10);
    character->AddCharacterFlag(kCharFlagAverageHitDice);
    DHandBook::ComputeAndSetHitPoints(character.get(), true, false);
    character->RemoveCharacterFlag(kCharFlagAverageHitDice);
    ASSERT_EQ(character->GetCharacterStat(kStatHitPoints), 20); // 10 + 5 + 5

    // 10 to 12 is one step: +1 on each of three levels. 12 to 13 is none.
    DHandBook::RecomputeAndSetHitPoints(character.get(), 0, 2);
    SetScore(*character, kAbilityConstitution, 12);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 23);
    DHandBook::RecomputeAndSetHitPoints(character.get(), 0, 1);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 23);

    // Down to 1 (-5, six steps): 11 - 6 = 5, 6 - 6 and 6 - 6 each floored at 1.
    DHandBook::RecomputeAndSetHitPoints(character.get(), 0, -11);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 7);
    EXPECT_TRUE(character->HasChangeFlag(kChangeHitPoints));
}

TEST_F(CombatTest, BonusHitPointsNeverTakeTheTotalUnderTheLevel) {
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Wizard", "Wizard", "Wizard"});
    DHandBook::SetCharacterHitPoints(character.get(), 5, false);
    DHandBook::AdjustHitPointsForBonus(character.get(), kStatFeatHitPoints, 3);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 8);
    EXPECT_EQ(character->GetCharacterStat(kStatFeatHitPoints), 3);
    DHandBook::AdjustHitPointsForBonus(character.get(), kStatFeatureHitPoints, -10);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 3) << "level 3 is the floor";
    DHandBook::ClearHitPointsFeatBonus(character.get());
    EXPECT_EQ(character->GetCharacterStat(kStatFeatHitPoints), 0);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), 3);
    DHandBook::SetCharacterHitPoints(character.get(), -4, false);
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), -4) << "a plain set has no floor";

    // Half a die rounds the floor up.
    Ref<DCharacter> animal = Make("Animal", 0.5f, {});
    EXPECT_EQ(DHandBook::GetMinHitPoints(animal.get()), 1);
}

TEST_F(CombatTest, SavesStackClassByClass) {
    struct Case {
        const char* what;
        QStringList classes;
        int dex, con, wis;
        int fortitude, reflex, will;
    };
    const Case cases[] = {
        // Fighter 2 (3/0/0) + rogue 3 (1/3/1) + wizard 1 (0/0/2).
        {"fighter 2 / rogue 3 / wizard 1",
         {"Fighter", "Fighter", "Rogue", "Rogue", "Rogue", "Wizard"},
         10,
         10,
         10,
         4,
         3,
         3},
        // Two good starts stack: monk 1 and cleric 1 are 2 + 2 on Fortitude and Will.
        {"monk 1 / cleric 1", {"Monk", "Cleric"}, 14, 8, 13, 3, 4, 5},
        {"wizard 1, Con 3", {"Wizard"}, 10, 3, 10, -4, 0, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = Make("Humanoid", 1.0f, c.classes);
        SetScore(*character, kAbilityDexterity, c.dex);
        SetScore(*character, kAbilityConstitution, c.con);
        SetScore(*character, kAbilityWisdom, c.wis);
        DHandBook::ComputeAndSetAllSavingThrows(character.get());
        EXPECT_EQ(character->GetCharacterStat(kStatFortitude), c.fortitude);
        EXPECT_EQ(character->GetCharacterStat(kStatReflex), c.reflex);
        EXPECT_EQ(character->GetCharacterStat(kStatWill), c.will);
        EXPECT_TRUE(character->HasChangeFlag(kChangeSave));
    }
}

TEST_F(CombatTest, SavePartsCountOnceEach) {
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Paladin", "Paladin"});
    // Without the class's own divine grace, so that the one added below is the only one.
    character->GetFeatureArray(0).RemoveAll();
    SetScore(*character, kAbilityConstitution, 12);
    SetScore(*character, kAbilityCharisma, 16);
    character->SetCharacterStat(kStatFeatFortitude, 2);
    character->SetCharacterStat(kStatMagicSaveBonus, 1);
    character->SetCharacterStat(kStatFamiliarFortitude, 4);
    character->SetCharacterStat(kStatFeatureFortitude, 8);

    DSavingThrowValues values;
    DHandBook::GetSavingThrowValues(character.get(), kSaveFortitude, values);
    EXPECT_EQ(values.base, 3); // paladin 2: 2 / 2 + 2
    EXPECT_EQ(values.ability, 1);
    EXPECT_EQ(values.Total(), 3 + 1 + 2 + 1 + 4 + 8);

    // Divine grace (feature type 7, data -1) adds Charisma to the ability part, once.
    auto* grace = new DChosenFeature();
    grace->SetFeatureType(7);
    grace->SetFeatureData(-1);
    character->GetFeatureArray(0).Add(grace);
    grace->Release();
    DHandBook::GetSavingThrowValues(character.get(), kSaveWill, values);
    EXPECT_EQ(values.base, 0);
    EXPECT_EQ(values.ability, 0 + 3);

    // A user value goes straight into its total.
    DHandBook::SetCharacterUserValue(character.get(), kStatUserWill, -2);
    EXPECT_EQ(character->GetCharacterStat(kStatWill), 3 + 1 - 2);
    DHandBook::SetCharacterUserValue(character.get(), kStatUserInitiative, 5);
    EXPECT_EQ(character->GetCharacterStat(kStatInitiative), 5);
    DHandBook::SetCharacterUserValue(character.get(), kStatUserArmor, 1);
    EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), 10 + 1);
}

TEST_F(CombatTest, RaceDiceUseTheRaceSaveFlags) {
    Ref<DCharacter> ogre = Make("Giant", 4.0f, {});
    SetScore(*ogre, kAbilityConstitution, 15);
    DHandBook::ComputeAndSetAllSavingThrows(ogre.get());
    EXPECT_EQ(ogre->GetCharacterStat(kStatFortitude), 4 / 3 + 2) << "no race flag: poor";
    EXPECT_TRUE(DHandBook::GetHasGoodSaves(ogre->GetRace(), kSaveFortitude))
        << "the Giant class is good at Fortitude";
    ogre->GetRace()->SetHasGoodSaves(kSaveFortitude, true);
    DHandBook::ComputeAndSetAllSavingThrows(ogre.get());
    EXPECT_EQ(ogre->GetCharacterStat(kStatFortitude), 4 / 2 + 2 + 2) << "the ogre's +6";
}

TEST_F(CombatTest, BaseAttackCutsEachClassByItself) {
    const struct {
        const char* what;
        QStringList classes;
        int expected;
    } cases[] = {
        {"rogue 3 / cleric 3", {"Rogue", "Rogue", "Rogue", "Cleric", "Cleric", "Cleric"}, 4},
        {"fighter 2 / wizard 3", {"Fighter", "Fighter", "Wizard", "Wizard", "Wizard"}, 3},
        {"wizard 1 / sorcerer 1", {"Wizard", "Sorcerer"}, 0},
        {"monk 4", {"Monk", "Monk", "Monk", "Monk"}, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = Make("Humanoid", 1.0f, c.classes);
        EXPECT_EQ(DHandBook::ComputeBaseAttack(character.get()), c.expected);
        EXPECT_EQ(character->GetCharacterStat(kStatBaseAttack), c.expected) << "set by setup";
    }
    EXPECT_EQ(DHandBook::ComputeBaseAttack(ClassGuid("Animal"), 0.5f), 0);
    EXPECT_EQ(DHandBook::ComputeBaseAttack(ClassGuid("Outsider"), 7.0f), 7);
    EXPECT_EQ(DHandBook::ComputeBaseAttack(QUuid::createUuid(), 5.0f), 0) << "no class row";
}

TEST_F(CombatTest, GrappleTakesStrengthSizeAndImprovedGrapple) {
    // A Medium giant of 4 dice: base attack 4 x 3/4 = 3; Str 16 adds 3, Medium size nothing.
    Ref<DCharacter> giant = Make("Giant", 4.0f, {});
    SetScore(*giant, kAbilityStrength, 16);
    EXPECT_EQ(DHandBook::ComputeGrapple(giant.get()), 3 + 3);
    // Improved Grapple: +4 on every grapple check; another feat adds nothing.
    for (const char* feat : {"Power Attack", "Improved Grapple"}) {
        Ref<DChosenFeat> chosen(new DChosenFeat());
        chosen->SetFeatGuid(FeatGuid(feat));
        giant->AddFeat(chosen.get());
    }
    EXPECT_EQ(DHandBook::ComputeGrapple(giant.get()), 3 + 3 + 4);
}

TEST_F(CombatTest, ArmorClassDexterityAndItsLimit) {
    const struct {
        int dex;
        int limit;
        int dexPart;
    } cases[] = {{18, -1, 4}, {18, 0, 0}, {18, 1, 1}, {6, 0, -2}, {6, 1, -2}, {6, -1, -2}};
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Fighter"});
    for (const auto& c : cases) {
        SCOPED_TRACE("Dex " + std::to_string(c.dex) + " limit " + std::to_string(c.limit));
        SetScore(*character, kAbilityDexterity, c.dex);
        character->SetCharacterStat(kStatMaxDexterityBonus, c.limit);
        DACValues values;
        DHandBook::GetArmorClassValues(character.get(), values);
        EXPECT_EQ(values.dexterity, c.dexPart);
        DHandBook::ComputeAndSetArmorClass(character.get());
        EXPECT_EQ(character->GetCharacterStat(kStatArmorClass), 10 + c.dexPart);
    }
    // A race without Dexterity gives nothing; initiative then follows Intelligence.
    DRace ooze;
    ooze.SetClassGuid(ClassGuid("Ooze"));
    ooze.SetHitDieCount(3.0f);
    ooze.SetNoAbility(kAbilityDexterity, true);
    ooze.SetAbility(kAbilityIntelligence, 15);
    Ref<DFileObject> oozeFile = SaveRace(ooze, "ooze");
    Ref<DCharacter> blob = NewCharacter(oozeFile.get(), {});
    DACValues values;
    DHandBook::GetArmorClassValues(blob.get(), values);
    EXPECT_EQ(values.dexterity, 0);
    EXPECT_EQ(blob->GetCharacterStat(kStatInitiative), 2);
}

TEST_F(CombatTest, ArmorClassPartsAndMiscellaneousSources) {
    Ref<DCharacter> character = Make("Humanoid", 1.0f, {"Fighter"});
    character->SetSizeInfo(DDatabase::GetSizeInfo(3)); // Small: +1
    character->SetCharacterStat(kStatMaxDexterityBonus, -1);
    character->SetCharacterStat(kStatNaturalArmor, 2);
    character->SetCharacterStat(kStatArmorBonus, 4);
    character->SetCharacterStat(kStatShieldBonus, 1);
    character->SetCharacterStat(kStatMagicArmorBonus, 1);
    character->SetCharacterStat(kStatFeatureArmorBonus, 3);
    character->SetCharacterStat(kStatUserArmor, -1);
    SetScore(*character, kAbilityDexterity, 14);
    DACValues values;
    DHandBook::GetArmorClassValues(character.get(), values);
    EXPECT_EQ(values.base, 10);
    EXPECT_EQ(values.size, 1);
    EXPECT_EQ(values.misc, 0);
    EXPECT_EQ(values.Total(), 10 + 2 + 2 + 1 + 4 + 1 + 1 + 3 + 0 - 1);

    const struct {
        const char* what;
        QStringList classes;
        int wisdom;
        int misc;
    } cases[] = {
        {"monk 4, Wis 8", {"Monk", "Monk", "Monk", "Monk"}, 8, 0},
        {"monk 5, Wis 14", {"Monk", "Monk", "Monk", "Monk", "Monk"}, 14, 1 + 2},
        {"dwarven defender 4",
         {"Fighter", "Dwarven Defender", "Dwarven Defender", "Dwarven Defender",
          "Dwarven Defender"},
         10,
         2},
        {"dwarven defender 1", {"Fighter", "Dwarven Defender"}, 10, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> classed = Make("Humanoid", 1.0f, c.classes);
        SetScore(*classed, kAbilityWisdom, c.wisdom);
        EXPECT_EQ(DHandBook::GetArmorMiscModifier(classed.get()), c.misc);
    }

    // An incorporeal race turns Charisma into armor class, +1 at the least.
    DRace ghost;
    ghost.SetClassGuid(ClassGuid("Undead"));
    ghost.SetHitDieCount(3.0f);
    ghost.AddSubType(13);
    Ref<DFileObject> ghostFile = SaveRace(ghost, "ghost");
    for (const auto& [charisma, misc] : {std::pair{16, 3}, std::pair{13, 1}, std::pair{6, 1}}) {
        Ref<DCharacter> spirit = NewCharacter(ghostFile.get(), {});
        SetScore(*spirit, kAbilityCharisma, charisma);
        EXPECT_EQ(DHandBook::GetArmorMiscModifier(spirit.get()), misc) << "Cha " << charisma;
    }
}

TEST_F(CombatTest, StartingGoldByLevel) {
    const int level20 = DDatabase::GetClassLevelInfo(20)->GetStartingGold();
    const struct {
        const char* what;
        QStringList classes;
        int low, high;
    } cases[] = {
        {"fighter 4", {"Fighter", "Fighter", "Fighter", "Fighter"}, 5400, 5400},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character = Make("Humanoid", 1.0f, c.classes);
        const int gold = character->GetCurrency().GetAmount(2);
        EXPECT_GE(gold, c.low);
        EXPECT_LE(gold, c.high);
        EXPECT_EQ(character->GetBaselineGold(), gold);
    }

    Ref<DCharacter> veteran = Make("Humanoid", 1.0f, {"Fighter"});
    veteran->SetCharacterLevel(30.0f);
    veteran->GetCurrency().SetAmount(2, 17);
    DHandBook::ComputeAndSetStartingGold(veteran.get(), false);
    EXPECT_EQ(veteran->GetBaselineGold(), level20) << "level 30 reads the row of 20";
    EXPECT_EQ(veteran->GetCurrency().GetAmount(2), 17) << "a level-up keeps the cash";

    Ref<DCharacter> monster = Make("Giant", 4.0f, {});
    EXPECT_EQ(monster->GetCurrency().GetAmount(2), 0);
}

TEST_F(CombatTest, FaceAndReachFollowSizeAndDirection) {
    const struct {
        int size, direction;
        float face, reach;
    } cases[] = {{5, 0, 10, 10}, {5, 1, 10, 5}, {3, 0, 5, 5}, {8, 1, 30, 20}, {2, 7, 2.5f, 0}};
    for (const auto& c : cases) {
        DRace race;
        race.SetSizeId(c.size);
        race.SetSizeDirectionId(c.direction);
        DHandBook::ComputeAndSetFaceReach(&race);
        EXPECT_FLOAT_EQ(race.GetRaceSizeStat(0), c.face) << c.size << "/" << c.direction;
        EXPECT_FLOAT_EQ(race.GetRaceSizeStat(1), c.face);
        EXPECT_FLOAT_EQ(race.GetRaceSizeStat(2), c.reach);
    }
    DRace none;
    none.SetSizeId(42);
    none.SetRaceSizeStat(2, 5.0f);
    DHandBook::ComputeAndSetFaceReach(&none);
    EXPECT_FLOAT_EQ(none.GetRaceSizeStat(2), 0.0f);
}

} // namespace
