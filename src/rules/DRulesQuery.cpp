#include "DRulesQuery.h"

#include "DAttackInfo.h"
#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DGuid.h"
#include "DNaturalAttackKind.h"
#include "Guid.h"
#include "ResultSet.h"

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

QString DRulesQuery::NameByGuid(int table, const QUuid& guid) {
    QString name = guid.toString();
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                                          Table(table).constData(), Guid(guid).constData()),
                        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QString DRulesQuery::NaturalAttackTarget(const QUuid& target, const QUuid& subTarget) {
    const int kind = DNaturalAttackKind::Kind(DGuid::GetLong(target));
    if (kind < 0 || !subTarget.isNull())
        return QString();
    DAttackInfo attack;
    attack.SetAttackTypeId(kind);
    return attack.GetAttackDescription();
}
