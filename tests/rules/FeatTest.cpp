// Feat points, bonus feats, prerequisites and the statistics feats change. Expected values are
// worked from the SRD: a feat at levels 1, 3, 6; a fighter's bonus feats at 1, 2, 4, 6; a
// wizard's at 5; Great Fortitude +2, Improved Initiative +4, Toughness +3 hit points.
#include "RulesTestSupport.h"

#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DSkillInfo.h"

namespace {

using rulestest::Ref;

class FeatTest : public rulestest::RulesFixture {
protected:
    // Every ability 10 but those named; a human-like race has the human's extra feat.
    Ref<DFileObject> Race(const QString& name, QList<QPair<int, int>> scores = {},
                          bool humanLike = false, float hitDice = 0.0f) {
        DRace race;
        race.SetClassGuid(ClassGuid("Humanoid"));
        race.SetHitDieCount(hitDice);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, 10);
        for (const auto& [ability, score] : scores)
            race.SetAbility(ability, score);
        if (humanLike)
            race.SetExtraFeatPointsFirstLevel(1);
        return SaveRace(race, name);
    }

    static QStringList Levels(const QString& className, int count) {
        QStringList classes;
        for (int i = 0; i < count; ++i)
            classes << className;
        return classes;
    }

    // A feat as a player takes it, paid from the general points.
    static DChosenFeat* Take(DCharacter& character, const QString& name,
                             const QUuid& target = QUuid()) {
        Ref<DChosenFeat> feat(new DChosenFeat());
        feat->SetFeatGuid(FeatGuid(name));
        feat->SetTargetGuid(target);
        DChosenFeat* like = DHandBook::AddFeat(&character, true, feat.get());
        return like ? like : feat.get();
    }

    static bool CanTake(DCharacter& character, const QString& name) {
        return DHandBook::ComputeCanFeatBePurchased(
            &character, true, DDatabase::GetFeatInfo(FeatGuid(name)), QUuid(), QUuid(), true);
    }

    // The first prerequisite that fails, as text; empty if all hold.
    static std::string Failing(DCharacter& character, const QString& name) {
        DFeatPrereq failing;
        if (!DHandBook::FindFailingFeatPrereq(&character, true, FeatGuid(name), failing))
            return std::string();
        return DHandBook::BuildFeatPrereqString(failing).toStdString();
    }
};

TEST_F(FeatTest, FeatPointsAndBonusFeats) {
    struct Case {
        const char* what;
        bool humanLike;
        float raceHitDice;
        QString className;
        int levels;
        int base, race, total, bonus;
    };
    const Case cases[] = {
        {"fighter 1", false, 0.0f, "Fighter", 1, 1, 0, 1, 1},
        // The human's extra feat at first level.
        {"human fighter 1", true, 0.0f, "Fighter", 1, 2, 0, 2, 1},
        {"fighter 2", false, 0.0f, "Fighter", 2, 1, 0, 1, 2},
        {"fighter 3", false, 0.0f, "Fighter", 3, 2, 0, 2, 2},
        {"fighter 6", false, 0.0f, "Fighter", 6, 3, 0, 3, 4},
        {"wizard 4", false, 0.0f, "Wizard", 4, 2, 0, 2, 0},
        {"wizard 5", false, 0.0f, "Wizard", 5, 2, 0, 2, 1},
        {"rogue 9", false, 0.0f, "Rogue", 9, 4, 0, 4, 0},
        // Racial hit dice are no class levels: 2 Humanoid dice give the type's 1 + 2 / 3.
        {"2-die humanoid fighter 1", false, 2.0f, "Fighter", 1, 1, 1, 2, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = Race(c.what, {}, c.humanLike, c.raceHitDice);
        Ref<DCharacter> character = LevelledCharacter(race.get(), Levels(c.className, c.levels));
        EXPECT_EQ(character->GetCharacterStat(kStatBaseFeatPoints), c.base);
        EXPECT_EQ(character->GetCharacterStat(kStatRaceFeatPoints), c.race);
        EXPECT_EQ(character->GetCharacterStat(kStatFeatPoints), c.total);
        EXPECT_EQ(character->GetClassPointer(ClassGuid(c.className))->GetBonusFeatPoints(),
                  c.bonus);
    }
}

TEST_F(FeatTest, BonusFeatOfAFighterIsPaidByTheClass) {
    Ref<DFileObject> race = Race("strong", {{kAbilityStrength, 13}});
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    const QUuid fighter = ClassGuid("Fighter");
    EXPECT_TRUE(DHandBook::IsFeatBonusForClass(fighter, FeatGuid("Power Attack")));
    EXPECT_FALSE(DHandBook::IsFeatBonusForClass(fighter, FeatGuid("Great Fortitude")));

    Ref<DChosenFeat> bonus(new DChosenFeat());
    bonus->SetFeatGuid(FeatGuid("Power Attack"));
    bonus->AddFeatFlag(DChosenFeat::kFeatClassBonus);
    bonus->SetClassGuid(fighter);
    EXPECT_EQ(DHandBook::AddFeat(character.get(), true, bonus.get()), nullptr);
    EXPECT_EQ(character->GetClassPointer(fighter)->GetSpentBonusFeatPoints(), 1);
    EXPECT_EQ(character->GetCharacterStat(kStatSpentFeatPoints), 0);

    DHandBook::RemoveFeat(character.get(), true, bonus.get());
    EXPECT_EQ(character->GetClassPointer(fighter)->GetSpentBonusFeatPoints(), 0);
    EXPECT_FALSE(character->HasFeat(FeatGuid("Power Attack")));
}

TEST_F(FeatTest, PowerAttackCleaveGreatCleave) {
    Ref<DFileObject> weak = Race("weak", {{kAbilityStrength, 12}});
    Ref<DCharacter> weakling = NewCharacter(weak.get(), {"Fighter"});
    EXPECT_FALSE(CanTake(*weakling, "Power Attack"));
    EXPECT_EQ(Failing(*weakling, "Power Attack"), "Str 13");

    Ref<DFileObject> strong = Race("strong", {{kAbilityStrength, 13}});
    Ref<DCharacter> character = LevelledCharacter(strong.get(), Levels("Fighter", 3));
    EXPECT_EQ(Failing(*character, "Cleave"), "Power Attack");
    EXPECT_TRUE(CanTake(*character, "Power Attack"));
    Take(*character, "Power Attack");
    EXPECT_FALSE(CanTake(*character, "Power Attack")) << "taken once only";
    EXPECT_TRUE(CanTake(*character, "Cleave"));
    Take(*character, "Cleave");
    // Fighter 3 has base attack +3.
    EXPECT_EQ(Failing(*character, "Great Cleave"), "base attack +4");
    ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid("Fighter"), false));
    EXPECT_TRUE(CanTake(*character, "Great Cleave"));
    EXPECT_EQ(Failing(*character, "Great Cleave"), "");
}

TEST_F(FeatTest, OtherPrerequisites) {
    Ref<DFileObject> race = Race("plain");
    // A ranger's combat style waives Dexterity 17 and Two-Weapon Fighting, not base attack +6.
    Ref<DCharacter> ranger5 = LevelledCharacter(race.get(), Levels("Ranger", 5));
    EXPECT_EQ(Failing(*ranger5, "Improved Two-Weapon Fighting"), "base attack +6");
    ASSERT_TRUE(DHandBook::AddCharacterLevel(ranger5.get(), ClassGuid("Ranger"), false));
    EXPECT_TRUE(CanTake(*ranger5, "Improved Two-Weapon Fighting"));
    Ref<DCharacter> fighter6 = LevelledCharacter(race.get(), Levels("Fighter", 6));
    EXPECT_EQ(Failing(*fighter6, "Improved Two-Weapon Fighting"), "Dex 17");

    // A fighter's class row makes it proficient with all armor, shields and martial weapons; a
    // wizard's with none of them.
    const unsigned allArmor = DCharacter::kProfLightArmor | DCharacter::kProfMediumArmor |
                              DCharacter::kProfHeavyArmor | DCharacter::kProfShield;
    EXPECT_EQ(fighter6->GetProfFlags() & allArmor, allArmor);
    EXPECT_TRUE(fighter6->HasProfFlag(DCharacter::kProfSimple | DCharacter::kProfMartial));
    Ref<DCharacter> wizard = NewCharacter(race.get(), {"Wizard"});
    EXPECT_EQ(wizard->GetProfFlags() & (allArmor | DCharacter::kProfMartial), 0u);
    EXPECT_EQ(Failing(*wizard, "Armor Proficiency (Medium)"), "Armor Proficiency (Light)");
    // Armor proficiency counts as the armor feats it stands for.
    EXPECT_EQ(Failing(*fighter6, "Armor Proficiency (Heavy)"), "");
    fighter6->RemoveProfFlag(DCharacter::kProfLightArmor | DCharacter::kProfMediumArmor);
    EXPECT_EQ(Failing(*fighter6, "Armor Proficiency (Heavy)"), "Armor Proficiency (Light)");
    fighter6->AddProfFlag(DCharacter::kProfLightArmor | DCharacter::kProfMediumArmor);
    EXPECT_EQ(Failing(*fighter6, "Armor Proficiency (Heavy)"), "");

    // Class level: Weapon Specialization asks for Fighter 4.
    DFeatPrereq classLevel;
    classLevel.featGuid = FeatGuid("Weapon Specialization");
    classLevel.type = DFeatPrereq::kClassLevel;
    EXPECT_TRUE(DHandBook::DoesFeatMeetPrereq(fighter6.get(), true, classLevel));
    EXPECT_FALSE(DHandBook::DoesFeatMeetPrereq(ranger5.get(), true, classLevel));

    // Item creation needs a caster level; a race being edited is not held to it.
    const DFeatInfo* brew = DDatabase::GetFeatInfo(FeatGuid("Brew Potion"));
    EXPECT_FALSE(
        DHandBook::ComputeCanFeatBePurchased(fighter6.get(), true, brew, QUuid(), QUuid(), false));
    DRace editedRace;
    EXPECT_TRUE(
        DHandBook::ComputeCanFeatBePurchased(&editedRace, false, brew, QUuid(), QUuid(), false));
}

TEST_F(FeatTest, BonusesApplyOnceAndGoWithTheFeat) {
    Ref<DFileObject> race = Race("plain");
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    DCharacter* fighter = character.get();
    // Fighter 1: Fortitude +2, Reflex +0, initiative +0, 10 hit points.
    ASSERT_EQ(fighter->GetCharacterStat(kStatFortitude), 2);
    ASSERT_EQ(fighter->GetCharacterStat(kStatHitPoints), 10);

    DChosenFeat* fortitude = Take(*fighter, "Great Fortitude");
    DChosenFeat* initiative = Take(*fighter, "Improved Initiative");
    EXPECT_EQ(fighter->GetCharacterStat(kStatFortitude), 4);
    EXPECT_EQ(fighter->GetCharacterStat(kStatReflex), 0);
    EXPECT_EQ(fighter->GetCharacterStat(kStatInitiative), 4);
    EXPECT_EQ(fighter->GetCharacterStat(kStatSpentFeatPoints), 2);

    // Toughness may be taken again: one record, twice the bonus.
    Take(*fighter, "Toughness");
    DChosenFeat* toughness = Take(*fighter, "Toughness");
    EXPECT_EQ(toughness->GetCount(), 2);
    EXPECT_EQ(fighter->GetFeatCount(FeatGuid("Toughness")), 2);
    EXPECT_EQ(fighter->GetCharacterStat(kStatHitPoints), 16);
    EXPECT_EQ(fighter->GetCharacterStat(kStatSpentFeatPoints), 4);

    DHandBook::RemoveFeat(fighter, true, toughness);
    DHandBook::RemoveFeat(fighter, true, fortitude);
    DHandBook::RemoveFeat(fighter, true, initiative);
    EXPECT_EQ(fighter->GetCharacterStat(kStatHitPoints), 10);
    EXPECT_EQ(fighter->GetCharacterStat(kStatFortitude), 2);
    EXPECT_EQ(fighter->GetCharacterStat(kStatInitiative), 0);
    EXPECT_EQ(fighter->GetCharacterStat(kStatSpentFeatPoints), 0);
}

TEST_F(FeatTest, SkillBonusesReachTheirSkills) {
    Ref<DFileObject> race = Race("plain");
    Ref<DCharacter> character = NewCharacter(race.get(), {"Rogue"});
    DCharacter* rogue = character.get();
    const QUuid climb = SkillGuid("Climb"), tumble = SkillGuid("Tumble");

    // Skill Focus names no skill of its own: it is for the one it was taken for.
    Take(*rogue, "Skill Focus", climb);
    EXPECT_EQ(rogue->GetSkillPointer(climb, QUuid())->GetFeatMod(), 3);
    // A record made after the feat gets the bonus at once.
    Take(*rogue, "Skill Focus", tumble);
    ASSERT_FALSE(rogue->HasSkill(tumble, QUuid()));
    rogue->SetActiveClassId(ClassGuid("Rogue"));
    DHandBook::AddSkill(rogue, tumble, QUuid(), 1, 1.0f, true);
    EXPECT_EQ(rogue->GetSkillPointer(tumble, QUuid())->GetFeatMod(), 3);
    // Alertness names its two skills.
    Take(*rogue, "Alertness");
    EXPECT_EQ(rogue->GetSkillPointer(SkillGuid("Listen"), QUuid())->GetFeatMod(), 2);
    EXPECT_EQ(rogue->GetSkillPointer(SkillGuid("Spot"), QUuid())->GetFeatMod(), 2);

    // All feats cleared: every bonus with them; a locked feat stays.
    rogue->GetFeat(FeatGuid("Alertness"))->AddFeatFlag(DChosenFeat::kFeatLocked);
    DHandBook::RemoveAllFeats(rogue, true);
    EXPECT_TRUE(rogue->HasFeat(FeatGuid("Alertness")));
    EXPECT_FALSE(rogue->HasFeat(FeatGuid("Skill Focus"), climb));
    EXPECT_EQ(rogue->GetSkillPointer(climb, QUuid())->GetFeatMod(), 0);
    DHandBook::ComputeAndSetFeatBonuses(rogue);
    EXPECT_EQ(rogue->GetSkillPointer(SkillGuid("Spot"), QUuid())->GetFeatMod(), 2);
    EXPECT_EQ(rogue->GetSkillPointer(tumble, QUuid())->GetFeatMod(), 0);
}

TEST_F(FeatTest, RaceGrantsSkillsFeatsAndFeatPoints) {
    DRace race;
    race.SetClassGuid(ClassGuid("Giant"));
    race.SetHitDieCount(4.0f);
    for (int ability = 0; ability < kAbilityCount; ++ability)
        race.SetAbility(ability, 10);
    Ref<DChosenSkill> listen(new DChosenSkill(SkillGuid("Listen"), QUuid()));
    listen->SetRaceMod(2);
    race.AddSkill(listen.get());
    Ref<DChosenFeat> fortitude(new DChosenFeat());
    fortitude->SetFeatGuid(FeatGuid("Great Fortitude"));
    race.AddFeat(fortitude.get());
    Ref<DFileObject> file = SaveRace(race, "keen giant");
    Ref<DCharacter> character = NewCharacter(file.get(), {});

    const DChosenSkill* heard = character->GetSkillPointer(SkillGuid("Listen"), QUuid());
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->GetRaceMod(), 2);
    EXPECT_TRUE(heard->HasSkillFlag(DChosenSkill::kSkillFixed));
    const QUuid giant = ClassGuid("Giant");
    EXPECT_EQ(DHandBook::ComputeSkillUsablility(character.get(), giant, SkillGuid("Listen")), 1);
    EXPECT_EQ(DHandBook::ComputeSkillUsablility(character.get(), giant, SkillGuid("Tumble")), 2);

    // The race marks no good save: 4 dice give Fortitude +1; Great Fortitude adds 2, once.
    ASSERT_TRUE(character->HasFeat(FeatGuid("Great Fortitude")));
    EXPECT_TRUE(character->GetFeat(FeatGuid("Great Fortitude"))->HasFeatFlag(kFixedByLevelOrRace));
    EXPECT_EQ(character->GetCharacterStat(kStatFeatFortitude), 2);
    EXPECT_EQ(character->GetCharacterStat(kStatFortitude), 3);
    DHandBook::UpdateWithRace(character.get());
    EXPECT_EQ(character->GetCharacterStat(kStatFortitude), 3) << "a feat held is not added again";

    // The type's feats: 1 + 4 / 3 racial, one spent on the race's Great Fortitude; 3 more dice
    // of advancement give one more.
    EXPECT_EQ(character->GetCharacterStat(kStatRaceFeatPoints), 1);
    EXPECT_EQ(character->GetCharacterStat(kStatBaseFeatPoints), 0);
    character->GetRaceClassPointer()->SetLevel(7.0f);
    DHandBook::ComputeAndSetAdvancedFeatPoints(character.get());
    EXPECT_EQ(character->GetCharacterStat(kStatAdvancedFeatPoints), 1);
    EXPECT_EQ(character->GetCharacterStat(kStatFeatPoints), 2);
}

} // namespace
