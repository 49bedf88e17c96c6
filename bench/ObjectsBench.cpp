// The object catalogues: the start-up scan over the shipped races and over a large user tree,
// and reading every ready race once.
#include "BenchSupport.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"
#include "FCFileManager.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

using hoardbench::classGuid;
using hoardbench::dataDir;

namespace {

QString dataDir() {
    const QByteArray fromEnvironment = qgetenv("HOARD_DATA");
    return fromEnvironment.isEmpty() ? QStringLiteral(HOARD_DATA_BUILD_DIR)
                                     : QString::fromLocal8Bit(fromEnvironment);
}

// The scan runs once per process, so each measurement is a child process of its own.
qint64 scanInChild(const QString& userDir, int& races) {
    int fds[2];
    if (pipe(fds) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        close(fds[0]);
        DOptions::mAppPath = FCString(dataDir());
        DOptions::SetUserDataPath(FCString(userDir));
        QElapsedTimer timer;
        timer.start();
        DObjectManager::StartUp();
        const qint64 result[2] = {timer.nsecsElapsed(),
                                  DObjectManager::GetRaceFileSet().GetCount()};
        (void)!write(fds[1], result, sizeof(result));
        _exit(0);
    }
    close(fds[1]);
    qint64 result[2] = {-1, 0};
    const bool ok = read(fds[0], result, sizeof(result)) == sizeof(result);
    close(fds[0]);
    waitpid(child, nullptr, 0);
    races = int(result[1]);
    return ok ? result[0] : -1;
}

void runScan(benchmark::State& state, const QString& userDir) {
    int races = 0;
    for (auto _ : state) {
        const qint64 nanoseconds = scanInChild(userDir, races);
        if (nanoseconds < 0) {
            state.SkipWithError("scan failed");
            return;
        }
        state.SetIterationTime(double(nanoseconds) / 1e9);
    }
    state.counters["races"] = races;
}

void BM_ScanShippedCatalogue(benchmark::State& state) {
    QTemporaryDir emptyUser;
    runScan(state, emptyUser.path());
}
BENCHMARK(BM_ScanShippedCatalogue)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_ScanTenThousandUserRaces(benchmark::State& state) {
    QTemporaryDir user;
    QDir().mkpath(user.path() + "/Races");
    DRace race;
    const QString first = user.path() + "/Races/Race 0.rac";
    race.SaveToFile(FCString(first));
    for (int i = 1; i < 10000; ++i)
        QFile::copy(first, user.path() + QStringLiteral("/Races/Race %1.rac").arg(i));
    runScan(state, user.path());
}
BENCHMARK(BM_ScanTenThousandUserRaces)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

void BM_LoadEveryReadyRace(benchmark::State& state) {
    const QDir races(dataDir() + "/Core/Races");
    const QStringList files = races.entryList({"*.rac"}, QDir::Files);
    for (auto _ : state) {
        int loaded = 0;
        for (const QString& file : files) {
            DRace* race = DRace::CreateFromFile(FCString(races.filePath(file)), false);
            loaded += race ? 1 : 0;
            if (race)
                race->Release();
        }
        if (loaded != files.size()) {
            state.SkipWithError("a ready race did not load");
            return;
        }
    }
    state.counters["races"] = double(files.size());
}
BENCHMARK(BM_LoadEveryReadyRace)->Unit(benchmark::kMillisecond);

} // namespace
