#pragma once

#include "FCReleaser.h"

#include <QDialog>

class DTreasure;
class QTextBrowser;

// A treasure made by a table roll: what it holds, and a way to keep it as a ".trs" file.
class TreasureDialog : public QDialog {
    Q_OBJECT
public:
    // Takes a reference of its own to `treasure`.
    TreasureDialog(DTreasure* treasure, const QString& title, QWidget* parent = nullptr);
    ~TreasureDialog() override;

public slots:
    void SaveAs();

private:
    FCRef<DTreasure> mTreasure;
    QTextBrowser* mView = nullptr;
};
