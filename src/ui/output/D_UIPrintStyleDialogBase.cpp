#include "D_UIPrintStyleDialogBase.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

D_UIPrintStyleDialogBase::D_UIPrintStyleDialogBase(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Select Output Style"));
    mStyles = new QComboBox(this);
    mStyles->setObjectName("mStyles");
    mStyles->setMinimumContentsLength(24);
    mContinue = new QPushButton(tr("Continue..."), this);
    mContinue->setObjectName("mContinue");
    mContinue->setDefault(true);
    mCancel = new QPushButton(tr("Cancel"), this);
    mCancel->setObjectName("mCancel");
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    buttons->addWidget(mContinue);
    buttons->addWidget(mCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Style:"), this));
    layout->addWidget(mStyles);
    layout->addLayout(buttons);
    connect(mContinue, &QPushButton::clicked, this, &QDialog::accept);
    connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
}
