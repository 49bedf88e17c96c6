// The "Monster Advancement" dialog on a ready ankheg (3 HD; 4 HD Large, 5-9 HD Huge): the rows it
// lists, the range it offers, and a monster that cannot advance.
#include "D_UIMonsterAdvanceDialog.h"

#include "BuiltRulesTest.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class MonsterAdvanceDialogTest : public hoardtest::BuiltRulesTest {};

TEST_F(MonsterAdvanceDialogTest, OffersTheRaceRowsAndOnlyRaises) {
    FCRef<DCharacter> ankheg = Monster(QStringLiteral("Ankheg"));
    D_UIMonsterAdvanceDialog dialog;
    ASSERT_TRUE(dialog.Setup(ankheg.get()));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Monster Advancement"));
    auto* rows = dialog.findChild<QTreeWidget*>("mAdvancementList");
    // The open rules: 4 HD (Large); 5-9 HD (Huge).
    ASSERT_EQ(rows->topLevelItemCount(), 2);
    const char* expected[2][3] = {{"4", "4", "Large"}, {"5", "9", "Huge"}};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(rows->topLevelItem(row)->text(column), QString(expected[row][column]));
    }
    auto* spin = dialog.findChild<QSpinBox*>("mNewHitDice");
    EXPECT_EQ(spin->minimum(), 4);
    EXPECT_EQ(spin->maximum(), 9);
    spin->setValue(7);
    EXPECT_FLOAT_EQ(dialog.GetNewHitDice(), 7.0f);

    // An ogre has no advancement by hit dice: nothing to pick, and OK stays off.
    FCRef<DCharacter> ogre = Monster(QStringLiteral("Ogre"));
    EXPECT_FALSE(dialog.Setup(ogre.get()));
    EXPECT_FALSE(dialog.findChild<QPushButton*>("mOk")->isEnabled());
    EXPECT_EQ(rows->topLevelItemCount(), 0);
}

} // namespace
