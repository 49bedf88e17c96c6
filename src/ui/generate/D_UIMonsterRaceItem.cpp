#include "D_UIMonsterRaceItem.h"

#include "DFileObject.h"

D_UIMonsterRaceItem::D_UIMonsterRaceItem(QTreeWidget* parent, const QString& name)
    : QTreeWidgetItem(parent, {name}) {}

D_UIMonsterRaceItem::D_UIMonsterRaceItem(QTreeWidgetItem* parent, const QString& name)
    : QTreeWidgetItem(parent, {name}) {}

void D_UIMonsterRaceItem::SetFileObject(DFileObject* file) {
    if (file)
        file->Retain();
    mFile.reset(file);
}

bool D_UIMonsterRaceItem::operator<(const QTreeWidgetItem& other) const {
    const int column = treeWidget() ? treeWidget()->sortColumn() : kColumnName;
    // Hit dice may be fractions (0.5, 0.125); a group row without any sorts first.
    if (column == kColumnHitDice) {
        const QString mine = text(column);
        const QString theirs = other.text(column);
        const double a = mine.isEmpty() ? -1.0 : mine.toDouble();
        const double b = theirs.isEmpty() ? -1.0 : theirs.toDouble();
        if (a != b)
            return a < b;
        return text(kColumnName) < other.text(kColumnName);
    }
    return QTreeWidgetItem::operator<(other);
}
