#pragma once

#include <QDialog>

class DCharacter;
class QComboBox;
class QLineEdit;
class QSpinBox;

// Asks for a name, a race and a class with its levels, and builds that character by the rules.
class NewCharacterDialog : public QDialog {
    Q_OBJECT
public:
    explicit NewCharacterDialog(QWidget* parent = nullptr);

    // The character chosen, set up by the rules engine (count one), or null if no race could
    // be read.
    DCharacter* CreateCharacter() const;

private:
    QLineEdit* mName = nullptr;
    QComboBox* mRace = nullptr;
    QComboBox* mClass = nullptr;
    QSpinBox* mLevel = nullptr;
};
