#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A table's rows as text: tab-separated cells, a header line of column names first; blank
// lines and lines starting with '#' are skipped. In a cell, \t, \n and \\ stand for a tab,
// a line break and a backslash.
class RowFile {
public:
    struct Row {
        int line = 0;
        QStringList cells;
    };

    // Throws BuildError if the file cannot be read, has no header or a row has the wrong
    // number of cells.
    void parseFile(const QString& path);
    void parseText(const QString& text, const QString& fileName);

    const QString& file() const { return mFile; }
    const QStringList& header() const { return mHeader; }
    int headerLine() const { return mHeaderLine; }
    const QList<Row>& rows() const { return mRows; }

private:
    static QString unescape(const QString& cell);

    QString mFile;
    QStringList mHeader;
    int mHeaderLine = 0;
    QList<Row> mRows;
};
