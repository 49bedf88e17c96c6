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
    {"[types Race Attack]", false},
    {"[types Race Special Quality]", false},
    {"[info Alignment]", false},
    {"[types Alignment Modifiers]", false},
    {"[types Creature Treasure]", false},
    {"[types Dice]", false},
    {"[info Weapons]", true},
    {"[info Armor]", true},
    {"[info Shield]", true},
    {"[info Feat]", true},
    {"[info Spell Schools]", false},
};

const char* const kFeatTable = "[info Feat]";

} // namespace

bool NameIndex::Load(QString& error) {
    for (const auto& t : kTables) {
        if (!LoadTable(QString::fromLatin1(t.table), t.byGuid, error))
            return false;
    }
    return LoadSkills(error);
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
            if (table == QLatin1String(kFeatTable)) {
                row.extra = rows->getInt(QStringLiteral("Target"));
                row.stacks = rows->getInt(QStringLiteral("StackType")) == 1;
            }
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

const NameIndex::Row* NameIndex::FindRow(const QString& table, const QString& name) const {
    const auto rows = mTables.constFind(table);
    if (rows == mTables.cend())
        return nullptr;
    for (const Row& row : *rows) {
        if (row.name.compare(name.trimmed(), Qt::CaseInsensitive) == 0)
            return &row;
    }
    return nullptr;
}

QUuid NameIndex::FindGuid(const QString& table, const QString& name) const {
    const Row* row = FindRow(table, name);
    return row ? row->guid : QUuid();
}

QString NameIndex::FindName(const QString& table, const QString& name) const {
    const Row* row = FindRow(table, name);
    return row ? row->name : QString();
}

QStringList NameIndex::Names(const QString& table) const {
    QStringList names;
    for (const Row& row : mTables.value(table))
        names << row.name;
    return names;
}

bool NameIndex::LoadSkills(QString& error) {
    odbc::Connection* connection = DDatabase::GetConnection();
    if (!connection) {
        error = QStringLiteral("the rules database is not open");
        return false;
    }
    try {
        std::unique_ptr<odbc::Statement> statement(connection->createStatement());
        QHash<QUuid, QString> parents;
        odbc::ResultSet* skills =
            statement->executeQuery(QStringLiteral("SELECT Guid, Name, IsMulti FROM [info Skill]"));
        while (skills && skills->next()) {
            Skill skill;
            skill.skill = skills->getGUID(QStringLiteral("Guid"));
            skill.name = skills->getString(QStringLiteral("Name")).trimmed();
            skill.hasSubSkills = skills->getInt(QStringLiteral("IsMulti")) != 0;
            parents.insert(skill.skill, skill.name);
            mSkills.append(skill);
        }
        odbc::ResultSet* subSkills = statement->executeQuery(
            QStringLiteral("SELECT Guid, SubGuid, Name FROM [info Skill Sub]"));
        while (subSkills && subSkills->next()) {
            Skill sub;
            sub.skill = subSkills->getGUID(QStringLiteral("Guid"));
            sub.subSkill = subSkills->getGUID(QStringLiteral("SubGuid"));
            sub.name = QStringLiteral("%1 (%2)").arg(
                parents.value(sub.skill), subSkills->getString(QStringLiteral("Name")).trimmed());
            mSkills.append(sub);
        }
    } catch (const std::exception& failure) {
        error = QStringLiteral("cannot read the skills: %1").arg(QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}

const NameIndex::Skill* NameIndex::FindSkill(const QString& name) const {
    // "Craft  (Alchemy)" and "craft (alchemy)" name the same sub-skill.
    const QString wanted = name.simplified().replace(QStringLiteral("( "), QStringLiteral("("));
    for (const Skill& skill : mSkills) {
        if (skill.name.compare(wanted, Qt::CaseInsensitive) == 0)
            return &skill;
    }
    return nullptr;
}

bool NameIndex::FeatStacks(const QUuid& feat) const {
    for (const Row& row : mTables.value(QString::fromLatin1(kFeatTable))) {
        if (row.guid == feat)
            return row.stacks;
    }
    return false;
}

int NameIndex::FeatTargetType(const QUuid& feat) const {
    for (const Row& row : mTables.value(QString::fromLatin1(kFeatTable))) {
        if (row.guid == feat)
            return row.extra;
    }
    return 0;
}
