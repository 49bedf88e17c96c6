#include "TableCommand.h"

#include "CliContext.h"
#include "CliLookup.h"
#include "DObjectManager.h"
#include "DTable.h"
#include "DTableRoller.h"
#include "DTableText.h"
#include "FCFileManager.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QSaveFile>

#include <cstdio>

namespace {

constexpr int kMaxRollCount = 1000;

// The catalogue entry of the table named `name`, a user table before a core one.
DFileObject* findTable(const QString& name) {
    DFileObject* found = nullptr;
    for (const auto& entry : DObjectManager::GetTableSet()) {
        if (entry->GetBaseFileName().compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (!found || entry->GetFileObjectType() == kFileUser)
            found = entry.Get();
    }
    return found;
}

QStringList tableNames() {
    QStringList names;
    for (const auto& entry : DObjectManager::GetTableSet())
        names << entry->GetBaseFileName();
    names.removeDuplicates();
    return names;
}

QString kindName(int kind) {
    return DTableText::KindText(kind);
}

QJsonArray resultsJson(const std::vector<DTableResult>& results) {
    QJsonArray array;
    for (const DTableResult& result : results) {
        QJsonObject object{{"kind", kindName(result.kind)},
                           {"name", result.name},
                           {"count", result.count},
                           {"results", resultsJson(result.children)}};
        if (!result.extra.isEmpty())
            object.insert("extra", result.extra);
        if (!result.problem.isEmpty())
            object.insert("problem", result.problem);
        if (result.kind == DTableItem::kElementTable) {
            QJsonArray rolls;
            for (int roll : result.rolls)
                rolls.append(roll);
            object.insert("rolls", rolls);
        }
        array.append(object);
    }
    return array;
}

void printResults(const std::vector<DTableResult>& results, int depth) {
    const QString indent(2 * depth, ' ');
    for (const DTableResult& result : results) {
        QString line = indent + kindName(result.kind) + ' ';
        line += result.kind == DTableItem::kElementText ? '"' + result.name + '"' : result.name;
        line += QStringLiteral(" x%1").arg(result.count);
        if (!result.extra.isEmpty())
            line += QStringLiteral(" (%1)").arg(result.extra);
        if (!result.rolls.isEmpty()) {
            QStringList rolls;
            for (int roll : result.rolls)
                rolls << QString::number(roll);
            line += QStringLiteral(", rolled %1").arg(rolls.join(QStringLiteral(", ")));
        }
        if (!result.problem.isEmpty())
            line += QStringLiteral(": ") + result.problem;
        CliContext::PrintLine(line);
        printResults(result.children, depth + 1);
    }
}

bool validTableName(const QString& name) {
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|\t\n");
    if (name.trimmed().isEmpty() || name.startsWith('.'))
        return false;
    for (QChar c : name) {
        if (forbidden.contains(c))
            return false;
    }
    return true;
}

} // namespace

QString TableCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard table list [--json]\n"
               "  hoard table show NAME|FILE.tbl [--json]\n"
               "  hoard table roll NAME|FILE.tbl [--count N] [--json] [--seed N]\n"
               "  hoard table import FILE.tsv [-o NAME]\n"
               "  hoard table export NAME|FILE.tbl [-o FILE.tsv]\n\n"
               "list    the tables of the Core and User folders, with their dice\n"
               "show    a table's dice, notes and rows\n"
               "roll    rolls the table's dice; every row covering the roll gives its result, and "
               "a\n"
               "        row naming a table rolls that one, its results indented beneath. --count "
               "rolls\n"
               "        N times (1 to %1). JSON: {\"table\", \"roll\", \"results\": [{\"kind\", "
               "\"name\",\n"
               "        \"count\", \"results\": [...]}]}, an array of those with --count above 1.\n"
               "import  reads the tab-separated text form (see the README, \"Tables\") and saves "
               "it as\n"
               "        a user table named after the file, or NAME\n"
               "export  writes a table in the tab-separated text form to standard output or FILE\n")
        .arg(kMaxRollCount);
}

int TableCommand::Run(CliContext& context, QStringList args) {
    QString sub;
    int status = 0;
    if (!TakeSubcommand(args, sub, status))
        return status;
    if (sub == "list")
        return RunList(context, args);
    if (sub == "show")
        return RunShow(context, args);
    if (sub == "roll")
        return RunRoll(context, args);
    if (sub == "import")
        return RunImport(context, args);
    if (sub == "export")
        return RunExport(context, args);
    return CliContext::Fail(
        QStringLiteral("unknown table command '%1' (try: list, show, roll, import, export)")
            .arg(sub));
}

FCRef<DTable> TableCommand::OpenTable(CliContext& context, const QString& name) {
    if (!context.StartLibrary())
        return nullptr;
    if (name.endsWith(QStringLiteral(".tbl"), Qt::CaseInsensitive) || QFileInfo(name).isFile()) {
        const QString path = QFileInfo(name).absoluteFilePath();
        FCRef<DTable> table(DTable::CreateFromFile(FCString(path)));
        if (!table)
            CliContext::Fail(QStringLiteral("%1 is not a readable table file").arg(name));
        return table;
    }
    const DFileObject* entry = findTable(name);
    if (!entry) {
        CliContext::Fail(CliLookup::UnknownName(QStringLiteral("table"), name,
                                                CliLookup::ClosestNames(name, tableNames(), 3)));
        return nullptr;
    }
    FCRef<DTable> table(DTable::CreateFromFile(entry->GetAccessFilePath()));
    if (!table)
        CliContext::Fail(QStringLiteral("the table file %1 cannot be read")
                             .arg(FCFileManager::ResolvePath(entry->GetAccessFilePath())));
    return table;
}

int TableCommand::RunList(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("table list takes no names"));
    if (!context.StartLibrary())
        return 1;
    QJsonArray array;
    for (const auto& entry : DObjectManager::GetTableSet()) {
        const QString tree = entry->GetFileObjectType() == kFileUser ? "user" : "core";
        FCRef<DTable> table(DTable::CreateFromFile(entry->GetAccessFilePath()));
        const QString dice = table ? table->DieText() : QStringLiteral("unreadable");
        const int rows = table ? table->GetItemArray().GetCount() : 0;
        if (context.WantsJson()) {
            array.append(QJsonObject{{"name", QString(entry->GetBaseFileName())},
                                     {"folder", tree},
                                     {"dice", dice},
                                     {"rows", rows}});
        } else {
            CliContext::PrintLine(QStringLiteral("%1 %2 %3 %4 rows")
                                      .arg(entry->GetBaseFileName(), -38)
                                      .arg(tree, -5)
                                      .arg(dice, -8)
                                      .arg(rows));
        }
    }
    if (context.WantsJson())
        CliContext::PrintJson(array);
    return 0;
}

int TableCommand::RunShow(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("table show takes one table name"));
    const FCRef<DTable> table = OpenTable(context, args.first());
    if (!table)
        return 1;
    const QStringList warnings = DTableText::CheckCoverage(*table);
    if (context.WantsJson()) {
        QJsonArray rows;
        for (const DTableItem* row : table->GetItemArray()) {
            QJsonObject object{{"roll", DTableText::RollText(*row)},
                               {"count", DTableText::CountText(*row)},
                               {"kind", kindName(row->Generate())},
                               {"name", DTableText::NameText(*row)}};
            if (row->MiscLevel())
                object.insert("level", row->MiscLevel());
            if (row->MiscRace())
                object.insert("race", QString(row->MiscRace()->GetBaseFileName()));
            if (row->MiscAlignment())
                object.insert("alignment", row->MiscAlignment());
            rows.append(object);
        }
        CliContext::PrintJson(QJsonObject{{"table", QString(table->Name())},
                                          {"dice", table->DieText()},
                                          {"notes", QString(table->Notes())},
                                          {"rows", rows},
                                          {"warnings", QJsonArray::fromStringList(warnings)}});
        return 0;
    }
    CliContext::PrintLine(QStringLiteral("%1: %2").arg(table->Name(), table->DieText()));
    if (!table->Notes().isEmpty())
        CliContext::PrintLine(table->Notes());
    int number = 0;
    for (const DTableItem* row : table->GetItemArray()) {
        QString line = QStringLiteral("%1. %2 %3 %4 %5")
                           .arg(++number, 3)
                           .arg(DTableText::RollText(*row), -7)
                           .arg(DTableText::CountText(*row), -7)
                           .arg(kindName(row->Generate()), -9)
                           .arg(DTableText::NameText(*row));
        if (const QString extra = DTableRoller::ExtraText(*row); !extra.isEmpty())
            line += QStringLiteral(" (%1)").arg(extra);
        CliContext::PrintLine(line);
    }
    for (const QString& warning : warnings)
        CliContext::PrintLine(QStringLiteral("warning: ") + warning);
    return 0;
}

int TableCommand::RunRoll(CliContext& context, QStringList args) {
    QString countText;
    if (!TakeOption(args, QStringLiteral("--count"), countText))
        return CliContext::Fail(
            QStringLiteral("--count needs a number from 1 to %1").arg(kMaxRollCount));
    QString error;
    int times = 1;
    if (!countText.isNull() &&
        !ParseNumberOption(QStringLiteral("--count"), countText, 1, kMaxRollCount, times, error))
        return CliContext::Fail(error);
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("table roll takes one table name"));
    const FCRef<DTable> table = OpenTable(context, args.first());
    if (!table)
        return 1;
    DTableRoller roller;
    QJsonArray rolls;
    for (int i = 0; i < times; ++i) {
        const DTableRoller::Outcome outcome = roller.Roll(*table);
        if (context.WantsJson()) {
            rolls.append(QJsonObject{{"table", QString(table->Name())},
                                     {"roll", outcome.roll},
                                     {"results", resultsJson(outcome.results)}});
            continue;
        }
        CliContext::PrintLine(
            QStringLiteral("%1 (%2): %3").arg(table->Name(), table->DieText()).arg(outcome.roll));
        if (outcome.results.empty())
            CliContext::PrintLine(QStringLiteral("  no row covers %1").arg(outcome.roll));
        printResults(outcome.results, 1);
    }
    if (context.WantsJson())
        CliContext::PrintJson(times == 1 ? QJsonValue(rolls.first()) : QJsonValue(rolls));
    return 0;
}

int TableCommand::RunImport(CliContext& context, QStringList args) {
    QString name;
    if (!TakeOption(args, QStringLiteral("-o"), name))
        return CliContext::Fail(QStringLiteral("-o needs a table name"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("table import takes one FILE.tsv"));
    const QString path = args.first();
    if (name.isNull())
        name = QFileInfo(path).completeBaseName();
    if (!validTableName(name))
        return CliContext::Fail(
            QStringLiteral("'%1' cannot name a table: use a plain name without / \\ : * ? \" < > |")
                .arg(name));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return CliContext::Fail(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    // Alignments may be named, so the rules are read first.
    if (!context.StartLibrary())
        return 1;
    FCRef<DTable> table(new DTable());
    int line = 0;
    if (!DTableText::Parse(QString::fromUtf8(file.readAll()), *table, line, error))
        return CliContext::Fail(QStringLiteral("%1:%2: %3").arg(path).arg(line).arg(error));
    for (const QString& warning : DTableText::CheckCoverage(*table))
        std::fprintf(stderr, "%s: warning: %s\n", qPrintable(path), qPrintable(warning));
    const FCString folder = DObjectManager::GetObjectPath(kObjectTable, kFileUser);
    FCFileManager::MakeDirectory(folder);
    const FCString target = FCFileManager::ResolvePath(FCString(folder + name + ".tbl"));
    if (!table->SaveToFile(target))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(target));
    CliContext::PrintLine(QStringLiteral("imported %1 (%2, %3 rows) to %4")
                              .arg(table->Name(), table->DieText())
                              .arg(table->GetItemArray().GetCount())
                              .arg(target));
    return 0;
}

int TableCommand::RunExport(CliContext& context, QStringList args) {
    QString output;
    if (!TakeOption(args, QStringLiteral("-o"), output))
        return CliContext::Fail(QStringLiteral("-o needs a file name"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("table export takes one table name"));
    const FCRef<DTable> table = OpenTable(context, args.first());
    if (!table)
        return 1;
    const QByteArray text = DTableText::Write(*table).toUtf8();
    if (output.isNull()) {
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        return 0;
    }
    QSaveFile file(output);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(output));
    return 0;
}
