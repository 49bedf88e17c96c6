#pragma once

#include <QString>
#include <QStringList>

class DTable;
class DTableItem;

// The tab-separated text form of a table, for writing one in a text editor or a spreadsheet:
//   die<TAB>2d6+1
//   notes<TAB>free text, \n for a line break
//   roll<TAB>count<TAB>kind<TAB>name<TAB>level<TAB>race<TAB>alignment
// one row per line after the die. Blank lines, lines starting with '#' and a heading line whose
// first cell is "roll" are skipped.
class DTableText {
public:
    DTableText() = delete;

    // Fills `table` (emptied first). False with the 1-based line and the reason on the first
    // fault; `table` is then incomplete.
    static bool Parse(const QString& text, DTable& table, int& errorLine, QString& error);
    static QString Write(const DTable& table);

    // Roll values of the table's die that several rows cover, or none does, each naming the
    // rows (1-based, in table order). Empty for a table whose rows cover each value once.
    static QStringList CheckCoverage(const DTable& table);

    // "4", "2d6+1", "50%", "2-5", "/3": the count cell of a row.
    static QString CountText(const DTableItem& row);
    // "7" or "3-9".
    static QString RollText(const DTableItem& row);
    static QString KindText(int kind);
    // The name cell: the text of a text row, else the base name of the file (with ".mon" for a
    // monster file, where a bare name is a ready race).
    static QString NameText(const DTableItem& row);
};
