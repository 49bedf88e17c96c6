#pragma once

#include <QTreeWidgetItem>

#include <array>

// A list row whose columns sort by a number where one is set: cost, level and count columns
// then sort 999 before 1000, as their text would not.
class SortListItem : public QTreeWidgetItem {
public:
    static constexpr int kColumns = 8;

    using QTreeWidgetItem::QTreeWidgetItem;

    // Sets the text and the number the column sorts by; -1 sorts by the text.
    void setText(int column, const QString& text, int value);
    using QTreeWidgetItem::setText;
    int SortValue(int column) const;
    void SetSortValue(int column, int value);

    bool operator<(const QTreeWidgetItem& other) const override;

private:
    std::array<int, kColumns> mValues{-1, -1, -1, -1, -1, -1, -1, -1};
};
