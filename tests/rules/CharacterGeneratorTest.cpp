// Random characters must stand by the rules whatever the dice: the level and class asked for,
// an alignment the class allows, skill ranks within the limit of the level (level + 3 for a
// class skill) and no points overspent, feats whose prerequisites hold, proficient armor, and
// equipment paid from exactly the wealth of the level.
#include "RulesTestSupport.h"

#include "DCharStatType.h"
#include "DCharacterGenerator.h"
#include "DChosenFeat.h"
#include "DChosenItem.h"
#include "DChosenSkill.h"
#include "DCurrency.h"
#include "DSizeInfo.h"
#include "DWielding.h"
#include "FCRandom.h"

namespace {

using rulestest::Ref;

class CharacterGeneratorTest : public rulestest::RulesFixture {
protected:
    void SetUp() override {
        RulesFixture::SetUp();
        DOptions::mAppPath = FCString(hoardtest::builtDataDir());
        DObjectManager::StartUp();
    }
};

TEST_F(CharacterGeneratorTest, EveryDrawStandsByTheRules) {
    const QStringList classes = {"Fighter", "Wizard", "Rogue", "Cleric", "Paladin", "Monk"};
    for (int seed = 1; seed <= 12; ++seed) {
        FC::SeedRandom(quint64(seed));
        DCharacterGenerator::Request request;
        request.classGuid = ClassGuid(classes[seed % classes.size()]);
        request.level = 1 + (seed * 7) % 20;
        QString error;
        Ref<DCharacter> character(DCharacterGenerator::GenerateCharacter(request, error));
        ASSERT_TRUE(character) << error.toStdString();
        SCOPED_TRACE(QStringLiteral("seed %1, %2 %3")
                         .arg(seed)
                         .arg(classes[seed % classes.size()])
                         .arg(request.level)
                         .toStdString());
        EXPECT_EQ(int(character->GetCharacterLevel()), request.level);
        EXPECT_EQ(character->GetClassLevel(request.classGuid), request.level);
        EXPECT_TRUE(DCharacterGenerator::IsAlignmentAllowed(request.classGuid,
                                                            character->GetAlignmentId()));
        for (const DCharacterClass* own : character->GetClassList())
            EXPECT_GE(own->GetRemainingSkillPoints(), 0);
        for (const auto& skill : character->GetSkillSet())
            EXPECT_LE(skill->GetTotalRanks(), float(request.level + 3));
        EXPECT_LE(character->GetCharacterStat(kStatSpentFeatPoints),
                  character->GetCharacterStat(kStatFeatPoints));
        for (const auto& feat : character->GetFeatSet()) {
            DFeatPrereq failing;
            EXPECT_FALSE(DHandBook::FindFailingFeatPrereq(character.get(), true,
                                                          feat->GetFeatGuid(), failing))
                << DHandBook::BuildFeatPrereqString(failing).toStdString();
        }
        EXPECT_EQ(character->GetCharacterStat(kStatNonProficientPenalty), 0);
        // A weapon bought, magic or not, is in hand (the fists every character has are not
        // bought).
        for (const auto& [id, item] : character->GetItemMap()) {
            const DItemInfo* base = item->GetBaseItemInfo();
            if (base && base->GetItemType() == kItemWeapon &&
                QString(base->GetItemName()) != QLatin1String("Unarmed strike")) {
                EXPECT_TRUE(DWielding::IsWielded(*character, id)) << id;
            }
        }
        // What was bought and what is left make the wealth of the level.
        DCurrency total = character->GetCurrency();
        total += character->GetInventoryValue();
        EXPECT_EQ(total.GetCopperCost(), qint64(character->GetBaselineGold()) * 100);
        EXPECT_GE(character->GetCurrency().GetCopperCost(), 0);
    }
}

TEST_F(CharacterGeneratorTest, ASeedRepeatsAndMonstersKeepToTheirRange) {
    auto describe = [](int seed) {
        FC::SeedRandom(quint64(seed));
        QString error;
        Ref<DCharacter> character(
            DCharacterGenerator::GenerateCharacter(DCharacterGenerator::Request(), error));
        return QStringLiteral("%1 %2 %3 %4")
            .arg(QString(character->GetCharacterName()))
            .arg(double(character->GetCharacterLevel()))
            .arg(character->GetAbilityStat(kAbilityStrength))
            .arg(character->GetCharacterStat(kStatHitPoints));
    };
    EXPECT_EQ(describe(42), describe(42));

    Ref<DFileObject> ankheg(
        DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString("Ankheg.rac")));
    QString error;
    Ref<DCharacter> grown(DCharacterGenerator::GenerateMonster(ankheg.get(), 7, error));
    ASSERT_TRUE(grown) << error.toStdString();
    EXPECT_EQ(grown->GetSizeInfo()->GetSizeId(), 6);
    // Its 3 HD bought Climb 3 and Listen 3 with 6 points; the 4 added dice bring 1 each (2 +
    // Int 1's -5, at least 1), spent on the class skill of the best ability (Str 29): Climb 7.
    // The added feat points are spent too.
    EXPECT_EQ(grown->GetRemainingSkillPoints(), 0);
    const DChosenSkill* climb =
        grown->GetSkillPointer(hoardtest::skillGuid(QStringLiteral("Climb")), {});
    ASSERT_NE(climb, nullptr);
    EXPECT_EQ(climb->GetTotalRanks(), 7.0f);
    EXPECT_EQ(grown->GetCharacterStat(kStatSpentFeatPoints),
              grown->GetCharacterStat(kStatFeatPoints));
    EXPECT_EQ(DCharacterGenerator::GenerateMonster(ankheg.get(), 10, error), nullptr);
    EXPECT_TRUE(error.contains(QStringLiteral("3 to 9"))) << error.toStdString();
}

} // namespace
