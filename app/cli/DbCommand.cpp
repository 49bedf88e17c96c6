#include "DbCommand.h"

#include "CliContext.h"
#include "DDatabase.h"

#include <QJsonArray>
#include <QJsonObject>

QString DbCommand::Help() const {
    return QStringLiteral("Usage: hoard db info [--json]\n\n"
                          "Shows the rules database in use and the row count of each of its %1 "
                          "tables;\n"
                          "a table the database lacks is marked MISSING.\n")
        .arg(kTableCount);
}

int DbCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args) || args.isEmpty()) {
        CliContext::PrintLine(Help());
        return args.isEmpty() ? 1 : 0;
    }
    if (args.first() == "info" && args.size() == 1)
        return RunInfo(context);
    return CliContext::Fail(
        QStringLiteral("unknown db command '%1' (try: hoard db info)").arg(args.join(' ')));
}

int DbCommand::RunInfo(CliContext& context) {
    if (!context.StartLibrary())
        return 1;
    QJsonArray tables;
    int present = 0;
    QStringList lines;
    for (int index = 0; index < kTableCount; ++index) {
        const int rows = DDatabase::ProbeRecordCount(index);
        const QString name = DDatabase::GetTableName(index);
        present += rows >= 0 ? 1 : 0;
        tables.append(QJsonObject{
            {"index", index}, {"name", name}, {"present", rows >= 0}, {"rows", qMax(rows, 0)}});
        lines << QStringLiteral("%1  %2  %3")
                     .arg(index, 3)
                     .arg(name, -52)
                     .arg(rows >= 0 ? QString::number(rows) : QStringLiteral("MISSING"));
    }
    if (context.WantsJson()) {
        CliContext::PrintJson(QJsonObject{{"database", context.DatabaseConnection()},
                                          {"tables_present", present},
                                          {"tables", tables}});
        return 0;
    }
    CliContext::PrintLine(QStringLiteral("Database: %1").arg(context.DatabaseConnection()));
    CliContext::PrintLine(
        QStringLiteral("Tables present: %1 of %2\n").arg(present).arg(kTableCount));
    for (const QString& line : lines)
        CliContext::PrintLine(line);
    return 0;
}
