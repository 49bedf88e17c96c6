// A skill's total: ranks plus ability, size, armor check penalty, tools and synergy. Expected
// totals are worked by hand from the SRD tables (Hide +4 for a Small creature, +2 synergy for
// 5 ranks, a climber's kit +2, thieves' tools missing -2).
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DChosenItem.h"
#include "DChosenSkill.h"
#include "DItemInfo.h"
#include "DSkillInfo.h"

namespace {

using rulestest::Ref;

class SkillModifierTest : public rulestest::RulesFixture {
protected:
    // A Small rogue: Str 12, Dex 14, Cha 10, the rest 10.
    Ref<DCharacter> SmallRogue() {
        DRace race;
        race.SetClassGuid(ClassGuid("Humanoid"));
        race.SetSizeId(3);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, 10);
        race.SetAbility(kAbilityStrength, 12);
        race.SetAbility(kAbilityDexterity, 14);
        mRace = SaveRace(race, "small");
        Ref<DCharacter> character = NewCharacter(mRace.get(), {"Rogue"});
        character->SetActiveClassId(ClassGuid("Rogue"));
        return character;
    }

    static float Total(const DCharacter& character, const QString& skill) {
        const DChosenSkill* record = character.GetSkillPointer(SkillGuid(skill), QUuid());
        return record ? record->GetTotalBonus() : -99.0f;
    }

    static void Buy(DCharacter& character, const QString& skill, float ranks) {
        DHandBook::AddSkill(&character, SkillGuid(skill), QUuid(), 1, ranks, true);
    }

    static void Carry(DCharacter& character, const QString& goodsName) {
        for (const auto& [guid, info] : DDatabase::GetGoodsInfoMap()) {
            auto* goods = static_cast<DItemInfo*>(info);
            if (goods->GetItemName() != goodsName)
                continue;
            auto* item = new DChosenItem(-1, goods);
            item->AddItemFlag(DItem::kItemFlagCarried);
            character.AddChosenItem(item);
            item->Release();
            return;
        }
        ADD_FAILURE() << "no goods " << goodsName.toStdString();
    }

private:
    Ref<DFileObject> mRace;
};

TEST_F(SkillModifierTest, HandWorkedTotals) {
    Ref<DCharacter> character = SmallRogue();
    DCharacter* rogue = character.get();
    Buy(*rogue, "Hide", 4);
    Buy(*rogue, "Climb", 2);
    Buy(*rogue, "Open Lock", 1);

    // Hide: 4 ranks + Dex 2 + Small 4.
    EXPECT_FLOAT_EQ(Total(*rogue, "Hide"), 10.0f);
    // Climb: 2 ranks + Str 1. Open Lock without thieves' tools: 1 + Dex 2 - 2.
    EXPECT_FLOAT_EQ(Total(*rogue, "Climb"), 3.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Open Lock"), 1.0f);

    // Armor with a check penalty of 3 (written as the equipment pass would), a climber's kit
    // and plain thieves' tools carried: Hide 10 - 3, Climb 3 - 3 + 2, Open Lock 1 + 2 with
    // the missing-tools penalty gone.
    rogue->SetCharacterStat(kStatArmorCheckPenalty, -3);
    Carry(*rogue, "Climber's kit");
    Carry(*rogue, "Thieves' tools");
    DHandBook::ComputeAndSetSkillMiscMods(rogue);
    EXPECT_FLOAT_EQ(Total(*rogue, "Hide"), 7.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Climb"), 2.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Open Lock"), 3.0f);
    // Appraise has no penalty and no tool carried for it.
    EXPECT_FLOAT_EQ(Total(*rogue, "Appraise"), 0.0f);

    // A higher Dexterity reaches every Dexterity skill.
    rogue->SetAbilityStatBase(kAbilityDexterity, rogue->GetAbilityStatBase(kAbilityDexterity) + 2);
    DHandBook::UpdateSkillAbilityMods(rogue, kAbilityDexterity);
    EXPECT_FLOAT_EQ(Total(*rogue, "Hide"), 8.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Climb"), 2.0f);
}

TEST_F(SkillModifierTest, SynergyComesAtFiveRanksAndGoesBelowThem) {
    Ref<DCharacter> character = SmallRogue();
    DCharacter* rogue = character.get();
    Buy(*rogue, "Bluff", 4);
    EXPECT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 0.0f) << "4 ranks give nothing";
    Buy(*rogue, "Bluff", 1);
    // Bluff 5 gives +2 on Diplomacy and Intimidate.
    EXPECT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 2.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Intimidate"), 2.0f);
    // Bought again, it is set, not added.
    DHandBook::ComputeAndSetSkillSkillMods(rogue, false, QUuid(), QUuid(), 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 2.0f);

    DHandBook::RemoveSkill(rogue, SkillGuid("Bluff"), QUuid(), 1, 1.0f, true);
    EXPECT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 0.0f);
    // A full pass does not bring it back below five ranks.
    DHandBook::ComputeAndSetSkillSkillMods(rogue, false, QUuid(), QUuid(), 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(Total(*rogue, "Intimidate"), 0.0f);

    // Taken down to nothing in one step from five, the synergy goes too.
    Buy(*rogue, "Bluff", 1);
    ASSERT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 2.0f);
    DHandBook::RemoveSkill(rogue, SkillGuid("Bluff"), QUuid(), 1, 5.0f, true);
    EXPECT_FLOAT_EQ(Total(*rogue, "Diplomacy"), 0.0f);
}

} // namespace
