#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>

// Pieces the rules engine needs around DDatabase::ForEachRow and FirstRow when it reads the row
// tables that are not kept in maps.
class DRulesQuery {
public:
    DRulesQuery() = delete;

    // True if the query gives at least one row.
    static bool HasRow(const QString& sql);
    static void ReportFailure(const char* what);

    // Pieces of statement text: a table's bracketed name and a GUID literal.
    static QByteArray Table(int index);
    static QByteArray Guid(const QUuid& guid);
    // The Name of the row of `table` whose Guid is `guid`; the GUID's text if there is none.
    static QString NameByGuid(int table, const QUuid& guid);
    // The kind of natural attack a weapon feat's target names ("Bite" for Weapon Focus (bite));
    // empty when the target is no natural attack.
    static QString NaturalAttackTarget(const QUuid& target, const QUuid& subTarget);
};
