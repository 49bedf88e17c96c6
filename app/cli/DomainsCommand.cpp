#include "DomainsCommand.h"

#include "CliContext.h"
#include "DDatabase.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonObject>

QString DomainsCommand::Help() const {
    return QStringLiteral("Usage:\n"
                          "  hoard domains [--json]\n\n"
                          "Lists each cleric domain as 'NAME: GRANTED POWER'. A domain's spells "
                          "fill the\n"
                          "cleric's extra slot of each spell level.\n");
}

int DomainsCommand::Run(CliContext& context, QStringList args) {
    int status = 0;
    if (!BeginWithoutArguments(context, args, status))
        return status;
    QJsonArray rows;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Name, DomainAbility FROM %s ORDER BY Name",
                          DRulesQuery::Table(kTableDomain).constData()),
        [&rows](odbc::ResultSet* row) {
            rows.append(QJsonObject{{"name", row->getString(1)}, {"power", row->getString(2)}});
        });
    if (context.WantsJson()) {
        CliContext::PrintJson(rows);
        return 0;
    }
    for (const QJsonValue value : rows) {
        const QJsonObject domain = value.toObject();
        CliContext::PrintLine(
            QStringLiteral("%1: %2").arg(domain["name"].toString(), domain["power"].toString()));
    }
    return 0;
}
