// Which of a character's classes the fall and atone commands offer: the paladin, druid and
// barbarian, each once it stands (fall) or once it has fallen (atone).
#include "RulesTestSupport.h"

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

} // namespace
