// The setup replay of a level-20 full caster: every spell level open, a school slot and a
// spellbook allowance to work out on top of the rest of the pass.
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
#include "DRulesTypes.h"

#include <benchmark/benchmark.h>


#include <cstdlib>

using hoardbench::classGuid;

namespace {

// The rules database and a race with Int 20 in a scratch user folder.
hoardbench::UserRace& workspace() {
    static hoardbench::UserRace instance("Scholar", [](DRace& scholar) {
        for (int ability = 0; ability < kAbilityCount; ++ability)
            scholar.SetAbility(ability, 10);
        scholar.SetAbility(kAbilityIntelligence, 20);
    });
    return instance;
}

void BM_FullCasterSetupReplay(benchmark::State& state) {
    if (!workspace().ok) {
        state.SkipWithError("no rules database or race");
        return;
    }
    DCharacter character;
    DHandBook::SetupCharacterWithRace(&character, workspace().race);
    const QUuid wizard = classGuid("Wizard");
    for (int i = 0; i < state.range(0); ++i)
        character.AddHistory(wizard, 1.0f);
    character.SetSchool(1);
    for (auto _ : state) {
        character.GetClassList().RemoveAll();
        for (DCharHistory* entry : character.GetHistoryArray())
            entry->RemoveHistoryFlag(DCharHistory::kHistoryApplied);
        DHandBook::CharacterSetup(&character, true);
        benchmark::DoNotOptimize(character.GetCharacterLevel());
    }
    // Wizard 20 with Int 20 casts 9th-level spells; anything less means the spells were skipped.
    const DCharacterClass* caster = character.GetClassPointer(wizard);
    if (!caster || caster->GetMaxSpellLevel() != 9)
        state.SkipWithError("the wizard does not reach 9th-level spells");
}
BENCHMARK(BM_FullCasterSetupReplay)->Arg(20)->Unit(benchmark::kMicrosecond);

} // namespace
