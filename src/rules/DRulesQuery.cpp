#include "DRulesQuery.h"

#include "DDatabase.h"
#include "DFailureReporter.h"
#include "Guid.h"

bool DRulesQuery::HasRow(const QString& sql) {
    return DDatabase::FirstRow(sql, [](odbc::ResultSet*) {});
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
