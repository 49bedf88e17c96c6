#include "DRollTables.h"

#include "DDatabase.h"
#include "ResultSet.h"

namespace {

QList<DRollTables::Row> ReadRows(int table, bool withPoints) {
    QList<DRollTables::Row> rows;
    const QString columns =
        withPoints ? QStringLiteral("Id, Name, Points") : QStringLiteral("Id, Name");
    DDatabase::ForEachRow(QStringLiteral("SELECT %1 FROM %2 ORDER BY Id")
                              .arg(columns, QString(DDatabase::GetTableName(table))),
                          [&](odbc::ResultSet* row) {
                              rows.append({row->getInt(QStringLiteral("Id")),
                                           row->getString(QStringLiteral("Name")),
                                           withPoints ? row->getInt(QStringLiteral("Points")) : 0});
                          });
    return rows;
}

} // namespace

QList<DRollTables::Row> DRollTables::Methods() {
    return ReadRows(kTableRollMethods, false);
}

QList<DRollTables::Row> DRollTables::Campaigns() {
    return ReadRows(kTableRollCampaigns, true);
}
