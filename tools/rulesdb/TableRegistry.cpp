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
    if (mEntries.size() != Count) {
        const int line = mEntries.isEmpty() ? 1 : mEntries.last().line;
        throw BuildError(
            mFile, line,
            QStringLiteral("%1 tables listed, expected %2").arg(mEntries.size()).arg(Count));
    }
}

void TableRegistry::addLine(const QString& line, int lineNumber) {
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u'#'))
        return;
    static const QRegularExpression form(QStringLiteral("^(\\d+)\\s+(\\[[^\\]]+\\])$"));
    const QRegularExpressionMatch match = form.match(trimmed);
    if (!match.hasMatch())
        throw BuildError(mFile, lineNumber,
                         QStringLiteral("expected an index and a [bracketed] name"));
    const int index = match.captured(1).toInt();
    if (index != mEntries.size()) {
        throw BuildError(
            mFile, lineNumber,
            QStringLiteral("index %1 out of order, expected %2").arg(index).arg(mEntries.size()));
    }
    mEntries.append({index, match.captured(2), lineNumber});
}
