#pragma once

#include "RuleTable.h"
#include "SchemaParser.h"

#include <QList>
#include <QString>

// Loads the resolved tables into a PostgreSQL database named by a connection text in the
// libpq form ("host=/run/pg port=5432 dbname=hoard user=me"). Every table is dropped and
// created again in one transaction, so a failed load leaves the database as it was.
//
// PostgreSQL knows no [bracketed] names: a table or column is written as its name without
// brackets, lower case, in double quotes ("info coin", "id"), so that queries may name columns
// in any case, as they do on the other engines.
class PostgresWriter {
public:
    struct Connection {
        QString host;
        int port = -1;
        QString database;
        QString user;
        QString password;
        QString options; // the other keys, passed on as "key=value;..."
    };

    // Throws BuildError (file "connection") on a text that is not "key=value" words.
    static Connection parseConnection(const QString& text);

    // Throws BuildError if the server cannot be reached or refuses a statement.
    void write(const QString& connectionText, const QList<RuleTable>& tables,
               const QList<SchemaParser::Index>& indexes) const;

    static QString quotedName(const QString& name);
    static QString createStatement(const TableDef& table);
    // A CREATE INDEX statement of the schema with its [names] quoted for PostgreSQL.
    static QString indexStatement(const QString& sql);

private:
    void fill(const QString& connection, const QList<RuleTable>& tables,
              const QList<SchemaParser::Index>& indexes) const;
};
