#pragma once

#include <QSqlDatabase>
#include <QString>

#include <utility>

// Removes a named QtSql connection when the scope ends, whatever happened inside it.
class SqlConnectionGuard {
public:
    explicit SqlConnectionGuard(QString name) : mName(std::move(name)) {}
    ~SqlConnectionGuard() { QSqlDatabase::removeDatabase(mName); }
    SqlConnectionGuard(const SqlConnectionGuard&) = delete;
    SqlConnectionGuard& operator=(const SqlConnectionGuard&) = delete;

private:
    QString mName;
};
