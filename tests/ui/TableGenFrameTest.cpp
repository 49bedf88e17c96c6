// The table window over user tables with 1d1 dice, so every roll is known by hand.
#include "TableGenFrame.h"

#include "BuiltRulesTest.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DDatabase.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DSizeInfo.h"
#include "DTreasure.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QDir>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

// "Heading/Name: number (extra)" for every result row.
QStringList results(const TableGenFrame& frame) {
    const auto* list = frame.findChild<QTreeWidget*>(QStringLiteral("mGenerateList"));
    QStringList rows;
    for (int i = 0; list && i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* heading = list->topLevelItem(i);
        for (int c = 0; c < heading->childCount(); ++c) {
            const QTreeWidgetItem* row = heading->child(c);
            rows << QStringLiteral("%1/%2: %3 (%4)")
                        .arg(heading->text(0), row->text(0), row->text(1), row->text(2));
        }
    }
    rows.sort();
    return rows;
}

class TableGenFrameTest : public hoardtest::BuiltRulesTest {
protected:
    // Saves a user table and puts it in the catalogue.
    void AddTable(const QString& name, const QString& text) {
        ASSERT_TRUE(QDir(mUser.path()).mkpath("Table"));
        hoardtest::saveTable(UserPath("Table"), name, text);
        DObjectManager::HandleTableSave(FCString(UserPath("Table/" + name + ".tbl")));
    }
};

} // namespace

TEST_F(TableGenFrameTest, RollsGatherByKindAndAppendAddsUp) {
    // Road: 3 wolves and Camp twice; Camp: its text (1 / 1) and a table that is not there.
    AddTable("Road", "die\t1d1\n1\t3\tmonster\tWolf\t4\n1\t2\ttable\tCamp\n");
    AddTable("Camp", "die\t1d1\n1\t/1\ttext\tSmoke rises\n1\t1\ttable\tMissing\n");

    TableGenFrame frame;
    auto* generate = frame.findChild<QPushButton*>(QStringLiteral("mGenerateButton"));
    auto* append = frame.findChild<QCheckBox*>(QStringLiteral("mAppendBox"));
    ASSERT_TRUE(generate && append);
    EXPECT_FALSE(generate->isEnabled());
    ASSERT_TRUE(frame.SelectTable("Road"));
    EXPECT_TRUE(generate->isEnabled());

    const QStringList once{"Monster/Wolf: 3 (HD 4)",
                           "Not Rolled/Missing: 2 (no table named 'Missing')",
                           "Text/Smoke rises: 2 ()"};
    generate->click();
    EXPECT_EQ(results(frame), once);

    append->setChecked(true);
    generate->click();
    EXPECT_EQ(results(frame), (QStringList{"Monster/Wolf: 6 (HD 4)",
                                           "Not Rolled/Missing: 4 (no table named 'Missing')",
                                           "Text/Smoke rises: 4 ()"}));

    append->setChecked(false);
    generate->click();
    EXPECT_EQ(results(frame), once);
}

// Each result kind opens as its own object with the row's overrides, worked from the rules: an
// ankheg (3 HD; 4 HD Large, 5-9 HD Huge) at 7 HD is Huge with base attack +7; a first-level paladin
// raised to level 3 and turned chaotic good by its row is an elf of three levels who has lost the
// paladin's calling; a hoard row without a level is the stored chest, 5 gp.
TEST_F(TableGenFrameTest, ResultsOpenWithTheirRowsOverrides) {
    ASSERT_TRUE(QDir(mUser.path()).mkpath("Treasure"));
    SavePaladin("Hero", "Hero.chr");
    FCRef<DTreasure> chest(new DTreasure);
    chest->SetCurrencyAmount(2, 5);
    ASSERT_TRUE(chest->SaveToFile(UserPath("Treasure/Chest.trs")));
    AddTable("Lair", "die\t1d1\n"
                     "1\t2\tmonster\tAnkheg\t7\n"
                     "1\t1\tcharacter\tHero\t3\tElf\tCG\n"
                     "1\t1\ttreasure\tChest\n"
                     "1\t1\ttext\tBones\n");

    TableGenFrame frame;
    ASSERT_TRUE(frame.SelectTable("Lair"));
    frame.Generate();
    FCRef<DCharacter> built;
    FCRef<DTreasure> found;
    QObject::connect(&frame, &TableGenFrame::creatureBuilt,
                     [&built](DCharacter* character, const QString&) {
                         character->Retain();
                         built.reset(character);
                     });
    QObject::connect(&frame, &TableGenFrame::treasureBuilt,
                     [&found](DTreasure* treasure, const QString&) {
                         treasure->Retain();
                         found.reset(treasure);
                     });

    const struct {
        const char* row;
        const char* jump; // null: no jump button
    } rows[] = {{"Ankheg", "&Jump to Monster Editor"},
                {"Hero", "&Jump to Character Editor"},
                {"Chest", "&Jump to Treasure Editor"},
                {"Bones", nullptr}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.row);
        ASSERT_TRUE(frame.SelectResult(row.row));
        EXPECT_EQ(frame.JumpButton()->isHidden(), row.jump == nullptr);
        if (row.jump) {
            EXPECT_EQ(frame.JumpButton()->text(), QString(row.jump));
        }
    }

    ASSERT_TRUE(frame.SelectResult("Ankheg"));
    frame.Jump();
    ASSERT_NE(built, nullptr);
    EXPECT_EQ(built->GetHistoryAtPosition(0)->GetLevel(), 7.0f);
    EXPECT_EQ(built->GetCharacterStat(kStatBaseAttack), 7);
    ASSERT_NE(built->GetSizeInfo(), nullptr);
    EXPECT_EQ(QString(built->GetSizeInfo()->GetSizeName()), QStringLiteral("Huge"));

    ASSERT_TRUE(frame.SelectResult("Hero"));
    frame.Jump();
    ASSERT_NE(built, nullptr);
    EXPECT_EQ(built->GetHistoryCharacterLevel(), 3);
    ASSERT_NE(built->GetRace(), nullptr);
    EXPECT_EQ(QString(built->GetRace()->GetRaceName()), QStringLiteral("Elf"));
    EXPECT_EQ(built->GetAlignmentId(), 12);
    const DCharacterClass* paladin =
        built->GetClassPointer(hoardtest::classGuid(QStringLiteral("Paladin")));
    ASSERT_NE(paladin, nullptr);
    EXPECT_EQ(paladin->GetLevel(), 3.0f);
    EXPECT_TRUE(paladin->GetIsExClass());

    ASSERT_TRUE(frame.SelectResult("Chest"));
    frame.Jump();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetCurrencyAmount(2), 5);
    EXPECT_EQ(found->GetItemCount(), 0);

    // The stat block tab builds every result again and shows each under its count.
    frame.findChild<QTabWidget*>(QStringLiteral("mMainTabs"))->setCurrentIndex(1);
    const QString block = frame.findChild<QTextBrowser*>(QStringLiteral("mBlock"))->toPlainText();
    for (const char* heading :
         {"2 \u00d7 Ankheg", "1 \u00d7 Hero", "1 \u00d7 Chest", "1 \u00d7 Bones", "Huge", "5 gp"})
        EXPECT_TRUE(block.contains(QString::fromUtf8(heading))) << heading;
}
