#include "DTableRoller.h"

#include "DAlignmentInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DFileObject.h"
#include "DTable.h"
#include "DTableItem.h"
#include "FCFileManager.h"

#include <QStringList>

#include <algorithm>
#include <climits>

namespace {

FCRef<DTable> loadTableFile(const DFileObject& file) {
    const FCString path = DTableRoller::FindObjectFile(file);
    if (path.isEmpty())
        return nullptr;
    return FCRef<DTable>(DTable::CreateFromFile(path));
}

bool objectFileExists(const DFileObject& file) {
    return !DTableRoller::FindObjectFile(file).isEmpty();
}

// A damaged file's modifiers can push a sum past what an int holds: it stops at the edge.
int saturate(qint64 value) {
    return int(std::clamp<qint64>(value, INT_MIN, INT_MAX));
}

QString alignmentName(const DTableItem& row) {
    if (!row.MiscAlignmentText().isEmpty())
        return row.MiscAlignmentText();
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(row.MiscAlignment());
    return info ? QString(info->GetAlignmentName())
                : QStringLiteral("alignment %1").arg(row.MiscAlignment());
}

} // namespace

QString DTableRoller::ExtraText(const DTableItem& row) {
    switch (row.Generate()) {
    case DTableItem::kElementMonster:
        return row.MiscLevel() ? QStringLiteral("HD %1").arg(row.MiscLevel()) : QString();
    case DTableItem::kElementTreasure:
        return row.MiscLevel() ? QStringLiteral("EL %1").arg(row.MiscLevel()) : QString();
    case DTableItem::kElementCharacter: {
        QStringList parts;
        if (row.MiscLevel())
            parts << QStringLiteral("Lvl %1").arg(row.MiscLevel());
        if (row.MiscRace())
            parts << row.MiscRace()->GetBaseFileName();
        if (row.MiscAlignment())
            parts << alignmentName(row);
        return parts.join(QStringLiteral("; "));
    }
    default:
        return QString();
    }
}

namespace {

QString kindWord(int kind) {
    switch (kind) {
    case DTableItem::kElementMonster:
        return QStringLiteral("monster");
    case DTableItem::kElementCharacter:
        return QStringLiteral("character");
    case DTableItem::kElementTreasure:
        return QStringLiteral("treasure");
    default:
        return QStringLiteral("object");
    }
}

} // namespace

DTableRoller::DTableRoller()
    : DTableRoller([](int die, int count) { return DDieRoller::RollDiceSum(die, unsigned(count)); },
                   loadTableFile, objectFileExists) {}

DTableRoller::DTableRoller(DiceSource dice, TableLoader loader, FileCheck check)
    : mDice(std::move(dice)), mLoader(std::move(loader)), mCheck(std::move(check)) {}

FCString DTableRoller::FindObjectFile(const DFileObject& file) {
    if (file.GetRelativeFilePath().isEmpty())
        return FCString();
    DFileObject other(file);
    for (DFileObjectType tree : {file.GetFileObjectType(),
                                 file.GetFileObjectType() == kFileCore ? kFileUser : kFileCore}) {
        other.SetFileObjectType(tree);
        if (FCFileManager::FileExists(other.GetAccessFilePath()))
            return other.GetAccessFilePath();
    }
    return FCString();
}

DTableRoller::Outcome DTableRoller::Roll(const DTable& table) {
    mLoaded.clear();
    mTableRolls = 0;
    Outcome outcome;
    outcome.roll = RollTable(table);
    Generate(table, 0, outcome.roll, outcome.results);
    mLoaded.clear();
    return outcome;
}

int DTableRoller::RollTable(const DTable& table) {
    return saturate(qint64(RollDice(table.Die(), table.Count())) + table.Modifier());
}

int DTableRoller::RollDice(int die, int count) {
    // Fewer than no dice, or millions, come only from a damaged file.
    return mDice(die, qBound(0, count, kMaxDice));
}

void DTableRoller::Generate(const DTable& table, int depth, int roll,
                            std::vector<DTableResult>& out) {
    // Every row that covers the roll fires, in file order.
    for (const DTableItem* row : table.GetItemArray()) {
        if (row->Matches(roll))
            out.push_back(Produce(*row, RowCount(*row, roll), depth));
    }
}

int DTableRoller::RowCount(const DTableItem& row, int roll) {
    switch (row.Count()) {
    case DTableItem::kCountFixed:
        return row.CountNumber();
    case DTableItem::kCountDice:
        return saturate(qint64(RollDice(row.CountDie(), row.CountNumber())) + row.CountModifier());
    case DTableItem::kCountPercent:
        // Truncates toward zero, a negative roll too.
        return int(row.CountNumber() * 0.01 * roll);
    case DTableItem::kCountRange:
        // One die over the span: from one above the low end up to the high end.
        return saturate(qint64(mDice(saturate(qint64(row.CountDie()) - row.CountNumber()), 1)) +
                        row.CountNumber());
    case DTableItem::kCountDivide:
        // A divisor of 0 cannot be carried out; such a row gives nothing.
        return row.CountNumber() == 0 ? 0 : roll / row.CountNumber();
    default:
        return 0;
    }
}

DTableResult DTableRoller::Produce(const DTableItem& row, int count, int depth) {
    DTableResult result;
    result.kind = row.Generate();
    result.count = count;
    if (row.Generate() == DTableItem::kElementText) {
        result.name = row.GenerateString();
        return result;
    }
    result.name = row.GenerateFile().GetBaseFileName();
    result.extra = ExtraText(row);
    if (row.Generate() < 0 || row.Generate() > DTableItem::kElementText) {
        result.problem = QStringLiteral("unknown element kind %1").arg(row.Generate());
        return result;
    }
    if (row.Generate() != DTableItem::kElementTable) {
        if (!mCheck(row.GenerateFile())) {
            result.problem =
                QStringLiteral("no %1 named '%2'").arg(kindWord(row.Generate()), result.name);
            return result;
        }
        result.file = FindObjectFile(row.GenerateFile());
        result.objectType = row.GenerateFile().GetObjectType();
        result.level = row.MiscLevel();
        result.race = row.MiscRace() ? QString(row.MiscRace()->GetBaseFileName()) : QString();
        result.alignment = row.MiscAlignment();
        return result;
    }
    if (count <= 0)
        return result;
    if (depth + 1 > kMaxDepth) {
        result.problem = QStringLiteral("not rolled: tables nest deeper than %1").arg(kMaxDepth);
        return result;
    }
    const DTable* nested = Nested(row.GenerateFile());
    if (!nested) {
        result.problem = QStringLiteral("no table named '%1'").arg(result.name);
        return result;
    }
    for (int i = 0; i < count; ++i) {
        if (++mTableRolls > kMaxTableRolls) {
            result.problem =
                QStringLiteral("not rolled: more than %1 table rolls at once").arg(kMaxTableRolls);
            break;
        }
        const int roll = RollTable(*nested);
        result.rolls << roll;
        Generate(*nested, depth + 1, roll, result.children);
    }
    return result;
}

const DTable* DTableRoller::Nested(const DFileObject& file) {
    const QString key = file.GetAccessFilePath().toLower();
    auto it = mLoaded.find(key);
    if (it == mLoaded.end())
        it = mLoaded.emplace(key, mLoader(file)).first;
    return it->second.get();
}
