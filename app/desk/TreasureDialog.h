#pragma once

#include "FCReleaser.h"

#include <QDialog>

class DTreasure;
class QLabel;
class QTreeWidget;

// A treasure made by a table roll or read from a ".trs" file: its coins and items (with the
// minds and curses of magic items), its total, and a way to keep it as a ".trs" file.
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
    QTreeWidget* mItems = nullptr;
    QLabel* mTotal = nullptr;
};
