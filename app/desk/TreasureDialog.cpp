#include "TreasureDialog.h"

#include "DObjectManager.h"
#include "DTreasure.h"
#include "FCString.h"
#include "TableResultBuilder.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

TreasureDialog::TreasureDialog(DTreasure* treasure, const QString& title, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("TreasureDialog"));
    setWindowTitle(title);
    treasure->Retain();
    mTreasure.reset(treasure);
    mView = new QTextBrowser(this);
    mView->setObjectName(QStringLiteral("mView"));
    mView->setHtml(TableResultBuilder::TreasureHtml(*mTreasure));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* save = buttons->addButton(tr("&Save As..."), QDialogButtonBox::ActionRole);
    connect(save, &QPushButton::clicked, this, &TreasureDialog::SaveAs);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mView, 1);
    layout->addWidget(buttons);
    resize(480, 360);
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
