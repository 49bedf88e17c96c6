// The setup pass: a race and a class history become class levels, a character level and the
// race's grants. Expected values are worked from the SRD: a creature's racial hit dice are
// levels of its type class, and a race of one hit die or less adds none to a classed
// character.
#include "RulesTestSupport.h"

#include <QSet>

#include "DAdjChosenSpeed.h"
#include "DAttackInfo.h"
#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DChosenFeat.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DRuleGuids.h"
#include "DSizeInfo.h"
#include "DSpecialAttackSpellCaster.h"

namespace {

using rulestest::Ref;

class SetupTest : public rulestest::RulesFixture {};

TEST_F(SetupTest, RaceHitDiceAndClassHistoryGiveClassLevels) {
    struct Case {
        const char* what;
        const char* typeClass;
        float hitDice;
        QStringList history;
        const char* classes;
        float level;
        bool monster;
    };
    const Case cases[] = {
        // A human fighter: the race's one Humanoid die is no class level.
        {"human fighter 1", "Humanoid", 1.0f, {"Fighter"}, "Fighter 1", 1.0f, false},
        // An orc warrior as the monster entry has it: alone, its one die counts.
        {"one-die creature alone", "Humanoid", 1.0f, {}, "Humanoid 1", 1.0f, true},
        {"ogre", "Giant", 4.0f, {}, "Giant 4", 4.0f, true},
        // An ogre with a class level keeps its four Giant dice, first.
        {"ogre fighter 1", "Giant", 4.0f, {"Fighter"}, "Giant 4, Fighter 1", 5.0f, false},
        {"gnoll ranger 1", "Humanoid", 2.0f, {"Ranger"}, "Humanoid 2, Ranger 1", 3.0f, false},
        // A cat has half a hit die.
        {"half-die animal", "Animal", 0.5f, {}, "Animal 0.5", 0.5f, true},
        {"human fighter 2 / rogue 3",
         "Humanoid",
         1.0f,
         {"Fighter", "Fighter", "Rogue", "Rogue", "Rogue"},
         "Fighter 2, Rogue 3",
         5.0f,
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DFileObject> race = SaveRace(c.what, c.typeClass, c.hitDice);
        Ref<DCharacter> character = NewCharacter(race.get(), c.history);

        EXPECT_EQ(ClassLevels(*character).toStdString(), c.classes);
        EXPECT_FLOAT_EQ(character->GetCharacterLevel(), c.level);
        EXPECT_FLOAT_EQ(character->GetPreviousCharacterLevel(), 0.0f) << "a new character";
        EXPECT_EQ(character->HasInfoFlag(DCharacter::kInfoMonster), c.monster);
        EXPECT_EQ(character->GetAlignmentId(), kRaceAlignment)
            << "bound before any class level, the character was the race alone";

        const DCharHistory* raceEntry = character->GetHistoryAtPosition(0);
        ASSERT_NE(raceEntry, nullptr);
        EXPECT_EQ(raceEntry->GetClassGuid(), ClassGuid(c.typeClass));
        EXPECT_FLOAT_EQ(raceEntry->GetLevel(), c.hitDice);
        EXPECT_TRUE(raceEntry->HasHistoryFlag(DCharHistory::kHistoryRaceClass));
        for (const DCharHistory* entry : character->GetHistoryArray())
            EXPECT_TRUE(entry->HasHistoryFlag(DCharHistory::kHistoryApplied));
        if (!c.monster) {
            EXPECT_EQ(character->GetHistoryCharacterLevel(), int(c.level));
        }
        EXPECT_EQ(character->GetCharacterFlags() & kCharFlagSetupMask, kCharFlagSetupEndMask);
        EXPECT_FALSE(character->HasCharacterFlag(kCharFlagAverageHitDice))
            << "only set around the hit point step";
    }
}

TEST_F(SetupTest, ALevelUpPassWithoutANewEntryAddsNoLevel) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter", "Rogue"});
    DHandBook::CharacterSetup(character.get(), false);
    DHandBook::CharacterSetup(character.get(), false);
    EXPECT_EQ(ClassLevels(*character).toStdString(), "Fighter 1, Rogue 1");
    EXPECT_FLOAT_EQ(character->GetCharacterLevel(), 2.0f);
    EXPECT_FLOAT_EQ(character->GetPreviousCharacterLevel(), 2.0f) << "nothing is being gained";
}

TEST_F(SetupTest, ExClassStateFollowsTheLastEntryOfTheClass) {
    struct Case {
        const char* what;
        std::vector<bool> exEntries; // one paladin level each
        bool ex;
        bool atoned;
    };
    const Case cases[] = {
        {"fell, then atoned", {false, true, false}, false, true},
        {"fell at the last level", {false, false, true}, true, false},
        {"never fell", {false, false}, false, false},
    };
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), race.get());
        for (bool ex : c.exEntries)
            character->AddHistory(DRuleGuids::kPaladinClass, 1.0f)->SetIsExClass(ex);
        // The history alone: the setup pass would go on to hand out the atoned class's
        // features, which uses the atonement up.
        DHandBook::HandleHistoryToClasses(character.get(), false);
        const DCharacterClass* paladin = character->GetClassPointer(DRuleGuids::kPaladinClass);
        ASSERT_NE(paladin, nullptr);
        EXPECT_FLOAT_EQ(paladin->GetLevel(), float(c.exEntries.size()));
        EXPECT_EQ(paladin->GetIsExClass(), c.ex);
        EXPECT_EQ(paladin->hasAtoned(), c.atoned);
    }
}

TEST_F(SetupTest, LoremasterLevelsRaiseOnlyACasterClassAlreadyTaken) {
    struct Case {
        const char* what;
        QUuid special;
        int wizardBonusLevels;
        int clericBonusLevels;
    };
    const Case cases[] = {
        {"for the wizard levels", DRuleGuids::kWizardClass, 1, 0},
        {"for a class not taken", DRuleGuids::kClericClass, 0, 0},
    };
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), race.get());
        for (int i = 0; i < 5; ++i)
            character->AddHistory(DRuleGuids::kWizardClass, 1.0f);
        character->AddHistory(DRuleGuids::kLoremasterClass, 1.0f)->SetSpecialClassGuid(c.special);
        DHandBook::CharacterSetup(character.get(), true);
        EXPECT_EQ(character->GetClassPointer(DRuleGuids::kWizardClass)->GetBonusSpellLevels(),
                  c.wizardBonusLevels);
        EXPECT_EQ(character->GetClassPointer(DRuleGuids::kClericClass), nullptr);
        EXPECT_FLOAT_EQ(character->GetCharacterLevel(), 6.0f);
        FCArray<QUuid> casters;
        DHandBook::BuildSpellCasterListFromHistory(character.get(), casters);
        ASSERT_GE(casters.GetCount(), 1);
        EXPECT_EQ(casters.At(0), DRuleGuids::kWizardClass) << "first cast, listed once";
        EXPECT_EQ(casters.Find(DRuleGuids::kWizardClass), 0);
    }
}

TEST_F(SetupTest, ReplayingAHistoryMatchesBuildingItLevelByLevel) {
    Ref<DFileObject> race = SaveRace("Dwarf", "Humanoid", 1.0f);
    const QStringList history = {"Fighter", "Fighter", "Rogue", "Rogue", "Rogue"};
    Ref<DCharacter> replayed = NewCharacter(race.get(), history);
    Ref<DCharacter> levelled = LevelledCharacter(race.get(), history);

    EXPECT_EQ(ClassLevels(*replayed).toStdString(), "Fighter 2, Rogue 3");
    EXPECT_EQ(ClassLevels(*levelled), ClassLevels(*replayed));
    EXPECT_FLOAT_EQ(levelled->GetCharacterLevel(), replayed->GetCharacterLevel());
    ASSERT_EQ(levelled->GetHistoryCount(), replayed->GetHistoryCount());
    for (int i = 0; i < replayed->GetHistoryCount(); ++i) {
        const DCharHistory* a = replayed->GetHistoryAtPosition(i);
        const DCharHistory* b = levelled->GetHistoryAtPosition(i);
        EXPECT_EQ(a->GetClassGuid(), b->GetClassGuid()) << "entry " << i;
        EXPECT_FLOAT_EQ(a->GetLevel(), b->GetLevel()) << "entry " << i;
        EXPECT_EQ(a->GetHistoryFlags(), b->GetHistoryFlags()) << "entry " << i;
    }
    EXPECT_EQ(levelled->GetInfoFlags(), replayed->GetInfoFlags());
    EXPECT_EQ(levelled->GetCharacterFlags(), replayed->GetCharacterFlags());
    EXPECT_EQ(levelled->GetAlignmentId(), replayed->GetAlignmentId());
    // A replay averages the later hit dice where level-ups roll them, and experience is set at
    // the first setup only: those statistics legitimately differ.
    const QSet<int> rolledOrFirstOnly = {kStatHitPoints, kStatPreviousBaseHitPoints,
                                         kStatBaseHitPoints, kStatExperience};
    for (int stat = 0; stat < kStatCount; ++stat) {
        if (rolledOrFirstOnly.contains(stat))
            continue;
        EXPECT_EQ(levelled->GetCharacterStat(stat), replayed->GetCharacterStat(stat))
            << "statistic " << stat;
    }

    // What differs is what the last level-up marks as being gained: rogue 3, level 5.
    EXPECT_FLOAT_EQ(replayed->GetPreviousCharacterLevel(), 0.0f);
    EXPECT_FLOAT_EQ(levelled->GetPreviousCharacterLevel(), 4.0f);
    EXPECT_FLOAT_EQ(levelled->GetClassPointer(ClassGuid("Fighter"))->GetPreviousLevel(), 2.0f);
    EXPECT_FLOAT_EQ(levelled->GetClassPointer(ClassGuid("Rogue"))->GetPreviousLevel(), 2.0f);
}

TEST_F(SetupTest, TheRaceHandsDownItsGrants) {
    DRace race;
    race.SetClassGuid(ClassGuid("Humanoid"));
    race.SetHitDieCount(1.0f);
    race.SetNaturalAC(3);
    race.SetSizeId(3); // Small
    race.AddRaceFlag(DRace::kFlagFamiliar | DRace::kFlagShadowCompanion |
                     DRace::kFlagLightArmorProf);
    const QUuid dwarven = QUuid::createUuidV5(QUuid(), QStringLiteral("a language"));
    const QUuid common = QUuid::createUuidV5(QUuid(), QStringLiteral("another language"));
    for (const QUuid& id : {dwarven, common}) {
        auto* language = new DChosenLanguage();
        language->SetLanguageGuid(id);
        race.AddLanguage(language);
        language->Release();
    }
    auto* land = new DChosenSpeed(1, 20, 0);
    auto* fly = new DChosenSpeed(3, 40, 2);
    race.AddSpeed(land);
    race.AddSpeed(fly);
    land->Release();
    fly->Release();
    auto* bite = new DAttackInfo();
    race.AddAttack(bite, 4);
    bite->Release();
    auto* feat = new DChosenFeat();
    feat->SetFeatGuid(FeatGuid("Alertness"));
    race.AddFeat(feat);
    feat->Release();
    auto* casting = new DSpecialAttackSpellCaster(1, DRuleGuids::kWizardClass, 3);
    race.AddSpecialAttack(casting);
    casting->Release();
    Ref<DFileObject> raceFile = SaveRace(race, "Gnome");

    Ref<DCharacter> character(new DCharacter());
    character->AddInfoFlag(0x80);
    auto* ownCommon = new DChosenLanguage();
    ownCommon->SetLanguageGuid(common);
    ownCommon->AddLanguageFlag(0x2);
    character->AddLanguage(ownCommon);
    ownCommon->Release();
    auto* ownLand = new DAdjChosenSpeed(DChosenSpeed(1, 30, 0));
    character->AddSpeed(ownLand);
    ownLand->Release();
    DHandBook::SetupCharacterWithRace(character.get(), raceFile.get());
    character->AddHistory(ClassGuid("Wizard"), 1.0f);
    DHandBook::CharacterSetup(character.get(), true);

    EXPECT_EQ(character->GetCharacterStat(kStatNaturalArmor), 3);
    ASSERT_NE(character->GetSizeInfo(), nullptr);
    EXPECT_EQ(character->GetSizeInfo()->GetSizeId(), 3);
    // Race flags 1 and 0x20 land one place higher; the armor flag has no info bit; the
    // character's own bit stays.
    EXPECT_EQ(character->GetInfoFlags(), 0x2u | 0x40u | 0x80u);
    EXPECT_EQ(character->GetLanguageMap().GetCount(), 2);
    EXPECT_EQ(character->GetLanguagePointer(common)->GetLanguageFlags(), 0x2u)
        << "a language the character has is not replaced";
    ASSERT_NE(character->GetLanguagePointer(dwarven), nullptr);
    EXPECT_NE(character->GetAttack(4), nullptr);
    ASSERT_EQ(character->GetSpeedArray().GetCount(), 2);
    EXPECT_EQ(character->GetSpeedPointer(1)->GetSpeedValue(), 20) << "the race's value wins";
    const DChosenSpeed* flying = character->GetSpeedPointer(3);
    ASSERT_NE(flying, nullptr);
    EXPECT_EQ(flying->GetSpeedValue(), 40);
    EXPECT_EQ(flying->GetSpeedModId(), 2);
    EXPECT_NE(dynamic_cast<const DAdjChosenSpeed*>(flying), nullptr);
    const DChosenFeat* alertness = character->GetFeat(FeatGuid("Alertness"));
    ASSERT_NE(alertness, nullptr);
    EXPECT_TRUE(alertness->HasFeatFlag(kFixedByLevelOrRace)) << "a race's feat is not for sale";
    const DSpellCaster* raceCaster = character->GetRaceSpellCaster(DRuleGuids::kWizardClass);
    ASSERT_NE(raceCaster, nullptr);
    EXPECT_FLOAT_EQ(raceCaster->GetLevel(), 3.0f);

    // Running it again adds nothing twice.
    DHandBook::UpdateWithRace(character.get());
    EXPECT_EQ(character->GetLanguageMap().GetCount(), 2);
    EXPECT_EQ(character->GetFeatSet().GetCount(), 2) << "Alertness and the wizard's Scribe Scroll";
    EXPECT_EQ(character->GetSpeedArray().GetCount(), 2);
    EXPECT_EQ(character->GetRaceSpellCasterArray().GetCount(), 1);
}

TEST_F(SetupTest, ANewRaceRebuildsTheClassesOfAClassedCharacter) {
    Ref<DFileObject> human = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DFileObject> ogre = SaveRace("Ogre", "Giant", 4.0f);
    Ref<DCharacter> character = LevelledCharacter(human.get(), {"Fighter", "Fighter"});
    character->SetAlignmentId(1);

    DHandBook::ChangeCharacterRace(character.get(), ogre.get());
    EXPECT_EQ(character->GetRace()->GetRaceName().toStdString(), "Ogre");
    EXPECT_EQ(character->GetRaceClassGuid(), ClassGuid("Giant"));
    EXPECT_EQ(ClassLevels(*character).toStdString(), "Giant 4, Fighter 2");
    EXPECT_FLOAT_EQ(character->GetCharacterLevel(), 6.0f);
    EXPECT_FLOAT_EQ(character->GetPreviousCharacterLevel(), 0.0f);
    EXPECT_EQ(character->GetAlignmentId(), 1) << "a classed character keeps its alignment";
    EXPECT_FALSE(character->HasInfoFlag(DCharacter::kInfoMonster));

    // And back: the human's one die adds no level again.
    DHandBook::ChangeCharacterRace(character.get(), human.get());
    EXPECT_EQ(ClassLevels(*character).toStdString(), "Fighter 2");
    EXPECT_FLOAT_EQ(character->GetCharacterLevel(), 2.0f);
}

TEST_F(SetupTest, AnUnreadableRaceLeavesTheCharacterAlone) {
    Ref<DFileObject> missing(
        DObjectManager::CreateFileObject(kObjectRace, kFileUser, FCString("Nowhere.rac")));
    Ref<DCharacter> character(new DCharacter());
    DHandBook::SetupCharacterWithRace(character.get(), missing.get());
    DHandBook::SetupCharacterWithRace(character.get(), nullptr);
    EXPECT_EQ(character->GetRace(), nullptr);
    EXPECT_EQ(character->GetHistoryCount(), 0);
    EXPECT_TRUE(character->GetRaceFileObject()->GetRelativeFilePath().isEmpty());
}

TEST_F(SetupTest, ALevelUpFixesWhatEarlierLevelsChose) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> character = NewCharacter(race.get(), {"Fighter"});
    const QUuid fighter = ClassGuid("Fighter");
    auto* climb = new DChosenSkill();
    climb->SetSkillId(QUuid::createUuidV5(QUuid(), QStringLiteral("a skill")));
    climb->SetRanks(fighter, 1, 4.0f);
    character->AddSkill(climb);
    climb->Release();
    // Toughness may be taken again and stacks by count; Alertness may not.
    const QUuid toughness = FeatGuid("Toughness");
    for (const QUuid& id : {toughness, FeatGuid("Alertness")}) {
        auto* feat = new DChosenFeat();
        feat->SetFeatGuid(id);
        character->AddFeat(feat);
        feat->Release();
    }
    character->SetCharacterStat(kStatBaseHitPoints, 10);

    ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), fighter, false));
    EXPECT_TRUE(character->HasChangeFlag(kChangeLevelUp));
    EXPECT_EQ(character->GetCharacterStat(kStatPreviousBaseHitPoints), 10);
    EXPECT_FLOAT_EQ(character->GetClassPointer(fighter)->GetPreviousLevel(), 1.0f);
    EXPECT_FLOAT_EQ(character->GetPreviousCharacterLevel(), 1.0f);
    const DChosenSkill* skill = character->GetSkillPointer(
        QUuid::createUuidV5(QUuid(), QStringLiteral("a skill")), QUuid());
    ASSERT_NE(skill, nullptr);
    EXPECT_FLOAT_EQ(skill->GetRanks(fighter), 0.0f);
    EXPECT_FLOAT_EQ(skill->GetLockedRanks(fighter), 4.0f);
    EXPECT_TRUE(skill->HasSkillFlag(kFixedByLevelOrRace));
    for (const auto& feat : character->GetFeatSet())
        EXPECT_TRUE(feat->HasFeatFlag(kFixedByLevelOrRace));

    // A second Toughness taken at level 2 joins the locked one at the next level-up.
    auto* again = new DChosenFeat();
    again->SetFeatGuid(toughness);
    character->AddFeat(again);
    again->Release();
    ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), fighter, false));
    EXPECT_EQ(character->GetFeatSet().GetCount(), 2);
    EXPECT_EQ(character->GetFeatCount(toughness), 2);
}

} // namespace
