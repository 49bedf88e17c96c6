// The ability score dialog driven as a user would: methods, rolls against the seeded dice, the
// reroll label, the assignment permutation, reroll and switch, point buy within its budget,
// increases, and what accept and reject leave on the character. Costs follow the 3.5
// point-buy table (15 for 8, 18 for 16, 21 for 25); increases come every fourth level.
#include "D_UICharRollDialog.h"

#include "BuiltRulesTest.h"
#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

namespace {

template <typename T> using Ref = FCRef<T>;

template <typename T> T* part(const QWidget& dialog, const QString& name) {
    T* widget = dialog.findChild<T*>(name);
    EXPECT_NE(widget, nullptr) << name.toStdString();
    return widget;
}

std::vector<int> drawDice(int count) {
    std::vector<int> dice;
    for (int i = 0; i < count; ++i)
        dice.push_back(DDieRoller::RollDie(6));
    return dice;
}

int sumLessLowest(const std::vector<int>& dice) {
    return std::accumulate(dice.begin(), dice.end(), 0) -
           *std::min_element(dice.begin(), dice.end());
}

std::vector<int> diceOf(const D_UICharRollDialog& dialog, int row) {
    const FCArray<int>& dice = dialog.GetDice(row);
    return std::vector<int>(dice.begin(), dice.end());
}

class CharRollDialogTest : public hoardtest::BuiltRulesTest {
protected:
    static Ref<DCharacter> Character(const QString& race, const QString& className, int levels) {
        Ref<DFileObject> entry(
            DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString(race + ".rac")));
        Ref<DCharacter> character(new DCharacter());
        DHandBook::SetupCharacterWithRace(character.get(), entry.get());
        EXPECT_NE(character->GetRace(), nullptr) << race.toStdString();
        const QUuid guid = hoardtest::classGuid(className);
        for (int level = 0; level < levels; ++level)
            character->AddHistory(guid, 1.0f);
        DHandBook::CharacterSetup(character.get(), true);
        return character;
    }

    static void ChooseMethod(D_UICharRollDialog& dialog, int method) {
        auto* combo = part<QComboBox>(dialog, "mRollMethodCombo");
        combo->setCurrentIndex(combo->findData(method));
        ASSERT_EQ(dialog.GetMethod(), method);
    }

    static QList<int> Permutation(const D_UICharRollDialog& dialog) {
        QList<int> abilities;
        for (int row = 0; row < 6; ++row)
            abilities << part<QComboBox>(dialog, QStringLiteral("mAssign%1").arg(row))
                             ->currentData()
                             .toInt();
        return abilities;
    }

private:
};

} // namespace

TEST(CharRollDialogRules, RollLabelAndPointBuyMaximum) {
    const struct {
        int method;
        QList<int> scores;
        const char* label;
    } labels[] = {
        {0, {18, 18, 18, 18, 18, 18}, "Reroll"},
        {5, {3, 3, 3, 3, 3, 3}, "Reroll"},
        // 3d6: highest 12 and modifiers +1 -1 -1 -1 = -2 stand; 11 at best or -3 may go again.
        {2, {12, 9, 9, 8, 10, 10}, "Roll"},
        {2, {11, 11, 11, 11, 11, 11}, "Reroll"},
        {3, {12, 8, 8, 8, 10, 10}, "Roll"},
        {3, {12, 8, 8, 8, 8, 10}, "Reroll"},
        // 5d6: at least one 15 and modifiers of +3.
        {4, {15, 12, 10, 10, 10, 10}, "Roll"},
        {4, {15, 11, 10, 10, 10, 10}, "Reroll"},
        {4, {14, 14, 14, 14, 14, 14}, "Reroll"},
    };
    for (const auto& c : labels)
        EXPECT_EQ(D_UICharRollDialog::RollButtonText(c.method, c.scores).toStdString(), c.label)
            << "method " << c.method;

    const struct {
        int value, remaining, maximum;
    } maxima[] = {
        {0, 25, 13}, // 21 costs 25, 22 would cost 28
        {0, 17, 10}, // 18 costs 16, 19 would cost 19
        {7, 17, 13}, // a 15 already paid for: 8 + 17 reaches 21 again
        {7, 1, 7},   // 16 would cost 2 more
        {0, 1, 1},   {0, 0, 0}, {6, 2, 7}, {0, 10000, 91}, // free entry stops at 99
    };
    for (const auto& c : maxima)
        EXPECT_EQ(D_UICharRollDialog::PointBuyMaximum(c.value, c.remaining), c.maximum)
            << c.value << " with " << c.remaining << " left";
}

TEST_F(CharRollDialogTest, RollingAssignsThroughAPermutation) {
    Ref<DCharacter> character = Character("Human", "Fighter", 1);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    FC::SeedRandom(77);
    const std::vector<int> dice = drawDice(24);
    FC::SeedRandom(77);
    const int rollsBefore = character->GetCharacterRefereeStat(0);
    part<QPushButton>(dialog, "mRollButton")->click();
    EXPECT_EQ(character->GetCharacterRefereeStat(0), rollsBefore + 1);
    QList<int> expected;
    for (int row = 0; row < 6; ++row) {
        const std::vector<int> slot(dice.begin() + row * 4, dice.begin() + row * 4 + 4);
        EXPECT_EQ(diceOf(dialog, row), slot) << "row " << row;
        expected << sumLessLowest(slot);
    }
    EXPECT_EQ(dialog.GetRolledScores(), expected);
    EXPECT_EQ(part<QPushButton>(dialog, "mRollButton")->text().toStdString(), "Reroll");
    EXPECT_FALSE(dialog.IsAssigned());
    EXPECT_FALSE(part<QPushButton>(dialog, "mOkButton")->isEnabled()) << "nothing assigned yet";

    // Each choice swaps with the row that held the ability; the rows stay a permutation.
    const struct {
        int row, ability;
        QList<int> after;
    } choices[] = {
        {0, 3, {3, 1, 2, 0, 4, 5}},
        {5, 3, {5, 1, 2, 0, 4, 3}},
        {1, 1, {5, 1, 2, 0, 4, 3}},
        {2, 5, {2, 1, 5, 0, 4, 3}},
    };
    for (const auto& c : choices) {
        auto* combo = part<QComboBox>(dialog, QStringLiteral("mAssign%1").arg(c.row));
        combo->setCurrentIndex(combo->findData(c.ability));
        EXPECT_EQ(Permutation(dialog), c.after) << "row " << c.row << " to " << c.ability;
    }
    auto* assign = part<QPushButton>(dialog, "mAssignButton");
    assign->click();
    EXPECT_TRUE(dialog.IsAssigned());
    EXPECT_EQ(assign->text().toStdString(), "Unassign");
    const QList<int> rows = Permutation(dialog);
    for (int row = 0; row < 6; ++row)
        EXPECT_EQ(dialog.GetAssignedScore(rows[row]), expected[row]) << "row " << row;
    EXPECT_TRUE(part<QPushButton>(dialog, "mOkButton")->isEnabled());
    if (qEnvironmentVariableIsSet("HOARD_SNAPSHOT_DIR")) {
        dialog.adjustSize();
        dialog.grab().save(qEnvironmentVariable("HOARD_SNAPSHOT_DIR") + "/roll-dialog.png");
    }
    assign->click();
    EXPECT_FALSE(dialog.IsAssigned());
    EXPECT_EQ(assign->text().toStdString(), "Assign");
    for (int ability = 0; ability < 6; ++ability)
        EXPECT_EQ(dialog.GetAssignedScore(ability), 0);
}

TEST_F(CharRollDialogTest, InOrderRollsRerollOneAndSwitchTwo) {
    Ref<DCharacter> character = Character("Human", "Fighter", 1);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    ChooseMethod(dialog, 1);
    FC::SeedRandom(5);
    part<QPushButton>(dialog, "mRollButton")->click();
    const QList<int> rolled = dialog.GetRolledScores();
    ASSERT_EQ(rolled.size(), 6);
    EXPECT_TRUE(dialog.IsAssigned()) << "in order: each score goes to its ability at once";
    for (int a = 0; a < 6; ++a)
        EXPECT_EQ(dialog.GetAssignedScore(a), rolled[a]);
    EXPECT_TRUE(part<QPushButton>(dialog, "mOkButton")->isEnabled());

    auto* reroll = part<QPushButton>(dialog, "mRerollButton");
    EXPECT_FALSE(reroll->isEnabled()) << "no row chosen";
    part<QCheckBox>(dialog, "mFrameReroll2")->setChecked(true);
    part<QCheckBox>(dialog, "mFrameReroll4")->setChecked(true);
    EXPECT_FALSE(part<QCheckBox>(dialog, "mFrameReroll2")->isChecked()) << "one row at a time";
    ASSERT_TRUE(reroll->isEnabled());
    FC::SeedRandom(6);
    const std::vector<int> fresh = drawDice(4);
    FC::SeedRandom(6);
    reroll->click();
    EXPECT_EQ(diceOf(dialog, 4), fresh);
    EXPECT_EQ(dialog.GetRolledScores()[4], sumLessLowest(fresh));
    EXPECT_EQ(dialog.GetAssignedScore(4), sumLessLowest(fresh));
    EXPECT_TRUE(part<QWidget>(dialog, "mFrameReroll")->isHidden()) << "one reroll per roll";
    EXPECT_FALSE(reroll->isEnabled());

    const QList<int> before = dialog.GetRolledScores();
    for (int row : {1, 3, 5})
        part<QCheckBox>(dialog, QStringLiteral("mFrameSwitch%1").arg(row))->setChecked(true);
    EXPECT_FALSE(part<QCheckBox>(dialog, "mFrameSwitch5")->isChecked()) << "two rows at most";
    part<QPushButton>(dialog, "mSwitchButton")->click();
    QList<int> swapped = before;
    swapped.swapItemsAt(1, 3);
    EXPECT_EQ(dialog.GetRolledScores(), swapped);
    EXPECT_EQ(dialog.GetAssignedScore(1), before[3]);
    EXPECT_EQ(dialog.GetAssignedScore(3), before[1]);
    EXPECT_TRUE(part<QWidget>(dialog, "mFrameSwitch")->isHidden());

    // A new roll opens both again.
    part<QPushButton>(dialog, "mRollButton")->click();
    EXPECT_FALSE(part<QWidget>(dialog, "mFrameReroll")->isHidden());
    EXPECT_FALSE(part<QWidget>(dialog, "mFrameSwitch")->isHidden());
}

TEST_F(CharRollDialogTest, ReplacingTheLowestDieTakesTheFirstOfEquals) {
    Ref<DCharacter> character = Character("Human", "Fighter", 1);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    ChooseMethod(dialog, 5);
    // A seed whose first slot shows two equal lowest dice.
    std::uint64_t seed = 1;
    for (; seed < 100000; ++seed) {
        FC::SeedRandom(seed);
        std::vector<int> slot = drawDice(4);
        std::sort(slot.begin(), slot.end());
        if (slot[0] == slot[1] && slot[1] < slot[2])
            break;
    }
    FC::SeedRandom(seed);
    part<QPushButton>(dialog, "mRollButton")->click();
    std::vector<int> dice = diceOf(dialog, 0);
    part<QPushButton>(dialog, "mAssignButton")->click();
    ASSERT_TRUE(dialog.IsAssigned());
    part<QCheckBox>(dialog, "mFrameReroll0")->setChecked(true);

    FC::SeedRandom(99);
    const int die = DDieRoller::RollDie(6);
    FC::SeedRandom(99);
    part<QPushButton>(dialog, "mRerollButton")->click();
    *std::min_element(dice.begin(), dice.end()) = die; // the first of the equal lowest
    EXPECT_EQ(diceOf(dialog, 0), dice);
    EXPECT_EQ(dialog.GetRolledScores()[0], sumLessLowest(dice));
    EXPECT_FALSE(dialog.IsAssigned()) << "a changed score takes the assignment back";
    EXPECT_TRUE(part<QPushButton>(dialog, "mRerollButton")->isEnabled()) << "may go on";
}

TEST_F(CharRollDialogTest, PointBuyStaysWithinItsBudget) {
    Ref<DCharacter> character = Character("Human", "Fighter", 1);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    ChooseMethod(dialog, 6);
    auto add = [&](int row) {
        return part<QSpinBox>(dialog, QStringLiteral("mFrameAdd%1").arg(row));
    };
    for (int row = 0; row < 6; ++row) {
        EXPECT_EQ(add(row)->value(), 0);
        EXPECT_EQ(add(row)->maximum(), 13) << "all 25 points reach a 21";
        EXPECT_EQ(dialog.GetAssignedScore(row), 8);
    }
    add(0)->setValue(7); // 15 for 8
    EXPECT_EQ(add(0)->maximum(), 13);
    EXPECT_EQ(add(1)->maximum(), 10) << "17 left reach an 18";
    add(1)->setValue(10); // 18 for 16
    EXPECT_EQ(dialog.GetPointsSpent(), 24);
    EXPECT_EQ(add(0)->maximum(), 7) << "a 16 would cost 2 more of 1";
    EXPECT_EQ(add(2)->maximum(), 1);
    add(2)->setValue(5);
    EXPECT_EQ(add(2)->value(), 1) << "the spin box keeps within the budget";
    EXPECT_EQ(dialog.GetPointsSpent(), 25);
    EXPECT_EQ(dialog.GetAssignedScore(0), 15);
    EXPECT_EQ(dialog.GetAssignedScore(1), 18);
    EXPECT_EQ(dialog.GetAssignedScore(2), 9);
    EXPECT_EQ(part<QLabel>(dialog, "mPointsLeft")->text().toStdString(), "Points left: 0 of 25");
    if (qEnvironmentVariableIsSet("HOARD_SNAPSHOT_DIR")) {
        dialog.adjustSize();
        dialog.grab().save(qEnvironmentVariable("HOARD_SNAPSHOT_DIR") + "/point-buy.png");
    }
}

TEST_F(CharRollDialogTest, ALowerCampaignBudgetStartsThePurchaseOver) {
    Ref<DCharacter> character = Character("Human", "Fighter", 1);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    ChooseMethod(dialog, 7);
    auto* campaign = part<QComboBox>(dialog, "mCampaignCombo");
    auto add = [&](int row) {
        return part<QSpinBox>(dialog, QStringLiteral("mFrameAdd%1").arg(row));
    };
    campaign->setCurrentIndex(campaign->findData(25)); // Tougher
    ASSERT_EQ(dialog.GetBudget(), 25);
    const int values[6] = {7, 6, 5, 4, 2, 0}; // 15 14 13 12 10 8
    for (int row = 0; row < 6; ++row)
        add(row)->setValue(values[row]);
    ASSERT_EQ(dialog.GetPointsSpent(), 25);

    campaign->setCurrentIndex(campaign->findData(32)); // High-powered: more keeps the purchase
    EXPECT_EQ(dialog.GetBudget(), 32);
    EXPECT_EQ(dialog.GetPointsSpent(), 25);
    EXPECT_EQ(add(0)->value(), 7);

    campaign->setCurrentIndex(campaign->findData(15)); // Low-powered: 25 no longer fits
    EXPECT_EQ(dialog.GetBudget(), 15);
    EXPECT_EQ(dialog.GetPointsSpent(), 0);
    for (int row = 0; row < 6; ++row) {
        EXPECT_EQ(add(row)->value(), 0) << "row " << row;
        EXPECT_EQ(dialog.GetAssignedScore(row), 8);
    }
}

TEST_F(CharRollDialogTest, RejectTakesBackIncreasesAndRolledHitPoints) {
    Ref<DCharacter> character = Character("Human", "Fighter", 8);
    ASSERT_EQ(character->GetCharacterStat(kStatEarnedAbilityPoints), 2);
    std::vector<int> hitPoints;
    for (const DCharHistory* entry : character->GetHistoryArray())
        hitPoints.push_back(entry->getHitpoints());
    const int userHitPoints = character->GetCharacterStat(kStatUserHitPoints);

    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    auto* earned = part<QComboBox>(dialog, "mEarnedCombo");
    auto* addEarned = part<QPushButton>(dialog, "mAddEarned");
    earned->setCurrentIndex(0);
    addEarned->click();
    earned->setCurrentIndex(2);
    addEarned->click();
    EXPECT_FALSE(addEarned->isEnabled()) << "two increases for eight levels";
    part<QComboBox>(dialog, "mInherentCombo")->setCurrentIndex(4);
    part<QSpinBox>(dialog, "mInherentBonus")->setValue(2);
    part<QSpinBox>(dialog, "mInherentLevel")->setValue(5);
    part<QPushButton>(dialog, "mAddInherent")->click();
    EXPECT_EQ(part<QSpinBox>(dialog, "mInherentBonus")->maximum(), 3) << "five slots, two used";
    EXPECT_EQ(part<QLabel>(dialog, "mBonusesText")->text().toStdString(),
              "Earned: STR: +1 (4th).<br>CON: +1 (8th).<br><br>Inherent: WIS: +2 (5th).<br>");
    EXPECT_EQ(character->GetEarnedAbilityStat(0), 1) << "slots are written at once";
    EXPECT_EQ(character->GetInherentAbilityStat(4), 2);
    EXPECT_TRUE(part<QPushButton>(dialog, "mOkButton")->isEnabled());

    part<QPushButton>(dialog, "mRollHPButton")->click();
    EXPECT_EQ(character->GetCharacterRefereeStat(1), 1);
    dialog.reject();

    for (int a = 0; a < 6; ++a) {
        EXPECT_EQ(character->GetEarnedAbilityStatRaw(a), 0) << a;
        EXPECT_EQ(character->GetInherentAbilityStatRaw(a), 0) << a;
    }
    for (int i = 0; i < character->GetHistoryCount(); ++i) {
        EXPECT_EQ(character->GetHistoryAtPosition(i)->getHitpoints(), hitPoints[size_t(i)]);
        EXPECT_EQ(character->GetHistoryAtPosition(i)->GetCustomData(), 0);
    }
    EXPECT_EQ(character->GetCharacterStat(kStatUserHitPoints), userHitPoints);
    EXPECT_EQ(character->GetAbilityStat(0), 10) << "no score moved";
}

TEST_F(CharRollDialogTest, AcceptWritesTheScores) {
    Ref<DCharacter> character = Character("Human", "Fighter", 4);
    const int hitPoints = character->GetCharacterStat(kStatHitPoints);
    const int rolls = character->GetCharacterRefereeStat(0);
    D_UICharRollDialog dialog;
    dialog.Setup(character.get());
    ChooseMethod(dialog, 8);
    EXPECT_FALSE(part<QPushButton>(dialog, "mOkButton")->isEnabled());
    part<QPushButton>(dialog, "mAssignButton")->click();
    part<QSpinBox>(dialog, "mUser0")->setValue(2);
    part<QComboBox>(dialog, "mEarnedCombo")->setCurrentIndex(1);
    part<QPushButton>(dialog, "mAddEarned")->click();
    ASSERT_TRUE(part<QPushButton>(dialog, "mOkButton")->isEnabled());
    character->ClearChangeFlags();
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    // The standard array in ability order; Dexterity's increase at 4th level lands in its base.
    const int bases[6] = {15, 15, 13, 12, 10, 8};
    for (int a = 0; a < 6; ++a)
        EXPECT_EQ(character->GetAbilityStatBase(a), bases[a]) << a;
    EXPECT_EQ(character->GetAbilityStatUserMod(0), 2);
    EXPECT_EQ(character->GetAbilityStat(0), 17);
    EXPECT_EQ(character->GetCharacterRefereeStat(0), rolls + 1) << "an array counts as a roll";
    EXPECT_EQ(character->GetChangeFlags() & 0x3Fu, 0x3Fu);
    // Constitution 13 is +1 on each of four hit dice.
    EXPECT_EQ(character->GetCharacterStat(kStatHitPoints), hitPoints + 4);
}

TEST_F(CharRollDialogTest, AMonsterKeepsItsRaceScores) {
    Ref<DCharacter> ogre = Character("Ogre", "Fighter", 0);
    ASSERT_TRUE(ogre->IsMonsterClassOnly());
    D_UICharRollDialog dialog;
    dialog.Setup(ogre.get());
    EXPECT_EQ(dialog.GetMethod(), 10);
    EXPECT_TRUE(part<QWidget>(dialog, "mRollBox")->isHidden());
    EXPECT_TRUE(part<QSpinBox>(dialog, "mFrameAdd0")->isHidden());
    EXPECT_TRUE(part<QPushButton>(dialog, "mOkButton")->isEnabled());
    part<QSpinBox>(dialog, "mUser1")->setValue(-2);
    dialog.accept();
    EXPECT_EQ(ogre->GetAbilityStat(0), 21) << "Strength untouched";
    EXPECT_EQ(ogre->GetAbilityStat(1), 6) << "Dexterity 8 less the typed-in 2";
}
