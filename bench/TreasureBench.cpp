// Treasures for encounter levels 1 to 20 in turn, items included.
#include "BenchSupport.h"
#include "DCurrency.h"
#include "DDatabase.h"
#include "DItem.h"
#include "DItemType.h"
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

// What 20,000 seeded hoards of one encounter level hold on average: coins in gold, goods
// (gems and art) and items (mundane and magic) by count, and the whole hoard in gold, to set
// beside the rules' treasure per encounter (300 gp at level 1, 1,600 at 5, 5,800 at 10,
// 80,000 at 20).
void BM_HoardAverages(benchmark::State& state) {
    if (!DDatabase::StartUp(FCString(dataDir() + "/rules.db"))) {
        state.SkipWithError("no rules database");
        return;
    }
    const int level = int(state.range(0));
    FC::SeedRandom(std::uint64_t(level));
    double coins = 0, total = 0, goods = 0, items = 0, magic = 0;
    for (auto _ : state) {
        DTreasure* treasure = new DTreasure;
        DTreasureGenerator::GenerateTreasure(treasure, level);
        coins += double(treasure->GetCurrency().GetCopperCost()) / 100.0;
        DCurrency all;
        treasure->GetTotalCost(all);
        total += double(all.GetCopperCost()) / 100.0;
        for (const DItem* item : treasure->GetItemArray()) {
            const int type = item->GetItemType();
            if (type == kItemGem || type == kItemArtObject)
                ++goods;
            else
                ++items;
            if (DIsMagicItemType(type))
                ++magic;
        }
        treasure->Release();
    }
    const auto mean = benchmark::Counter::kAvgIterations;
    state.counters["coins_gp"] = benchmark::Counter(coins, mean);
    state.counters["goods"] = benchmark::Counter(goods, mean);
    state.counters["items"] = benchmark::Counter(items, mean);
    state.counters["magic"] = benchmark::Counter(magic, mean);
    state.counters["total_gp"] = benchmark::Counter(total, mean);
    DDatabase::ShutDown();
}
BENCHMARK(BM_HoardAverages)
    ->Arg(1)
    ->Arg(5)
    ->Arg(10)
    ->Arg(20)
    ->Iterations(20000)
    ->Unit(benchmark::kMicrosecond);

} // namespace
