#pragma once

#include "DiceGenFrameBase.h"

#include <QString>

#include <array>

// The interactive die roller: a count, a die, a modifier and a number of sets, nine quick
// buttons from the rules database, and a list of rolls that is replaced or, with "Append",
// grows under one item per expression.
class DiceGenFrame : public DiceGenFrameBase {
    Q_OBJECT
public:
    explicit DiceGenFrame(QWidget* parent = nullptr);

    // Rolls `sets` sums of `count` dice plus `modifier` into the list, one child each.
    void DieRoll(int count, int die, int modifier, int sets);

    // "&3. Quick 2d6+1", "&1. Quick d20": the caption of a quick button.
    static QString BuildQuickCaption(int id, int count, int die, int modifier);
    // "3d6+2", "3d6-1", "3d6": the list item of a roll.
    static QString BuildRollLabel(int count, int die, int modifier);

    // The data role of a roll's child that holds its place among its siblings.
    static constexpr int kOrderRole = Qt::UserRole + 1;

public slots:
    void slotRoll();
    void slotQuickButton(int id);
    void slotDieCombo(int index);
    // Any tab but the roll list shows the list as a stat block, made afresh.
    void slotTabSelected(int index);

public:
    // Writes the list through the Roll stat block and shows "block.txt" in its tab.
    void UpdateStatblock();

private:
    void FillDieCombo();
    void LoadQuickButtons();

    // By quick-button id 1 to 9; zero until the database fills them.
    std::array<int, kQuickButtonCount + 1> mQuickDieCount{};
    std::array<int, kQuickButtonCount + 1> mQuickDieId{};
    std::array<int, kQuickButtonCount + 1> mQuickModifier{};
};
