#include "TableRegistry.h"

#include "BuildError.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

void TableRegistry::parseFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw BuildError(path, 0, QStringLiteral("cannot read the file"));
    parseText(QString::fromUtf8(file.readAll()), path);
}

void TableRegistry::parseText(const QString& text, const QString& fileName) {
    mFile = fileName;
    mEntries.clear();
    mIndexed = 0;
    const QStringList lines = text.split(u'\n');
    for (int i = 0; i < lines.size(); ++i)
        addLine(lines[i], i + 1);

    QSet<QString> seen;
    for (const Entry& entry : std::as_const(mEntries)) {
        if (seen.contains(entry.name.toLower()))
            throw BuildError(mFile, entry.line,
                             QStringLiteral("table %1 listed twice").arg(entry.name));
        seen.insert(entry.name.toLower());
    }
    if (mIndexed != Count) {
        const int line = mIndexed == 0 ? 1 : mEntries[mIndexed - 1].line;
        throw BuildError(mFile, line,
                         QStringLiteral("%1 tables listed, expected %2").arg(mIndexed).arg(Count));
    }
}

void TableRegistry::addLine(const QString& line, int lineNumber) {
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u'#'))
        return;
    static const QRegularExpression form(QStringLiteral("^(\\d+|-)\\s+(\\[[^\\]]+\\])$"));
    const QRegularExpressionMatch match = form.match(trimmed);
    if (!match.hasMatch())
        throw BuildError(mFile, lineNumber,
                         QStringLiteral("expected an index and a [bracketed] name"));
    if (match.captured(1) == u'-') {
        mEntries.append({-1, match.captured(2), lineNumber});
        return;
    }
    // Indexes are positions in code's list, so no extra table may come between them.
    if (mIndexed != mEntries.size())
        throw BuildError(mFile, lineNumber,
                         QStringLiteral("an indexed table after the extra tables"));
    const int index = match.captured(1).toInt();
    if (index != mIndexed) {
        throw BuildError(
            mFile, lineNumber,
            QStringLiteral("index %1 out of order, expected %2").arg(index).arg(mIndexed));
    }
    mEntries.append({index, match.captured(2), lineNumber});
    ++mIndexed;
}
