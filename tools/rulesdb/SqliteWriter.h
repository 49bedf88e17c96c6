#pragma once

#include "RuleTable.h"
#include "SchemaParser.h"

#include <QList>
#include <QString>

// Writes the resolved tables into a new SQLite file. The file is built under a temporary
// name beside the target and renamed into place only when complete, so a failed build never
// leaves a half database where the old one was.
class SqliteWriter {
public:
    // Throws BuildError (naming the output file) if the database cannot be written.
    void write(const QString& path, const QList<RuleTable>& tables,
               const QList<SchemaParser::Index>& indexes) const;

    // The CREATE TABLE statement for a table; every name is bracketed.
    static QString createStatement(const TableDef& table);

private:
    void fill(const QString& connection, const QString& path, const QList<RuleTable>& tables,
              const QList<SchemaParser::Index>& indexes) const;
};
