#include "D_UIPrintStyleDialog.h"

#include "DOutput.h"

#include <QComboBox>
#include <QPushButton>

D_UIPrintStyleDialog::D_UIPrintStyleDialog(QWidget* parent) : D_UIPrintStyleDialogBase(parent) {}

void D_UIPrintStyleDialog::Setup(const QString& kind, const QString& preferred) {
    mStyles->clear();
    mStyles->addItems(DOutput::StyleSheetNames(kind));
    const int index = mStyles->findText(preferred);
    if (index >= 0)
        mStyles->setCurrentIndex(index);
    mContinue->setEnabled(mStyles->count() > 0);
}

QString D_UIPrintStyleDialog::GetStyleName() const {
    return mStyles->currentText();
}
