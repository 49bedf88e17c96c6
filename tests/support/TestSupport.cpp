#include "TestSupport.h"

#include "DDatabase.h"

#include "Connection.h"
#include "DriverManager.h"

#include <QFile>

#include <memory>

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

void addRequiredTables(const QString& databasePath) {
    std::unique_ptr<odbc::Connection> connection(odbc::DriverManager::getConnection(databasePath));
    for (const int table : DDatabase::GetRequiredTables())
        connection->execute(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (Id INTEGER)")
                                .arg(DDatabase::GetTableName(table)));
}

} // namespace hoardtest
