#include "Statement.h"

#include "Connection.h"
#include "ResultSet.h"
#include "SQLException.h"

#include <QSqlError>
#include <QSqlQuery>

namespace odbc {

Statement::Statement(Connection* connection, int resultSetType)
    : mConnection(connection), mResultSetType(resultSetType) {
    mConnection->attach(this);
}

Statement::~Statement() {
    // The result set reads through the queries, so it goes first.
    mResultSet.reset();
    if (mConnection)
        mConnection->detach(this);
}

ResultSet* Statement::executeQuery(const QString& sql) {
    runText(sql);
    return openResultSet(*mTextQuery);
}

bool Statement::execute(const QString& sql) {
    runText(sql);
    return mTextQuery->isSelect();
}

int Statement::executeUpdate(const QString& sql) {
    runText(sql);
    return mTextQuery->numRowsAffected();
}

Connection& Statement::connection() const {
    if (!mConnection)
        throw SQLException(QStringLiteral("the connection of this statement is closed"));
    return *mConnection;
}

bool Statement::isScrollable() const {
    return mResultSetType == ResultSet::TYPE_SCROLL_INSENSITIVE;
}

ResultSet* Statement::openResultSet(QSqlQuery& query) {
    mResultSet = std::make_unique<ResultSet>(query, isScrollable());
    return mResultSet.get();
}

void Statement::closeResultSet() {
    mResultSet.reset();
}

void Statement::release() {
    mResultSet.reset();
    mTextQuery.reset();
    mConnection = nullptr;
}

QSqlQuery& Statement::textQuery() {
    if (!mTextQuery) {
        mTextQuery = std::make_unique<QSqlQuery>(connection().database());
        mTextQuery->setForwardOnly(!isScrollable());
    }
    return *mTextQuery;
}

void Statement::runText(const QString& sql) {
    closeResultSet();
    QSqlQuery& query = textQuery();
    if (!query.exec(connection().nativeSQL(sql)))
        throw SQLException(query.lastError().text());
}

} // namespace odbc
