#pragma once

#include <QDialog>

class QPushButton;
class QSpinBox;
class QTreeWidget;

// The form of "Monster Advancement": the race's advancement rows and the new hit dice.
// Widgets and layout only; object names are the members' names.
class D_UIMonsterAdvanceDialogBase : public QDialog {
    Q_OBJECT
public:
    explicit D_UIMonsterAdvanceDialogBase(QWidget* parent = nullptr);

protected:
    QTreeWidget* mAdvancementList = nullptr;
    QSpinBox* mNewHitDice = nullptr;
    QPushButton* mOk = nullptr;
    QPushButton* mCancel = nullptr;
};
