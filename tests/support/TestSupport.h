#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <QUuid>

class FCObject;

namespace hoardtest {

// Folder where the build put rules.db and the Core tree.
QString builtDataDir();

// Writes bytes to a file; returns false if it could not.
bool writeFile(const QString& path, const QByteArray& bytes);

QByteArray readFile(const QString& path);

// Gives a hand-made SQLite database the (empty) tables that DDatabase::StartUp requires, so
// that a test can fill only the rows it reads.
void addRequiredTables(const QString& databasePath);

// The GUID of the class, feat or skill of that name in the open rules database; null, and a
// test failure, when there is none.
QUuid classGuid(const QString& name);
QUuid featGuid(const QString& name);
QUuid skillGuid(const QString& name);
// The GUID of the row of that name in a rules table (an index of DDatabase::GetTableName); null,
// and a test failure, when there is none.
QUuid rowGuid(int table, const QString& name);

// WriteObject of `object` into memory: its class name, then its fields.
QByteArray storeObject(const FCObject* object);
// Only the fields `object` transfers, without the class name in front.
QByteArray storeFields(FCObject& object);
// ReadObject from memory, into `into` when given; `ok` gets the archive's state after the read.
FCObject* loadObject(const QByteArray& bytes, bool* ok = nullptr, FCObject* into = nullptr);

} // namespace hoardtest
