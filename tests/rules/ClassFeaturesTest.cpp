// Class features by level, worked from the class tables of the open rules: what a level brings,
// what a level-down takes back, falls and atonement, and the entry requirements of a prestige
// class.
#include "RulesTestSupport.h"

#include "DAdjChosenSpeed.h"
#include "DCharHistory.h"
#include "DChosenFeature.h"
#include "DRuleGuids.h"
#include "DWeaponDamageValues.h"

namespace {

using rulestest::Ref;

class ClassFeaturesTest : public rulestest::RulesFixture {
protected:
    void SetUp() override {
        RulesFixture::SetUp();
        // The ready human: Medium, so size changes no number.
        const QString path = hoardtest::builtDataDir() + "/Core/Races/Human.rac";
        Ref<DRace> human(DRace::CreateFromFile(FCString(path), false));
        ASSERT_NE(human, nullptr);
        mHuman = SaveRace(*human, "Human");
    }

    // Every score 10 but Charisma.
    Ref<DCharacter> Levels(const QString& className, int levels, int charisma = 10) {
        Ref<DCharacter> character = LevelledCharacter(mHuman.get(), QStringList(levels, className));
        for (int ability = 0; ability < DCharacter::kAbilityCount; ++ability) {
            character->SetAbilityStatBase(ability, ability == kAbilityCharisma ? charisma : 10);
            character->SetAbilityStatBonus(ability, 0);
        }
        DHandBook::ComputeAndSetAllSavingThrows(character.get());
        DHandBook::ComputeAndSetArmorClass(character.get());
        return character;
    }

    static QStringList AutoFeatures(DCharacter& character) {
        QStringList names;
        for (const DChosenFeature* feature : character.GetFeatureArray(0))
            names << DHandBook::BuildFeatureName(feature);
        return names;
    }

    static void ExpectFeatures(DCharacter& character, const QStringList& present,
                               const QStringList& absent) {
        const QStringList held = AutoFeatures(character);
        for (const QString& name : present)
            EXPECT_TRUE(held.contains(name))
                << "missing " << name.toStdString() << " in " << held.join(", ").toStdString();
        for (const QString& name : absent)
            EXPECT_FALSE(held.contains(name)) << "unexpected " << name.toStdString();
    }

    // Every history entry of the class marked fallen (or not), then the pass that follows.
    static void SetFallen(DCharacter& character, const QUuid& classGuid, bool fallen) {
        for (DCharHistory* entry : character.GetHistoryArray()) {
            if (entry->GetClassGuid() == classGuid)
                entry->SetIsExClass(fallen);
        }
        DHandBook::CharacterSetup(&character, false);
    }

    Ref<DFileObject> mHuman;
};

TEST_F(ClassFeaturesTest, FeaturesArriveByLevelAndImprovedOnesReplaceTheirPredecessor) {
    struct Case {
        const char* className;
        int level;
        QStringList present;
        QStringList absent;
    };
    const Case cases[] = {
        {"Rogue", 1, {"Sneak attack +1d6 (Rogue)", "Trapfinding (Rogue)"}, {"Evasion (Rogue)"}},
        {"Barbarian",
         4,
         {"Fast movement (Barbarian)", "Rage 2/day (Barbarian)", "Uncanny dodge (Barbarian)",
          "Trap sense +1 (Barbarian)"},
         {"Rage 1/day (Barbarian)", "Improved uncanny dodge (Barbarian)"}},
        {"Monk",
         5,
         {"Flurry of blows (Monk)", "Evasion (Monk)", "Still mind (Monk)", "Purity of body (Monk)",
          "Slow fall 20 ft (Monk)", "AC bonus +1 (Monk)", "Fast movement +10 ft (Monk)"},
         {"Wholeness of body (Monk)"}},
        {"Paladin",
         5,
         {"Smite evil 2/day (Paladin)", "Divine grace (Paladin)", "Special mount (Paladin)",
          "Turn undead (Paladin)"},
         {"Smite evil 1/day (Paladin)", "Remove Disease 1/week (Paladin)"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 %2").arg(c.className).arg(c.level).toStdString());
        Ref<DCharacter> character = Levels(c.className, c.level);
        ExpectFeatures(*character, c.present, c.absent);
    }
}

TEST_F(ClassFeaturesTest, AutomaticFeaturesChangeTheirStatistics) {
    // Monk bonus feats at 1, 2 and 6 (feature feat points, statistic 43); a loremaster's
    // bonus languages at 4 and 8 and the druid's Druidic (language points, statistic 35).
    struct Case {
        const char* className;
        int level;
        DCharStatType stat;
        int value;
    };
    const Case cases[] = {
        {"Monk", 1, kStatFeatureFeatPoints, 1},
        {"Monk", 2, kStatFeatureFeatPoints, 2},
        {"Monk", 5, kStatFeatureFeatPoints, 2},
        {"Monk", 6, kStatFeatureFeatPoints, 3},
        {"Loremaster", 3, kStatFeatureLanguagePoints, 0},
        {"Loremaster", 4, kStatFeatureLanguagePoints, 1},
        {"Loremaster", 8, kStatFeatureLanguagePoints, 2},
        {"Druid", 1, kStatFeatureLanguagePoints, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 %2").arg(c.className).arg(c.level).toStdString());
        Ref<DCharacter> character = Levels(c.className, c.level);
        EXPECT_EQ(character->GetCharacterStat(c.stat), c.value);
    }
    // A feature of type 1 grants its feat, which a level-down takes back.
    Ref<DCharacter> ranger = Levels("Ranger", 3);
    EXPECT_TRUE(ranger->HasFeat(FeatGuid("Track"), QUuid(), QUuid()));
    EXPECT_TRUE(ranger->HasFeat(FeatGuid("Endurance"), QUuid(), QUuid()));
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(ranger.get(), false));
    EXPECT_FALSE(ranger->HasFeat(FeatGuid("Endurance"), QUuid(), QUuid()));
    EXPECT_TRUE(ranger->HasFeat(FeatGuid("Track"), QUuid(), QUuid()));
}

TEST_F(ClassFeaturesTest, PicksOfferedByClassLevel) {
    struct Case {
        const char* className;
        int level;
        int picks;
    };
    const Case cases[] = {
        {"Rogue", 9, 0},  {"Rogue", 10, 1}, {"Rogue", 13, 2},  {"Rogue", 16, 3},
        {"Ranger", 1, 1}, {"Ranger", 5, 2}, {"Fighter", 4, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 %2").arg(c.className).arg(c.level).toStdString());
        Ref<DCharacter> character = Levels(c.className, c.level);
        EXPECT_EQ(character->GetClassPointer(ClassGuid(c.className))->GetBonusFeatures(), c.picks);
    }
}

TEST_F(ClassFeaturesTest, MonkNumbersFollowTheLevelUpAndTheLevelDown) {
    // Wisdom 10: the monk's AC bonus is its level / 5 alone. Unarmed damage of a Medium monk:
    // 1d6 to level 3, 1d8 from 4 to 7. A land speed of 30 gains 10 feet from level 3 to 5.
    Ref<DCharacter> monk = Levels("Monk", 5);
    DAdjChosenSpeed land(DChosenSpeed(1, 30, 0));
    DAdjChosenSpeed fast(DChosenSpeed(1, 75, 0));
    DAdjChosenSpeed burrow(DChosenSpeed(2, 30, 0));
    struct Step {
        int level;
        int ac;
        int dieCount;
        int dieSides;
        int landSpeed;
        int fastSpeed; // 75 reads the row of 60 and adds (75 / 10 - 6) x 10
    };
    const Step steps[] = {
        {5, 11, 1, 8, 40, 80},
        {4, 10, 1, 8, 40, 80},
        {3, 10, 1, 6, 40, 80},
        {2, 10, 1, 6, 30, 70},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.level);
        ASSERT_EQ(monk->GetClassLevel(DRuleGuids::kMonkClass), step.level);
        EXPECT_EQ(monk->GetCharacterStat(kStatArmorClass), step.ac);
        DWeaponDamageValues damage;
        DHandBook::SetDamageValuesForUnarmedMonk(monk.get(), damage);
        EXPECT_EQ(damage.mDieCount[0], step.dieCount);
        EXPECT_EQ(damage.mDieId[0], step.dieSides);
        EXPECT_EQ(DHandBook::ComputeMonkUnarmoredSpeed(monk.get(), &land), step.landSpeed);
        EXPECT_EQ(DHandBook::ComputeMonkUnarmoredSpeed(monk.get(), &fast), step.fastSpeed);
        // A burrowing speed is not the monk's to raise.
        EXPECT_EQ(DHandBook::ComputeMonkUnarmoredSpeed(monk.get(), &burrow), 30);
        EXPECT_TRUE(DHandBook::RemoveCharacterLevel(monk.get(), false));
    }
    ExpectFeatures(*monk, {"Flurry of blows (Monk)", "Unarmed strike (Monk)"},
                   {"Evasion (Monk)", "Still mind (Monk)", "AC bonus +1 (Monk)",
                    "Fast movement +10 ft (Monk)", "Slow fall 20 ft (Monk)"});
}

TEST_F(ClassFeaturesTest, ALevelDownBringsBackTheFeatureAGroupReplaced) {
    Ref<DCharacter> rogue = Levels("Rogue", 5);
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(rogue.get(), false));
    ExpectFeatures(*rogue, {"Sneak attack +2d6 (Rogue)", "Uncanny dodge (Rogue)"},
                   {"Sneak attack +3d6 (Rogue)"});
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(rogue.get(), false));
    ExpectFeatures(*rogue, {"Sneak attack +2d6 (Rogue)", "Trap sense +1 (Rogue)"},
                   {"Uncanny dodge (Rogue)"});
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(rogue.get(), false));
    ExpectFeatures(*rogue, {"Sneak attack +1d6 (Rogue)", "Evasion (Rogue)"},
                   {"Sneak attack +2d6 (Rogue)", "Trap sense +1 (Rogue)"});
    // Taken up again, the levels bring the same list back.
    EXPECT_TRUE(DHandBook::AddCharacterLevel(rogue.get(), ClassGuid("Rogue"), false));
    EXPECT_TRUE(DHandBook::AddCharacterLevel(rogue.get(), ClassGuid("Rogue"), false));
    EXPECT_EQ(AutoFeatures(*rogue), AutoFeatures(*Levels("Rogue", 4)));
}

TEST_F(ClassFeaturesTest, AFallenPaladinLosesItsFeaturesAndAtonementBringsThemBack) {
    // Paladin 4, Charisma 14: saves 4 / 1 / 1 from the class, + 2 each by divine grace.
    Ref<DCharacter> paladin = Levels("Paladin", 4, 14);
    EXPECT_EQ(paladin->GetCharacterStat(kStatWill), 3);
    const QUuid guid = ClassGuid("Paladin");
    const int held = int(AutoFeatures(*paladin).size());
    EXPECT_EQ(held, 8); // aura of good, detect evil, smite, grace, lay on hands, courage,
                        // health, turn undead
    struct Step {
        const char* what;
        bool fallen;
        int fortitude, reflex, will, features;
    };
    const Step steps[] = {
        {"fallen", true, 4, 1, 1, 0},
        {"fallen, set up again", true, 4, 1, 1, 0},
        {"atoned", false, 6, 3, 3, 8},
        {"atoned, set up again", false, 6, 3, 3, 8},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        SetFallen(*paladin, guid, step.fallen);
        EXPECT_EQ(paladin->GetCharacterStat(kStatFortitude), step.fortitude);
        EXPECT_EQ(paladin->GetCharacterStat(kStatReflex), step.reflex);
        EXPECT_EQ(paladin->GetCharacterStat(kStatWill), step.will);
        EXPECT_EQ(AutoFeatures(*paladin).size(), step.features);
    }
}

TEST_F(ClassFeaturesTest, APaladinFallenAtItsLastLevelStaysWithoutFeaturesPassAfterPass) {
    Ref<DCharacter> paladin = Levels("Paladin", 3);
    paladin->GetLastHistory()->SetIsExClass(true);
    for (int pass = 1; pass <= 3; ++pass) {
        SCOPED_TRACE(pass);
        DHandBook::CharacterSetup(paladin.get(), false);
        EXPECT_TRUE(paladin->GetClassPointer(ClassGuid("Paladin"))->GetIsExClass());
        EXPECT_TRUE(AutoFeatures(*paladin).isEmpty())
            << AutoFeatures(*paladin).join(", ").toStdString();
    }
}

TEST_F(ClassFeaturesTest, AFallenBarbarianKeepsAllButItsRage) {
    Ref<DCharacter> barbarian = Levels("Barbarian", 3);
    SetFallen(*barbarian, ClassGuid("Barbarian"), true);
    ExpectFeatures(*barbarian,
                   {"Fast movement (Barbarian)", "Uncanny dodge (Barbarian)",
                    "Trap sense +1 (Barbarian)", "Illiteracy (Barbarian)"},
                   {"Rage 1/day (Barbarian)"});
    // A level taken while fallen brings no rage either.
    barbarian->AddHistory(ClassGuid("Barbarian"), 1.0f)->SetIsExClass(true);
    DHandBook::CharacterSetup(barbarian.get(), false);
    EXPECT_EQ(barbarian->GetClassLevel(DRuleGuids::kFastMovementClass), 4);
    ExpectFeatures(*barbarian, {"Trap sense +1 (Barbarian)"},
                   {"Rage 1/day (Barbarian)", "Rage 2/day (Barbarian)"});
}

TEST_F(ClassFeaturesTest, ABlackguardWhoWasAPaladinGainsTheFallenFeaturesOnce) {
    // A fallen paladin 5 takes blackguard: the fallen features of paladin levels 1, 3 and 5
    // come with the first blackguard level only, beside the blackguard's own.
    Ref<DCharacter> character = Levels("Paladin", 5);
    SetFallen(*character, ClassGuid("Paladin"), true);
    const QStringList fallen = {"Smite good 1/day (Fallen paladin)",
                                "Lay on hands (Fallen paladin)",
                                "Sneak attack +1d6 (Fallen paladin)"};
    for (int level = 1; level <= 2; ++level) {
        SCOPED_TRACE(level);
        ASSERT_TRUE(DHandBook::AddCharacterLevel(character.get(), ClassGuid("Blackguard"), false));
        ExpectFeatures(*character, fallen + QStringList{"Aura of evil (Blackguard)"},
                       {"Fiendish servant (Fallen paladin)", "Smite evil 2/day (Paladin)"});
        EXPECT_EQ(AutoFeatures(*character).count("Lay on hands (Fallen paladin)"), 1);
    }
    // Both blackguard levels given back: nothing of it stays.
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(character.get(), false));
    ASSERT_TRUE(DHandBook::RemoveCharacterLevel(character.get(), false));
    EXPECT_TRUE(AutoFeatures(*character).isEmpty())
        << AutoFeatures(*character).join(", ").toStdString();
}

TEST_F(ClassFeaturesTest, ChosenFeaturesChangeTheirStatistics) {
    // Loremaster secrets of types 9 to 12 and 14: hit points +3, Will +2, Fortitude +2,
    // Reflex +2, AC +1, and the choice counts against the class's picks.
    struct Case {
        const char* secret;
        DCharStatType stat;
        int change;
    };
    const Case cases[] = {
        {"Secret health (Loremaster secret)", kStatHitPoints, 3},
        {"Secrets of inner strength (Loremaster secret)", kStatWill, 2},
        {"The lore of true stamina (Loremaster secret)", kStatFortitude, 2},
        {"Secret knowledge of avoidance (Loremaster secret)", kStatReflex, 2},
        {"Dodge trick (Loremaster secret)", kStatArmorClass, 1},
    };
    Ref<DCharacter> character = Levels("Fighter", 1);
    DCharacterClass* owner = character->GetClassPointer(ClassGuid("Fighter"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.secret);
        DFeatureOffer offer;
        std::vector<DFeatureOffer> offers;
        DCharacterClass loremaster;
        loremaster.SetClassGuid(DRuleGuids::kLoremasterClass);
        loremaster.SetLevel(10.0f);
        DHandBook::GetFeatureOffers(character.get(), &loremaster, offers);
        for (const DFeatureOffer& each : offers) {
            if (each.name == c.secret)
                offer = each;
        }
        ASSERT_EQ(offer.name, c.secret);
        Ref<DChosenFeature> feature(new DChosenFeature());
        feature->SetFeatureGuid(offer.feature);
        feature->SetFeatureType(offer.type);
        feature->SetFeatureGroup(offer.group);
        feature->SetFeatureData(offer.data);
        const int before = character->GetCharacterStat(c.stat);
        DHandBook::AddChosenFeature(character.get(), owner, feature.get());
        EXPECT_EQ(character->GetCharacterStat(c.stat), before + c.change);
        EXPECT_EQ(owner->GetSpentBonusFeatures(), 1);
        DHandBook::RemoveChosenFeature(character.get(), owner, feature.get());
        EXPECT_EQ(character->GetCharacterStat(c.stat), before);
        EXPECT_EQ(owner->GetSpentBonusFeatures(), 0);
    }
}

TEST_F(ClassFeaturesTest, PrestigeRequirementsNameEveryFailure) {
    // A human fighter 6 has the base attack (+6) but not the race, feats or spells of an
    // Arcane Archer: the list it fails is worked through the command line in FeaturesCliTest.
    Ref<DCharacter> fighter = Levels("Fighter", 6);
    const QUuid archer = ClassGuid("Arcane Archer");
    EXPECT_FALSE(DHandBook::DoesCharacterMeetClassPrereqs(fighter.get(), archer));
    // A fighter 1 also lacks the base attack.
    Ref<DCharacter> novice = Levels("Fighter", 1);
    EXPECT_TRUE(DHandBook::GetFailingClassPrereqs(novice.get(), archer)
                    .contains(QStringLiteral("base attack +6")));
    // No rows at all: the class is open, and known to have none.
    EXPECT_TRUE(DHandBook::DoesCharacterMeetClassPrereqs(novice.get(), ClassGuid("Fighter")));
    EXPECT_FALSE(DHandBook::HasClassPrereqData(ClassGuid("Fighter")));
    EXPECT_TRUE(DHandBook::HasClassPrereqData(archer));
    EXPECT_TRUE(DHandBook::HasClassPrereqData(DRuleGuids::kLoremasterClass));
}

TEST_F(ClassFeaturesTest, SpellAndProficiencyRowsGiveTheSameAnswerBothWays) {
    // Fighter 1 / wizard 5: martial weapons from the fighter; with Int 10 the wizard casts no
    // 1st-level spell, with Int 14 one 3rd-level spell (table 1, bonus 0). A wizard 5 alone
    // has the spells but not the weapons.
    const QUuid knight = ClassGuid("Eldritch Knight");
    const QStringList classes = {"Fighter", "Wizard", "Wizard", "Wizard", "Wizard", "Wizard"};
    Ref<DCharacter> both = LevelledCharacter(mHuman.get(), classes);
    Ref<DCharacter> wizard = LevelledCharacter(mHuman.get(), classes.mid(1));
    struct Case {
        DCharacter* character;
        int intelligence;
        QStringList failing;
    };
    const Case cases[] = {
        {both.get(), 10, {"arcane spells of level 3"}},
        {both.get(), 14, {}},
        {wizard.get(), 14, {"proficiency with all martial weapons"}},
    };
    for (const Case& c : cases) {
        c.character->SetAbilityStatBase(kAbilityIntelligence, c.intelligence);
        c.character->SetAbilityStatBonus(kAbilityIntelligence, 0);
        DHandBook::ComputeAndSetSpellData(c.character);
        EXPECT_EQ(DHandBook::GetFailingClassPrereqs(c.character, knight), c.failing);
        EXPECT_EQ(DHandBook::DoesCharacterMeetClassPrereqs(c.character, knight),
                  c.failing.isEmpty());
    }
}

} // namespace
