#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace odbc {
class Connection;
}

// The roll tables of treasure and magic items, read whole from the rules database on first use
// and kept for the connection they came from, so that a percentile roll is a scan of a few
// dozen rows in memory instead of a query. Rows keep their database order: where ranges
// overlap, the first row that holds a roll wins, as the query's first row did.
class DTreasureTables {
public:
    class Table;

    // One row of a cached table. Missing columns and empty cells read as 0, false or null.
    class Row {
    public:
        Row(const Table* table, int index) : mTable(table), mIndex(index) {}
        int Int(const char* column) const;
        bool Bool(const char* column) const { return Int(column) != 0; }
        QString String(const char* column) const;
        QUuid Guid(const char* column) const;

    private:
        const Table* mTable;
        int mIndex;
    };

    class Table {
    public:
        // -1 for a column the table does not have; names compare without case.
        int Column(const char* name) const;
        int RowCount() const { return mColumns.isEmpty() ? 0 : int(mCells.size()) / ColumnCount(); }
        int ColumnCount() const { return int(mColumns.size()); }

    private:
        friend class DTreasureTables;
        friend class Row;
        struct Cell {
            qint64 number = 0;
            QString text;
        };
        QList<QByteArray> mColumns; // lower case
        std::vector<Cell> mCells;   // row after row
    };

    DTreasureTables(odbc::Connection* connection, const QString& path);
    DTreasureTables(const DTreasureTables&) = delete;
    DTreasureTables& operator=(const DTreasureTables&) = delete;

    // Whether this cache was read from that database.
    bool IsFor(odbc::Connection* connection, const QString& path) const {
        return connection == mConnection && path == mPath;
    }

    // The table by its registry index, read on first use; empty after a failed read.
    const Table& Get(int table);
    // The first row whose `<prefix>Min` and `<prefix>Max` hold `roll`, among the rows whose
    // `filter` column equals `filterValue` when a filter is given.
    std::optional<Row> Find(int table, int roll, const char* prefix = "",
                            const char* filter = nullptr, int filterValue = 0);
    // The first row whose integer `column` equals `value`.
    std::optional<Row> FindBy(int table, const char* column, int value);
    // The first row whose GUID `column` equals `guid`.
    std::optional<Row> FindByGuid(int table, const char* column, const QUuid& guid);

    // The lowest class level that casts spells of `spellLevel`, -1 if none; asked once per pair.
    int MinCasterLevel(const QUuid& casterClass, int spellLevel);
    // The spell's level on the class's list, -1 if it is not on it; asked once per pair.
    int SpellLevel(const QUuid& spell, const QUuid& casterClass);

private:
    odbc::Connection* mConnection;
    QString mPath;
    std::map<int, Table> mTables;
    std::map<std::pair<QUuid, int>, int> mMinCasterLevels;
    std::map<std::pair<QUuid, QUuid>, int> mSpellLevels;
};
