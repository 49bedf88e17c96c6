#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

// The form of "Select Output Style": a combo of style sheets and "Continue...". Widgets and
// layout only; object names are the members' names.
class D_UIPrintStyleDialogBase : public QDialog {
    Q_OBJECT
public:
    explicit D_UIPrintStyleDialogBase(QWidget* parent = nullptr);

protected:
    QComboBox* mStyles = nullptr;
    QPushButton* mContinue = nullptr;
    QPushButton* mCancel = nullptr;
};
