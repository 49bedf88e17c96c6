#include "PreparedStatement.h"

#include "Connection.h"
#include "Guid.h"
#include "ResultSet.h"
#include "SQLException.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace odbc {

namespace {

// Index of the character that closes what opens at `from`, or the end of the text.
qsizetype skipQuoted(const QString& sql, qsizetype from, QChar close) {
    const qsizetype end = sql.indexOf(close, from + 1);
    return end < 0 ? sql.size() : end;
}

qsizetype skipComment(const QString& sql, qsizetype from) {
    if (sql.at(from) == QLatin1Char('-')) {
        const qsizetype end = sql.indexOf(QLatin1Char('\n'), from);
        return end < 0 ? sql.size() : end;
    }
    const qsizetype end = sql.indexOf(QLatin1String("*/"), from + 2);
    return end < 0 ? sql.size() : end + 1;
}

// Counts the '?' placeholders outside literals, quoted names and comments. Qt's SQLite driver
// crashes when a value is bound beyond the last placeholder, so bindings are checked first.
int placeholderCount(const QString& sql) {
    int count = 0;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar c = sql.at(i);
        const QChar next = i + 1 < sql.size() ? sql.at(i + 1) : QChar();
        if (c == QLatin1Char('?'))
            ++count;
        else if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`'))
            i = skipQuoted(sql, i, c); // a doubled quote just reopens the literal
        else if (c == QLatin1Char('['))
            i = skipQuoted(sql, i, QLatin1Char(']'));
        else if ((c == QLatin1Char('-') && next == QLatin1Char('-')) ||
                 (c == QLatin1Char('/') && next == QLatin1Char('*')))
            i = skipComment(sql, i);
    }
    return count;
}

} // namespace

PreparedStatement::PreparedStatement(Connection* connection, const QString& sql)
    : Statement(connection, ResultSet::TYPE_FORWARD_ONLY),
      mPrepared(std::make_unique<QSqlQuery>(connection->database())),
      mParameterCount(placeholderCount(sql)) {
    mPrepared->setForwardOnly(true);
    if (!mPrepared->prepare(connection->nativeSQL(sql)))
        throw SQLException(mPrepared->lastError().text());
}

PreparedStatement::~PreparedStatement() {
    // The base destructor would drop the result set only after our query is gone.
    closeResultSet();
}

void PreparedStatement::setInt(int index, int value) {
    bind(index, value);
}

void PreparedStatement::setLong(int index, qint64 value) {
    bind(index, value);
}

void PreparedStatement::setString(int index, const QString& value) {
    bind(index, value);
}

void PreparedStatement::setBoolean(int index, bool value) {
    bind(index, value);
}

void PreparedStatement::setGUID(int index, const QUuid& value) {
    bind(index, guidText(value));
}

ResultSet* PreparedStatement::executeQuery() {
    run();
    return openResultSet(*mPrepared);
}

bool PreparedStatement::execute() {
    run();
    return mPrepared->isSelect();
}

int PreparedStatement::executeUpdate() {
    run();
    return mPrepared->numRowsAffected();
}

void PreparedStatement::release() {
    Statement::release();
    mPrepared.reset();
}

void PreparedStatement::bind(int index, const QVariant& value) {
    if (index < 1 || index > mParameterCount) {
        throw SQLException(
            QStringLiteral("parameter index %1 is outside 1..%2").arg(index).arg(mParameterCount));
    }
    prepared().bindValue(index - 1, value);
}

QSqlQuery& PreparedStatement::prepared() {
    if (!mPrepared)
        throw SQLException(QStringLiteral("the connection of this statement is closed"));
    return *mPrepared;
}

void PreparedStatement::run() {
    closeResultSet();
    QSqlQuery& query = prepared();
    if (!query.exec())
        throw SQLException(query.lastError().text());
}

} // namespace odbc
