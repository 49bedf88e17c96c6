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
    odbc::Connection* connection = DDatabase::GetConnection();
    if (!connection)
        return false;
    try {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        odbc::ResultSet* rows = statement->executeQuery(sql);
        while (rows && rows->next())
            onRow(rows);
        return true;
    } catch (const std::exception& error) {
        ReportFailure(error.what());
    }
    return false;
}

bool DRulesQuery::FirstRow(const QString& sql, const std::function<void(odbc::ResultSet*)>& onRow) {
    bool found = false;
    ForEachRow(sql, [&](odbc::ResultSet* row) {
        if (!found)
            onRow(row);
        found = true;
    });
    return found;
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
