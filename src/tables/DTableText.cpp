#include "DTableText.h"

#include "DAlignmentInfo.h"
#include "DDatabase.h"
#include "DTable.h"
#include "DTableItem.h"
#include "FCReleaser.h"

#include <QRegularExpression>

#include <climits>
#include <set>

namespace {

constexpr int kColumnCount = 7;
// Longer dice spans are not walked for gaps and overlaps.
constexpr qint64 kMaxCheckedSpan = 100000;

const char* const kKindWords[DTableItem::kElementKindCount] = {"monster", "character", "treasure",
                                                               "table", "text"};

bool parseInt(const QString& text, int& value) {
    bool ok = false;
    value = text.toInt(&ok);
    return ok;
}

QString escapeNotes(const QString& notes) {
    QString out = notes;
    out.replace('\\', QStringLiteral("\\\\"));
    out.replace('\t', QStringLiteral("\\t"));
    out.replace('\n', QStringLiteral("\\n"));
    return out;
}

QString unescapeNotes(const QString& text) {
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const QChar next = text[++i];
        out += next == 'n' ? QChar('\n') : next == 't' ? QChar('\t') : next;
    }
    return out;
}

bool parseDie(const QString& text, DTable& table) {
    static const QRegularExpression pattern(QStringLiteral("^(\\d+)d(\\d+)([+-]\\d+)?$"),
                                            QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return false;
    int count = 0, die = 0, modifier = 0;
    if (!parseInt(match.captured(1), count) || !parseInt(match.captured(2), die) || die < 1)
        return false;
    if (match.hasCaptured(3) && !parseInt(match.captured(3), modifier))
        return false;
    table.setCount(count);
    table.setDie(die);
    table.setModifier(modifier);
    return true;
}

bool parseRoll(const QString& text, DTableItem& row) {
    static const QRegularExpression pattern(QStringLiteral("^(-?\\d+)(?:-(-?\\d+))?$"));
    const auto match = pattern.match(text);
    int from = 0, to = 0;
    if (!match.hasMatch() || !parseInt(match.captured(1), from))
        return false;
    if (!match.hasCaptured(2)) {
        row.setResult(DTableItem::kResultValue);
        row.setResultData(from, 0);
        return true;
    }
    if (!parseInt(match.captured(2), to) || to < from)
        return false;
    row.setResult(DTableItem::kResultRange);
    row.setResultData(from, to);
    return true;
}

bool parseCount(const QString& text, DTableItem& row) {
    static const QRegularExpression dice(QStringLiteral("^(\\d+)d(\\d+)([+-]\\d+)?$"),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression range(QStringLiteral("^(\\d+)-(\\d+)$"));
    int a = 0, b = 0, c = 0;
    if (parseInt(text, a)) {
        row.setCount(DTableItem::kCountFixed);
        row.setCountData(a, 0, 0);
        return true;
    }
    if (text.endsWith('%') && parseInt(text.chopped(1), a)) {
        row.setCount(DTableItem::kCountPercent);
        row.setCountData(a, 0, 0);
        return true;
    }
    if (text.startsWith('/') && parseInt(text.mid(1), a) && a != 0) {
        row.setCount(DTableItem::kCountDivide);
        row.setCountData(a, 0, 0);
        return true;
    }
    if (const auto m = range.match(text); m.hasMatch()) {
        if (!parseInt(m.captured(1), a) || !parseInt(m.captured(2), b) || b <= a)
            return false;
        row.setCount(DTableItem::kCountRange);
        row.setCountData(a, b, 0);
        return true;
    }
    if (const auto m = dice.match(text); m.hasMatch()) {
        if (!parseInt(m.captured(1), a) || !parseInt(m.captured(2), b) || b < 1)
            return false;
        if (m.hasCaptured(3) && !parseInt(m.captured(3), c))
            return false;
        row.setCount(DTableItem::kCountDice);
        row.setCountData(a, b, c);
        return true;
    }
    return false;
}

int parseKind(const QString& text) {
    for (int kind = 0; kind < DTableItem::kElementKindCount; ++kind) {
        if (text.compare(QLatin1String(kKindWords[kind]), Qt::CaseInsensitive) == 0)
            return kind;
    }
    return -1;
}

// A bare monster name is a ready race; "NAME.mon" is a saved monster.
DFileObject fileFor(int kind, const QString& name) {
    switch (kind) {
    case DTableItem::kElementMonster:
        if (name.endsWith(QStringLiteral(".mon"), Qt::CaseInsensitive))
            return DFileObject(kObjectMonster, kFileUser, FCString(name));
        return DFileObject(kObjectRace, kFileCore, FCString(name + ".rac"));
    case DTableItem::kElementCharacter:
        return DFileObject(kObjectCharacter, kFileUser, FCString(name + ".chr"));
    case DTableItem::kElementTreasure:
        return DFileObject(kObjectTreasure, kFileUser, FCString(name + ".trs"));
    default:
        return DFileObject(kObjectTable, kFileUser, FCString(name + ".tbl"));
    }
}

// The cells after the name: level, race, alignment; all may be empty.
// A number, or an alignment's name or short name from the rules database.
bool parseAlignment(const QString& text, int& id) {
    if (parseInt(text, id))
        return id >= 0;
    for (const auto& [key, info] : DDatabase::GetAlignmentInfoMap()) {
        const auto* alignment = static_cast<const DAlignmentInfo*>(info);
        if (alignment->GetAlignmentName().compare(text, Qt::CaseInsensitive) == 0 ||
            alignment->GetAlignmentShortName().compare(text, Qt::CaseInsensitive) == 0) {
            id = key;
            return true;
        }
    }
    return false;
}

QString alignmentText(int id) {
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(id);
    return info ? QString(info->GetAlignmentShortName()) : QString::number(id);
}

bool parseOverrides(const QStringList& cells, DTableItem& row, QString& error) {
    int level = 0, alignment = 0;
    const QString levelText = cells.value(4);
    if (!levelText.isEmpty() && (!parseInt(levelText, level) || level < 0)) {
        error = QStringLiteral("level '%1' is not a whole number from 0 up").arg(levelText);
        return false;
    }
    const QString alignmentText = cells.value(6);
    if (!alignmentText.isEmpty() && !parseAlignment(alignmentText, alignment)) {
        error = QStringLiteral("alignment '%1' is neither a number nor an alignment such as LG")
                    .arg(alignmentText);
        return false;
    }
    const QString race = cells.value(5);
    if (!race.isEmpty()) {
        const DFileObject raceFile(kObjectRace, kFileCore, FCString(race + ".rac"));
        row.setMiscData(level, &raceFile, alignment, FCString());
    } else {
        row.setMiscData(level, nullptr, alignment, FCString());
    }
    return true;
}

bool parseRow(const QStringList& cells, DTableItem& row, QString& error) {
    if (cells.size() < 4) {
        error = QStringLiteral("a row needs roll, count, kind and name; found %1 cells")
                    .arg(cells.size());
        return false;
    }
    if (cells.size() > kColumnCount) {
        error = QStringLiteral("a row has at most %1 cells; found %2")
                    .arg(kColumnCount)
                    .arg(cells.size());
        return false;
    }
    if (!parseRoll(cells[0], row)) {
        error = QStringLiteral("roll '%1' is neither a number nor a range LOW-HIGH").arg(cells[0]);
        return false;
    }
    if (!parseCount(cells[1], row)) {
        error = QStringLiteral("count '%1' is not N, NdS+M, N%, LOW-HIGH or /N").arg(cells[1]);
        return false;
    }
    const int kind = parseKind(cells[2]);
    if (kind < 0) {
        error = QStringLiteral("kind '%1' is not monster, character, treasure, table or text")
                    .arg(cells[2]);
        return false;
    }
    row.setGenerate(kind);
    const QString name = cells[3];
    if (name.isEmpty()) {
        error = QStringLiteral("the name cell is empty");
        return false;
    }
    if (kind == DTableItem::kElementText) {
        row.setGenerateData(nullptr, FCString(name));
    } else {
        const DFileObject file = fileFor(kind, name);
        row.setGenerateData(&file, FCString());
    }
    return parseOverrides(cells, row, error);
}

QStringList splitCells(const QString& line) {
    QStringList cells = line.split('\t');
    for (QString& cell : cells)
        cell = cell.trimmed();
    // Spreadsheets pad short rows with empty cells.
    while (!cells.isEmpty() && cells.last().isEmpty())
        cells.removeLast();
    return cells;
}

QString rowList(const std::set<int>& rows) {
    QStringList names;
    for (int row : rows)
        names << QString::number(row);
    if (names.size() == 1)
        return QStringLiteral("row ") + names.first();
    const QString last = names.takeLast();
    return QStringLiteral("rows %1 and %2").arg(names.join(QStringLiteral(", ")), last);
}

QString spanText(int from, int to) {
    return from == to ? QString::number(from) : QStringLiteral("%1-%2").arg(from).arg(to);
}

} // namespace

bool DTableText::Parse(const QString& text, DTable& table, int& errorLine, QString& error) {
    table.RemoveAllItems();
    table.setNotes(FCString());
    const QStringList lines = text.split('\n');
    bool haveDie = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        errorLine = int(i + 1);
        QString line = lines[i];
        if (line.endsWith('\r'))
            line.chop(1);
        const QStringList cells = splitCells(line);
        if (cells.isEmpty() || cells.first().startsWith('#'))
            continue;
        const QString head = cells.first().toLower();
        if (head == "die") {
            if (haveDie) {
                error = QStringLiteral("a second 'die' line");
                return false;
            }
            if (cells.size() != 2 || !parseDie(cells[1], table)) {
                error = QStringLiteral("'die' wants one cell such as 1d20, 2d6+1 or 1d100");
                return false;
            }
            haveDie = true;
            continue;
        }
        if (head == "notes") {
            // Notes may hold tabs of their own: keep everything after the first one.
            table.setNotes(FCString(unescapeNotes(line.section('\t', 1).trimmed())));
            continue;
        }
        if (head == "roll")
            continue;
        if (!haveDie) {
            error = QStringLiteral("rows come after a 'die' line");
            return false;
        }
        FCRef<DTableItem> row(new DTableItem());
        if (!parseRow(cells, *row, error))
            return false;
        table.AddItem(row.get());
    }
    if (!haveDie) {
        errorLine = int(lines.size());
        error = QStringLiteral("no 'die' line");
        return false;
    }
    return true;
}

QString DTableText::Write(const DTable& table) {
    QString out = QStringLiteral("die\t%1\n").arg(table.DieText());
    if (!table.Notes().isEmpty())
        out += QStringLiteral("notes\t%1\n").arg(escapeNotes(table.Notes()));
    out += QStringLiteral("roll\tcount\tkind\tname\tlevel\trace\talignment\n");
    for (const DTableItem* row : table.GetItemArray()) {
        QStringList cells{RollText(*row), CountText(*row), KindText(row->Generate()),
                          NameText(*row)};
        cells << (row->MiscLevel() ? QString::number(row->MiscLevel()) : QString());
        cells << (row->MiscRace() ? QString(row->MiscRace()->GetBaseFileName()) : QString());
        cells << (row->MiscAlignment() ? alignmentText(row->MiscAlignment()) : QString());
        while (cells.last().isEmpty())
            cells.removeLast();
        out += cells.join('\t') + '\n';
    }
    return out;
}

QString DTableText::CountText(const DTableItem& row) {
    switch (row.Count()) {
    case DTableItem::kCountFixed:
        return QString::number(row.CountNumber());
    case DTableItem::kCountDice: {
        QString text = QStringLiteral("%1d%2").arg(row.CountNumber()).arg(row.CountDie());
        if (row.CountModifier() != 0)
            text += FCString::numberWithSign(row.CountModifier());
        return text;
    }
    case DTableItem::kCountPercent:
        return QStringLiteral("%1%").arg(row.CountNumber());
    case DTableItem::kCountRange:
        return QStringLiteral("%1-%2").arg(row.CountNumber()).arg(row.CountDie());
    case DTableItem::kCountDivide:
        return QStringLiteral("/%1").arg(row.CountNumber());
    default:
        return QStringLiteral("?");
    }
}

QString DTableText::RollText(const DTableItem& row) {
    if (row.Result() == DTableItem::kResultRange)
        return QStringLiteral("%1-%2").arg(row.ResultFrom()).arg(row.ResultTo());
    return QString::number(row.ResultFrom());
}

QString DTableText::KindText(int kind) {
    return kind >= 0 && kind < DTableItem::kElementKindCount ? QLatin1String(kKindWords[kind])
                                                             : QStringLiteral("?");
}

QString DTableText::NameText(const DTableItem& row) {
    if (row.Generate() == DTableItem::kElementText)
        return row.GenerateString();
    const DFileObject& file = row.GenerateFile();
    if (file.GetObjectType() == kObjectMonster)
        return file.GetBaseFileName() + ".mon";
    return file.GetBaseFileName();
}

QStringList DTableText::CheckCoverage(const DTable& table) {
    const qint64 low = qint64(table.Count()) + table.Modifier();
    const qint64 high = qint64(table.Count()) * table.Die() + table.Modifier();
    QStringList warnings;
    // A damaged file can ask for rolls beyond what an int holds; such a table is not checked.
    if (table.Count() < 1 || high - low > kMaxCheckedSpan || low < INT_MIN || high > INT_MAX)
        return warnings;
    // Runs of roll values with the same rows covering them.
    int runStart = int(low);
    std::set<int> runRows, previousRows;
    auto closeRun = [&](int runEnd, const std::set<int>& nextRows) {
        if (runRows.size() > 1)
            warnings
                << QStringLiteral("%1 cover %2").arg(rowList(runRows), spanText(runStart, runEnd));
        if (!runRows.empty())
            return;
        QStringList around;
        if (!previousRows.empty())
            around << QStringLiteral("after ") + rowList(previousRows);
        if (!nextRows.empty())
            around << QStringLiteral("before ") + rowList(nextRows);
        QString warning = QStringLiteral("no row covers %1").arg(spanText(runStart, runEnd));
        if (!around.isEmpty())
            warning += QStringLiteral(" (%1)").arg(around.join(QStringLiteral(", ")));
        warnings << warning;
    };
    for (qint64 roll = low; roll <= high; ++roll) {
        std::set<int> rows;
        for (int i = 0; i < table.GetItemArray().GetCount(); ++i) {
            if (table.GetItemArray().At(i)->Matches(int(roll)))
                rows.insert(i + 1);
        }
        if (roll > low && rows != runRows) {
            closeRun(int(roll - 1), rows);
            previousRows = runRows;
            runStart = int(roll);
        }
        runRows = rows;
    }
    closeRun(int(high), {});
    return warnings;
}
