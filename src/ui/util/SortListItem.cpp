#include "SortListItem.h"

void SortListItem::setText(int column, const QString& text, int value) {
    QTreeWidgetItem::setText(column, text);
    SetSortValue(column, value);
}

int SortListItem::SortValue(int column) const {
    return column >= 0 && column < kColumns ? mValues[size_t(column)] : -1;
}

void SortListItem::SetSortValue(int column, int value) {
    if (column >= 0 && column < kColumns)
        mValues[size_t(column)] = value;
}

bool SortListItem::operator<(const QTreeWidgetItem& other) const {
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    const auto* sortable = dynamic_cast<const SortListItem*>(&other);
    const int mine = SortValue(column);
    const int theirs = sortable ? sortable->SortValue(column) : -1;
    if (mine != -1 && theirs != -1)
        return mine < theirs;
    return QTreeWidgetItem::operator<(other);
}
