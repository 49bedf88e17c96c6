#include "D_UIMonsterRaceItem.h"

void D_UIMonsterRaceItem::SetHitDice(float hitDice) {
    // Sorted in thousandths, so that 0.125 and 0.5 keep their places below 1.
    setText(kColumnHitDice, QString::number(double(hitDice), 'g', 6), int(hitDice * 1000.0f));
}
