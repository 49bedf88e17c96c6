#include "Connection.h"

#include "PreparedStatement.h"
#include "ResultSet.h"
#include "SQLException.h"
#include "Statement.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>
#include <atomic>

namespace odbc {

namespace {

QString uniqueConnectionName() {
    static std::atomic<quint64> counter{0};
    return QStringLiteral("hoard.odbc.%1").arg(++counter);
}

} // namespace

Connection::Connection(const QString& driver)
    : mName(uniqueConnectionName()),
      mDatabase(std::make_unique<QSqlDatabase>(QSqlDatabase::addDatabase(driver, mName))) {}

Connection::~Connection() {
    // Qt keeps the database registered while any query or handle to it lives.
    for (Statement* statement : mStatements)
        statement->release();
    mStatements.clear();
    mDatabase->close();
    mDatabase.reset();
    QSqlDatabase::removeDatabase(mName);
}

Statement* Connection::createStatement() {
    return createStatement(ResultSet::TYPE_FORWARD_ONLY, ResultSet::CONCUR_READ_ONLY);
}

Statement* Connection::createStatement(int resultSetType, int concurrency) {
    if (resultSetType != ResultSet::TYPE_FORWARD_ONLY &&
        resultSetType != ResultSet::TYPE_SCROLL_INSENSITIVE) {
        throw SQLException(QStringLiteral("unsupported result set type %1").arg(resultSetType));
    }
    if (concurrency != ResultSet::CONCUR_READ_ONLY)
        throw SQLException(QStringLiteral("only read-only result sets are supported"));
    return new Statement(this, resultSetType);
}

PreparedStatement* Connection::prepareStatement(const QString& sql) {
    return new PreparedStatement(this, sql);
}

bool Connection::execute(const QString& sql) {
    QSqlQuery query(*mDatabase);
    if (!query.exec(sql))
        throw SQLException(query.lastError().text());
    return query.isSelect();
}

QString Connection::driverName() const {
    return mDatabase->driverName();
}

void Connection::open() {
    if (!mDatabase->isValid())
        throw SQLException(QStringLiteral("the %1 driver could not be loaded").arg(driverName()));
    if (!mDatabase->open()) {
        throw SQLException(QStringLiteral("unable to connect through %1: %2")
                               .arg(driverName(), mDatabase->lastError().text()));
    }
}

void Connection::attach(Statement* statement) {
    mStatements.push_back(statement);
}

void Connection::detach(Statement* statement) {
    std::erase(mStatements, statement);
}

} // namespace odbc
