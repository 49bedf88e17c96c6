#pragma once

#include "ColumnDef.h"

#include <QList>
#include <QString>
#include <QStringList>

// One rules table as the schema declares it.
struct TableDef {
    QString name; // with its square brackets
    QString file;
    int line = 0;
    QList<ColumnDef> columns;
    QStringList primaryKey;
    QList<QStringList> uniqueKeys;

    // Index of a column by case-insensitive name, -1 if absent.
    int columnIndex(const QString& column) const;

    // The column whose empty cells get a name-based GUID: a Guid or SubGuid key column that
    // refers to nothing. -1 if the table has none.
    int identityColumn() const;

    // Index of the "Name" column, -1 if absent.
    int nameColumn() const { return columnIndex(QStringLiteral("Name")); }
};
