#include "TestSupport.h"

#include <QFile>

namespace hoardtest {

QString builtDataDir() {
    const QByteArray env = qgetenv("HOARD_TEST_DATA");
    return env.isEmpty() ? QStringLiteral(HOARD_DATA_BUILD_DIR) : QString::fromLocal8Bit(env);
}

bool writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace hoardtest
