#pragma once

#include "TableDef.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

// The rows of one table on their way into the database: the cells as written (in schema
// column order, a null QString for a column the file leaves out) and the values they become.
struct RuleTable {
    const TableDef* def = nullptr;
    QString file; // the row file; empty if the table has no rows
    QList<int> lines;
    QList<QStringList> cells;
    QList<QVariantList> values;

    qsizetype rowCount() const { return lines.size(); }
};
