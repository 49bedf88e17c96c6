// The text stat block of a loaded level-10 character: document, style sheet, working files.
#include "BenchSupport.h"
#include "DCharacter.h"
#include "DCharacterXml.h"
#include "DChosenFeat.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DOutput.h"
#include "DSkillInfo.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <cstdlib>

using hoardbench::classGuid;
using hoardbench::dataDir;

namespace {

template <typename Map, typename Name>
QUuid findGuid(const Map& map, const QString& wanted, Name name) {
    for (const auto& [guid, info] : map) {
        if (name(info) == wanted)
            return guid;
    }
    return QUuid();
}

// A dwarf fighter 10 with six skills and five feats, set up once for the program.
struct Workspace {
    hoardbench::Library library;
    DCharacter* character = nullptr;

    Workspace() {
        if (!library.ready)
            return;
        DFileObject* dwarf = nullptr;
        for (const auto& entry : DObjectManager::GetRaceFileSet()) {
            if (entry->GetBaseFileName() == QLatin1String("Dwarf"))
                dwarf = entry.Get();
        }
        const QUuid fighter = findGuid(DDatabase::GetClassInfoMap(), "Fighter", [](DInfo* info) {
            return QString(static_cast<DClassInfo*>(info)->mName);
        });
        if (!dwarf || fighter.isNull())
            return;
        character = new DCharacter();
        character->SetCharacterName(FCString("Bench"));
        DHandBook::SetupCharacterWithRace(character, dwarf);
        for (int level = 0; level < 10; ++level)
            character->AddHistory(fighter, 1.0f);
        DHandBook::CharacterSetup(character, true);
        character->SetActiveClassId(fighter);
        for (const char* skill : {"Climb", "Jump", "Swim", "Intimidate", "Ride", "Handle Animal"}) {
            const QUuid guid = findGuid(DDatabase::GetSkillInfoMap(), skill, [](DInfo* info) {
                return QString(static_cast<DSkillInfo*>(info)->GetSkillName());
            });
            DHandBook::AddSkill(character, guid, QUuid(), 1, 2.0f, false);
        }
        for (const char* name : {"Power Attack", "Cleave", "Great Cleave", "Toughness", "Dodge"}) {
            auto* feat = new DChosenFeat();
            feat->SetFeatGuid(findGuid(DDatabase::GetFeatInfoMap(), name, [](DInfo* info) {
                return QString(static_cast<DFeatInfo*>(info)->GetFeatName());
            }));
            DHandBook::AddFeat(character, true, feat);
            feat->Release();
        }
    }
    ~Workspace() {
        if (character)
            character->Release();
    }
};

Workspace& workspace() {
    static Workspace instance;
    return instance;
}

void BM_StatBlockText(benchmark::State& state) {
    DCharacter* character = workspace().character;
    if (!character) {
        state.SkipWithError("no rules database or ready dwarf");
        return;
    }
    QString text, error;
    for (auto _ : state) {
        if (!DOutput::BuildStatBlock(character, text, error)) {
            state.SkipWithError(qPrintable(error));
            return;
        }
        benchmark::DoNotOptimize(text.size());
    }
}
BENCHMARK(BM_StatBlockText)->Unit(benchmark::kMillisecond);

// The document alone, without the style sheet.
void BM_CharacterDocument(benchmark::State& state) {
    DCharacter* character = workspace().character;
    if (!character) {
        state.SkipWithError("no rules database or ready dwarf");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(DCharacterXml::ToBytes(character, QString()).size());
}
BENCHMARK(BM_CharacterDocument)->Unit(benchmark::kMillisecond);

} // namespace
