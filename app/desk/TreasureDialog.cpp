#include "TreasureDialog.h"

#include "DItem.h"
#include "DObjectManager.h"
#include "DTreasure.h"
#include "D_UIItemRows.h"
#include "FCString.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

TreasureDialog::TreasureDialog(DTreasure* treasure, const QString& title, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("TreasureDialog"));
    setWindowTitle(title);
    treasure->Retain();
    mTreasure.reset(treasure);
    mItems = new QTreeWidget(this);
    mItems->setObjectName(QStringLiteral("mItems"));
    mItems->setHeaderLabels({tr("Treasure"), tr("Cost")});
    mItems->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    mItems->header()->setStretchLastSection(false);
    const DCurrency& coins = mTreasure->GetCurrency();
    if (!coins.IsEmpty()) {
        auto* row = new QTreeWidgetItem(mItems);
        row->setText(0, tr("Coins"));
        row->setText(1, coins.GetCostDescription());
    }
    for (const DItem* item : mTreasure->GetItemArray())
        D_UIItemRows::AddItemRow(mItems, *item);
    mItems->resizeColumnToContents(1);
    DCurrency total;
    mTreasure->GetTotalCost(total);
    mTotal = new QLabel(tr("Total: %1").arg(total.GetCostDescription()), this);
    mTotal->setObjectName(QStringLiteral("mTotal"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* save = buttons->addButton(tr("&Save As..."), QDialogButtonBox::ActionRole);
    connect(save, &QPushButton::clicked, this, &TreasureDialog::SaveAs);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mItems, 1);
    layout->addWidget(mTotal);
    layout->addWidget(buttons);
    resize(560, 420);
}

TreasureDialog::~TreasureDialog() = default;

void TreasureDialog::SaveAs() {
    const QString suggested =
        QDir(QString(DObjectManager::GetObjectPath(kObjectTreasure, kFileUser)))
            .filePath(tr("Generated Treasure.trs"));
    QString path =
        QFileDialog::getSaveFileName(this, tr("Save Treasure"), suggested, tr("Treasures (*.trs)"));
    if (path.isEmpty())
        return;
    if (!path.endsWith(QStringLiteral(".trs"), Qt::CaseInsensitive))
        path += QStringLiteral(".trs");
    if (!mTreasure->SaveToFile(path)) {
        QMessageBox::warning(this, tr("Save Treasure"), tr("%1 cannot be written.").arg(path));
        return;
    }
    DObjectManager::HandleTreasureSave(FCString(path));
}
