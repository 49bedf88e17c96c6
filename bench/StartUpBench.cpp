// Start-up of the rules core against the built rules database: connect, preload every map,
// scan the object catalogues. Each iteration runs in a fresh child process, since the maps
// load once per process.
#include "DDatabase.h"
#include "DObjectManager.h"
#include "DOptions.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace {

const char* dataDir() {
    const char* fromEnvironment = std::getenv("HOARD_DATA");
    return fromEnvironment ? fromEnvironment : HOARD_DATA_BUILD_DIR;
}

// Runs start-up in a child and returns its wall time in nanoseconds and peak resident KiB.
bool startUpInChild(qint64& nanoseconds, long& residentKib) {
    int pipeFds[2];
    if (pipe(pipeFds) != 0)
        return false;
    const pid_t child = fork();
    if (child == 0) {
        close(pipeFds[0]);
        DOptions::mAppPath = FCString(QString::fromLocal8Bit(dataDir()));
        QElapsedTimer timer;
        timer.start();
        const bool ok = DDatabase::StartUp(FCString(DOptions::mAppPath + "/rules.db"));
        DObjectManager::StartUp();
        const qint64 elapsed = timer.nsecsElapsed();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const long result[3] = {long(ok), long(elapsed), usage.ru_maxrss};
        (void)!write(pipeFds[1], result, sizeof(result));
        _exit(0);
    }
    close(pipeFds[1]);
    long result[3] = {};
    const bool read = ::read(pipeFds[0], result, sizeof(result)) == sizeof(result);
    close(pipeFds[0]);
    waitpid(child, nullptr, 0);
    nanoseconds = result[1];
    residentKib = result[2];
    return read && result[0] == 1;
}

void BM_DatabaseAndObjectsStartUp(benchmark::State& state) {
    long peakKib = 0;
    for (auto _ : state) {
        qint64 nanoseconds = 0;
        long residentKib = 0;
        if (!startUpInChild(nanoseconds, residentKib)) {
            state.SkipWithError("start-up failed: is the rules database built?");
            return;
        }
        state.SetIterationTime(double(nanoseconds) / 1e9);
        peakKib = std::max(peakKib, residentKib);
    }
    state.counters["resident_MiB"] = double(peakKib) / 1024.0;
}
BENCHMARK(BM_DatabaseAndObjectsStartUp)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

} // namespace
