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

// Bracketed names outside string literals become double-quoted lower-case names.
QString bracketsToQuotes(const QString& sql) {
    QString result;
    result.reserve(sql.size());
    bool inLiteral = false;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar c = sql[i];
        if (c == u'\'') {
            inLiteral = !inLiteral;
        } else if (c == u'[' && !inLiteral) {
            const qsizetype end = sql.indexOf(u']', i + 1);
            if (end > i) {
                QString name = sql.mid(i + 1, end - i - 1).toLower();
                result += u'"' + name.replace(u'"', QLatin1String("\"\"")) + u'"';
                i = end;
                continue;
            }
        }
        result += c;
    }
    return result;
}

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
    if (!query.exec(nativeSQL(sql)))
        throw SQLException(query.lastError().text());
    return query.isSelect();
}

QString Connection::driverName() const {
    return mDatabase->driverName();
}

QString Connection::nativeSQL(const QString& sql) const {
    if (driverName() == QLatin1String("QPSQL"))
        return bracketsToQuotes(sql);
    return sql;
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
