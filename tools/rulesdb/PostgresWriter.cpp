#include "PostgresWriter.h"

#include "BuildError.h"
#include "SqlConnectionGuard.h"
#include "SqlText.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

// Faults of the connection are reported against this word instead of a file.
QString connectionFile() {
    return QStringLiteral("connection");
}

} // namespace

PostgresWriter::Connection PostgresWriter::parseConnection(const QString& text) {
    Connection connection;
    QStringList options;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype equals = word.indexOf(u'=');
        if (equals <= 0)
            throw BuildError(connectionFile(), 0,
                             QStringLiteral("'%1' is not key=value").arg(word.left(40)));
        const QString key = word.left(equals).toLower();
        const QString value = word.mid(equals + 1);
        if (key == QLatin1String("host")) {
            connection.host = value;
        } else if (key == QLatin1String("port")) {
            bool ok = false;
            connection.port = value.toInt(&ok);
            if (!ok || connection.port <= 0)
                throw BuildError(connectionFile(), 0,
                                 QStringLiteral("port '%1' is not a number").arg(value));
        } else if (key == QLatin1String("dbname")) {
            connection.database = value;
        } else if (key == QLatin1String("user")) {
            connection.user = value;
        } else if (key == QLatin1String("password")) {
            connection.password = value;
        } else {
            options.append(word);
        }
    }
    if (connection.database.isEmpty())
        throw BuildError(connectionFile(), 0, QStringLiteral("no dbname= in the connection text"));
    connection.options = options.join(u';');
    return connection;
}

QString PostgresWriter::quotedName(const QString& name) {
    QString bare = name;
    if (bare.startsWith(u'[') && bare.endsWith(u']'))
        bare = bare.mid(1, bare.size() - 2);
    return u'"' + bare.toLower().replace(u'"', QLatin1String("\"\"")) + u'"';
}

QString PostgresWriter::createStatement(const TableDef& table) {
    QStringList parts;
    for (const ColumnDef& column : table.columns) {
        QString part = quotedName(column.name) + u' ' +
                       SqlText::Type(column, QStringLiteral("DOUBLE PRECISION"));
        if (column.notNull)
            part += QLatin1String(" NOT NULL");
        if (column.hasDefault)
            part += QLatin1String(" DEFAULT ") + SqlText::Default(column);
        parts.append(part);
    }
    if (!table.primaryKey.isEmpty())
        parts.append(QLatin1String("PRIMARY KEY (") +
                     SqlText::NameList(table.primaryKey, PostgresWriter::quotedName) + u')');
    for (const QStringList& key : table.uniqueKeys)
        parts.append(QLatin1String("UNIQUE (") +
                     SqlText::NameList(key, PostgresWriter::quotedName) + u')');
    return QStringLiteral("CREATE TABLE %1 (%2)")
        .arg(quotedName(table.name), parts.join(QLatin1String(", ")));
}

QString PostgresWriter::indexStatement(const QString& sql) {
    static const QRegularExpression bracketed(QStringLiteral("\\[([^\\]]+)\\]"));
    QString result;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : bracketed.globalMatch(sql)) {
        result += sql.mid(from, match.capturedStart() - from) + quotedName(match.captured(0));
        from = match.capturedEnd();
    }
    return result + sql.mid(from);
}

void PostgresWriter::write(const QString& connectionText, const QList<RuleTable>& tables,
                           const QList<SchemaParser::Index>& indexes) const {
    const Connection target = parseConnection(connectionText);
    const QString name = QStringLiteral("hoard-rulesdb-pg");
    SqlConnectionGuard guard(name);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        if (!db.isValid())
            throw BuildError(connectionFile(), 0, QStringLiteral("Qt has no PostgreSQL driver"));
        db.setHostName(target.host);
        if (target.port > 0)
            db.setPort(target.port);
        db.setDatabaseName(target.database);
        db.setUserName(target.user);
        db.setPassword(target.password);
        db.setConnectOptions(target.options);
        if (!db.open())
            throw BuildError(
                connectionFile(), 0,
                QStringLiteral("cannot connect: %1").arg(db.lastError().text().simplified()));
    }
    fill(name, tables, indexes);
}

void PostgresWriter::fill(const QString& connection, const QList<RuleTable>& tables,
                          const QList<SchemaParser::Index>& indexes) const {
    QSqlDatabase db = QSqlDatabase::database(connection);
    if (!db.transaction())
        throw BuildError(connectionFile(), 0, QStringLiteral("cannot start a transaction"));
    QSqlQuery query(db);
    const auto run = [&](const QString& statement, const QString& file, int line) {
        if (!query.exec(statement)) {
            const QString error = query.lastError().text().simplified();
            db.rollback();
            throw BuildError(file, line, QStringLiteral("database: %1").arg(error));
        }
    };
    // DROP TABLE IF EXISTS tells of every table it does not find.
    run(QStringLiteral("SET client_min_messages TO WARNING"), connectionFile(), 0);
    for (const RuleTable& table : tables) {
        run(QStringLiteral("DROP TABLE IF EXISTS %1").arg(quotedName(table.def->name)),
            table.def->file, table.def->line);
        run(createStatement(*table.def), table.def->file, table.def->line);
        if (table.rowCount() == 0)
            continue;
        QStringList marks(table.def->columns.size(), QStringLiteral("?"));
        QSqlQuery insert(db);
        if (!insert.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)")
                                .arg(quotedName(table.def->name), marks.join(u',')))) {
            const QString error = insert.lastError().text().simplified();
            db.rollback();
            throw BuildError(table.file, 0, QStringLiteral("database: %1").arg(error));
        }
        for (int row = 0; row < table.rowCount(); ++row) {
            const QVariantList& values = table.values[row];
            for (int column = 0; column < values.size(); ++column)
                insert.bindValue(column, values[column]);
            if (!insert.exec()) {
                const QString error = insert.lastError().text().simplified();
                db.rollback();
                throw BuildError(table.file, table.lines[row],
                                 QStringLiteral("database: %1").arg(error));
            }
        }
    }
    for (const SchemaParser::Index& index : indexes)
        run(indexStatement(index.sql), index.file, index.line);
    if (!db.commit())
        throw BuildError(
            connectionFile(), 0,
            QStringLiteral("cannot commit: %1").arg(db.lastError().text().simplified()));
    db.close();
}
