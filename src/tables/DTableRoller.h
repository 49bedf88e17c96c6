#pragma once

#include "DTableResult.h"
#include "FCReleaser.h"
#include "FCString.h"

#include <functional>
#include <map>
#include <vector>

class DFileObject;
class DTable;
class DTableItem;

// Rolls a table: one roll of its die, then every row that covers the roll gives its result,
// and a row naming another table rolls that one in turn.
class DTableRoller {
public:
    // Nesting stops below this depth, the first table being depth 0.
    static constexpr int kMaxDepth = 32;
    // A table naming itself twice would otherwise roll 2^32 times; past this many nested
    // rolls in one Roll the rest are refused.
    static constexpr int kMaxTableRolls = 10000;
    // More dice than this in one throw come from a broken file, not a table anyone wrote.
    static constexpr int kMaxDice = 10000;

    // The sum of `count` dice of `die` sides.
    using DiceSource = std::function<int(int die, int count)>;
    // The table a row names, or null if there is none.
    using TableLoader = std::function<FCRef<DTable>(const DFileObject& file)>;
    // Whether the monster, character or treasure file a row names can be had.
    using FileCheck = std::function<bool(const DFileObject& file)>;

    // Dice from the program's random source; tables and files from the object folders.
    DTableRoller();
    DTableRoller(DiceSource dice, TableLoader loader, FileCheck check);

    struct Outcome {
        int roll = 0;
        std::vector<DTableResult> results;
    };
    Outcome Roll(const DTable& table);

    // The object file of a row's result, the stored tree first and then the other one; empty
    // when neither has it.
    static FCString FindObjectFile(const DFileObject& file);
    // The overrides a row puts on what it produces: "HD 4", "EL 3", "Lvl 2; Elf; Lawful Good".
    static QString ExtraText(const DTableItem& row);

private:
    void Generate(const DTable& table, int depth, int roll, std::vector<DTableResult>& out);
    int RollTable(const DTable& table);
    int RollDice(int die, int count);
    int RowCount(const DTableItem& row, int roll);
    DTableResult Produce(const DTableItem& row, int count, int depth);
    const DTable* Nested(const DFileObject& file);

    DiceSource mDice;
    TableLoader mLoader;
    FileCheck mCheck;
    // Tables read during one roll, by file; a table naming itself is read once.
    std::map<QString, FCRef<DTable>> mLoaded;
    int mTableRolls = 0;
};
