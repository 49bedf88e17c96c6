#pragma once

#include "RowFile.h"
#include "RuleTable.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

// Turns the cells of every table into typed values: checks each cell against its column,
// gives unnamed rows their name-based GUID, resolves references written as row names, and
// rejects duplicate keys. Every fault throws BuildError at the row's file and line.
class RowResolver {
public:
    // The tables in registry order; the definitions must outlive the resolver.
    explicit RowResolver(const QList<const TableDef*>& tables);

    // First pass for one table: header, plain cells, identities.
    void load(const QString& tableName, const RowFile& rows);
    // Second pass over all tables: references, then keys.
    void resolve();

    const QList<RuleTable>& tables() const { return mTables; }

private:
    struct NameIndex {
        QHash<QString, QList<int>> rows; // lower-case name to row numbers
        bool built = false;
    };

    RuleTable& table(const QString& name);
    const RuleTable* findTable(const QString& name) const;
    QList<int> mapHeader(const RuleTable& table, const RowFile& rows) const;

    QVariant plainValue(const RuleTable& table, int row, int column) const;
    QVariant convert(const RuleTable& table, int row, int column, const QString& text) const;
    QVariant emptyValue(const RuleTable& table, int row, int column) const;
    QString identityValue(const RuleTable& table, int row, int column) const;
    static bool isReferenceCell(const ColumnDef& column, const QString& text);

    QVariant reference(const RuleTable& table, int row, int column);
    QVariant lookUpByName(const RuleTable& from, int row, const RuleTable& target, int targetColumn,
                          const QString& name);
    void checkExists(const RuleTable& from, int row, const RuleTable& target, int targetColumn,
                     const QString& value);
    NameIndex& nameIndex(const RuleTable& target);
    void checkKeys(const RuleTable& table) const;
    void checkKey(const RuleTable& table, const QStringList& key, const QString& kind) const;

    [[noreturn]] static void fail(const RuleTable& table, int row, const QString& message);

    QList<RuleTable> mTables;
    QHash<QString, qsizetype> mTableIndex; // lower-case name to position
    QHash<QString, NameIndex> mNameIndexes;
    QHash<QString, QSet<QString>> mValueSets; // "table|column" to the values present
};
