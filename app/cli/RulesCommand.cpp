#include "RulesCommand.h"

#include "CliContext.h"
#include "DDatabase.h"

#include "Connection.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "Statement.h"

#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace {

constexpr int kMaxRows = 10000;

// A row matches a key when its Id, Guid or Name column equals it (names without regard to
// case, GUIDs with or without braces).
bool rowMatches(odbc::ResultSet& row, const QStringList& columns, const QString& key) {
    for (int i = 0; i < columns.size(); ++i) {
        const QString column = columns[i].toLower();
        if (column != "id" && column != "guid" && column != "name")
            continue;
        QString value = row.getString(i + 1);
        if (column == "guid") {
            value.remove('{').remove('}');
            if (QString(key).remove('{').remove('}').compare(value, Qt::CaseInsensitive) == 0)
                return true;
        } else if (value.compare(key, Qt::CaseInsensitive) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

QString RulesCommand::Help() const {
    return QStringLiteral(
               "Usage: hoard rules TABLE [KEY-OR-NAME] [--json]\n\n"
               "TABLE is a table's index (0-211) or its name, with or without brackets:\n"
               "  hoard rules \"[info Class]\" Fighter\n"
               "  hoard rules 9\n"
               "KEY-OR-NAME keeps the rows whose Id, Guid or Name equals it (any case).\n"
               "At most %1 rows are printed.\n")
        .arg(kMaxRows);
}

int RulesCommand::FindTable(const QString& text) {
    bool isNumber = false;
    const int index = text.toInt(&isNumber);
    if (isNumber)
        return index >= 0 && index < kTableCount ? index : -1;
    const QString wanted = text.startsWith('[') ? text : "[" + text + "]";
    for (int i = 0; i < kTableCount; ++i) {
        if (DDatabase::GetTableName(i).compare(wanted, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

int RulesCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args) || args.isEmpty()) {
        CliContext::PrintLine(Help());
        return args.isEmpty() ? 1 : 0;
    }
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() > 2)
        return CliContext::Fail(QStringLiteral("give a table and at most one key (see --help)"));
    const int table = FindTable(args[0]);
    if (table < 0)
        return CliContext::Fail(
            QStringLiteral("no rules table '%1' (see hoard db info)").arg(args[0]));
    const QString key = args.size() > 1 ? args[1] : QString();
    if (!context.StartLibrary())
        return 1;
    const QString name = DDatabase::GetTableName(table);
    QJsonArray rows;
    QStringList lines;
    try {
        std::unique_ptr<odbc::Statement> statement(DDatabase::GetConnection()->createStatement());
        odbc::ResultSet* result = statement->executeQuery("SELECT * FROM " + name);
        QStringList columns;
        for (int i = 1; i <= result->getColumnCount(); ++i)
            columns << result->getColumnName(i);
        while (result->next() && rows.size() < kMaxRows) {
            if (!key.isEmpty() && !rowMatches(*result, columns, key))
                continue;
            QJsonObject row;
            QStringList cells;
            for (int i = 0; i < columns.size(); ++i) {
                const QString value = result->getString(i + 1);
                row.insert(columns[i], value);
                cells << QStringLiteral("%1=%2").arg(columns[i], value);
            }
            rows.append(row);
            lines << cells.join("  ");
        }
    } catch (const odbc::SQLException& failure) {
        return CliContext::Fail(
            QStringLiteral("cannot read table %1: %2").arg(name, failure.getMessage()));
    }
    if (!key.isEmpty() && rows.isEmpty())
        return CliContext::Fail(
            QStringLiteral("no row of %1 has the id, GUID or name '%2'").arg(name, key));
    if (context.WantsJson()) {
        CliContext::PrintJson(QJsonObject{{"table", name}, {"index", table}, {"rows", rows}});
        return 0;
    }
    CliContext::PrintLine(
        QStringLiteral("%1 (table %2): %3 row(s)").arg(name).arg(table).arg(rows.size()));
    for (const QString& line : lines)
        CliContext::PrintLine(line);
    return 0;
}
