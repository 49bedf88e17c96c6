#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace hoardtest {

// Folder where the build put rules.db and the Core tree.
QString builtDataDir();

// Writes bytes to a file; returns false if it could not.
bool writeFile(const QString& path, const QByteArray& bytes);

QByteArray readFile(const QString& path);

// Gives a hand-made SQLite database the (empty) tables that DDatabase::StartUp requires, so
// that a test can fill only the rows it reads.
void addRequiredTables(const QString& databasePath);

} // namespace hoardtest
