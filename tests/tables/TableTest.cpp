// Tables: rolling with scripted dice, every count and element kind, the depth stop, the file
// and its hostile forms, and the tab-separated text form.
#include "DTable.h"
#include "DTableItem.h"
#include "DTableRoller.h"
#include "DTableText.h"
#include "FCArchive.h"
#include "FuzzTargets.h"
#include "TestSupport.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <climits>

#include <deque>
#include <utility>

namespace {

// Dice that give what the test says, and remember what was asked of them.
struct ScriptedDice {
    std::deque<int> values;
    std::vector<std::pair<int, int>> asked; // die, count

    DTableRoller::DiceSource Source() {
        return [this](int die, int count) {
            asked.emplace_back(die, count);
            if (values.empty()) {
                ADD_FAILURE() << "more dice rolled than scripted";
                return 0;
            }
            const int value = values.front();
            values.pop_front();
            return value;
        };
    }
};

FCRef<DTable> makeTable(int count, int die, int modifier) {
    FCRef<DTable> table(new DTable());
    table->setCount(count);
    table->setDie(die);
    table->setModifier(modifier);
    return table;
}

DTableItem* addRow(DTable& table, int from, int to, int kind, const QString& name) {
    FCRef<DTableItem> row(new DTableItem());
    row->setResult(from == to ? DTableItem::kResultValue : DTableItem::kResultRange);
    row->setResultData(from, to);
    row->setCount(DTableItem::kCountFixed);
    row->setCountData(1, 0, 0);
    row->setGenerate(kind);
    if (kind == DTableItem::kElementText) {
        row->setGenerateData(nullptr, FCString(name));
    } else {
        const DObjectType type = kind == DTableItem::kElementMonster     ? kObjectRace
                                 : kind == DTableItem::kElementCharacter ? kObjectCharacter
                                 : kind == DTableItem::kElementTreasure  ? kObjectTreasure
                                                                         : kObjectTable;
        const DFileObject file(type, kFileUser, FCString(name + ".x"));
        row->setGenerateData(&file, FCString());
    }
    table.AddItem(row.get());
    return row.get();
}

// Tables by base name; every monster, character and treasure file exists unless named "Gone".
struct World {
    std::map<QString, DTable*> tables;
    int loads = 0;

    DTableRoller::TableLoader Loader() {
        return [this](const DFileObject& file) {
            ++loads;
            const auto it = tables.find(file.GetBaseFileName());
            if (it == tables.end())
                return FCRef<DTable>();
            it->second->Retain();
            return FCRef<DTable>(it->second);
        };
    }
    static DTableRoller::FileCheck Check() {
        return [](const DFileObject& file) { return file.GetBaseFileName() != "Gone"; };
    }
};

FCRef<DTable> roundTrip(DTable& table, const QString& path) {
    EXPECT_TRUE(table.SaveToFile(FCString(path)));
    return FCRef<DTable>(DTable::CreateFromFile(FCString(path)));
}

} // namespace

TEST(TableRoll, NestedRollMatchesHandWorkedDice) {
    // Outer 2d6+1: dice 7, roll 8. Rows 2-8 (Inner, 1d3 times) and 8 (text, 50% of 8 = 4)
    // fire; 9-13 does not. Inner 1d4 twice: 3 gives the treasure (3 / 2 = 1), 1 the wolves.
    auto outer = makeTable(2, 6, 1);
    auto inner = makeTable(1, 4, 0);
    DTableItem* nested = addRow(*outer, 2, 8, DTableItem::kElementTable, "Inner");
    nested->setCount(DTableItem::kCountDice);
    nested->setCountData(1, 3, 0);
    DTableItem* storm = addRow(*outer, 8, 8, DTableItem::kElementText, "Storm");
    storm->setCount(DTableItem::kCountPercent);
    storm->setCountData(50, 0, 0);
    addRow(*outer, 9, 13, DTableItem::kElementMonster, "Ogre");
    DTableItem* wolves = addRow(*inner, 1, 2, DTableItem::kElementMonster, "Wolf");
    wolves->setCountData(3, 0, 0);
    wolves->setMiscData(5, nullptr, 0, FCString());
    DTableItem* gold = addRow(*inner, 3, 3, DTableItem::kElementTreasure, "Gold");
    gold->setCount(DTableItem::kCountDivide);
    gold->setCountData(2, 0, 0);
    addRow(*inner, 4, 4, DTableItem::kElementTable, "Inner");

    ScriptedDice dice{{7, 2, 3, 1}, {}};
    World world;
    world.tables["Inner"] = inner.get();
    DTableRoller roller(dice.Source(), world.Loader(), World::Check());
    const DTableRoller::Outcome outcome = roller.Roll(*outer);

    EXPECT_EQ(outcome.roll, 8);
    const std::vector<std::pair<int, int>> asked{{6, 2}, {3, 1}, {4, 1}, {4, 1}};
    EXPECT_EQ(dice.asked, asked);
    ASSERT_EQ(outcome.results.size(), 2u);
    const DTableResult& table = outcome.results[0];
    EXPECT_EQ(table.kind, DTableItem::kElementTable);
    EXPECT_EQ(table.name, "Inner");
    EXPECT_EQ(table.count, 2);
    EXPECT_EQ(table.rolls, (QList<int>{3, 1}));
    ASSERT_EQ(table.children.size(), 2u);
    EXPECT_EQ(table.children[0].name, "Gold");
    EXPECT_EQ(table.children[0].count, 1);
    EXPECT_EQ(table.children[1].name, "Wolf");
    EXPECT_EQ(table.children[1].count, 3);
    EXPECT_EQ(table.children[1].extra, "HD 5");
    EXPECT_EQ(outcome.results[1].name, "Storm");
    EXPECT_EQ(outcome.results[1].count, 4);
}

TEST(TableRoll, CountKinds) {
    // Each row is the only one of a 1d1+M table, so the roll is 1 + M; `dice` is what the
    // count's own die gives.
    const struct {
        const char* what;
        int modifier;
        int kind, number, die, countModifier;
        int dice;
        int expected;
        std::pair<int, int> asked; // the count's die and dice; {0, 0} when none are rolled
    } cases[] = {
        {"fixed", 0, DTableItem::kCountFixed, 4, 0, 0, 0, 4, {0, 0}},
        {"fixed zero", 0, DTableItem::kCountFixed, 0, 0, 0, 0, 0, {0, 0}},
        {"2d6+1", 0, DTableItem::kCountDice, 2, 6, 1, 9, 10, {6, 2}},
        {"1d4-2", 0, DTableItem::kCountDice, 1, 4, -2, 1, -1, {4, 1}},
        {"150% of 7", 6, DTableItem::kCountPercent, 150, 0, 0, 0, 10, {0, 0}},
        {"50% of -3 truncates toward zero", -4, DTableItem::kCountPercent, 50, 0, 0, 0, -1, {0, 0}},
        {"range 2-5 low die", 0, DTableItem::kCountRange, 2, 5, 0, 1, 3, {3, 1}},
        {"range 2-5 high die", 0, DTableItem::kCountRange, 2, 5, 0, 3, 5, {3, 1}},
        {"8 / 3", 7, DTableItem::kCountDivide, 3, 0, 0, 0, 2, {0, 0}},
        {"-7 / 2 rounds toward zero", -8, DTableItem::kCountDivide, 2, 0, 0, 0, -3, {0, 0}},
        {"divide by zero gives nothing", 4, DTableItem::kCountDivide, 0, 0, 0, 0, 0, {0, 0}},
        {"unknown kind", 0, 9, 4, 4, 4, 0, 0, {0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto table = makeTable(1, 1, c.modifier);
        const int roll = 1 + c.modifier;
        DTableItem* row = addRow(*table, roll, roll, DTableItem::kElementText, "x");
        row->setCount(c.kind);
        row->setCountData(c.number, c.die, c.countModifier);
        ScriptedDice dice{{1}, {}};
        if (c.asked.first)
            dice.values.push_back(c.dice);
        World world;
        const auto outcome =
            DTableRoller(dice.Source(), world.Loader(), World::Check()).Roll(*table);
        ASSERT_EQ(outcome.results.size(), 1u);
        EXPECT_EQ(outcome.results[0].count, c.expected);
        if (c.asked.first) {
            ASSERT_EQ(dice.asked.size(), 2u);
            EXPECT_EQ(dice.asked[1], c.asked);
        } else {
            EXPECT_EQ(dice.asked.size(), 1u);
        }
    }
}

TEST(TableRoll, MatchingRows) {
    // 1d10 rolled 5: a value row, ranges around and beside it, and a row of no known kind.
    auto table = makeTable(1, 10, 0);
    addRow(*table, 5, 5, DTableItem::kElementText, "value five");
    addRow(*table, 6, 6, DTableItem::kElementText, "value six");
    addRow(*table, 1, 5, DTableItem::kElementText, "range to five");
    addRow(*table, 6, 10, DTableItem::kElementText, "range from six");
    addRow(*table, 5, 5, DTableItem::kElementText, "odd kind")->setResult(2);
    addRow(*table, 4, 7, DTableItem::kElementText, "range around");

    ScriptedDice dice{{5}, {}};
    World world;
    const auto outcome = DTableRoller(dice.Source(), world.Loader(), World::Check()).Roll(*table);
    QStringList fired;
    for (const DTableResult& result : outcome.results)
        fired << result.name;
    EXPECT_EQ(fired, (QStringList{"value five", "range to five", "range around"}));

    ScriptedDice miss{{11}, {}};
    auto none = DTableRoller(miss.Source(), world.Loader(), World::Check()).Roll(*table);
    EXPECT_TRUE(none.results.empty());
}

TEST(TableRoll, NewTableRollsOne) {
    // A fresh table is 1d1+0, so its row for 1 fires whatever the program's dice do.
    auto table = makeTable(1, 1, 0);
    DTable fresh;
    EXPECT_EQ(fresh.DieText(), "1d1");
    fresh.AddItem(addRow(*table, 1, 1, DTableItem::kElementText, "always"));
    const auto outcome = DTableRoller().Roll(fresh);
    EXPECT_EQ(outcome.roll, 1);
    ASSERT_EQ(outcome.results.size(), 1u);
    EXPECT_EQ(outcome.results[0].name, "always");
}

TEST(TableRoll, ElementKinds) {
    const struct {
        int kind;
        const char* name;
        int level, alignment;
        const char* race;
        const char* extra;
        const char* problem;
    } cases[] = {
        {DTableItem::kElementMonster, "Wolf", 4, 0, nullptr, "HD 4", ""},
        {DTableItem::kElementMonster, "Gone", 0, 0, nullptr, "", "no monster named 'Gone'"},
        {DTableItem::kElementCharacter, "Bob", 3, 14, "Elf", "Lvl 3; Elf; True Neutral", ""},
        {DTableItem::kElementCharacter, "Gone", 0, 0, nullptr, "", "no character named 'Gone'"},
        {DTableItem::kElementTreasure, "Hoard", 7, 0, nullptr, "EL 7", ""},
        {DTableItem::kElementTreasure, "Gone", 0, 0, nullptr, "", "no treasure named 'Gone'"},
        {DTableItem::kElementTable, "Missing", 0, 0, nullptr, "", "no table named 'Missing'"},
        {DTableItem::kElementText, "Gone", 0, 0, nullptr, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto table = makeTable(1, 1, 0);
        DTableItem* row = addRow(*table, 1, 1, c.kind, c.name);
        const DFileObject race(kObjectRace, kFileCore, FCString(c.race ? c.race : ""));
        row->setMiscData(c.level, c.race ? &race : nullptr, c.alignment,
                         FCString(c.alignment ? "True Neutral" : ""));
        ScriptedDice dice{{1}, {}};
        World world;
        const auto outcome =
            DTableRoller(dice.Source(), world.Loader(), World::Check()).Roll(*table);
        ASSERT_EQ(outcome.results.size(), 1u);
        EXPECT_EQ(outcome.results[0].kind, c.kind);
        EXPECT_EQ(outcome.results[0].name, c.name);
        EXPECT_EQ(outcome.results[0].extra, c.extra);
        EXPECT_EQ(outcome.results[0].problem, c.problem);
    }
}

TEST(TableRoll, NestedTableWithNoCountIsNotRolled) {
    auto table = makeTable(1, 1, 0);
    addRow(*table, 1, 1, DTableItem::kElementTable, "Inner")->setCountData(0, 0, 0);
    ScriptedDice dice{{1}, {}};
    World world;
    const auto outcome = DTableRoller(dice.Source(), world.Loader(), World::Check()).Roll(*table);
    ASSERT_EQ(outcome.results.size(), 1u);
    EXPECT_EQ(outcome.results[0].count, 0);
    EXPECT_TRUE(outcome.results[0].children.empty());
    EXPECT_EQ(world.loads, 0);
}

TEST(TableRoll, TableNamingItselfStopsAtTheDepthLimit) {
    // Depth 0 is the first table; tables at depths 1 to 32 are rolled, the 33rd is refused.
    auto self = makeTable(1, 1, 0);
    addRow(*self, 1, 1, DTableItem::kElementTable, "Self");
    World world;
    world.tables["Self"] = self.get();
    DTableRoller roller([](int, int) { return 1; }, world.Loader(), World::Check());
    const auto outcome = roller.Roll(*self);

    int rolledTables = 0;
    const DTableResult* node = &outcome.results.at(0);
    while (!node->children.empty()) {
        EXPECT_EQ(node->rolls, QList<int>{1});
        ++rolledTables;
        node = &node->children.at(0);
    }
    EXPECT_EQ(rolledTables, DTableRoller::kMaxDepth);
    EXPECT_EQ(node->problem, "not rolled: tables nest deeper than 32");
    EXPECT_EQ(world.loads, 1);
}

TEST(TableRoll, TableNamingItselfTwiceStopsAtTheRollLimit) {
    // Each pass rolls itself twice: unchecked that is 2^33 rolls. The limit ends it, and the
    // row that hit it says so.
    auto self = makeTable(1, 1, 0);
    addRow(*self, 1, 1, DTableItem::kElementTable, "Self")->setCountData(2, 0, 0);
    World world;
    world.tables["Self"] = self.get();
    int rolls = 0;
    DTableRoller roller([&rolls](int, int) { return ++rolls, 1; }, world.Loader(), World::Check());
    const auto outcome = roller.Roll(*self);
    // The first table's own roll, then the nested ones up to the limit.
    EXPECT_EQ(rolls, 1 + DTableRoller::kMaxTableRolls);
    const DTableResult* node = &outcome.results.at(0);
    while (node->problem.isEmpty()) {
        ASSERT_FALSE(node->children.empty());
        node = &node->children.back();
    }
    EXPECT_EQ(node->problem, "not rolled: more than 10000 table rolls at once");
}

TEST(TableFile, SaveAndLoadKeepTheStoredFields) {
    QTemporaryDir dir;
    auto table = makeTable(3, 8, -2);
    table->setNotes(FCString("night\nonly"));
    const int kinds[] = {DTableItem::kCountFixed, DTableItem::kCountDice, DTableItem::kCountPercent,
                         DTableItem::kCountRange, DTableItem::kCountDivide};
    for (int kind : kinds) {
        DTableItem* row = addRow(*table, kind, kind + 2, DTableItem::kElementMonster, "Orc");
        row->setCount(kind);
        row->setCountData(2, 5, 1);
        row->setCondition(kind * 10);
    }
    const DFileObject race(kObjectRace, kFileCore, FCString("Elf.rac"));
    addRow(*table, 9, 9, DTableItem::kElementCharacter, "Bob")
        ->setMiscData(3, &race, 14, FCString("TN"));
    DTableItem* text = addRow(*table, 10, 10, DTableItem::kElementText, "Rain");
    const DFileObject stray(kObjectTable, kFileCore, FCString("Stray.tbl"));
    text->setFileObject(stray);

    const auto loaded = roundTrip(*table, dir.filePath("Night Road.tbl"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->Name(), "Night Road");
    EXPECT_EQ(loaded->DieText(), "3d8-2");
    EXPECT_EQ(loaded->Notes(), "night\nonly");
    const auto& rows = loaded->GetItemArray();
    ASSERT_EQ(rows.GetCount(), 7);
    // Only dice keep the die and modifier, only a range count its high end; the rest read 0.
    const int expectedDie[] = {0, 5, 0, 5, 0};
    const int expectedModifier[] = {0, 1, 0, 0, 0};
    for (int kind : kinds) {
        SCOPED_TRACE(kind);
        const DTableItem* row = rows.At(kind);
        EXPECT_EQ(row->Count(), kind);
        EXPECT_EQ(row->CountNumber(), 2);
        EXPECT_EQ(row->CountDie(), expectedDie[kind]);
        EXPECT_EQ(row->CountModifier(), expectedModifier[kind]);
        EXPECT_EQ(row->Condition(), kind * 10);
        EXPECT_EQ(row->ResultTo(), row->Result() == DTableItem::kResultRange ? kind + 2 : 0);
        EXPECT_EQ(row->GenerateFile().GetRelativeFilePath(), "Orc.x");
    }
    ASSERT_TRUE(rows.At(5)->MiscRace());
    EXPECT_EQ(rows.At(5)->MiscRace()->GetRelativeFilePath(), "Elf.rac");
    EXPECT_EQ(rows.At(5)->MiscLevel(), 3);
    EXPECT_EQ(rows.At(5)->MiscAlignment(), 14);
    EXPECT_TRUE(rows.At(5)->MiscAlignmentText().isEmpty());
    EXPECT_EQ(rows.At(6)->GenerateString(), "Rain");
    EXPECT_TRUE(rows.At(6)->GenerateFile().GetRelativeFilePath().isEmpty());
}

TEST(TableFile, UnreadableFilesGiveNoTable) {
    QTemporaryDir dir;
    auto table = makeTable(1, 6, 0);
    DTableItem* row = addRow(*table, 1, 6, DTableItem::kElementText, "x");
    row->setMiscData(0, nullptr, 0x5A5A5A5A, FCString());
    const QString good = dir.filePath("Good.tbl");
    ASSERT_TRUE(table->SaveToFile(FCString(good)));
    const QByteArray bytes = hoardtest::readFile(good);
    ASSERT_TRUE(FCRef<DTable>(DTable::CreateFromFile(FCString(good))));

    // Cut short anywhere before the end, the table is refused.
    for (int length = 0; length < bytes.size(); ++length) {
        const QString cut = dir.filePath("Cut.tbl");
        ASSERT_TRUE(hoardtest::writeFile(cut, bytes.left(length)));
        EXPECT_FALSE(FCRef<DTable>(DTable::CreateFromFile(FCString(cut)))) << length;
    }

    // Header 12 bytes, class name 2 + 6, then the rows' mode and count.
    const int countOffset = 12 + 8 + 4;
    // The race flag sits just before the alignment.
    const int raceFlagOffset = int(bytes.indexOf(QByteArray("\x5A\x5A\x5A\x5A"))) - 4;
    ASSERT_GT(raceFlagOffset, countOffset);
    const struct {
        const char* what;
        int offset;
        QByteArray value;
    } faults[] = {
        {"another file kind's signature", 4, QByteArray("\x01\x01\x01\x01", 4)},
        {"a huge row count", countOffset, QByteArray("\x7F\xFF\xFF\xFF", 4)},
        {"a negative row count", countOffset, QByteArray("\xFF\xFF\xFF\xFF", 4)},
        {"an unknown ownership mode", countOffset - 4, QByteArray("\x00\x00\x00\x07", 4)},
        {"a race flag that is neither 0 nor 1", raceFlagOffset, QByteArray("\x00\x00\x00\x07", 4)},
        {"a race flag with no race behind it", raceFlagOffset, QByteArray("\x00\x00\x00\x01", 4)},
    };
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.what);
        QByteArray hostile = bytes;
        hostile.replace(fault.offset, fault.value.size(), fault.value);
        const QString path = dir.filePath("Hostile.tbl");
        ASSERT_TRUE(hoardtest::writeFile(path, hostile));
        EXPECT_FALSE(FCRef<DTable>(DTable::CreateFromFile(FCString(path))));
    }
}

TEST(TableText, ImportExportImportKeepsTheTable) {
    const QString text = "die\t2d6+1\n"
                         "notes\tback\\\\slash\\nand a line\n"
                         "roll\tcount\tkind\tname\tlevel\trace\talignment\n"
                         "2-4\t3\tmonster\tWolf\t4\n"
                         "5\t1d4+1\tmonster\tSaved.mon\n"
                         "5-7\t50%\tcharacter\tGuard\t3\tHalf-Elf\t14\n"
                         "8\t2-5\ttreasure\tPurse\t2\n"
                         "-1--1\t/2\ttable\tOther Table\n"
                         "13\t0\ttext\tNothing at all\n";
    FCRef<DTable> first(new DTable());
    int line = 0;
    QString error;
    ASSERT_TRUE(DTableText::Parse(text, *first, line, error)) << line << error.toStdString();
    EXPECT_EQ(DTableText::Write(*first), text);
    FCRef<DTable> second(new DTable());
    ASSERT_TRUE(DTableText::Parse(DTableText::Write(*first), *second, line, error));
    EXPECT_TRUE(*first == *second);

    // Spot checks that the cells landed in the right fields.
    const auto& rows = first->GetItemArray();
    EXPECT_EQ(first->Notes(), "back\\slash\nand a line");
    EXPECT_EQ(rows.At(1)->GenerateFile().GetObjectType(), kObjectMonster);
    EXPECT_EQ(rows.At(0)->GenerateFile().GetObjectType(), kObjectRace);
    EXPECT_EQ(rows.At(2)->MiscRace()->GetBaseFileName(), "Half-Elf");
    EXPECT_EQ(rows.At(2)->Count(), DTableItem::kCountPercent);
    EXPECT_EQ(rows.At(3)->CountDie(), 5);
    EXPECT_EQ(rows.At(4)->ResultFrom(), -1);
    EXPECT_EQ(rows.At(4)->Result(), DTableItem::kResultRange);
}

TEST(TableText, MalformedLinesNameTheLine) {
    const struct {
        const char* text;
        int line;
        const char* reason;
    } cases[] = {
        {"1\t1\ttext\tx\n", 1, "rows come after a 'die' line"},
        {"# only a comment\n\n", 3, "no 'die' line"},
        {"die\td6\n", 1, "'die' wants one cell"},
        {"die\t1d6\ndie\t1d8\n", 2, "a second 'die' line"},
        {"die\t1d6\n\n1\t1\ttext\n", 3, "found 3 cells"},
        {"die\t1d6\n1\t1\ttext\tx\t1\tElf\t0\textra\n", 2, "at most 7 cells"},
        {"die\t1d6\n6-2\t1\ttext\tx\n", 2, "roll '6-2'"},
        {"die\t1d6\n1\tmany\ttext\tx\n", 2, "count 'many'"},
        {"die\t1d6\n1\t/0\ttext\tx\n", 2, "count '/0'"},
        {"die\t1d6\n1\t5-5\ttext\tx\n", 2, "count '5-5'"},
        {"die\t1d6\n1\t1\tdragon\tx\n", 2, "kind 'dragon'"},
        {"die\t1d6\n1\t1\tmonster\t\t3\n", 2, "name cell is empty"},
        {"die\t1d6\n1\t1\tmonster\tOrc\tfour\n", 2, "level 'four'"},
        {"die\t1d6\n1\t1\tcharacter\tBob\t1\tElf\tWicked\n", 2, "alignment 'Wicked'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        FCRef<DTable> table(new DTable());
        int line = 0;
        QString error;
        EXPECT_FALSE(DTableText::Parse(QString::fromUtf8(c.text), *table, line, error));
        EXPECT_EQ(line, c.line);
        EXPECT_TRUE(error.contains(QLatin1String(c.reason))) << error.toStdString();
    }
}

TEST(TableText, CoverageWarningsNameTheRows) {
    // 1d8: rows 1-3, 3-4, 4, 6; 3 and 4 are doubled, 5, 7 and 8 are bare.
    FCRef<DTable> table(new DTable());
    int line = 0;
    QString error;
    ASSERT_TRUE(DTableText::Parse("die\t1d8\n1-3\t1\ttext\ta\n3-4\t1\ttext\tb\n"
                                  "4\t1\ttext\tc\n6\t1\ttext\td\n",
                                  *table, line, error));
    EXPECT_EQ(DTableText::CheckCoverage(*table),
              (QStringList{"rows 1 and 2 cover 3", "rows 2 and 3 cover 4",
                           "no row covers 5 (after rows 2 and 3, before row 4)",
                           "no row covers 7-8 (after row 4)"}));

    ASSERT_TRUE(DTableText::Parse("die\t2d4-2\n0-6\t1\ttext\tall\n", *table, line, error));
    EXPECT_TRUE(DTableText::CheckCoverage(*table).isEmpty());

    // A damaged file's modifier at the edge of an int (found by fuzzing): neither the check
    // nor a roll may overflow. The check leaves such a table alone; the roll stops at the edge.
    auto edge = makeTable(1, 6, INT_MAX);
    addRow(*edge, INT_MAX, INT_MAX, DTableItem::kElementText, "top");
    EXPECT_TRUE(DTableText::CheckCoverage(*edge).isEmpty());
    ScriptedDice dice{{6}, {}};
    World world;
    const auto outcome = DTableRoller(dice.Source(), world.Loader(), World::Check()).Roll(*edge);
    EXPECT_EQ(outcome.roll, INT_MAX);
    ASSERT_EQ(outcome.results.size(), 1u);
    EXPECT_EQ(outcome.results[0].name, QStringLiteral("top"));
}
