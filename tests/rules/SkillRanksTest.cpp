// Buying ranks: class and cross-class prices, the rank limit of (level + 3) or half of it,
// class skills granted beyond the class table, and records that outlive their ranks.
#include "RulesTestSupport.h"

#include "DCharacterClass.h"
#include "DChosenSkill.h"
#include "DSkillInfo.h"

namespace {

using rulestest::Ref;

class SkillRanksTest : public rulestest::RulesFixture {
protected:
    Ref<DFileObject> PlainRace() {
        DRace race;
        race.SetClassGuid(ClassGuid("Humanoid"));
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, 10);
        return SaveRace(race, "plain");
    }

    static int Spent(const DCharacter& character, const QString& className) {
        return character.GetClassPointer(ClassGuid(className))->GetSpentSkillPoints();
    }
};

TEST_F(SkillRanksTest, UsabilityAndRankLimits) {
    struct Case {
        QStringList classes;
        const char* skill;
        const char* askingClass;
        int usability;
        float maxRank;
    };
    const Case cases[] = {
        {{"Rogue"}, "Tumble", "Rogue", 1, 4.0f},
        // Cross-class: half the limit.
        {{"Rogue"}, "Spellcraft", "Rogue", 2, 2.0f},
        {{"Rogue", "Rogue", "Rogue"}, "Spellcraft", "Rogue", 2, 3.0f},
        // A class skill of any class gives the full limit over all levels.
        {{"Fighter", "Wizard"}, "Spellcraft", "Fighter", 2, 5.0f},
        {{"Fighter", "Wizard"}, "Spellcraft", "Wizard", 1, 5.0f},
        {{"Fighter", "Wizard"}, "Tumble", "Wizard", 2, 2.5f},
        // The single-rank skill is only for the fast-moving class, and only while alone.
        // Its limit is one rank whoever asks; only the usability keeps others out.
        {{"Rogue"}, "Literacy", "Rogue", 0, 1.0f},
        {{"Barbarian"}, "Literacy", "Barbarian", 1, 1.0f},
        {{"Barbarian", "Rogue"}, "Literacy", "Barbarian", 0, 1.0f},
    };
    Ref<DFileObject> race = PlainRace();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.classes.join("/").toStdString() + " " + c.skill);
        Ref<DCharacter> character = LevelledCharacter(race.get(), c.classes);
        const QUuid skill = SkillGuid(c.skill);
        EXPECT_EQ(
            DHandBook::ComputeSkillUsablility(character.get(), ClassGuid(c.askingClass), skill),
            c.usability);
        EXPECT_FLOAT_EQ(DHandBook::ComputeMaxSkillRank(character.get(), skill), c.maxRank);
    }
}

TEST_F(SkillRanksTest, PricesClassSkillsAndRemoval) {
    Ref<DFileObject> race = PlainRace();
    Ref<DCharacter> character = NewCharacter(race.get(), {"Rogue"});
    DCharacter* rogue = character.get();
    rogue->SetActiveClassId(ClassGuid("Rogue"));
    const QUuid spellcraft = SkillGuid("Spellcraft"), tumble = SkillGuid("Tumble");

    // 4 class ranks cost 4; 1.5 cross-class ranks cost 3.
    DHandBook::AddSkill(rogue, tumble, QUuid(), 1, 4.0f, true);
    DHandBook::AddSkill(rogue, spellcraft, QUuid(), 2, 1.5f, true);
    EXPECT_EQ(Spent(*rogue, "Rogue"), 7);
    EXPECT_EQ(rogue->GetRemainingSkillPoints(), 32 - 7);

    // Made a class skill, the ranks double and the points stay spent.
    DCharacterClass* rogueClass = rogue->GetClassPointer(ClassGuid("Rogue"));
    DHandBook::AddClassSkill(rogue, rogueClass, spellcraft);
    const DChosenSkill* record = rogue->GetSkillPointer(spellcraft, QUuid());
    ASSERT_NE(record, nullptr);
    EXPECT_FLOAT_EQ(record->GetTotalRanks(), 3.0f);
    EXPECT_EQ(record->GetRankInfoArray().At(0).mUsability, 1);
    EXPECT_EQ(Spent(*rogue, "Rogue"), 7);
    EXPECT_EQ(rogueClass->GetSpentClassSkills(), 1);
    EXPECT_EQ(DHandBook::ComputeSkillUsablility(rogue, ClassGuid("Rogue"), spellcraft), 1);
    DHandBook::RemoveClassSkill(rogue, rogueClass, spellcraft);
    EXPECT_FLOAT_EQ(record->GetTotalRanks(), 1.5f);
    EXPECT_EQ(DHandBook::ComputeSkillUsablility(rogue, ClassGuid("Rogue"), spellcraft), 2);

    // A trained-only skill goes with its last rank; an untrained one stays as a record.
    const QUuid disable = SkillGuid("Disable Device"), climb = SkillGuid("Climb");
    DHandBook::AddSkill(rogue, disable, QUuid(), 1, 2.0f, true);
    DHandBook::AddSkill(rogue, climb, QUuid(), 1, 2.0f, true);
    EXPECT_EQ(Spent(*rogue, "Rogue"), 11);
    EXPECT_EQ(DHandBook::RemoveSkill(rogue, disable, QUuid(), 1, 2.0f, true), nullptr);
    EXPECT_FALSE(rogue->HasSkill(disable, QUuid()));
    const DChosenSkill* kept = DHandBook::RemoveSkill(rogue, climb, QUuid(), 1, 5.0f, true);
    ASSERT_NE(kept, nullptr) << "usable untrained: the record stays";
    EXPECT_FLOAT_EQ(kept->GetTotalRanks(), 0.0f);
    EXPECT_EQ(Spent(*rogue, "Rogue"), 7);

    DHandBook::RemoveAllSkills(rogue);
    EXPECT_EQ(Spent(*rogue, "Rogue"), 0);
    EXPECT_FALSE(rogue->HasSkill(spellcraft, QUuid()));
    EXPECT_TRUE(rogue->HasSkill(climb, QUuid()));
}

TEST_F(SkillRanksTest, LevelUpLocksRanksAndUntrainedSkillsAreThere) {
    Ref<DFileObject> race = PlainRace();
    Ref<DCharacter> character = NewCharacter(race.get(), {"Rogue"});
    DCharacter* rogue = character.get();
    // Every skill usable untrained has its record from the start, sub-skills included.
    EXPECT_TRUE(rogue->HasSkill(SkillGuid("Climb"), QUuid()));
    EXPECT_FALSE(rogue->HasSkill(SkillGuid("Tumble"), QUuid()));
    EXPECT_TRUE(rogue->HasAnySkill(SkillGuid("Craft")));

    rogue->SetActiveClassId(ClassGuid("Rogue"));
    DHandBook::AddSkill(rogue, SkillGuid("Tumble"), QUuid(), 1, 4.0f, true);
    ASSERT_TRUE(DHandBook::AddCharacterLevel(rogue, ClassGuid("Rogue"), false));
    const DChosenSkill* tumble = rogue->GetSkillPointer(SkillGuid("Tumble"), QUuid());
    EXPECT_FLOAT_EQ(tumble->GetLockedRanks(ClassGuid("Rogue")), 4.0f);
    EXPECT_EQ(tumble->GetTotalSkillPointValue(), 0) << "locked ranks are no longer for sale";
    // 32 + 8 earned, 4 spent.
    EXPECT_EQ(rogue->GetRemainingSkillPoints(), 36);
    EXPECT_EQ(DHandBook::GetCountOfAllKnowledgeSkillsWithRanks(rogue, 1), 0);
}

} // namespace
