#pragma once

#include "DTableResult.h"

#include <QWidget>

#include <vector>

class DCharacter;
class DFileObject;
class DTable;
class DTreasure;
class QCheckBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

// The table roller: the stored tables grouped by the part of their name before a comma, and
// the results of rolling one gathered under a heading per kind, equal results counted
// together.
class TableGenFrame : public QWidget {
    Q_OBJECT
    Q_MOC_INCLUDE("DCharacter.h")
    Q_MOC_INCLUDE("DTreasure.h")
public:
    explicit TableGenFrame(QWidget* parent = nullptr);

    // Selects the table of that base name; false if there is none.
    bool SelectTable(const QString& name);
    // Selects the first result row of that name; false if there is none.
    bool SelectResult(const QString& name);
    // Shows the stat blocks of every result, built anew.
    void ShowStatBlockTab();
    // The button that opens the selected result; hidden for text and heading rows.
    QPushButton* JumpButton() const { return mJumpButton; }

    // Columns of the result list.
    enum Column { kColumnName = 0, kColumnNumber = 1, kColumnExtra = 2 };

public slots:
    void Generate();
    // Builds the selected result with its overrides and hands it on by a signal.
    void Jump();

signals:
    // A monster or character built from a result; retain it to keep it.
    void creatureBuilt(DCharacter* character, const QString& title);
    // A treasure built from a result; retain it to keep it.
    void treasureBuilt(DTreasure* treasure, const QString& title);

private slots:
    void tableSelected();
    void itemSelected();
    void tabSelected(int index);

private:
    void FillList();
    void UpdateStatblock();
    const DTableResult* ResultOf(const QTreeWidgetItem* item) const;
    void Gather(const std::vector<DTableResult>& results);
    void GeneratedItem(const DTableResult& result);
    QTreeWidgetItem* Heading(const QString& text);

    QTreeWidget* mList = nullptr;
    QTreeWidget* mGenerateList = nullptr;
    QPushButton* mGenerateButton = nullptr;
    QCheckBox* mAppendBox = nullptr;
    QPushButton* mCloseButton = nullptr;
    QLabel* mRollLabel = nullptr;
    QTabWidget* mMainTabs = nullptr;
    QTextBrowser* mBlock = nullptr;
    QPushButton* mJumpButton = nullptr;
    // What each result row came from, kept for building it; rows point in by index.
    std::vector<DTableResult> mResults;
};
