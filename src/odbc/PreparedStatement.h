#pragma once

#include "Statement.h"

#include <QString>
#include <QUuid>

#include <memory>

class QSqlQuery;
class QVariant;

namespace odbc {

// A statement with '?' placeholders, prepared once and run again with new bindings. Indexes of
// placeholders start at 1; a binding holds until it is set again.
class PreparedStatement : public Statement {
public:
    ~PreparedStatement() override;

    void setInt(int index, int value);
    void setLong(int index, qint64 value);
    void setString(int index, const QString& value);
    void setBoolean(int index, bool value);
    // Binds the stored text form of the GUID (see guidText).
    void setGUID(int index, const QUuid& value);

    ResultSet* executeQuery();
    bool execute();
    int executeUpdate();

    using Statement::execute;
    using Statement::executeQuery;
    using Statement::executeUpdate;

private:
    friend class Connection;

    // Throws SQLException when the driver rejects the text.
    PreparedStatement(Connection* connection, const QString& sql);

    void release() override;
    void bind(int index, const QVariant& value);
    QSqlQuery& prepared();
    void run();

    std::unique_ptr<QSqlQuery> mPrepared;
    int mParameterCount;
};

} // namespace odbc
