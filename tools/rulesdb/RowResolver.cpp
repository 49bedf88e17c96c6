#include "RowResolver.h"

#include "BuildError.h"
#include "NameGuid.h"

#include <QRegularExpression>

namespace {

const QString NullKey = QStringLiteral("\x01null");

// "[table]:row name", a reference that names its table.
bool splitQualified(const QString& text, QString& table, QString& name) {
    if (!text.startsWith(u'['))
        return false;
    const qsizetype close = text.indexOf(QLatin1String("]:"));
    if (close < 0)
        return false;
    table = text.left(close + 1);
    name = text.mid(close + 2).trimmed();
    return true;
}

bool parseInteger(const QString& text, qlonglong& value) {
    static const QRegularExpression form(QStringLiteral("^[+-]?\\d+$"));
    if (!form.match(text).hasMatch())
        return false;
    bool ok = false;
    value = text.toLongLong(&ok);
    return ok;
}

} // namespace

RowResolver::RowResolver(const QList<const TableDef*>& tables) {
    for (const TableDef* def : tables) {
        mTableIndex.insert(def->name.toLower(), mTables.size());
        RuleTable table;
        table.def = def;
        mTables.append(table);
    }
}

RuleTable& RowResolver::table(const QString& name) {
    return mTables[mTableIndex.value(name.toLower())];
}

const RuleTable* RowResolver::findTable(const QString& name) const {
    const auto it = mTableIndex.constFind(name.toLower());
    return it == mTableIndex.cend() ? nullptr : &mTables[*it];
}

void RowResolver::fail(const RuleTable& table, int row, const QString& message) {
    throw BuildError(table.file, table.lines[row], message);
}

QList<int> RowResolver::mapHeader(const RuleTable& table, const RowFile& rows) const {
    const TableDef& def = *table.def;
    QList<int> columnOfCell;
    QList<bool> present(def.columns.size(), false);
    for (const QString& name : rows.header()) {
        const int column = def.columnIndex(name);
        if (column < 0) {
            throw BuildError(rows.file(), rows.headerLine(),
                             QStringLiteral("unknown column %1 in %2").arg(name, def.name));
        }
        if (present[column]) {
            throw BuildError(rows.file(), rows.headerLine(),
                             QStringLiteral("column %1 given twice").arg(name));
        }
        present[column] = true;
        columnOfCell.append(column);
    }
    const int identity = def.identityColumn();
    for (int column = 0; column < def.columns.size(); ++column) {
        if (!present[column] && def.columns[column].isRequired() && column != identity) {
            throw BuildError(
                rows.file(), rows.headerLine(),
                QStringLiteral("missing required column %1").arg(def.columns[column].name));
        }
    }
    return columnOfCell;
}

void RowResolver::load(const QString& tableName, const RowFile& rows) {
    if (!findTable(tableName)) {
        throw BuildError(rows.file(), rows.headerLine(),
                         QStringLiteral("no table %1 in the registry").arg(tableName));
    }
    RuleTable& target = table(tableName);
    const TableDef& def = *target.def;
    const QList<int> columnOfCell = mapHeader(target, rows);
    target.file = rows.file();
    for (const RowFile::Row& row : rows.rows()) {
        QStringList cells(def.columns.size());
        for (int i = 0; i < columnOfCell.size(); ++i)
            cells[columnOfCell[i]] = row.cells[i];
        target.lines.append(row.line);
        target.cells.append(cells);
    }
    const int identity = def.identityColumn();
    for (int row = 0; row < target.rowCount(); ++row) {
        QVariantList values(def.columns.size());
        for (int column = 0; column < def.columns.size(); ++column) {
            if (column == identity)
                values[column] = identityValue(target, row, column);
            else
                values[column] = plainValue(target, row, column);
        }
        target.values.append(values);
    }
}

QString RowResolver::identityValue(const RuleTable& table, int row, int column) const {
    const QString text = table.cells[row][column].trimmed();
    if (NameGuid::isGuidText(text))
        return NameGuid::format(text);
    if (!text.isEmpty())
        fail(table, row,
             QStringLiteral("'%1' is not a GUID (column %2)")
                 .arg(text, table.def->columns[column].name));
    const int nameColumn = table.def->nameColumn();
    const QString name = nameColumn < 0 ? QString() : table.cells[row][nameColumn].trimmed();
    if (name.isEmpty())
        fail(table, row, QStringLiteral("no GUID and no Name to derive one from"));
    // A sub-row is named under its parent, which the Guid column names.
    QString path = name;
    if (table.def->columns[column].name.compare(QLatin1String("SubGuid"), Qt::CaseInsensitive) ==
        0) {
        const int parent = table.def->columnIndex(QStringLiteral("Guid"));
        if (parent >= 0)
            path = table.cells[row][parent].trimmed() + u'/' + name;
    }
    return NameGuid::forRow(table.def->name, path);
}

bool RowResolver::isReferenceCell(const ColumnDef& column, const QString& text) {
    if (column.isReference())
        return true;
    QString table;
    QString name;
    return column.isGuid() && splitQualified(text, table, name);
}

QVariant RowResolver::plainValue(const RuleTable& table, int row, int column) const {
    const ColumnDef& def = table.def->columns[column];
    const QString text = table.cells[row][column].trimmed();
    if (isReferenceCell(def, text))
        return {}; // second pass
    if (text.isEmpty())
        return emptyValue(table, row, column);
    return convert(table, row, column, text);
}

QVariant RowResolver::emptyValue(const RuleTable& table, int row, int column) const {
    const ColumnDef& def = table.def->columns[column];
    if (def.hasDefault)
        return convert(table, row, column, def.defaultValue);
    if (def.notNull)
        fail(table, row, QStringLiteral("empty cell in required column %1").arg(def.name));
    switch (def.type) {
    case ColumnDef::Type::Integer:
        return QVariant(QMetaType::fromType<qlonglong>());
    case ColumnDef::Type::Real:
        return QVariant(QMetaType::fromType<double>());
    default:
        return QVariant(QMetaType::fromType<QString>());
    }
}

QVariant RowResolver::convert(const RuleTable& table, int row, int column,
                              const QString& text) const {
    const ColumnDef& def = table.def->columns[column];
    switch (def.type) {
    case ColumnDef::Type::Integer: {
        qlonglong value = 0;
        if (!parseInteger(text, value))
            fail(table, row,
                 QStringLiteral("'%1' is not an integer (column %2)").arg(text, def.name));
        return value;
    }
    case ColumnDef::Type::Real: {
        bool ok = false;
        const double value = text.toDouble(&ok);
        if (!ok)
            fail(table, row,
                 QStringLiteral("'%1' is not a number (column %2)").arg(text, def.name));
        return value;
    }
    case ColumnDef::Type::Varchar:
        if (def.isGuid()) {
            if (!NameGuid::isGuidText(text))
                fail(table, row,
                     QStringLiteral("'%1' is not a GUID (column %2)").arg(text, def.name));
            return NameGuid::format(text);
        }
        if (text.size() > def.length) {
            fail(table, row,
                 QStringLiteral("text longer than %1 characters (column %2)")
                     .arg(def.length)
                     .arg(def.name));
        }
        return text;
    case ColumnDef::Type::Text:
        break;
    }
    return text;
}

void RowResolver::resolve() {
    for (RuleTable& current : mTables) {
        for (int row = 0; row < current.rowCount(); ++row) {
            for (int column = 0; column < current.def->columns.size(); ++column) {
                const ColumnDef& def = current.def->columns[column];
                if (isReferenceCell(def, current.cells[row][column].trimmed()))
                    current.values[row][column] = reference(current, row, column);
            }
        }
    }
    for (const RuleTable& current : std::as_const(mTables))
        checkKeys(current);
}

QVariant RowResolver::reference(const RuleTable& table, int row, int column) {
    const ColumnDef& def = table.def->columns[column];
    const QString text = table.cells[row][column].trimmed();
    if (text.isEmpty())
        return emptyValue(table, row, column);

    QString targetName = def.refTable;
    QString name = text;
    QString qualifiedTable;
    if (def.isGuid() && splitQualified(text, qualifiedTable, name)) {
        if (def.isReference() && qualifiedTable.compare(def.refTable, Qt::CaseInsensitive) != 0) {
            fail(table, row,
                 QStringLiteral("column %1 refers to %2, not %3")
                     .arg(def.name, def.refTable, qualifiedTable));
        }
        targetName = qualifiedTable;
    }
    const RuleTable* target = findTable(targetName);
    if (!target)
        fail(table, row, QStringLiteral("no table %1").arg(targetName));
    const int targetColumn =
        def.isReference() ? target->def->columnIndex(def.refColumn) : target->def->identityColumn();
    if (targetColumn < 0)
        fail(table, row, QStringLiteral("%1 has no key to refer to").arg(targetName));

    const ColumnDef& key = target->def->columns[targetColumn];
    if (key.type == ColumnDef::Type::Integer) {
        qlonglong value = 0;
        if (parseInteger(name, value)) {
            // A negative number is the rules' "none" and names no row.
            if (value >= 0)
                checkExists(table, row, *target, targetColumn, QString::number(value));
            return value;
        }
    } else if (NameGuid::isGuidText(name)) {
        const QString guid = NameGuid::format(name);
        checkExists(table, row, *target, targetColumn, guid);
        return guid;
    }
    return lookUpByName(table, row, *target, targetColumn, name);
}

QVariant RowResolver::lookUpByName(const RuleTable& from, int row, const RuleTable& target,
                                   int targetColumn, const QString& name) {
    const QList<int> matches = nameIndex(target).rows.value(name.toLower());
    if (matches.isEmpty()) {
        fail(from, row, QStringLiteral("'%1' names no row of %2").arg(name, target.def->name));
    }
    if (matches.size() > 1)
        fail(from, row,
             QStringLiteral("'%1' names %2 rows of %3")
                 .arg(name)
                 .arg(matches.size())
                 .arg(target.def->name));
    const QVariant value = target.values[matches.first()][targetColumn];
    if (!value.isValid() || value.isNull())
        fail(from, row,
             QStringLiteral("'%1' in %2 has no %3")
                 .arg(name, target.def->name, target.def->columns[targetColumn].name));
    return value;
}

void RowResolver::checkExists(const RuleTable& from, int row, const RuleTable& target,
                              int targetColumn, const QString& value) {
    const QString key = target.def->name.toLower() + u'|' + QString::number(targetColumn);
    auto it = mValueSets.find(key);
    if (it == mValueSets.end()) {
        QSet<QString> values;
        for (const QVariantList& targetRow : target.values)
            values.insert(targetRow[targetColumn].toString());
        it = mValueSets.insert(key, values);
    }
    if (!it->contains(value)) {
        fail(from, row, QStringLiteral("%1 names no row of %2").arg(value, target.def->name));
    }
}

RowResolver::NameIndex& RowResolver::nameIndex(const RuleTable& target) {
    NameIndex& index = mNameIndexes[target.def->name.toLower()];
    if (index.built)
        return index;
    index.built = true;
    const int nameColumn = target.def->nameColumn();
    if (nameColumn < 0)
        return index;
    const int identity = target.def->identityColumn();
    const bool isSubRow = identity >= 0 && target.def->columns[identity].name.compare(
                                               QLatin1String("SubGuid"), Qt::CaseInsensitive) == 0;
    const int parent = target.def->columnIndex(QStringLiteral("Guid"));
    for (int row = 0; row < target.rowCount(); ++row) {
        const QString name = target.cells[row][nameColumn].trimmed().toLower();
        index.rows[name].append(row);
        if (isSubRow && parent >= 0)
            index.rows[target.cells[row][parent].trimmed().toLower() + u'/' + name].append(row);
    }
    return index;
}

void RowResolver::checkKeys(const RuleTable& table) const {
    if (!table.def->primaryKey.isEmpty())
        checkKey(table, table.def->primaryKey, QStringLiteral("key"));
    for (const QStringList& key : table.def->uniqueKeys)
        checkKey(table, key, QStringLiteral("unique key"));
}

void RowResolver::checkKey(const RuleTable& table, const QStringList& key,
                           const QString& kind) const {
    QList<int> columns;
    for (const QString& name : key)
        columns.append(table.def->columnIndex(name));
    QHash<QString, int> firstRow;
    for (int row = 0; row < table.rowCount(); ++row) {
        QStringList parts;
        for (int column : columns) {
            const QVariant& value = table.values[row][column];
            parts.append(value.isNull() ? NullKey : value.toString().toLower());
        }
        const QString joined = parts.join(u'\x1f');
        const auto it = firstRow.constFind(joined);
        if (it != firstRow.cend()) {
            QStringList shown;
            for (int column : columns) {
                const QString cell = table.cells[row][column].trimmed();
                shown.append(cell.isEmpty() ? table.values[row][column].toString() : cell);
            }
            fail(table, row,
                 QStringLiteral("duplicate %1 (%2) = (%3), first at line %4")
                     .arg(kind, key.join(QLatin1String(", ")), shown.join(QLatin1String(", ")))
                     .arg(table.lines[*it]));
        }
        firstRow.insert(joined, row);
    }
}
