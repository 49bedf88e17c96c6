#include "GodsCommand.h"

#include "CharacterGods.h"
#include "CliContext.h"
#include "DAlignmentInfo.h"
#include "DDatabase.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonObject>

QString GodsCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard gods [--json]\n\n"
        "Lists each god as 'NAME (ALIGNMENT): DOMAINS'. A cleric's alignment "
        "must be the\n"
        "god's or one step from it; the domains are taken from the god's list.\n");
}

int GodsCommand::Run(CliContext& context, QStringList args) {
    int status = 0;
    if (!BeginWithoutArguments(context, args, status))
        return status;
    QJsonArray rows;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Guid, Name, AlignmentId FROM %s ORDER BY Name",
                          DRulesQuery::Table(kTableGod).constData()),
        [&rows](odbc::ResultSet* row) {
            const DAlignmentInfo* alignment = DDatabase::GetAlignmentInfo(row->getInt(3));
            QJsonArray domains;
            for (const CharacterGods::Named& domain : CharacterGods::GodDomains(row->getGUID(1)))
                domains.append(domain.name);
            rows.append(
                QJsonObject{{"name", row->getString(2)},
                            {"alignment", alignment && row->getInt(3) > 0
                                              ? QJsonValue(QString(alignment->GetAlignmentName()))
                                              : QJsonValue()},
                            {"domains", domains}});
        });
    if (context.WantsJson()) {
        CliContext::PrintJson(rows);
        return 0;
    }
    for (const QJsonValue value : rows) {
        const QJsonObject god = value.toObject();
        QStringList domains;
        for (const QJsonValue domain : god["domains"].toArray())
            domains << domain.toString();
        CliContext::PrintLine(
            QStringLiteral("%1 (%2): %3")
                .arg(god["name"].toString(),
                     god["alignment"].isNull() ? QStringLiteral("any")
                                               : god["alignment"].toString(),
                     domains.isEmpty() ? QStringLiteral("any domain") : domains.join(", ")));
    }
    return 0;
}
