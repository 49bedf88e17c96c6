#pragma once

#include <QList>
#include <QString>

// The fixed list of rules tables: code names a table by its index, so the list must hold
// exactly the indexes 0 to Count - 1, in order, each name once. Tables that only rows name
// (by a table name in a cell) follow them with a dash for the index.
class TableRegistry {
public:
    static constexpr int Count = 212;

    struct Entry {
        int index = 0;
        QString name;
        int line = 0;
    };

    // Reads "INDEX<TAB>[name]" and "-<TAB>[name]" lines ('#' starts a comment); throws
    // BuildError on a fault.
    void parseFile(const QString& path);
    void parseText(const QString& text, const QString& fileName);

    // The indexed tables, then the extra ones (index -1).
    const QList<Entry>& entries() const { return mEntries; }
    QString file() const { return mFile; }

private:
    void addLine(const QString& line, int lineNumber);

    QList<Entry> mEntries;
    int mIndexed = 0;
    QString mFile;
};
