#include "DiceGenFrame.h"

#include "BuiltRulesTest.h"
#include "Connection.h"
#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DOptions.h"
#include "DriverManager.h"
#include "FCRandom.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

namespace {

// What the roll list shows: each top-level item with its children in list order.
struct RollItem {
    QString label;
    QStringList results;
    std::vector<int> orders;
    bool expanded = false;
};

std::vector<RollItem> rollList(const DiceGenFrame& frame) {
    std::vector<RollItem> items;
    const auto* list = frame.findChild<QTreeWidget*>(QStringLiteral("mRollList"));
    if (!list)
        return items;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* top = list->topLevelItem(i);
        RollItem item{top->text(0), {}, {}, top->isExpanded()};
        for (int c = 0; c < top->childCount(); ++c) {
            item.results << top->child(c)->text(0);
            item.orders.push_back(top->child(c)->data(0, DiceGenFrame::kOrderRole).toInt());
        }
        items.push_back(item);
    }
    return items;
}

class DiceGenFrameTest : public hoardtest::BuiltRulesTest {
protected:
    void SetUp() override {
        DFailureReporter::ResetReports();
        BuiltRulesTest::SetUp();
        FC::SeedRandom(31337);
        ASSERT_EQ(DFailureReporter::GetReportCount(), 0)
            << DFailureReporter::GetLastText().toStdString();
    }
};

} // namespace

TEST_F(DiceGenFrameTest, DieChoiceSetsTheModifierFloor) {
    const DiceGenFrame frame;
    auto* die = Child<QComboBox>(frame, "mDie");
    const auto* modifier = Child<QSpinBox>(frame, "mModifier");
    ASSERT_TRUE(die && modifier);
    const int ceiling = modifier->maximum();
    // The first die of the list is chosen from the start.
    EXPECT_EQ(modifier->minimum(), 1 - 2);
    const struct {
        int die;
        int floor;
    } cases[] = {{20, -19}, {4, -3}, {100, -99}, {6, -5}, {2, -1}};
    for (const auto& c : cases) {
        die->setCurrentIndex(die->findData(c.die));
        EXPECT_EQ(modifier->minimum(), c.floor) << c.die;
        EXPECT_EQ(modifier->maximum(), ceiling) << c.die;
    }
}

TEST_F(DiceGenFrameTest, AppendGathersRollsOfOneExpressionInOrder) {
    DiceGenFrame frame;
    auto* append = Child<QCheckBox>(frame, "mAppend");
    ASSERT_NE(append, nullptr);
    struct Step {
        bool append;
        int count, die, modifier, sets;
        // Top-level labels with their child counts, after the step.
        std::vector<std::pair<QString, int>> expected;
    };
    const Step steps[] = {
        {false, 2, 6, 0, 3, {{"2d6", 3}}},
        // Without Append each roll replaces the list.
        {false, 1, 20, 0, 2, {{"1d20", 2}}},
        {true, 2, 6, 0, 3, {{"1d20", 2}, {"2d6", 3}}},
        // The same expression again goes on under its item.
        {true, 2, 6, 0, 2, {{"1d20", 2}, {"2d6", 5}}},
        // A different modifier is a different expression.
        {true, 2, 6, 1, 1, {{"1d20", 2}, {"2d6", 5}, {"2d6+1", 1}}},
        {true, 1, 20, 0, 1, {{"1d20", 3}, {"2d6", 5}, {"2d6+1", 1}}},
        // Zero sets still makes the item.
        {true, 2, 6, -1, 0, {{"1d20", 3}, {"2d6", 5}, {"2d6+1", 1}, {"2d6-1", 0}}},
        {false, 3, 6, 0, 0, {{"3d6", 0}}},
    };
    const std::map<QString, std::pair<int, int>> kReach = {{"2d6", {2, 12}},
                                                           {"1d20", {1, 20}},
                                                           {"2d6+1", {3, 13}},
                                                           {"2d6-1", {1, 11}},
                                                           {"3d6", {3, 18}}};
    int index = 0;
    for (const Step& step : steps) {
        SCOPED_TRACE(testing::Message() << "step " << index++);
        append->setChecked(step.append);
        frame.DieRoll(step.count, step.die, step.modifier, step.sets);
        const auto items = rollList(frame);
        ASSERT_EQ(items.size(), step.expected.size());
        for (size_t i = 0; i < items.size(); ++i) {
            EXPECT_EQ(items[i].label, step.expected[i].first);
            ASSERT_EQ(items[i].results.size(), step.expected[i].second);
            // Order numbers run 0, 1, 2... in list order, across separate rolls.
            for (int c = 0; c < items[i].results.size(); ++c)
                EXPECT_EQ(items[i].orders[size_t(c)], c) << items[i].label.toStdString();
        }
        // The item just rolled is opened, and every line is a sum within the dice's reach.
        const QString label = DiceGenFrame::BuildRollLabel(step.count, step.die, step.modifier);
        for (const auto& item : items) {
            if (item.label == label) {
                EXPECT_TRUE(item.expanded) << label.toStdString();
            }
            const auto reach = kReach.find(item.label);
            ASSERT_NE(reach, kReach.end()) << item.label.toStdString();
            for (const QString& result : item.results) {
                EXPECT_GE(result.toInt(), reach->second.first) << item.label.toStdString();
                EXPECT_LE(result.toInt(), reach->second.second) << item.label.toStdString();
            }
        }
    }
}

TEST_F(DiceGenFrameTest, EachLineIsTheDiceSumPlusTheModifier) {
    // One-sided dice make every sum exact: count x 1 + modifier.
    DiceGenFrame frame;
    const struct {
        int count, modifier, sets;
        const char* label;
        const char* each;
    } cases[] = {
        {1, 5, 3, "1d1+5", "6"},
        {3, -2, 2, "3d1-2", "1"},
        {7, 0, 1, "7d1", "7"},
    };
    for (const auto& c : cases) {
        frame.DieRoll(c.count, 1, c.modifier, c.sets);
        const auto items = rollList(frame);
        ASSERT_EQ(items.size(), 1u);
        EXPECT_EQ(items[0].label, QString::fromLatin1(c.label));
        EXPECT_EQ(items[0].results, QStringList(c.sets, QString::fromLatin1(c.each)));
    }
    // No dice: the modifier alone, and the random source is left alone.
    const std::uint64_t before = FC::GetRandomDrawCount();
    frame.DieRoll(0, 6, 4, 2);
    EXPECT_EQ(FC::GetRandomDrawCount(), before);
    EXPECT_EQ(rollList(frame).at(0).results, (QStringList{"4", "4"}));
}

TEST_F(DiceGenFrameTest, RollAndQuickButtonsUseTheirOwnValues) {
    DiceGenFrame frame;
    auto* number = Child<QSpinBox>(frame, "mNumber");
    auto* die = Child<QComboBox>(frame, "mDie");
    auto* modifier = Child<QSpinBox>(frame, "mModifier");
    auto* sets = Child<QSpinBox>(frame, "mSets");
    auto* roll = Child<QPushButton>(frame, "mRollButton");
    ASSERT_TRUE(number && die && modifier && sets && roll);
    number->setValue(4);
    die->setCurrentIndex(die->findData(6));
    modifier->setValue(-1);
    sets->setValue(6);
    roll->click();
    auto items = rollList(frame);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].label, "4d6-1");
    ASSERT_EQ(items[0].results.size(), 6);
    for (const QString& result : items[0].results) {
        EXPECT_GE(result.toInt(), 3);
        EXPECT_LE(result.toInt(), 23);
    }
    // A quick button rolls its stored dice once, whatever the fields say.
    const struct {
        int id;
        const char* label;
        int low, high;
    } quick[] = {{8, "3d6", 3, 18}, {1, "1d20", 1, 20}, {9, "4d6", 4, 24}, {2, "1d100", 1, 100}};
    for (const auto& q : quick) {
        auto* button = Child<QPushButton>(frame, QStringLiteral("mQuick%1").arg(q.id));
        ASSERT_NE(button, nullptr);
        button->click();
        items = rollList(frame);
        ASSERT_EQ(items.size(), 1u) << q.id;
        EXPECT_EQ(items[0].label, QString::fromLatin1(q.label));
        ASSERT_EQ(items[0].results.size(), 1) << q.id;
        EXPECT_GE(items[0].results[0].toInt(), q.low) << q.id;
        EXPECT_LE(items[0].results[0].toInt(), q.high) << q.id;
    }
}

TEST_F(DiceGenFrameTest, WithoutRulesTheQuickButtonsRollNothing) {
    DDatabase::ShutDown();
    DiceGenFrame frame;
    EXPECT_EQ(Child<QComboBox>(frame, "mDie")->count(), 0);
    for (int id = 1; id <= 9; ++id)
        EXPECT_EQ(Child<QPushButton>(frame, QStringLiteral("mQuick%1").arg(id))->text(),
                  QStringLiteral("&%1. Quick").arg(id));
    Child<QPushButton>(frame, "mQuick4")->click();
    const auto items = rollList(frame);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].label, "0d0");
    EXPECT_EQ(items[0].results, QStringList{"0"});
    EXPECT_EQ(DFailureReporter::GetReportCount(), 0);
}

TEST_F(DiceGenFrameTest, AMissingQuickButtonTableIsReportedOnce) {
    DDatabase::ShutDown();
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("dice-only.db"));
    ASSERT_TRUE(hoardtest::writeFile(path, QByteArray()));
    {
        std::unique_ptr<odbc::Connection> connection(odbc::DriverManager::getConnection(path));
        connection->execute(QStringLiteral("CREATE TABLE [types Dice] (Id INTEGER, Name TEXT)"));
        connection->execute(
            QStringLiteral("INSERT INTO [types Dice] VALUES (1, '1'), (6, 'd6'), (4, 'd4')"));
    }
    hoardtest::addRequiredTables(path);
    ASSERT_TRUE(DDatabase::StartUp(FCString(path)));
    DFailureReporter::ResetReports();

    DiceGenFrame frame;
    EXPECT_EQ(DFailureReporter::GetReportCount(), 1);
    EXPECT_EQ(DFailureReporter::GetLastCaption(), "Query failed");
    const auto* die = Child<QComboBox>(frame, "mDie");
    ASSERT_EQ(die->count(), 2);
    EXPECT_EQ(die->itemText(0), "d4");
    EXPECT_EQ(die->itemText(1), "d6");
    EXPECT_EQ(Child<QPushButton>(frame, "mQuick7")->text(), "&7. Quick");
}

// The stat block tab runs the list through the Roll style sheet; without a sheet it keeps what
// it showed and nothing breaks.
TEST_F(DiceGenFrameTest, StatBlockTabShowsEachExpressionWithItsRollsAndTotal) {
    QTemporaryDir user;
    const FCString appPath = DOptions::mAppPath;
    const FCString userPath = DOptions::GetUserDataPath();
    DOptions::mAppPath = FCString(hoardtest::builtDataDir());
    DOptions::SetUserDataPath(FCString(user.path()));

    DiceGenFrame frame;
    Child<QCheckBox>(frame, "mAppend")->setChecked(true);
    frame.DieRoll(2, 6, 1, 3);
    frame.DieRoll(1, 20, 0, 1);
    auto* tabs = Child<QTabWidget>(frame, "mTabs");
    auto* block = Child<QPlainTextEdit>(frame, "mStatBlock");
    tabs->setCurrentIndex(1);

    const std::vector<RollItem> items = rollList(frame);
    ASSERT_EQ(items.size(), 2u);
    int total = 0;
    for (const QString& result : items[0].results)
        total += result.toInt();
    const QString expected = QStringLiteral("2d6+1: %1 (total %2)\n1d20: %3")
                                 .arg(items[0].results.join(", "))
                                 .arg(total)
                                 .arg(items[1].results.first());
    EXPECT_EQ(block->toPlainText(), expected);
    if (qEnvironmentVariableIsSet("HOARD_SNAPSHOT_DIR")) {
        frame.resize(480, 520);
        frame.grab().save(qEnvironmentVariable("HOARD_SNAPSHOT_DIR") + "/dice-stat-block.png");
    }
    EXPECT_TRUE(QFile::exists(DOptions::GetTempPath() + "/xml/Roll/block.txt"));

    QTemporaryDir empty;
    DOptions::mAppPath = FCString(empty.path());
    tabs->setCurrentIndex(0);
    frame.DieRoll(1, 4, 0, 1);
    tabs->setCurrentIndex(1);
    EXPECT_EQ(block->toPlainText(), expected);

    DOptions::mAppPath = appPath;
    DOptions::SetUserDataPath(userPath);
}
