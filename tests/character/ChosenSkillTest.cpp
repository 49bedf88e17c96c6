// Ranks per class, totals and level-up of a chosen skill.

#include "CharacterTestSupport.h"

#include "DChosenSkill.h"
#include "FCPointerSet.h"

#include <gtest/gtest.h>

#include <iterator>
#include <vector>

using namespace chartest;

namespace {

const QUuid kFighter = guid(0x10);
const QUuid kRogue = guid(0x20);
const QUuid kWizard = guid(0x30);

TEST(DChosenSkillTest, SetRanksKeepsOneRecordPerClass) {
    DChosenSkill skill;
    skill.SetRanks(kRogue, 1, 2.0f);
    skill.SetRanks(kFighter, 2, 0.5f);
    skill.SetRanks(kRogue, 2, 3.5f);

    ASSERT_EQ(skill.GetRankInfoArray().GetCount(), 2);
    const DSkillRankInfo* rogue = skill.GetSkillRankInfo(kRogue);
    ASSERT_NE(rogue, nullptr);
    EXPECT_EQ(rogue, &skill.GetRankInfoArray().At(0));
    EXPECT_EQ(rogue->mRanks, 3.5f);
    EXPECT_EQ(rogue->mUsability, 2);
    EXPECT_EQ(skill.GetRanks(kFighter), 0.5f);
}

struct Rank {
    QUuid classGuid;
    DSkillUsabilityType usability;
    float ranks;
    float locked;
};

DChosenSkill makeSkill(const std::vector<Rank>& ranks, int modPerSource = 0) {
    DChosenSkill skill;
    for (const Rank& rank : ranks) {
        skill.SetRanks(rank.classGuid, rank.usability, rank.ranks);
        skill.GetSkillRankInfo(rank.classGuid)->mLockedRanks = rank.locked;
    }
    skill.SetAbilityMod(modPerSource);
    skill.SetRaceMod(modPerSource);
    skill.SetFeatMod(modPerSource);
    skill.SetFamiliarMod(modPerSource);
    skill.SetMagicMod(modPerSource);
    skill.SetSkillMod(modPerSource);
    skill.SetMiscMod(modPerSource);
    skill.SetUserMod(modPerSource);
    return skill;
}

TEST(DChosenSkillTest, Totals) {
    struct Case {
        const char* name;
        std::vector<Rank> ranks;
        int modPerSource;
        float totalRanks;
        int totalMods;
        float totalBonus;
        int pointValue;
    };
    const Case cases[] = {
        {"empty", {}, 0, 0.0f, 0, 0.0f, 0},
        {"class skill", {{kRogue, 1, 4.0f, 0.0f}}, 0, 4.0f, 0, 4.0f, 4},
        // 2.5 ranks cost 2 (cut), 1.5 cross-class ranks cost 3; locked ranks cost nothing.
        {"mixed", {{kRogue, 1, 2.5f, 3.0f}, {kFighter, 2, 1.5f, 1.0f}}, 1, 8.0f, 8, 16.0f, 5},
        // Each record is cut on its own: 0.5 + 0.5 class ranks cost 0, not 1.
        {"halves", {{kRogue, 1, 0.5f, 0.0f}, {kFighter, 1, 0.5f, 0.0f}}, 0, 1.0f, 0, 1.0f, 0},
        // Usability 0 is not a class skill either, so it pays double.
        {"not allowed", {{kWizard, 0, 1.5f, 0.0f}}, -1, 1.5f, -8, -6.5f, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const DChosenSkill skill = makeSkill(c.ranks, c.modPerSource);
        EXPECT_EQ(skill.GetTotalRanks(), c.totalRanks);
        EXPECT_EQ(skill.GetTotalMods(), c.totalMods);
        EXPECT_EQ(skill.GetTotalBonus(), c.totalBonus);
        EXPECT_EQ(skill.GetTotalSkillPointValue(), c.pointValue);
        EXPECT_EQ(skill.IsEmptySkill(), c.totalRanks == 0.0f);
    }
}

TEST(DChosenSkillTest, LevelUpLocksTheRanksBought) {
    DChosenSkill skill = makeSkill({{kRogue, 1, 2.0f, 3.0f}, {kFighter, 2, 1.5f, 0.0f}});
    ASSERT_EQ(skill.GetTotalSkillPointValue(), 5);

    skill.HandleLevelUp();
    EXPECT_TRUE(skill.HasSkillFlag(DChosenSkill::kSkillFixed));
    EXPECT_EQ(skill.GetRanks(kRogue), 0.0f);
    EXPECT_EQ(skill.GetLockedRanks(kRogue), 5.0f);
    EXPECT_EQ(skill.GetRanks(kFighter), 0.0f);
    EXPECT_EQ(skill.GetLockedRanks(kFighter), 1.5f);
    EXPECT_EQ(skill.GetTotalRanks(), 6.5f);
    EXPECT_EQ(skill.GetTotalSkillPointValue(), 0);

    // Ranks of the new level are priced on their own.
    skill.SetRanks(kRogue, 1, 1.0f);
    EXPECT_EQ(skill.GetTotalSkillPointValue(), 1);
    EXPECT_EQ(skill.GetLockedRanks(kRogue), 5.0f);
}

TEST(DChosenSkillTest, SetSortsBySkillThenSubSkillAndFindsByKey) {
    FCPointerSet<DChosenSkill> set;
    set.SetOwnership(kFCRetained);
    const std::pair<quint8, quint8> keys[] = {{0x40, 0x90}, {0x30, 0x00}, {0x40, 0x10}};
    for (const auto& [skillSeed, subSeed] : keys) {
        auto* skill = new DChosenSkill(guid(skillSeed), subSeed ? guid(subSeed) : QUuid());
        EXPECT_TRUE(set.Add(skill));
        skill->Release();
    }
    std::vector<std::pair<QUuid, QUuid>> order;
    for (const auto& entry : set)
        order.emplace_back(entry->GetSkillId(), entry->GetSubSkillId());
    const std::vector<std::pair<QUuid, QUuid>> expected = {
        {guid(0x30), QUuid()}, {guid(0x40), guid(0x10)}, {guid(0x40), guid(0x90)}};
    EXPECT_EQ(order, expected);

    DChosenSkill* found = set.Find(DChosenSkill(guid(0x40), guid(0x10)));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetSubSkillId(), guid(0x10));
    EXPECT_EQ(set.Find(DChosenSkill(guid(0x40), QUuid())), nullptr);
}

} // namespace
