#include "DTreasureTables.h"

#include "DDatabase.h"
#include "DHandBook.h"
#include "DRulesQuery.h"
#include "DSpellLevelInfo.h"
#include "ResultSet.h"

int DTreasureTables::Table::Column(const char* name) const {
    const QByteArray lower = QByteArray(name).toLower();
    return int(mColumns.indexOf(lower));
}

int DTreasureTables::Row::Int(const char* column) const {
    const int index = mTable->Column(column);
    return index < 0 ? 0 : int(mTable->mCells[mIndex * mTable->ColumnCount() + index].number);
}

QString DTreasureTables::Row::String(const char* column) const {
    const int index = mTable->Column(column);
    return index < 0 ? QString() : mTable->mCells[mIndex * mTable->ColumnCount() + index].text;
}

QUuid DTreasureTables::Row::Guid(const char* column) const {
    return QUuid::fromString(String(column));
}

DTreasureTables::DTreasureTables(odbc::Connection* connection, const QString& path)
    : mConnection(connection), mPath(path) {}

const DTreasureTables::Table& DTreasureTables::Get(int table) {
    auto found = mTables.find(table);
    if (found != mTables.end())
        return found->second;
    Table& loaded = mTables[table];
    DDatabase::ForEachRow(
        QString::asprintf("SELECT * FROM %s", DRulesQuery::Table(table).constData()),
        [&loaded](odbc::ResultSet* row) {
            if (loaded.mColumns.isEmpty()) {
                for (int column = 1; column <= row->getColumnCount(); ++column)
                    loaded.mColumns << row->getColumnName(column).toLatin1().toLower();
            }
            for (int column = 1; column <= loaded.ColumnCount(); ++column) {
                Table::Cell cell;
                cell.text = row->getString(column);
                bool whole = false;
                cell.number = cell.text.toLongLong(&whole);
                if (!whole)
                    cell.number = qint64(cell.text.toDouble());
                loaded.mCells.push_back(std::move(cell));
            }
        });
    return loaded;
}

std::optional<DTreasureTables::Row> DTreasureTables::Find(int table, int roll, const char* prefix,
                                                          const char* filter, int filterValue) {
    const Table& rows = Get(table);
    const int min = rows.Column((QByteArray(prefix) + "Min").constData());
    const int max = rows.Column((QByteArray(prefix) + "Max").constData());
    const int by = filter ? rows.Column(filter) : -1;
    if (min < 0 || max < 0 || (filter && by < 0))
        return std::nullopt;
    const int width = rows.ColumnCount();
    for (int row = 0; row < rows.RowCount(); ++row) {
        const Table::Cell* cells = &rows.mCells[row * width];
        // An empty range (no rows of that class) never holds a roll.
        if (cells[min].text.isEmpty() || cells[max].text.isEmpty())
            continue;
        if (by >= 0 && cells[by].number != filterValue)
            continue;
        if (cells[min].number <= roll && cells[max].number >= roll)
            return Row(&rows, row);
    }
    return std::nullopt;
}

std::optional<DTreasureTables::Row> DTreasureTables::FindBy(int table, const char* column,
                                                            int value) {
    const Table& rows = Get(table);
    const int index = rows.Column(column);
    if (index < 0)
        return std::nullopt;
    for (int row = 0; row < rows.RowCount(); ++row) {
        const Table::Cell& cell = rows.mCells[row * rows.ColumnCount() + index];
        if (!cell.text.isEmpty() && cell.number == value)
            return Row(&rows, row);
    }
    return std::nullopt;
}

std::optional<DTreasureTables::Row> DTreasureTables::FindByGuid(int table, const char* column,
                                                                const QUuid& guid) {
    const Table& rows = Get(table);
    const int index = rows.Column(column);
    if (index < 0 || guid.isNull())
        return std::nullopt;
    for (int row = 0; row < rows.RowCount(); ++row) {
        if (QUuid::fromString(rows.mCells[row * rows.ColumnCount() + index].text) == guid)
            return Row(&rows, row);
    }
    return std::nullopt;
}

int DTreasureTables::MinCasterLevel(const QUuid& casterClass, int spellLevel) {
    const auto key = std::make_pair(casterClass, spellLevel);
    auto found = mMinCasterLevels.find(key);
    if (found == mMinCasterLevels.end())
        found = mMinCasterLevels.emplace(key, DHandBook::GetMinCasterLevel(casterClass, spellLevel))
                    .first;
    return found->second;
}

int DTreasureTables::SpellLevel(const QUuid& spell, const QUuid& casterClass) {
    const auto key = std::make_pair(spell, casterClass);
    auto found = mSpellLevels.find(key);
    if (found == mSpellLevels.end()) {
        DSpellLevelInfo info;
        const int level =
            DDatabase::GetSpellLevelInfoWithClass(spell, casterClass, &info) ? info.GetLevel() : -1;
        found = mSpellLevels.emplace(key, level).first;
    }
    return found->second;
}
