#include "RowFile.h"

#include "BuildError.h"

#include <QFile>

void RowFile::parseFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw BuildError(path, 0, QStringLiteral("cannot read the file"));
    parseText(QString::fromUtf8(file.readAll()), path);
}

void RowFile::parseText(const QString& text, const QString& fileName) {
    mFile = fileName;
    mHeader.clear();
    mHeaderLine = 0;
    mRows.clear();
    const QStringList lines = text.split(u'\n');
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines[i];
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList cells = line.split(u'\t');
        if (mHeaderLine == 0) {
            mHeaderLine = i + 1;
            for (const QString& cell : cells)
                mHeader.append(cell.trimmed());
            continue;
        }
        if (cells.size() != mHeader.size()) {
            throw BuildError(mFile, i + 1,
                             QStringLiteral("%1 cells, the header has %2")
                                 .arg(cells.size())
                                 .arg(mHeader.size()));
        }
        Row row{i + 1, {}};
        for (const QString& cell : cells)
            row.cells.append(unescape(cell));
        mRows.append(row);
    }
    if (mHeaderLine == 0)
        throw BuildError(mFile, 1, QStringLiteral("no header line"));
}

QString RowFile::unescape(const QString& cell) {
    if (!cell.contains(u'\\'))
        return cell;
    QString out;
    out.reserve(cell.size());
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != u'\\' || i + 1 == cell.size()) {
            out += cell[i];
            continue;
        }
        const QChar next = cell[++i];
        out += next == u't' ? QChar(u'\t') : next == u'n' ? QChar(u'\n') : next;
    }
    return out;
}
