#pragma once

#include <QString>

#include <memory>

class QSqlQuery;

namespace odbc {

class Connection;
class ResultSet;

// Runs SQL text on its connection. The result set of the last query belongs to the statement.
class Statement {
public:
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    virtual ~Statement();

    // Throws SQLException with the driver's text when the statement fails.
    ResultSet* executeQuery(const QString& sql);
    // True if the statement produced rows.
    bool execute(const QString& sql);
    int executeUpdate(const QString& sql);

    int getResultSetType() const { return mResultSetType; }

protected:
    Statement(Connection* connection, int resultSetType);

    Connection& connection() const;
    bool isScrollable() const;
    // Wraps an executed query as the current result set.
    ResultSet* openResultSet(QSqlQuery& query);
    void closeResultSet();
    // Drops every query; the connection calls this before it closes.
    virtual void release();

private:
    friend class Connection;

    QSqlQuery& textQuery();
    void runText(const QString& sql);

    Connection* mConnection;
    int mResultSetType;
    std::unique_ptr<QSqlQuery> mTextQuery;
    std::unique_ptr<ResultSet> mResultSet; // after the queries: it is gone before them
};

} // namespace odbc
