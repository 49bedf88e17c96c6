// A random level-10 character, fully computed, to its stat block text; and a random monster.
#include "BenchSupport.h"
#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DDatabase.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DOutput.h"
#include "FCRandom.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

using hoardbench::dataDir;

namespace {

struct Workspace {
    QTemporaryDir dir;
    bool ready = false;

    Workspace() {
        DOptions::mAppPath = FCString(dataDir());
        DOptions::SetUserDataPath(FCString(dir.path()));
        ready = DDatabase::StartUp(FCString(dataDir() + "/rules.db"));
        if (ready)
            DObjectManager::StartUp();
    }
    ~Workspace() {
        DObjectManager::ShutDown();
        DDatabase::ShutDown();
    }
};

Workspace& workspace() {
    static Workspace instance;
    return instance;
}

void BM_RandomLevel10CharacterStatBlock(benchmark::State& state) {
    if (!workspace().ready) {
        state.SkipWithError("no rules database");
        return;
    }
    FC::SeedRandom(10);
    DCharacterGenerator::Request request;
    request.level = 10;
    QString text, error;
    for (auto _ : state) {
        DCharacter* character = DCharacterGenerator::GenerateCharacter(request, error);
        if (!character || !DOutput::BuildStatBlock(character, text, error)) {
            state.SkipWithError(qPrintable(error));
            return;
        }
        benchmark::DoNotOptimize(text.size());
        character->Release();
    }
}
BENCHMARK(BM_RandomLevel10CharacterStatBlock)->Unit(benchmark::kMillisecond);

} // namespace
