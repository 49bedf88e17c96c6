#pragma once

#include <QList>
#include <QString>

// The fixed list of rules tables: code names a table by its index, so the list must hold
// exactly the indexes 0 to Count - 1, in order, each name once.
class TableRegistry {
public:
    static constexpr int Count = 212;

    struct Entry {
        int index = 0;
        QString name;
        int line = 0;
    };

    // Reads "INDEX<TAB>[name]" lines ('#' starts a comment); throws BuildError on a fault.
    void parseFile(const QString& path);
    void parseText(const QString& text, const QString& fileName);

    const QList<Entry>& entries() const { return mEntries; }
    QString file() const { return mFile; }

private:
    void addLine(const QString& line, int lineNumber);

    QList<Entry> mEntries;
    QString mFile;
};
