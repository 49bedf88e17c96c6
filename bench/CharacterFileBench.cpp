// Save and load of a character file, the operation behind every open and save of a window.
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DDatabase.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

namespace {

// A character of twenty levels with the choices such a character carries.
void fillCharacter(DCharacter& character) {
    const QUuid fighter = QUuid::createUuidV5(QUuid(), QStringLiteral("bench fighter"));
    for (int level = 1; level <= 20; ++level)
        character.AddHistory(fighter, 1.0f);
    character.AddClass(fighter)->SetLevel(20.0f);
    character.SetCharacterLevel(20.0f);
    for (int i = 0; i < 40; ++i) {
        auto* skill = new DChosenSkill();
        skill->SetSkillId(QUuid::createUuidV5(QUuid(), QString::number(i)));
        skill->SetRanks(fighter, 1, 23.0f);
        character.AddSkill(skill);
        skill->Release();
    }
    for (int i = 0; i < 20; ++i) {
        auto* feat = new DChosenFeat();
        feat->SetFeatGuid(QUuid::createUuidV5(QUuid(), QStringLiteral("feat %1").arg(i)));
        character.AddFeat(feat);
        feat->Release();
    }
}

// A scratch user folder holding the character's race, and the character itself.
struct Workspace {
    QTemporaryDir dir;
    DCharacter character;
    FCString path;

    Workspace() {
        DOptions::SetUserDataPath(FCString(dir.path()));
        QDir().mkpath(dir.path() + "/Races");
        DRace race;
        race.SaveToFile(FCString(dir.path() + "/Races/Bench.rac"));
        character.SetRaceFileObject(
            DObjectManager::CreateFileObject(kObjectRace, kFileUser, FCString("Bench.rac")));
        fillCharacter(character);
        path = FCString(dir.path() + "/bench.chr");
    }
};

void BM_LoadLevel20Character(benchmark::State& state) {
    Workspace workspace;
    workspace.character.SaveToFile(workspace.path);
    for (auto _ : state) {
        DCharacter* loaded = DCharacter::CreateFromFile(workspace.path, false, nullptr);
        if (!loaded) {
            state.SkipWithError("load failed");
            return;
        }
        benchmark::DoNotOptimize(loaded->GetHistoryCount());
        loaded->Release();
    }
}
BENCHMARK(BM_LoadLevel20Character)->Unit(benchmark::kMicrosecond);

// Saving is atomic: the new file is synced to disk before it replaces the old one, and that
// sync is most of the wall time.
void BM_SaveAndLoadLevel20Character(benchmark::State& state) {
    Workspace workspace;
    DCharacter& character = workspace.character;
    const FCString& path = workspace.path;
    for (auto _ : state) {
        if (!character.SaveToFile(path)) {
            state.SkipWithError("save failed");
            return;
        }
        DCharacter* loaded = DCharacter::CreateFromFile(path, false, nullptr);
        if (!loaded || loaded->GetLoadResult() != 0) {
            state.SkipWithError("load failed");
            return;
        }
        benchmark::DoNotOptimize(loaded->GetHistoryCount());
        loaded->Release();
    }
}
BENCHMARK(BM_SaveAndLoadLevel20Character)->Unit(benchmark::kMicrosecond);

} // namespace
