#pragma once

#include <QString>

#include <memory>
#include <vector>

class QSqlDatabase;

namespace odbc {

class PreparedStatement;
class Statement;

// One open database, made by DriverManager. Statements it creates belong to the caller; deleting
// the connection closes it, and statements still alive then fail on their next use.
class Connection {
public:
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    Statement* createStatement();
    // Result set types of ResultSet; only read-only concurrency exists.
    Statement* createStatement(int resultSetType, int concurrency);
    PreparedStatement* prepareStatement(const QString& sql);
    // Runs one statement without keeping a result; true if it produced rows.
    bool execute(const QString& sql);

    // The Qt driver in use, e.g. "QSQLITE".
    QString driverName() const;
    // The statement as this engine reads it: the rules' SQL quotes names in [brackets], which
    // PostgreSQL reads as "lower-case names" (its loader folds every name to lower case).
    QString nativeSQL(const QString& sql) const;

private:
    friend class DriverManager;
    friend class Statement;
    friend class PreparedStatement;

    explicit Connection(const QString& driver);

    QSqlDatabase& database() const { return *mDatabase; }
    // Throws SQLException with the driver's text when the database does not open.
    void open();
    void attach(Statement* statement);
    void detach(Statement* statement);

    QString mName;
    std::unique_ptr<QSqlDatabase> mDatabase;
    std::vector<Statement*> mStatements;
};

} // namespace odbc
