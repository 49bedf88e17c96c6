#include "TableSourceBuilder.h"

#include "CoreDataError.h"
#include "DTable.h"
#include "DTableText.h"
#include "FCReleaser.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <vector>

namespace {

FCRef<DTable> readSource(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CoreDataError(QStringLiteral("%1: cannot read").arg(path));
    FCRef<DTable> table(new DTable());
    int line = 0;
    QString error;
    if (!DTableText::Parse(QString::fromUtf8(file.readAll()), *table, line, error))
        throw CoreDataError(path, line, error);
    // Shipped tables cover every roll exactly once.
    const QStringList warnings = DTableText::CheckCoverage(*table);
    if (!warnings.isEmpty())
        throw CoreDataError(path, 1, warnings.first());
    return table;
}

// Every row names something that ships: a ready race or another of these tables.
void checkNames(const QString& path, const DTable& table, const QSet<QString>& tables,
                const QDir& races) {
    int number = 0;
    for (const DTableItem* row : table.GetItemArray()) {
        ++number;
        const QString name = DTableText::NameText(*row);
        if (row->Generate() == DTableItem::kElementMonster &&
            !races.exists(row->GenerateFile().GetRelativeFilePath()))
            throw CoreDataError(path, 1,
                                QStringLiteral("row %1: no ready race '%2'").arg(number).arg(name));
        if (row->Generate() == DTableItem::kElementTable && !tables.contains(name))
            throw CoreDataError(
                path, 1, QStringLiteral("row %1: no table source '%2'").arg(number).arg(name));
        if (row->Generate() == DTableItem::kElementCharacter ||
            row->Generate() == DTableItem::kElementTreasure)
            throw CoreDataError(
                path, 1,
                QStringLiteral("row %1: ready tables do not ship characters or treasure")
                    .arg(number));
    }
}

} // namespace

TableSourceBuilder::TableSourceBuilder(const QString& sourceDir, const QString& racesDir)
    : mSourceDir(sourceDir), mRacesDir(racesDir) {}

void TableSourceBuilder::Build(const QString& outputDir) const {
    const QFileInfoList sources =
        QDir(mSourceDir).entryInfoList({QStringLiteral("*.tsv")}, QDir::Files, QDir::Name);
    if (sources.isEmpty())
        throw CoreDataError(QStringLiteral("%1: no *.tsv sources").arg(mSourceDir));
    QSet<QString> names;
    for (const QFileInfo& source : sources)
        names.insert(source.completeBaseName());
    std::vector<FCRef<DTable>> tables;
    for (const QFileInfo& source : sources) {
        tables.push_back(readSource(source.filePath()));
        checkNames(source.filePath(), *tables.back(), names, QDir(mRacesDir));
    }
    QDir output(outputDir);
    if (!output.mkpath(QStringLiteral(".")))
        throw CoreDataError(QStringLiteral("%1: cannot create the folder").arg(outputDir));
    QSet<QString> written;
    for (size_t i = 0; i < tables.size(); ++i) {
        const QString file = sources[qsizetype(i)].completeBaseName() + QStringLiteral(".tbl");
        if (!tables[i]->SaveToFile(FCString(output.filePath(file))))
            throw CoreDataError(QStringLiteral("%1: cannot write").arg(output.filePath(file)));
        written.insert(file);
    }
    // A source that was removed takes its table with it.
    for (const QString& file : output.entryList({QStringLiteral("*.tbl")}, QDir::Files)) {
        if (!written.contains(file))
            output.remove(file);
    }
}
