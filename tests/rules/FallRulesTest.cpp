// Which of a character's classes the fall and atone commands offer: the paladin, druid and
// barbarian, each once it stands (fall) or once it has fallen (atone).
#include "RulesTestSupport.h"

#include "DClassEntryRules.h"
#include "DFallRules.h"

namespace {

using rulestest::Ref;

class FallRulesTest : public rulestest::RulesFixture {
protected:
    static QStringList Names(const QList<QUuid>& classes) {
        QStringList names;
        for (const QUuid& guid : classes) {
            const DClassInfo* info = DDatabase::GetClassInfoA(guid);
            names << (info ? QString(info->mName) : QStringLiteral("?"));
        }
        return names;
    }
};

TEST_F(FallRulesTest, TheClassesOfACodeOrAnAlignmentFallAndAtone) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> character =
        NewCharacter(race.get(), {"Paladin", "Fighter", "Barbarian", "Wizard", "Druid"});
    const struct {
        const char* fallen; // the class that has fallen, or none
        QStringList mayFall;
        QStringList mayAtone;
    } steps[] = {
        {nullptr, {"Paladin", "Barbarian", "Druid"}, {}},
        {"Barbarian", {"Paladin", "Druid"}, {"Barbarian"}},
        {"Paladin", {"Druid"}, {"Paladin", "Barbarian"}},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.fallen ? step.fallen : "none");
        if (step.fallen) {
            ASSERT_TRUE(
                DHandBook::SetClassFallen(character.get(), ClassGuid(step.fallen), true, false));
        }
        EXPECT_EQ(Names(DFallRules::ClassesToChange(*character, true)), step.mayFall);
        EXPECT_EQ(Names(DFallRules::ClassesToChange(*character, false)), step.mayAtone);
    }
    ASSERT_TRUE(DHandBook::SetClassFallen(character.get(), ClassGuid("Paladin"), false, false));
    EXPECT_EQ(Names(DFallRules::ClassesToChange(*character, false)), QStringList{"Barbarian"});

    Ref<DCharacter> fighter = NewCharacter(race.get(), {"Fighter", "Monk"});
    EXPECT_TRUE(DFallRules::ClassesToChange(*fighter, true).isEmpty());
    EXPECT_TRUE(DFallRules::ClassesToChange(*fighter, false).isEmpty());
}

TEST_F(FallRulesTest, AFallenClassTakesNoLevelAndAPrestigeClassAsksItsRequirements) {
    Ref<DFileObject> race = SaveRace("Human", "Humanoid", 1.0f);
    Ref<DCharacter> paladin = NewCharacter(race.get(), {"Paladin", "Paladin"});
    EXPECT_TRUE(DClassEntryRules::Refusal(*paladin, ClassGuid("Paladin")).isEmpty());
    ASSERT_TRUE(DHandBook::SetClassFallen(paladin.get(), ClassGuid("Paladin"), true, false));
    EXPECT_EQ(DClassEntryRules::Refusal(*paladin, ClassGuid("Paladin")),
              QStringLiteral("Paladin has fallen: it takes no new level until it atones"));
    // A base class is always open; a fighter 1 is far from an eldritch knight (arcane spells
    // of 3rd level).
    EXPECT_TRUE(DClassEntryRules::Refusal(*paladin, ClassGuid("Fighter")).isEmpty());
    EXPECT_TRUE(DClassEntryRules::Refusal(*paladin, ClassGuid("Eldritch Knight"))
                    .startsWith(QStringLiteral("Eldritch Knight cannot be taken; requirements "
                                               "not met: ")));

    // The choice offered: base and prestige classes by name, no creature type.
    const QStringList offered = Names(DClassEntryRules::ClassesToOffer());
    EXPECT_TRUE(offered.contains("Fighter"));
    EXPECT_TRUE(offered.contains("Eldritch Knight"));
    EXPECT_FALSE(offered.contains("Magical Beast"));
    EXPECT_LT(offered.indexOf("Barbarian"), offered.indexOf("Wizard"));
}

} // namespace
