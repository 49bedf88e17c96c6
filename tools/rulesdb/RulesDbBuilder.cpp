#include "RulesDbBuilder.h"

#include "BuildError.h"
#include "PostgresWriter.h"
#include "RowFile.h"
#include "RowResolver.h"
#include "SchemaParser.h"
#include "SqliteWriter.h"
#include "TableRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace {

QStringList filesIn(const QString& dir, const QString& pattern) {
    QStringList paths;
    const QDir folder(dir);
    for (const QString& name : folder.entryList({pattern}, QDir::Files, QDir::Name))
        paths.append(folder.filePath(name));
    return paths;
}

// Pairs each registry entry with its definition; both sides must match one to one.
QList<const TableDef*> matchSchema(const TableRegistry& registry, const SchemaParser& schema) {
    QHash<QString, const TableDef*> byName;
    for (const TableDef& table : schema.tables()) {
        const QString key = table.name.toLower();
        if (byName.contains(key))
            throw BuildError(table.file, table.line,
                             QStringLiteral("table %1 defined twice").arg(table.name));
        byName.insert(key, &table);
    }
    QList<const TableDef*> ordered;
    for (const TableRegistry::Entry& entry : registry.entries()) {
        const TableDef* table = byName.take(entry.name.toLower());
        if (!table)
            throw BuildError(registry.file(), entry.line,
                             QStringLiteral("no schema for table %1").arg(entry.name));
        ordered.append(table);
    }
    if (!byName.isEmpty()) {
        const TableDef* extra = *byName.cbegin();
        throw BuildError(extra->file, extra->line,
                         QStringLiteral("table %1 is not in the registry").arg(extra->name));
    }
    return ordered;
}

void checkReferences(const QList<const TableDef*>& tables) {
    QHash<QString, const TableDef*> byName;
    for (const TableDef* table : tables)
        byName.insert(table->name.toLower(), table);
    for (const TableDef* table : tables) {
        for (const ColumnDef& column : table->columns) {
            if (!column.isReference())
                continue;
            const TableDef* target = byName.value(column.refTable.toLower());
            if (!target || target->columnIndex(column.refColumn) < 0) {
                throw BuildError(table->file, table->line,
                                 QStringLiteral("%1 refers to %2 (%3), which does not exist")
                                     .arg(column.name, column.refTable, column.refColumn));
            }
        }
    }
}

} // namespace

void RulesDbBuilder::build(const QString& sourceDir, const QString& outputPath) const {
    load(sourceDir,
         [&outputPath](const QList<RuleTable>& tables, const QList<SchemaParser::Index>& indexes) {
             SqliteWriter().write(outputPath, tables, indexes);
         });
}

void RulesDbBuilder::buildPostgres(const QString& sourceDir, const QString& connectionText) const {
    load(sourceDir, [&connectionText](const QList<RuleTable>& tables,
                                      const QList<SchemaParser::Index>& indexes) {
        PostgresWriter().write(connectionText, tables, indexes);
    });
}

void RulesDbBuilder::load(const QString& sourceDir, const Writer& write) const {
    TableRegistry registry;
    registry.parseFile(QDir(sourceDir).filePath(QStringLiteral("tables.txt")));

    SchemaParser schema;
    for (const QString& path :
         filesIn(QDir(sourceDir).filePath(QStringLiteral("schema")), QStringLiteral("*.sql")))
        schema.parseFile(path);
    const QList<const TableDef*> tables = matchSchema(registry, schema);
    checkReferences(tables);

    RowResolver resolver(tables);
    for (const QString& path :
         filesIn(QDir(sourceDir).filePath(QStringLiteral("rows")), QStringLiteral("*.tsv"))) {
        RowFile rows;
        rows.parseFile(path);
        resolver.load(u'[' + QFileInfo(path).completeBaseName() + u']', rows);
    }
    resolver.resolve();

    write(resolver.tables(), schema.indexes());
}
