#include "CliRunner.h"

#include <QProcess>

namespace clitest {

CliRun runHoard(const QStringList& args, const QString& userDir, int timeoutMs) {
    QStringList full = args;
    if (!userDir.isEmpty())
        full << "--user" << userDir;
    QProcess process;
    process.start(QStringLiteral(HOARD_CLI), full);
    const bool finished = process.waitForFinished(timeoutMs);
    if (!finished)
        process.kill();
    return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace clitest
