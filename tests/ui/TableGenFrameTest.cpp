// The table window over user tables with 1d1 dice, so every roll is known by hand.
#include "TableGenFrame.h"

#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DTable.h"
#include "DTableText.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

void saveTable(const QString& folder, const QString& name, const QString& text) {
    FCRef<DTable> table(new DTable());
    int line = 0;
    QString error;
    ASSERT_TRUE(DTableText::Parse(text, *table, line, error)) << error.toStdString();
    ASSERT_TRUE(table->SaveToFile(FCString(folder + "/" + name + ".tbl")));
}

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

} // namespace

TEST(TableGenFrameTest, RollsGatherByKindAndAppendAddsUp) {
    QTemporaryDir user;
    ASSERT_TRUE(user.isValid());
    ASSERT_TRUE(QDir(user.path()).mkpath("Table"));
    // Road: 3 wolves and Camp twice; Camp: its text (1 / 1) and a table that is not there.
    saveTable(user.filePath("Table"), "Road",
              "die\t1d1\n1\t3\tmonster\tWolf\t4\n1\t2\ttable\tCamp\n");
    saveTable(user.filePath("Table"), "Camp",
              "die\t1d1\n1\t/1\ttext\tSmoke rises\n1\t1\ttable\tMissing\n");
    DFailureReporter::SetQuiet(true);
    DOptions::mAppPath = FCString(hoardtest::builtDataDir());
    DOptions::SetUserDataPath(FCString(user.path()));
    ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    DObjectManager::StartUp();

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
    DDatabase::ShutDown();
    DFailureReporter::SetQuiet(false);
}
