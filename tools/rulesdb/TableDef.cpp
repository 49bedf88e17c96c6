#include "TableDef.h"

int TableDef::columnIndex(const QString& column) const {
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

int TableDef::identityColumn() const {
    for (const QString& candidate : {QStringLiteral("SubGuid"), QStringLiteral("Guid")}) {
        const int index = columnIndex(candidate);
        if (index < 0 || !columns[index].isGuid() || columns[index].isReference())
            continue;
        if (primaryKey.contains(columns[index].name, Qt::CaseInsensitive))
            return index;
    }
    return -1;
}
