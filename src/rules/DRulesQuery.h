#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <functional>

namespace odbc {
class ResultSet;
}

// The rules engine's way to the row tables that are not kept in maps: one statement per call, a
// failure reported once as "Query failed", after which the caller goes on with what it had.
class DRulesQuery {
public:
    DRulesQuery() = delete;

    // Hands every row to `onRow` in table order; false if the query failed or there is no
    // database.
    static bool ForEachRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow);
    // Hands the first row, if any, to `onRow`; true if there was one.
    static bool FirstRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow);
    // True if the query gives at least one row.
    static bool HasRow(const QString& sql);
    static void ReportFailure(const char* what);

    // Pieces of statement text: a table's bracketed name and a GUID literal.
    static QByteArray Table(int index);
    static QByteArray Guid(const QUuid& guid);
};
