#pragma once

#include <QList>
#include <QString>

#include <vector>

// What one row of a rolled table gave. A nested table's rows hang under it as children.
struct DTableResult {
    int kind = 0;     // the row's element kind
    QString name;     // file base name, or the text of a text row
    int count = 0;    // how many
    QString extra;    // the row's overrides, as "HD 4" or "Lvl 3; Elf"
    QString problem;  // why the result could not be produced; empty if it could
    QList<int> rolls; // a nested table: the roll of each pass
    // Where a monster, character or treasure result can be made from: the object file found
    // (empty if none) and its object type, and the row's overrides of hit dice, level or
    // encounter level, race (a ready race's base name) and alignment (0: none).
    QString file;
    int objectType = -1;
    int level = 0;
    QString race;
    int alignment = 0;
    std::vector<DTableResult> children;
};
