// Familiars, special mounts and animal companions follow their master's level both ways, and
// the master's file keeps them.
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DCharacterClass.h"
#include "DChosenAnimal.h"
#include "DChosenFeature.h"
#include "DChosenSkill.h"
#include "DCompanionRules.h"
#include "DSkillInfo.h"

namespace {

using rulestest::Ref;

// The numbers of a companion that its master's level moves.
struct Stats {
    float hitDice;
    int hitPoints; // -1: a familiar's, half its master's
    int naturalArmor;
    int ac;
    int baseAttack;
    int fortitude, reflex, will;
    int strength, dexterity, intelligence;
    QStringList features; // short names, without the companion's kind
};

class CompanionsTest : public rulestest::RulesFixture {
protected:
    void SetUp() override {
        RulesFixture::SetUp();
        DOptions::mAppPath = FCString(hoardtest::builtDataDir());
    }

    static Ref<DFileObject> CoreRace(const QString& name) {
        return Ref<DFileObject>(
            DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString(name + ".rac")));
    }

    static Ref<DCharacter> Master(const QString& className, int levels) {
        Ref<DFileObject> human = CoreRace("Human");
        QStringList classes;
        for (int i = 0; i < levels; ++i)
            classes << className;
        return LevelledCharacter(human.get(), classes);
    }

    static QStringList FeatureNames(DCharacter* creature, const QString& kind) {
        QStringList names;
        for (int array = 0; array < DCharacter::kFeatureArrayCount; ++array) {
            for (const DChosenFeature* feature : creature->GetFeatureArray(array))
                names << DHandBook::BuildFeatureName(feature).remove(" (" + kind + ")");
        }
        names.sort();
        return names;
    }

    static void ExpectStats(DCharacter* master, DAnimalType type, const Stats& want,
                            const QString& kind) {
        DCharacter* creature = DCompanionRules::GetAnimal(master->GetAnimal(type));
        ASSERT_NE(creature, nullptr);
        EXPECT_EQ(creature->GetHistoryAtPosition(0)->GetLevel(), want.hitDice);
        const int hitPoints =
            want.hitPoints < 0 ? master->GetCharacterStat(kStatHitPoints) / 2 : want.hitPoints;
        EXPECT_EQ(creature->GetCharacterStat(kStatHitPoints), hitPoints);
        EXPECT_EQ(creature->GetCharacterStat(kStatNaturalArmor), want.naturalArmor);
        DACValues ac;
        DHandBook::GetArmorClassValues(creature, ac);
        EXPECT_EQ(ac.Total(), want.ac);
        EXPECT_EQ(creature->GetCharacterStat(kStatBaseAttack), want.baseAttack);
        EXPECT_EQ(creature->GetCharacterStat(kStatFortitude), want.fortitude);
        EXPECT_EQ(creature->GetCharacterStat(kStatReflex), want.reflex);
        EXPECT_EQ(creature->GetCharacterStat(kStatWill), want.will);
        EXPECT_EQ(creature->GetAbilityStat(kAbilityStrength), want.strength);
        EXPECT_EQ(creature->GetAbilityStat(kAbilityDexterity), want.dexterity);
        EXPECT_EQ(creature->GetAbilityStat(kAbilityIntelligence), want.intelligence);
        QStringList features = want.features;
        features.sort();
        EXPECT_EQ(FeatureNames(creature, kind), features);
    }
};

// Worked from the open rules' tables and stat blocks (average hit dice, d8 = 4.5 a die).
//
// Familiar: a cat (1/2 HD, Str 3, Dex 15, Con 10, Int 2, Wis 12, Tiny: AC +2; own base saves
// Fort +2, Ref +2, Will +0). A wizard 2 is master level 2: natural armor +1, Int 6, four
// abilities; hit dice his level, 2; base attack his, 2 x 1/2 = +1; saves the better base of
// the two plus its own ability: master Fort 0, Ref 0, Will 3 -> Fort 2+0, Ref 2+2, Will 3+1.
// AC 10 + 2 size + 2 Dex + 1 = 15. At wizard 3: natural armor +2 (AC 16), Int 7, deliver touch
// spells; base attack 1.5 -> +1; master Fort 1, Ref 1, Will 3 leave the saves as they were.
//
// Animal companion: a wolf (2 HD, Str 13, Dex 15, Con 15, Wis 12, natural armor 2, Medium;
// animal: good Fort and Ref, base attack 3/4). Druid 2: the first row, nothing added: hit
// points 2 x (4.5 + 2) = 13, AC 10 + 2 + 2 = 14, base attack 1, Fort 3+2, Ref 3+2, Will 0+1.
// Druid 3: +2 HD (4), natural armor +2 (4), Str and Dex +1 (14, 16): hit points 4 x 6.5 = 26,
// AC 10 + 3 + 4 = 17, base attack 3, Fort 4+2, Ref 4+3, Will 1+1, and evasion. It stays
// Medium, though a wild wolf of 4 HD is Large.
//
// Special mount: a heavy warhorse (4 HD, Str 18, Dex 13, Con 17, Int 2, Wis 13, natural armor
// 4, Large: AC -1). Paladin 7 (row 5-7): +2 HD (6), natural armor +4 (8), Str +1 (19), Int 6:
// hit points 6 x (4.5 + 3) = 45, AC 10 - 1 + 1 + 8 = 18, base attack 4, Fort 5+3, Ref 5+1,
// Will 2+1, four abilities. Paladin 8 (row 8-10): +4 HD (8), natural armor +6 (10), Str +2
// (20), Int 7, improved speed: hit points 8 x 7.5 = 60, AC 20, base attack 6, Fort 6+3,
// Ref 6+1, Will 2+1.
TEST_F(CompanionsTest, CompanionsFollowTheMastersLevelUpAndDown) {
    const QStringList familiar1 = {"Alertness", "Improved evasion", "Share spells",
                                   "Empathic link"};
    const QStringList companion1 = {"Link", "Share spells"};
    const QStringList mount5 = {"Empathic link", "Improved evasion", "Share spells",
                                "Share saving throws"};
    struct Case {
        const char* kind; // the features' suffix
        DAnimalType type;
        const char* masterClass;
        int levels;
        const char* race;
        Stats before; // and after the level-down
        Stats after;  // after one more level
    };
    const Case cases[] = {
        {"familiar",
         DCompanionRules::kFamiliar,
         "Wizard",
         2,
         "Cat",
         {2, -1, 1, 15, 1, 2, 4, 4, 3, 15, 6, familiar1},
         {3, -1, 2, 16, 1, 2, 4, 4, 3, 15, 7, familiar1 + QStringList{"Deliver touch spells"}}},
        {"animal companion",
         DCompanionRules::kAnimalCompanion,
         "Druid",
         2,
         "Wolf",
         {2, 13, 2, 14, 1, 5, 5, 1, 13, 15, 2, companion1},
         {4, 26, 4, 17, 3, 6, 7, 2, 14, 16, 2, companion1 + QStringList{"Evasion"}}},
        {"special mount",
         DCompanionRules::kMount,
         "Paladin",
         7,
         "Warhorse, Heavy",
         {6, 45, 8, 18, 4, 8, 6, 3, 19, 13, 6, mount5},
         {8, 60, 10, 20, 6, 9, 7, 3, 20, 13, 7, mount5 + QStringList{"Improved speed"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        Ref<DCharacter> master = Master(c.masterClass, c.levels);
        Ref<DFileObject> race = CoreRace(c.race);
        ASSERT_NE(DCompanionRules::AddCharacterAnimal(master.get(), *race, c.type), nullptr);
        {
            SCOPED_TRACE("as added");
            ExpectStats(master.get(), c.type, c.before, c.kind);
        }
        ASSERT_TRUE(DHandBook::AddCharacterLevel(master.get(), ClassGuid(c.masterClass), false));
        {
            SCOPED_TRACE("after the level-up");
            ExpectStats(master.get(), c.type, c.after, c.kind);
        }
        ASSERT_TRUE(DHandBook::RemoveCharacterLevel(master.get(), false));
        {
            SCOPED_TRACE("after the level-down");
            ExpectStats(master.get(), c.type, c.before, c.kind);
        }
    }
}

TEST_F(CompanionsTest, WhoMayHaveWhichCompanionAndAtWhatLevel) {
    Ref<DFileObject> wolf = CoreRace("Wolf");
    // A ranger has his companion from 4th level, as a druid of half his level.
    Ref<DCharacter> ranger = Master("Ranger", 3);
    EXPECT_EQ(
        DCompanionRules::AddCharacterAnimal(ranger.get(), *wolf, DCompanionRules::kAnimalCompanion),
        nullptr);
    EXPECT_EQ(ranger->GetAnimal(DCompanionRules::kAnimalCompanion), nullptr);
    for (int level = 4; level <= 6; ++level) {
        ASSERT_TRUE(DHandBook::AddCharacterLevel(ranger.get(), ClassGuid("Ranger"), false));
        EXPECT_EQ(
            DCompanionRules::GetMasterClassLevel(ranger.get(), DCompanionRules::kAnimalCompanion),
            level / 2);
    }
    // A fighter has none; a paladin falling back below 5th lets his mount go.
    Ref<DCharacter> fighter = Master("Fighter", 5);
    EXPECT_FALSE(
        DCompanionRules::CanCharacterHaveAnimal(fighter.get(), DCompanionRules::kFamiliar));
    Ref<DCharacter> paladin = Master("Paladin", 5);
    Ref<DFileObject> horse = CoreRace("Warhorse, Heavy");
    ASSERT_NE(DCompanionRules::AddCharacterAnimal(paladin.get(), *horse, DCompanionRules::kMount),
              nullptr);
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(paladin.get(), false));
    EXPECT_EQ(paladin->GetAnimal(DCompanionRules::kMount), nullptr);
    // An ex-druid loses hers with the next pass.
    Ref<DCharacter> druid = Master("Druid", 1);
    ASSERT_NE(
        DCompanionRules::AddCharacterAnimal(druid.get(), *wolf, DCompanionRules::kAnimalCompanion),
        nullptr);
    druid->GetClassPointer(ClassGuid("Druid"))->SetIsExClass(true);
    DCompanionRules::UpdateAnimals(druid.get());
    EXPECT_EQ(druid->GetAnimal(DCompanionRules::kAnimalCompanion), nullptr);

    // A familiar's hit points follow its master's at once: 45 gives 22, 1 gives 0. Sorcerer and
    // wizard levels add up: sorcerer 1 / wizard 2 is master level 3 (natural armor +2).
    Ref<DFileObject> human = CoreRace("Human");
    Ref<DCharacter> mage = LevelledCharacter(human.get(), {"Sorcerer", "Wizard", "Wizard"});
    Ref<DFileObject> cat = CoreRace("Cat");
    ASSERT_NE(DCompanionRules::AddCharacterAnimal(mage.get(), *cat, DCompanionRules::kFamiliar),
              nullptr);
    DCharacter* familiar = DCompanionRules::GetAnimal(mage->GetAnimal(DCompanionRules::kFamiliar));
    ASSERT_NE(familiar, nullptr);
    EXPECT_EQ(familiar->GetCharacterStat(kStatNaturalArmor), 2);
    DHandBook::SetCharacterHitPoints(mage.get(), 45, false);
    EXPECT_EQ(familiar->GetCharacterStat(kStatHitPoints), 22);
    DHandBook::SetCharacterHitPoints(mage.get(), 1, false);
    EXPECT_EQ(familiar->GetCharacterStat(kStatHitPoints), 0);
}

// The open rules' familiar table: a toad gives its master +3 hit points, a rat +2 on Fortitude
// saves, a cat +3 on Move Silently. Each familiar that replaces another takes the other's gift
// back first; letting the last go leaves the master as he was.
TEST_F(CompanionsTest, AFamiliarsGiftComesAndGoesWithIt) {
    const QUuid moveSilently = SkillGuid("Move Silently");
    ASSERT_FALSE(moveSilently.isNull());
    Ref<DCharacter> master = Master("Sorcerer", 2);
    const int hitPoints = master->GetCharacterStat(kStatHitPoints);
    const int fortitude = master->GetCharacterStat(kStatFortitude);
    auto familiarMod = [&] {
        const DChosenSkill* skill = master->GetSkillPointer(moveSilently, QUuid());
        return skill ? skill->GetFamiliarMod() : 0;
    };
    const struct {
        const char* race; // null: the familiar let go
        int hitPoints, fortitude, moveSilently;
    } steps[] = {{"Toad", hitPoints + 3, fortitude, 0},
                 {"Rat", hitPoints, fortitude + 2, 0},
                 {"Cat", hitPoints, fortitude, 3},
                 {nullptr, hitPoints, fortitude, 0}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.race ? step.race : "none");
        if (step.race) {
            Ref<DFileObject> race = CoreRace(step.race);
            ASSERT_NE(DCompanionRules::AddCharacterAnimal(master.get(), *race,
                                                          DCompanionRules::kFamiliar),
                      nullptr);
            DCharacter* familiar =
                DCompanionRules::GetAnimal(master->GetAnimal(DCompanionRules::kFamiliar));
            ASSERT_NE(familiar, nullptr);
            EXPECT_EQ(familiar->GetCharacterStat(kStatHitPoints), step.hitPoints / 2);
        } else {
            DCompanionRules::RemoveCharacterAnimal(master.get(), DCompanionRules::kFamiliar);
            EXPECT_EQ(master->GetAnimal(DCompanionRules::kFamiliar), nullptr);
        }
        EXPECT_EQ(master->GetCharacterStat(kStatHitPoints), step.hitPoints);
        EXPECT_EQ(master->GetCharacterStat(kStatFortitude), step.fortitude);
        EXPECT_EQ(familiarMod(), step.moveSilently);
    }
}

} // namespace
