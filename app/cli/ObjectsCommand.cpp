#include "ObjectsCommand.h"

#include "CliContext.h"
#include "DObjectManager.h"

#include <QJsonArray>
#include <QJsonObject>

QString ObjectsCommand::Help() const {
    return QStringLiteral("Usage: hoard objects [--json]\n\n"
                          "Counts the files of each object catalogue (races, characters, "
                          "monsters,\ntreasures, tables, encounters) in the core and the user "
                          "tree.\n");
}

int ObjectsCommand::Run(CliContext& context, QStringList args) {
    int status = 0;
    if (!BeginWithoutArguments(context, args, status))
        return status;
    const struct {
        const char* name;
        FCPointerSet<DFileObject>& set;
    } catalogues[] = {
        {"races", DObjectManager::GetRaceFileSet()},
        {"characters", DObjectManager::GetCharacterSet()},
        {"monsters", DObjectManager::GetMonsterSet()},
        {"treasures", DObjectManager::GetTreasureSet()},
        {"tables", DObjectManager::GetTableSet()},
        {"encounters", DObjectManager::GetEncounterSet()},
    };
    QJsonArray list;
    QStringList lines;
    for (const auto& catalogue : catalogues) {
        int core = 0;
        int user = 0;
        for (const auto& entry : catalogue.set)
            ++(entry->GetFileObjectType() == kFileCore ? core : user);
        list.append(QJsonObject{
            {"catalogue", catalogue.name}, {"count", core + user}, {"core", core}, {"user", user}});
        lines << QStringLiteral("%1 %2  (core %3, user %4)")
                     .arg(QString::fromLatin1(catalogue.name), -11)
                     .arg(core + user, 5)
                     .arg(core)
                     .arg(user);
    }
    if (context.WantsJson()) {
        CliContext::PrintJson(QJsonObject{
            {"data", context.DataDir()}, {"user", context.UserDir()}, {"catalogues", list}});
        return 0;
    }
    CliContext::PrintLine(
        QStringLiteral("Data: %1\nUser: %2\n").arg(context.DataDir(), context.UserDir()));
    for (const QString& line : lines)
        CliContext::PrintLine(line);
    return 0;
}
