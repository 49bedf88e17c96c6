#include "TestSupport.h"

#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DRulesQuery.h"
#include "DSkillInfo.h"
#include "FCArchive.h"

#include "Connection.h"
#include "DriverManager.h"
#include "ResultSet.h"

#include <QDataStream>
#include <QFile>

#include <gtest/gtest.h>

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

namespace {

template <typename Map, typename NameOf>
QUuid guidNamed(const Map& map, const QString& name, NameOf nameOf, const char* what) {
    for (const auto& [guid, info] : map) {
        if (nameOf(info) == name)
            return guid;
    }
    ADD_FAILURE() << "no " << what << ' ' << name.toStdString();
    return QUuid();
}

} // namespace

QUuid classGuid(const QString& name) {
    return guidNamed(
        DDatabase::GetClassInfoMap(), name,
        [](const DInfo* info) { return static_cast<const DClassInfo*>(info)->mName; }, "class");
}

QUuid featGuid(const QString& name) {
    return guidNamed(
        DDatabase::GetFeatInfoMap(), name,
        [](const DInfo* info) { return static_cast<const DFeatInfo*>(info)->GetFeatName(); },
        "feat");
}

QUuid rowGuid(int table, const QString& name) {
    QUuid guid;
    DDatabase::FirstRow(QString::asprintf("SELECT Guid FROM %s WHERE (Name='%s')",
                                          DRulesQuery::Table(table).constData(),
                                          qUtf8Printable(name)),
                        [&guid](odbc::ResultSet* row) { guid = row->getGUID(1); });
    if (guid.isNull())
        ADD_FAILURE() << "no row " << name.toStdString();
    return guid;
}

QUuid skillGuid(const QString& name) {
    return guidNamed(
        DDatabase::GetSkillInfoMap(), name,
        [](const DInfo* info) { return static_cast<const DSkillInfo*>(info)->GetSkillName(); },
        "skill");
}

QByteArray storeObject(const FCObject* object) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    FCArchive archive(&stream, FCArchive::Store);
    archive.WriteObject(object);
    return bytes;
}

QByteArray storeFields(FCObject& object) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    FCArchive archive(&stream, FCArchive::Store);
    object.Serialize(archive);
    return bytes;
}

FCObject* loadObject(const QByteArray& bytes, bool* ok, FCObject* into) {
    QDataStream stream(bytes);
    FCArchive archive(&stream, FCArchive::Load);
    FCObject* object = archive.ReadObject(into);
    if (ok)
        *ok = archive.IsOk();
    return object;
}

} // namespace hoardtest
