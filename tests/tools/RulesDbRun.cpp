#include "RulesDbRun.h"

#include <QProcess>

RulesDbRun RulesDbRun::run(const QString& sourceDir, const QString& output) {
    QProcess process;
    process.start(QStringLiteral(HOARD_RULESDB_TOOL), {sourceDir, output});
    RulesDbRun result;
    if (!process.waitForFinished(60000))
        return result;
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.errorText = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return result;
}

QString RulesDbRun::projectSources() {
    return QStringLiteral(HOARD_RULES_SOURCE_DIR);
}
