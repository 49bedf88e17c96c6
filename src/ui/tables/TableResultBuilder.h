#pragma once

#include "FCReleaser.h"

#include <QString>

class DCharacter;
class DTreasure;
struct DTableResult;

// Turns a rolled table result into the object it stands for, with the row's overrides
// applied: a monster at the row's hit dice, a character raised to the row's level and given
// its race and alignment, a treasure generated for the row's encounter level.
class TableResultBuilder {
public:
    TableResultBuilder() = delete;

    // A monster or character result as a set-up character; null with `error` set when the file
    // cannot be read or the override cannot be carried out.
    static FCRef<DCharacter> BuildCreature(const DTableResult& result, QString& error);
    // A treasure result: the stored treasure, or an empty one, with a hoard of the row's
    // encounter level added; the stored one alone when the row names no level.
    static FCRef<DTreasure> BuildTreasure(const DTableResult& result, QString& error);

    // Sets the alignment and marks each class the alignment does not allow as ex-class (a
    // single first level taken before other classes excepted). The caller runs the setup.
    static void ApplyAlignment(DCharacter& character, int alignment);
    // The title a built object's window takes: "Generated Monster" and so on.
    static QString Title(const DTableResult& result);
    // A treasure as HTML lines: its coins, each item with its price, the total.
    static QString TreasureHtml(const DTreasure& treasure);
};
