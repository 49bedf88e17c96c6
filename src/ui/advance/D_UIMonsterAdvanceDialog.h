#pragma once

#include "D_UIMonsterAdvanceDialogBase.h"

class DCharacter;

// Picks new racial hit dice for a monster within its race's advancement: the list shows the
// rows (from, to, size) and the spin box runs from one above the present hit dice to the
// race's maximum, so the dialog only raises.
class D_UIMonsterAdvanceDialog : public D_UIMonsterAdvanceDialogBase {
    Q_OBJECT
public:
    explicit D_UIMonsterAdvanceDialog(QWidget* parent = nullptr);

    // False (and nothing to pick) when the monster cannot advance further.
    bool Setup(DCharacter* character);
    float GetNewHitDice() const;
};
