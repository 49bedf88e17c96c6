// The list and combo helpers every editor and generator fills its fields with, over the built
// rules database: alignments 9 (LG), 10 (NG), 12 (CG) come first by their sort order.
#include "D_UISpinBoxFractional.h"
#include "D_UIUtil.h"
#include "SortListItem.h"

#include "BuiltRulesTest.h"
#include "DDatabase.h"
#include "TestSupport.h"

#include <QComboBox>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class UiUtilTest : public hoardtest::BuiltRulesTest {
protected:
};

TEST_F(UiUtilTest, CombosCarryTheRowKeysAndKeepTheSelectionOnAMiss) {
    QComboBox combo;
    ASSERT_TRUE(D_UIUtil::FillComboWithTable(&combo, kTableAlignment, 9, 12, "Id", "SortNum"));
    ASSERT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.itemText(1), QStringLiteral("Neutral Good"));
    combo.setCurrentIndex(1);
    EXPECT_EQ(D_UIUtil::GetCurrentItemData(&combo), 10);

    EXPECT_EQ(D_UIUtil::SetCurrentItemWithData(&combo, 18), -1) << "neutral is outside 9-12";
    EXPECT_EQ(combo.currentIndex(), 1);
    EXPECT_EQ(D_UIUtil::SetCurrentItemWithData(&combo, 12), 2);
    EXPECT_EQ(D_UIUtil::SetCurrentItemWithText(&combo, QStringLiteral("Lawful Good")), 0);
    EXPECT_EQ(D_UIUtil::GetCurrentItemData(&combo), 9);

    // Adding appends; filling starts over. Row 0, "None", is cut by starting at 1.
    ASSERT_TRUE(D_UIUtil::AddTableToCombo(&combo, kTableAlignment, 0, 0));
    EXPECT_EQ(combo.count(), 4);
    ASSERT_TRUE(D_UIUtil::FillComboWithTable(&combo, kTableAlignment, 1, 9999));
    EXPECT_EQ(combo.count(), 9);

    // A dragon's hit die is a d12; a name in no row leaves the combo empty.
    ASSERT_TRUE(D_UIUtil::FillComboWithDieMatching(&combo, QStringLiteral("Dragon")));
    ASSERT_EQ(combo.count(), 1);
    EXPECT_EQ(combo.itemText(0), QStringLiteral("d12"));
    EXPECT_FALSE(D_UIUtil::GetCurrentItemGuid(&combo).isNull());
    ASSERT_TRUE(D_UIUtil::FillComboWithDieMatching(&combo, QStringLiteral("Basketweaver")));
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(D_UIUtil::GetCurrentItemData(&combo), -1);

    D_UIUtil::FillComboWithCoins(&combo);
    EXPECT_EQ(combo.count(), 4);
    EXPECT_EQ(D_UIUtil::SetCurrentItemWithData(&combo, 2), 2) << "gold";
}

TEST(UiUtilItems, NumbersSortAsNumbersAndNamesEndInTheirSlot) {
    QTreeWidget list;
    list.setColumnCount(2);
    auto* cheap = new SortListItem(&list, {"b"});
    cheap->setText(1, QStringLiteral("999"), 999);
    auto* dear = new SortListItem(&list, {"a"});
    dear->setText(1, QStringLiteral("1000"), 1000);
    list.sortItems(1, Qt::AscendingOrder);
    EXPECT_EQ(list.topLevelItem(0), cheap) << "999 before 1000, unlike their text";
    // Without a number the column sorts by its text.
    list.sortItems(0, Qt::AscendingOrder);
    EXPECT_EQ(list.topLevelItem(0), dear);

    QObject rolled;
    rolled.setObjectName(QStringLiteral("mRolled5"));
    EXPECT_EQ(D_UIUtil::GetObjectNameEndingNumber(&rolled), 5);
    rolled.setObjectName(QStringLiteral("mList"));
    EXPECT_EQ(D_UIUtil::GetObjectNameEndingNumber(&rolled), 0);
}

TEST(UiUtilItems, FractionalSpinBoxShowsItsLabelsAndStepsThroughThem) {
    D_UISpinBoxFractional spin;
    spin.SetRange(0.0, 30.0, 1.0);
    spin.SetLabels({{125, "1/8"}, {167, "1/6"}, {250, "1/4"}, {333, "1/3"}, {500, "1/2"}});
    const struct {
        int stored;
        const char* shown;
    } texts[] = {{165, "1/6"}, {169, "1/6"}, {164, "0.164"}, {170, "0.170"},
                 {0, "0.000"}, {2000, "2"},  {3000, "3"}};
    for (const auto& t : texts) {
        spin.setValue(t.stored);
        EXPECT_EQ(spin.text(), QString(t.shown)) << t.stored;
    }

    // Up from 0: every label below 1, then whole steps; down again the same way.
    spin.setValue(0);
    const int up[] = {125, 167, 250, 333, 500, 1000, 2000};
    for (const int expected : up) {
        spin.stepBy(1);
        EXPECT_EQ(spin.value(), expected);
    }
    const int down[] = {1000, 500, 333, 250, 167, 125, 0, 0};
    for (const int expected : down) {
        spin.stepBy(-1);
        EXPECT_EQ(spin.value(), expected);
    }
    spin.SetValue(0.5);
    EXPECT_DOUBLE_EQ(spin.GetValue(), 0.5);
}

} // namespace
