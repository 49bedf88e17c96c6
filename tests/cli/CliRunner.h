#pragma once

#include <QString>
#include <QStringList>

namespace clitest {

struct CliRun {
    int status = -1; // -1 when the program crashed or did not end in time
    QString out;
    QString err;
};

// Runs the built `hoard` with `args` (and `--user userDir` when one is given). A run that does
// not end within `timeoutMs` is killed: a hang fails the test instead of stalling the suite.
CliRun runHoard(const QStringList& args, const QString& userDir = QString(), int timeoutMs = 60000);

} // namespace clitest
