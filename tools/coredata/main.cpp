// hoard-coredata: turns the readable sources under data/core into the object files the
// library reads, written by the library's own SaveToFile.
#include "CoreDataError.h"
#include "DDatabase.h"
#include "DRace.h"
#include "NameIndex.h"
#include "RaceSourceReader.h"
#include "TableSourceBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTextStream>

namespace {

void buildRaces(const QString& sourceDir, const QString& outputDir) {
    QString error;
    NameIndex names;
    if (!names.Load(error))
        throw CoreDataError(error);
    const QFileInfoList sources =
        QDir(sourceDir).entryInfoList({QStringLiteral("*.race")}, QDir::Files, QDir::Name);
    if (sources.isEmpty())
        throw CoreDataError(QStringLiteral("%1: no *.race sources").arg(sourceDir));
    // Every source is read before anything is written, so a fault leaves the old output whole.
    QList<DRace*> races;
    const auto releaseAll = [&races] {
        for (DRace* race : races)
            race->Release();
    };
    try {
        for (const QFileInfo& source : sources) {
            auto* race = new DRace;
            races.append(race);
            RaceSourceReader(names).Read(source.filePath(), *race);
        }
    } catch (...) {
        releaseAll();
        throw;
    }
    QDir output(outputDir);
    if (!output.mkpath(QStringLiteral("."))) {
        releaseAll();
        throw CoreDataError(QStringLiteral("%1: cannot create the folder").arg(outputDir));
    }
    QSet<QString> written;
    for (int i = 0; i < races.size(); ++i) {
        const QString file = sources[i].completeBaseName() + QStringLiteral(".rac");
        if (!races[i]->SaveToFile(FCString(output.filePath(file)))) {
            releaseAll();
            throw CoreDataError(QStringLiteral("%1: cannot write").arg(output.filePath(file)));
        }
        written.insert(file);
    }
    releaseAll();
    // A source that was removed takes its object file with it.
    for (const QString& file : output.entryList({QStringLiteral("*.rac")}, QDir::Files)) {
        if (!written.contains(file))
            output.remove(file);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    QTextStream err(stderr);
    const bool races = args.size() == 5 && args[1] == QStringLiteral("races");
    const bool tables = args.size() == 6 && args[1] == QStringLiteral("tables");
    if (!races && !tables) {
        err << "usage: hoard-coredata races RULES_DB SOURCE_DIR OUTPUT_DIR\n"
               "       hoard-coredata tables RULES_DB SOURCE_DIR RACES_DIR OUTPUT_DIR\n";
        return 2;
    }
    if (!QFileInfo(args[2]).isFile()) {
        err << args[2] << ": no such rules database\n";
        return 1;
    }
    if (!DDatabase::StartUp(FCString(args[2]))) {
        err << args[2] << ": cannot open the rules database\n";
        return 1;
    }
    int status = 0;
    try {
        if (races)
            buildRaces(args[3], args[4]);
        else
            TableSourceBuilder(args[3], args[4]).Build(args[5]);
    } catch (const CoreDataError& error) {
        err << error.text() << '\n';
        status = 1;
    }
    DDatabase::ShutDown();
    return status;
}
