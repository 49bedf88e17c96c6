#include "NameIndex.h"

#include "Connection.h"
#include "DDatabase.h"
#include "ResultSet.h"
#include "Statement.h"

#include <memory>

namespace {

// Code tables are keyed by Id, rule tables by Guid.
const struct {
    const char* table;
    bool byGuid;
} kTables[] = {
    {"[info Class]", true},
    {"[info Size]", false},
    {"[info Race Subtypes]", false},
    {"[types Race Category]", false},
    {"[types Race Family]", false},
    {"[types Race Role]", false},
    {"[types Climate]", false},
    {"[info Size Direction]", false},
    {"[info Language]", true},
    {"[info Speed]", false},
    {"[types Speed]", false},
    {"[types Race Special Attacks]", false},
    {"[types Race Special Quality]", false},
    {"[info Alignment]", false},
    {"[types Alignment Modifiers]", false},
    {"[types Creature Treasure]", false},
    {"[types Dice]", false},
    {"[info Weapons]", true},
};

} // namespace

bool NameIndex::Load(QString& error) {
    for (const auto& t : kTables) {
        if (!LoadTable(QString::fromLatin1(t.table), t.byGuid, error))
            return false;
    }
    return true;
}

bool NameIndex::LoadTable(const QString& table, bool byGuid, QString& error) {
    odbc::Connection* connection = DDatabase::GetConnection();
    if (!connection) {
        error = QStringLiteral("the rules database is not open");
        return false;
    }
    try {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        odbc::ResultSet* rows =
            statement->executeQuery(QStringLiteral("SELECT * FROM %1").arg(table));
        QList<Row> list;
        while (rows && rows->next()) {
            Row row;
            if (byGuid)
                row.guid = rows->getGUID(QStringLiteral("Guid"));
            else
                row.id = rows->getInt(QStringLiteral("Id"));
            row.name = rows->getString(QStringLiteral("Name")).trimmed();
            list.append(row);
        }
        mTables.insert(table, list);
    } catch (const std::exception& failure) {
        error = QStringLiteral("cannot read %1: %2").arg(table, QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}

int NameIndex::FindId(const QString& table, const QString& name) const {
    // Where two rows share a name the lowest id wins, so the answer does not depend on row order.
    int found = -1;
    for (const Row& row : mTables.value(table)) {
        if (row.name.compare(name.trimmed(), Qt::CaseInsensitive) == 0 &&
            (found < 0 || row.id < found))
            found = row.id;
    }
    return found;
}

QUuid NameIndex::FindGuid(const QString& table, const QString& name) const {
    for (const Row& row : mTables.value(table)) {
        if (row.name.compare(name.trimmed(), Qt::CaseInsensitive) == 0)
            return row.guid;
    }
    return {};
}

QStringList NameIndex::Names(const QString& table) const {
    QStringList names;
    for (const Row& row : mTables.value(table))
        names << row.name;
    return names;
}
