// A published monster advanced by ten hit dice across two size rows: the Owlbear (5 HD, Large)
// to 15 HD, Huge from 9 HD on.
#include "BenchSupport.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "FCReleaser.h"

#include <benchmark/benchmark.h>

namespace {

hoardbench::Library& workspace() {
    static hoardbench::Library instance;
    return instance;
}

// A fresh Owlbear as `hoard monster show` builds it; null when the ready race is missing.
DCharacter* newOwlbear() {
    FCRef<DFileObject> race(
        DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString("Owlbear.rac")));
    if (!race)
        return nullptr;
    auto* monster = new DCharacter();
    DHandBook::SetupCharacterWithRace(monster, race.get());
    DHandBook::CharacterSetup(monster, true);
    return monster;
}

void BM_AdvanceMonsterByTenHitDice(benchmark::State& state) {
    if (!workspace().ready) {
        state.SkipWithError("no rules database");
        return;
    }
    for (auto _ : state) {
        state.PauseTiming();
        FCRef<DCharacter> monster(newOwlbear());
        state.ResumeTiming();
        if (!monster) {
            state.SkipWithError("no ready Owlbear");
            return;
        }
        DHandBook::AdvanceCharacterWithHD(monster.get(), 5.0f, 15.0f, false);
        benchmark::DoNotOptimize(monster->GetHistoryAtPosition(0)->GetLevel());
    }
}
BENCHMARK(BM_AdvanceMonsterByTenHitDice)->Unit(benchmark::kMillisecond);

} // namespace
