#include "ResultSet.h"

#include "SQLException.h"

#include <QByteArray>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace odbc {

namespace {

QStringList columnNames(const QSqlQuery& query) {
    const QSqlRecord record = query.record();
    QStringList names;
    names.reserve(record.count());
    for (int i = 0; i < record.count(); ++i)
        names.append(record.fieldName(i));
    return names;
}

// fromString gives the null GUID both for bad text and for the all-zero GUID.
bool isNullGuidText(const QString& text) {
    const QUuid null;
    return text == null.toString(QUuid::WithBraces) || text == null.toString(QUuid::WithoutBraces);
}

QUuid guidFromText(const QString& stored) {
    const QString text = stored.trimmed();
    if (text.isEmpty())
        return {};
    const QUuid guid = QUuid::fromString(text);
    if (guid.isNull() && !isNullGuidText(text))
        throw SQLException(QStringLiteral("value is not a GUID: %1").arg(stored));
    return guid;
}

} // namespace

ResultSet::ResultSet(QSqlQuery& query, bool scrollable)
    : mQuery(query), mColumnNames(columnNames(query)), mScrollable(scrollable) {}

ResultSet::~ResultSet() {
    // Ends the read at once so that the engine releases its cursor and locks.
    mQuery.finish();
}

bool ResultSet::next() {
    return mQuery.next();
}

bool ResultSet::absolute(int row) {
    if (!mScrollable)
        throw SQLException(QStringLiteral("absolute() needs a scrollable result set"));
    if (row > 0)
        return mQuery.seek(row - 1);
    if (row == 0) {
        mQuery.seek(QSql::BeforeFirstRow);
        return false;
    }
    if (!mQuery.last())
        return false;
    return mQuery.seek(mQuery.at() + 1 + row);
}

int ResultSet::findColumn(const QString& name) const {
    for (qsizetype i = 0; i < mColumnNames.size(); ++i) {
        if (mColumnNames.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i) + 1;
    }
    throw SQLException(QStringLiteral("no column named %1 in the result set").arg(name));
}

QString ResultSet::getColumnName(int column) const {
    checkColumn(column);
    return mColumnNames.at(column - 1);
}

int ResultSet::getInt(int column) {
    return value(column).toInt();
}

qint64 ResultSet::getLong(int column) {
    return value(column).toLongLong();
}

QString ResultSet::getString(int column) {
    return value(column).toString();
}

bool ResultSet::getBoolean(int column) {
    return value(column).toBool();
}

float ResultSet::getFloat(int column) {
    return value(column).toFloat();
}

double ResultSet::getDouble(int column) {
    return value(column).toDouble();
}

QUuid ResultSet::getGUID(int column) {
    const QVariant v = value(column);
    if (mWasNull)
        return {};
    if (v.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = v.toByteArray();
        if (bytes.size() == 16)
            return QUuid::fromRfc4122(bytes);
    }
    return guidFromText(v.toString());
}

QVariant ResultSet::value(int column) {
    checkColumn(column);
    if (!mQuery.isValid())
        throw SQLException(QStringLiteral("the result set is not on a row"));
    QVariant v = mQuery.value(column - 1);
    mWasNull = v.isNull();
    return v;
}

void ResultSet::checkColumn(int column) const {
    if (column < 1 || column > getColumnCount()) {
        throw SQLException(
            QStringLiteral("column index %1 is outside 1..%2").arg(column).arg(getColumnCount()));
    }
}

} // namespace odbc
