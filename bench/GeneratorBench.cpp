// A random level-10 character, fully computed, to its stat block text; and a random monster.
#include "BenchSupport.h"
#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DOutput.h"
#include "FCRandom.h"

#include <benchmark/benchmark.h>

namespace {

hoardbench::Library& workspace() {
    static hoardbench::Library instance;
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
