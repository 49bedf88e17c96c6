#include "D_UIMonsterAdvanceDialogBase.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

D_UIMonsterAdvanceDialogBase::D_UIMonsterAdvanceDialogBase(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Monster Advancement"));
    mAdvancementList = new QTreeWidget(this);
    mAdvancementList->setObjectName("mAdvancementList");
    mAdvancementList->setHeaderLabels({tr("From"), tr("To"), tr("Size")});
    mAdvancementList->setRootIsDecorated(false);
    mAdvancementList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mNewHitDice = new QSpinBox(this);
    mNewHitDice->setObjectName("mNewHitDice");
    mOk = new QPushButton(tr("OK"), this);
    mOk->setObjectName("mOk");
    mOk->setDefault(true);
    mCancel = new QPushButton(tr("Cancel"), this);
    mCancel->setObjectName("mCancel");
    auto* spin = new QHBoxLayout();
    spin->addWidget(new QLabel(tr("New HD:"), this));
    spin->addWidget(mNewHitDice);
    spin->addStretch();
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    buttons->addWidget(mOk);
    buttons->addWidget(mCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mAdvancementList);
    layout->addLayout(spin);
    layout->addLayout(buttons);
    connect(mOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
}
