#include "D_UIMonsterAdvanceDialog.h"

#include "DCharacter.h"
#include "DDatabase.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSizeInfo.h"

#include <algorithm>

#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>

D_UIMonsterAdvanceDialog::D_UIMonsterAdvanceDialog(QWidget* parent)
    : D_UIMonsterAdvanceDialogBase(parent) {}

bool D_UIMonsterAdvanceDialog::Setup(DCharacter* character) {
    mAdvancementList->clear();
    const DRace* race = character ? character->GetRace() : nullptr;
    if (!race)
        return false;
    for (const DRaceAdvance* advance : race->GetAdvanceArray()) {
        const DSizeInfo* size = DDatabase::GetSizeInfo(advance->GetSizeId());
        new QTreeWidgetItem(mAdvancementList, {QString::number(advance->GetMinHitDie()),
                                               QString::number(advance->GetMaxHitDie()),
                                               size ? QString(size->GetSizeName()) : QString()});
    }
    const float level = character->GetCharacterLevel();
    const int lowest = level < 1.0f ? 1 : int(level + 1.0f);
    const int highest = int(race->GetMaxHitDieCount());
    mNewHitDice->setRange(lowest, std::max(lowest, highest));
    mNewHitDice->setValue(lowest);
    const bool canAdvance = highest >= lowest;
    mNewHitDice->setEnabled(canAdvance);
    mOk->setEnabled(canAdvance);
    return canAdvance;
}

float D_UIMonsterAdvanceDialog::GetNewHitDice() const {
    return float(mNewHitDice->value());
}
