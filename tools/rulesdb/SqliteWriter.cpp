#include "SqliteWriter.h"

#include "BuildError.h"
#include "SqlConnectionGuard.h"
#include "SqlText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <filesystem>
#include <system_error>

namespace {

QString bracketed(const QString& name) {
    return u'[' + name + u']';
}

} // namespace

QString SqliteWriter::createStatement(const TableDef& table) {
    QStringList parts;
    for (const ColumnDef& column : table.columns) {
        QString part =
            bracketed(column.name) + u' ' + SqlText::Type(column, QStringLiteral("REAL"));
        if (column.notNull)
            part += QLatin1String(" NOT NULL");
        if (column.hasDefault)
            part += QLatin1String(" DEFAULT ") + SqlText::Default(column);
        parts.append(part);
    }
    if (!table.primaryKey.isEmpty())
        parts.append(QLatin1String("PRIMARY KEY (") +
                     SqlText::NameList(table.primaryKey, bracketed) + u')');
    for (const QStringList& key : table.uniqueKeys)
        parts.append(QLatin1String("UNIQUE (") + SqlText::NameList(key, bracketed) + u')');
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(table.name, parts.join(QLatin1String(", ")));
}

void SqliteWriter::write(const QString& path, const QList<RuleTable>& tables,
                         const QList<SchemaParser::Index>& indexes) const {
    const QFileInfo target(path);
    if (!QDir().mkpath(target.absolutePath()))
        throw BuildError(path, 0, QStringLiteral("cannot create the folder"));
    QTemporaryFile temporary(target.absolutePath() + QLatin1String("/.") + target.fileName() +
                             QLatin1String(".XXXXXX"));
    temporary.setAutoRemove(false);
    if (!temporary.open())
        throw BuildError(path, 0, QStringLiteral("cannot create a temporary file"));
    const QString temporaryPath = temporary.fileName();
    temporary.close();
    // A temporary file is private to its owner; the database is read by everyone.
    QFile::setPermissions(temporaryPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                             QFile::ReadOther);

    try {
        const QString connection = QLatin1String("hoard-rulesdb-") + temporaryPath;
        {
            SqlConnectionGuard guard(connection);
            fill(connection, temporaryPath, tables, indexes);
        }
        std::error_code error;
        std::filesystem::rename(temporaryPath.toStdString(), path.toStdString(), error);
        if (error)
            throw BuildError(path, 0,
                             QStringLiteral("cannot rename the finished database into place"));
    } catch (...) {
        QFile::remove(temporaryPath);
        throw;
    }
}

void SqliteWriter::fill(const QString& connection, const QString& path,
                        const QList<RuleTable>& tables,
                        const QList<SchemaParser::Index>& indexes) const {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    db.setDatabaseName(path);
    if (!db.open())
        throw BuildError(path, 0, QStringLiteral("cannot open: %1").arg(db.lastError().text()));
    QSqlQuery query(db);
    const auto run = [&](const QString& statement, const QString& file, int line) {
        if (!query.exec(statement))
            throw BuildError(file, line,
                             QStringLiteral("database: %1").arg(query.lastError().text()));
    };
    run(QStringLiteral("PRAGMA journal_mode=OFF"), path, 0);
    run(QStringLiteral("PRAGMA synchronous=OFF"), path, 0);
    if (!db.transaction())
        throw BuildError(path, 0, QStringLiteral("cannot start a transaction"));

    for (const RuleTable& table : tables) {
        run(createStatement(*table.def), table.def->file, table.def->line);
        if (table.rowCount() == 0)
            continue;
        QStringList marks(table.def->columns.size(), QStringLiteral("?"));
        QSqlQuery insert(db);
        const QString statement =
            QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(table.def->name, marks.join(u','));
        if (!insert.prepare(statement))
            throw BuildError(table.file, 0,
                             QStringLiteral("database: %1").arg(insert.lastError().text()));
        for (int row = 0; row < table.rowCount(); ++row) {
            const QVariantList& values = table.values[row];
            for (int column = 0; column < values.size(); ++column)
                insert.bindValue(column, values[column]);
            if (!insert.exec()) {
                throw BuildError(table.file, table.lines[row],
                                 QStringLiteral("database: %1").arg(insert.lastError().text()));
            }
        }
    }
    for (const SchemaParser::Index& index : indexes)
        run(index.sql, index.file, index.line);
    if (!db.commit())
        throw BuildError(path, 0, QStringLiteral("cannot commit: %1").arg(db.lastError().text()));
    db.close();
}
