#include "DRulesQuery.h"

#include "Connection.h"
#include "DDatabase.h"
#include "DFailureReporter.h"
#include "Guid.h"
#include "ResultSet.h"
#include "Statement.h"

#include <exception>
#include <memory>

bool DRulesQuery::ForEachRow(const QString& sql,
                             const std::function<void(odbc::ResultSet*)>& onRow) {
    return DDatabase::ForEachRow(sql, onRow);
}

bool DRulesQuery::FirstRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow) {
    return DDatabase::FirstRow(sql, onRow);
}

bool DRulesQuery::HasRow(const QString& sql) {
    bool found = false;
    ForEachRow(sql, [&found](odbc::ResultSet*) { found = true; });
    return found;
}

void DRulesQuery::ReportFailure(const char* what) {
    DFailureReporter::Report(QStringLiteral("Query failed"), QString::fromUtf8(what));
}

QByteArray DRulesQuery::Table(int index) {
    return DDatabase::GetTableName(index).toLatin1();
}

QByteArray DRulesQuery::Guid(const QUuid& guid) {
    return odbc::toStringODBC(guid).toLatin1();
}
