#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUuid>

// The rows of the rules database that sources may name, looked up by name without regard to
// case. Sources never carry keys, so renumbering a code table only needs a rebuild.
class NameIndex {
public:
    // Reads every table the sources name from the started DDatabase connection; false with
    // `error` set when one cannot be read.
    bool Load(QString& error);

    // Row id of `name` in the code table `table` ("[types Climate]"), -1 if none.
    int FindId(const QString& table, const QString& name) const;
    // GUID of `name` in `table` ("[info Language]"), null if none.
    QUuid FindGuid(const QString& table, const QString& name) const;
    // The names a table holds, for a message that says what would have been accepted.
    QStringList Names(const QString& table) const;

private:
    bool LoadTable(const QString& table, bool byGuid, QString& error);

    struct Row {
        int id = -1;
        QUuid guid;
        QString name;
    };
    QHash<QString, QList<Row>> mTables;
};
