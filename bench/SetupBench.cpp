// CharacterSetup replaying a class history from nothing: the pass behind every new character
// and every generated one.
#include "BenchSupport.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"

#include <benchmark/benchmark.h>


#include <cstdlib>

using hoardbench::classGuid;

namespace {

// The rules database and a human race in a scratch user folder, for the whole program.
hoardbench::UserRace& workspace() {
    static hoardbench::UserRace instance("Human", [](DRace& human) { human.SetHitDieCount(1.0f); });
    return instance;
}

// A fighter/rogue of `level` class levels, bound to its race, history laid down, not set up.
void prepare(DCharacter& character, int level) {
    DHandBook::SetupCharacterWithRace(&character, workspace().race);
    const QUuid fighter = classGuid("Fighter");
    const QUuid rogue = classGuid("Rogue");
    for (int i = 0; i < level; ++i)
        character.AddHistory(i % 3 == 2 ? rogue : fighter, 1.0f);
}

void BM_CharacterSetupReplay(benchmark::State& state) {
    if (!workspace().ok) {
        state.SkipWithError("no rules database or race");
        return;
    }
    DCharacter character;
    prepare(character, int(state.range(0)));
    for (auto _ : state) {
        // Back to a history that nothing has been applied from, as a loaded-from-nothing
        // character is; the race stays bound.
        character.GetClassList().RemoveAll();
        for (DCharHistory* entry : character.GetHistoryArray())
            entry->RemoveHistoryFlag(DCharHistory::kHistoryApplied);
        DHandBook::CharacterSetup(&character, true);
        benchmark::DoNotOptimize(character.GetCharacterLevel());
    }
    if (int(character.GetCharacterLevel()) != state.range(0))
        state.SkipWithError("wrong character level");
}
BENCHMARK(BM_CharacterSetupReplay)->Arg(1)->Arg(10)->Arg(20)->Unit(benchmark::kMicrosecond);

// One level-up pass on top of a character of `level` levels.
void BM_LevelUpAndDown(benchmark::State& state) {
    if (!workspace().ok) {
        state.SkipWithError("no rules database or race");
        return;
    }
    DCharacter character;
    prepare(character, int(state.range(0)));
    DHandBook::CharacterSetup(&character, true);
    const QUuid fighter = classGuid("Fighter");
    for (auto _ : state) {
        DHandBook::AddCharacterLevel(&character, fighter, false);
        DHandBook::RemoveCharacterLevel(&character, false);
    }
    if (int(character.GetCharacterLevel()) != state.range(0))
        state.SkipWithError("wrong character level");
}
BENCHMARK(BM_LevelUpAndDown)->Arg(1)->Arg(10)->Arg(20)->Unit(benchmark::kMicrosecond);

} // namespace
