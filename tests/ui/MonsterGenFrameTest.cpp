// The monster generator over the ready races.
#include "D_UIMonsterGenFrame.h"

#include "BuiltRulesTest.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DObjectManager.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class MonsterGenFrameTest : public hoardtest::BuiltRulesTest {
protected:
    // The top-level rows of that text.
    static QList<QTreeWidgetItem*> topLevel(const QTreeWidget& list, const QString& text) {
        QList<QTreeWidgetItem*> found;
        for (int i = 0; i < list.topLevelItemCount(); ++i) {
            if (list.topLevelItem(i)->text(0) == text)
                found << list.topLevelItem(i);
        }
        return found;
    }
    static QStringList children(const QTreeWidgetItem* item) {
        QStringList names;
        for (int i = 0; i < item->childCount(); ++i)
            names << item->child(i)->text(0);
        names.sort();
        return names;
    }
};

} // namespace

// "Air Elemental, Elder" and its kin lie under one "Air Elemental" row that has no hit dice of
// its own; "Dog, Riding" sorts before "Dog" (a comma before the dot), so its group already has
// a child when the plain dog comes and takes it in. Player races are not monsters.
TEST_F(MonsterGenFrameTest, ListGroupsByTheNameBeforeTheComma) {
    D_UIMonsterGenFrame frame;
    const auto* list = Child<QTreeWidget>(frame, "mList");
    const struct {
        const char* group;
        QStringList entries;
    } groups[] = {
        {"Air Elemental", {"Elder", "Greater", "Huge", "Large", "Medium", "Primal", "Small"}},
        {"Animated Object", {"Colossal", "Gargantuan", "Huge", "Large", "Medium", "Small", "Tiny"}},
        {"Dog", {"Dog", "Riding"}},
    };
    for (const auto& g : groups) {
        SCOPED_TRACE(g.group);
        const auto found = topLevel(*list, g.group);
        ASSERT_EQ(found.size(), 1);
        EXPECT_EQ(children(found.first()), g.entries);
        EXPECT_TRUE(found.first()->text(2).isEmpty());
    }
    for (const char* name : {"Human", "Dwarf", "Halfling"})
        EXPECT_TRUE(topLevel(*list, name).isEmpty()) << name;
    const auto ogre = topLevel(*list, "Ogre");
    ASSERT_EQ(ogre.size(), 1);
    EXPECT_EQ(ogre.first()->text(1), QStringLiteral("Giant"));
    EXPECT_EQ(ogre.first()->text(2), QStringLiteral("4"));
}

// The advancement field shows only for a race that advances, from its hit dice to its most:
// the ankheg 3 to 9; the annis and a group row show none, and a group row has nothing to open.
TEST_F(MonsterGenFrameTest, AdvancementShowsForRacesThatAdvance) {
    D_UIMonsterGenFrame frame;
    auto* advance = Child<QSpinBox>(frame, "mAdvance");
    auto* label = Child<QLabel>(frame, "LabelAdvance");
    auto* jump = Child<QPushButton>(frame, "mJumpButton");
    auto* tabs = Child<QTabWidget>(frame, "mMainTabs");
    EXPECT_EQ(label->text(), QStringLiteral("Advancement:"));
    const struct {
        const char* name;
        bool shown;
        int low, high;
    } cases[] = {{"Ankheg", true, 3, 9}, {"Annis", false, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(frame.SelectMonster(c.name));
        EXPECT_EQ(!advance->isHidden(), c.shown);
        EXPECT_EQ(!label->isHidden(), c.shown);
        EXPECT_TRUE(jump->isEnabled());
        EXPECT_TRUE(tabs->isTabEnabled(1));
        if (c.shown) {
            EXPECT_EQ(advance->minimum(), c.low);
            EXPECT_EQ(advance->maximum(), c.high);
            EXPECT_EQ(advance->value(), c.low);
        }
    }
    auto* list = Child<QTreeWidget>(frame, "mList");
    list->setCurrentItem(topLevel(*list, "Air Elemental").value(0));
    EXPECT_TRUE(advance->isHidden());
    EXPECT_FALSE(jump->isEnabled());
    EXPECT_FALSE(tabs->isTabEnabled(1));
}

// The stat block takes the advancement when the tab is entered: an ankheg (3 HD Large, 5-9 HD
// Huge) at 7 HD is Huge, and stays so on the tab until it is entered again at 3 HD. The jump
// hands on the monster at the hit dice shown.
TEST_F(MonsterGenFrameTest, StatBlockFollowsTheAdvancementWhenEntered) {
    D_UIMonsterGenFrame frame;
    FCRef<DCharacter> built;
    QObject::connect(&frame, &D_UIMonsterGenFrame::monsterBuilt,
                     [&built](DCharacter* character, const QString&) {
                         character->Retain();
                         built.reset(character);
                     });
    auto* advance = Child<QSpinBox>(frame, "mAdvance");
    auto* tabs = Child<QTabWidget>(frame, "mMainTabs");
    auto* block = Child<QTextBrowser>(frame, "mBlock");
    ASSERT_TRUE(frame.SelectMonster("Ankheg"));
    advance->setValue(7);
    tabs->setCurrentIndex(1);
    EXPECT_TRUE(block->toPlainText().contains("Size/Type: Huge Magical Beast"))
        << block->toPlainText().toStdString();
    EXPECT_TRUE(block->toPlainText().contains("Hit Dice: 7d10"));
    advance->setValue(3);
    EXPECT_TRUE(block->toPlainText().contains("Huge"));
    tabs->setCurrentIndex(0);
    tabs->setCurrentIndex(1);
    EXPECT_TRUE(block->toPlainText().contains("Size/Type: Large Magical Beast"));

    advance->setValue(9);
    frame.Jump();
    ASSERT_NE(built, nullptr);
    ASSERT_GT(built->GetHistoryCount(), 0);
    EXPECT_EQ(built->GetHistoryAtPosition(0)->GetLevel(), 9.0f);
}
