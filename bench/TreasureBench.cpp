// Treasures for encounter levels 1 to 20 in turn, items included.
#include "BenchSupport.h"
#include "DDatabase.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"
#include "FCRandom.h"

#include <benchmark/benchmark.h>

using hoardbench::dataDir;

namespace {

void BM_TreasureLevels1To20(benchmark::State& state) {
    if (!DDatabase::StartUp(FCString(dataDir() + "/rules.db"))) {
        state.SkipWithError("no rules database");
        return;
    }
    FC::SeedRandom(1);
    int level = 0;
    for (auto _ : state) {
        DTreasure* treasure = new DTreasure;
        DTreasureGenerator::GenerateTreasure(treasure, level % 20 + 1);
        benchmark::DoNotOptimize(treasure->GetItemCount());
        treasure->Release();
        ++level;
    }
    state.SetItemsProcessed(state.iterations());
    DDatabase::ShutDown();
}
BENCHMARK(BM_TreasureLevels1To20)->Unit(benchmark::kMicrosecond);

} // namespace
