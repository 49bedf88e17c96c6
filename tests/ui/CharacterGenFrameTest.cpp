// The character generator over the ready data, and over tables of 1d1 dice where every pick
// is known by hand.
#include "D_UICharacterGenFrame.h"

#include "BuiltRulesTest.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DDatabase.h"
#include "DOptions.h"
#include "DRace.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class CharacterGenFrameTest : public hoardtest::BuiltRulesTest {
protected:
    // Fixes race, class, alignment and level.
    static void choose(const QWidget& frame, const QString& race, const QString& className,
                       const QString& alignment, int level) {
        for (const auto& [name, text] :
             {std::pair{"mRaceCombo", race}, std::pair{"mClassCombo", className},
              std::pair{"mAlignmentCombo", alignment}}) {
            auto* combo = Child<QComboBox>(frame, name);
            const int index = combo->findText(text);
            ASSERT_GE(index, 0) << text.toStdString();
            combo->setCurrentIndex(index);
        }
        Child<QSpinBox>(frame, "mLevel")->setValue(level);
    }
    // "Race|Class|Alignment|Level|Number" for each row.
    static QStringList rows(const QWidget& frame) {
        const auto* list = Child<QTreeWidget>(frame, "mList");
        QStringList result;
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            QStringList cells;
            for (int c = 0; c < 5; ++c)
                cells << list->topLevelItem(i)->text(c);
            result << cells.join('|');
        }
        return result;
    }
};

} // namespace

// Equal requests count up in one row; without "Append" each press starts the list anew.
TEST_F(CharacterGenFrameTest, EqualRequestsCountUp) {
    const struct {
        bool append;
        QStringList afterSecond;
    } cases[] = {
        {false, {"Dwarf|Fighter|Lawful Good|3|1"}},
        {true, {"Dwarf|Fighter|Lawful Good|3|2"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.append);
        D_UICharacterGenFrame frame;
        choose(frame, "Dwarf", "Fighter", "Lawful Good", 3);
        Child<QCheckBox>(frame, "mAppendBox")->setChecked(c.append);
        auto* generate = Child<QPushButton>(frame, "mGenerateButton");
        generate->click();
        EXPECT_EQ(rows(frame), QStringList{"Dwarf|Fighter|Lawful Good|3|1"});
        generate->click();
        EXPECT_EQ(rows(frame), c.afterSecond);
        // Another level is another request.
        Child<QSpinBox>(frame, "mLevel")->setValue(4);
        generate->click();
        EXPECT_EQ(rows(frame).size(), c.append ? 2 : 1);
    }
}

// Drawn picks from the ready tables keep together: the alignment is of the drawn group, the
// class is one that group's class table names (paladins only for the good), the race one of
// the seven player races the race tables name.
TEST_F(CharacterGenFrameTest, RandomPicksComeFromTheGroupsTables) {
    const QMap<QString, QStringList> alignments{
        {"Good", {"Lawful Good", "Neutral Good", "Chaotic Good"}},
        {"Evil", {"Lawful Evil", "Neutral Evil", "Chaotic Evil"}},
        {"Neutral", {"Lawful Neutral", "Neutral", "Chaotic Neutral"}}};
    const QStringList classes{"Barbarian", "Bard",   "Cleric", "Druid",    "Fighter", "Monk",
                              "Paladin",   "Ranger", "Rogue",  "Sorcerer", "Wizard"};
    const QStringList races{"Dwarf", "Elf", "Gnome", "Half-Elf", "Half-Orc", "Halfling", "Human"};
    FC::SeedRandom(1919);
    D_UICharacterGenFrame frame;
    for (const char* name : {"mRandomClass", "mRandomRace", "mRandomAlignment", "mAppendBox"})
        Child<QCheckBox>(frame, name)->setChecked(true);
    EXPECT_FALSE(Child<QComboBox>(frame, "mClassCombo")->isEnabled());
    for (int i = 0; i < 30; ++i)
        frame.Generate();
    const QStringList found = rows(frame);
    ASSERT_FALSE(found.isEmpty());
    QSet<QString> groups;
    for (const QString& row : found) {
        SCOPED_TRACE(row.toStdString());
        const QStringList cells = row.split('|');
        const QString group = D_UICharacterGenFrame::AlignmentGroup(cells[2]);
        groups << group;
        EXPECT_TRUE(alignments[group].contains(cells[2]));
        EXPECT_TRUE(classes.contains(cells[1]));
        // The class keeps its alignment rule: paladins lawful good, monks lawful, barbarians and
        // bards never lawful, druids neutral on one axis at least.
        const QString& className = cells[1];
        const QString& alignment = cells[2];
        EXPECT_TRUE(className != "Paladin" || alignment == "Lawful Good");
        EXPECT_TRUE(className != "Monk" || alignment.startsWith("Lawful"));
        EXPECT_TRUE((className != "Barbarian" && className != "Bard") ||
                    !alignment.startsWith("Lawful"));
        EXPECT_TRUE(className != "Druid" || alignment.contains("Neutral"));
        EXPECT_TRUE(races.contains(cells[0]));
        EXPECT_EQ(cells[3], "1");
    }
    // Thirty draws of a one-in-three group miss none.
    EXPECT_EQ(groups.size(), 3);
}

// Over 1d1 tables the first covering row alone decides, where the table window fires all:
// the alignment group table's first row says Evil, the evil alignment table hands on to a
// nested table whose 1d1+1 gives 2, whose first row of two for 2 says Chaotic Evil.
TEST_F(CharacterGenFrameTest, PicksTakeTheFirstCoveringRow) {
    QTemporaryDir app;
    ASSERT_TRUE(app.isValid());
    const QString folder = app.filePath("Core/Table");
    ASSERT_TRUE(QDir().mkpath(folder));
    hoardtest::saveTable(folder, "Random NPC, Alignment",
                         "die\t1d1\n1\t1\ttext\tEvil\n1\t1\ttext\tGood\n");
    hoardtest::saveTable(folder, "Random NPC, Alignment - Evil", "die\t1d1\n1\t1\ttable\tNested\n");
    hoardtest::saveTable(folder, "Nested",
                         "die\t1d1+1\n1\t1\ttext\tLawful Evil\n2\t1\ttext\tChaotic Evil\n"
                         "2\t1\ttext\tNeutral Evil\n");
    hoardtest::saveTable(folder, "Random NPC, Class - Evil", "die\t1d1\n1\t1\ttext\tRogue\n");
    hoardtest::saveTable(folder, "Random NPC, Race, Evil - Rogue",
                         "die\t1d1\n1\t1\ttext\tHalfling\n1\t1\ttext\tHuman\n");
    D_UICharacterGenFrame frame;
    choose(frame, "Human", "Fighter", "Lawful Good", 2);
    DOptions::mAppPath = FCString(app.path());
    for (const char* name : {"mRandomClass", "mRandomRace", "mRandomAlignment"})
        Child<QCheckBox>(frame, name)->setChecked(true);
    frame.Generate();
    EXPECT_EQ(rows(frame), QStringList{"Halfling|Rogue|Chaotic Evil|2|1"});
    // Without the race tables the race cell stays empty.
    Child<QCheckBox>(frame, "mRandomClass")->setChecked(false);
    frame.Generate();
    EXPECT_EQ(rows(frame), QStringList{"|Fighter|Chaotic Evil|2|1"});
}

// A decoded row is a character of the race, class, level and alignment asked for: an ogre's
// 4 hit dice leave 16 of 18 levels; a chaotic good paladin has lost the calling; the user's
// ready third-level elf paladin, saved as a first-level human, grows to three levels in its
// last class and becomes the elf asked for.
TEST_F(CharacterGenFrameTest, DecodedRowsBuildTheRequest) {
    SavePaladin("Ready Hero", "Elf, Paladin, 3rd Level.chr");
    const struct {
        const char* race;
        const char* className;
        const char* alignment;
        int alignmentId;
        int level;
        float classLevel;
        bool ex;
        const char* name; // empty: a generated one
    } cases[] = {
        {"Dwarf", "Fighter", "Lawful Neutral", 17, 5, 5.0f, false, ""},
        {"Ogre", "Fighter", "Chaotic Evil", 36, 18, 16.0f, false, ""},
        {"Human", "Paladin", "Chaotic Good", 12, 2, 2.0f, true, ""},
        {"Elf", "Paladin", "Lawful Good", 9, 3, 3.0f, false, "Ready Hero"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.race);
        D_UICharacterGenFrame frame;
        FCRef<DCharacter> built;
        QObject::connect(&frame, &D_UICharacterGenFrame::characterBuilt,
                         [&built](DCharacter* character, const QString&) {
                             character->Retain();
                             built.reset(character);
                         });
        choose(frame, c.race, c.className, c.alignment, c.level);
        auto* jump = Child<QPushButton>(frame, "mJumpButton");
        EXPECT_FALSE(jump->isEnabled());
        frame.Generate();
        auto* list = Child<QTreeWidget>(frame, "mList");
        list->setCurrentItem(list->topLevelItem(0));
        ASSERT_TRUE(jump->isEnabled());
        jump->click();
        ASSERT_NE(built, nullptr);
        ASSERT_NE(built->GetRace(), nullptr);
        EXPECT_EQ(QString(built->GetRace()->GetRaceName()), QString(c.race));
        const DCharacterClass* own = built->GetClassPointer(hoardtest::classGuid(c.className));
        ASSERT_NE(own, nullptr);
        EXPECT_EQ(own->GetLevel(), c.classLevel);
        EXPECT_EQ(own->GetIsExClass(), c.ex);
        EXPECT_EQ(built->GetAlignmentId(), c.alignmentId);
        if (*c.name) {
            EXPECT_EQ(QString(built->GetCharacterName()), QString(c.name));
        }
    }
}
