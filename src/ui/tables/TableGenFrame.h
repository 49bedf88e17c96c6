#pragma once

#include <QWidget>

#include <vector>

class DFileObject;
class DTable;
class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
struct DTableResult;

// The table roller: the stored tables grouped by the part of their name before a comma, and
// the results of rolling one gathered under a heading per kind, equal results counted
// together.
class TableGenFrame : public QWidget {
    Q_OBJECT
public:
    explicit TableGenFrame(QWidget* parent = nullptr);

    // Selects the table of that base name; false if there is none.
    bool SelectTable(const QString& name);

    // Columns of the result list.
    enum Column { kColumnName = 0, kColumnNumber = 1, kColumnExtra = 2 };

public slots:
    void Generate();

private slots:
    void tableSelected();

private:
    void FillList();
    void Gather(const std::vector<DTableResult>& results);
    void GeneratedItem(const DTableResult& result);
    QTreeWidgetItem* Heading(const QString& text);

    QTreeWidget* mList = nullptr;
    QTreeWidget* mGenerateList = nullptr;
    QPushButton* mGenerateButton = nullptr;
    QCheckBox* mAppendBox = nullptr;
    QPushButton* mCloseButton = nullptr;
    QLabel* mRollLabel = nullptr;
};
