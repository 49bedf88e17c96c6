// A level-20 fighter carrying twenty items, each equipped where it can be: the setup replay
// with its equipment, and saving and loading its file.
#include "BenchSupport.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DItemInfo.h"
#include "DItemType.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRulesQuery.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

using hoardbench::classGuid;
using hoardbench::dataDir;

namespace {

struct Workspace {
    hoardbench::Library library;
    DCharacter* character = nullptr;

    Workspace() {
        if (!library.ready)
            return;
        FCRef<DFileObject> human(
            DObjectManager::CreateFileObject(kObjectRace, kFileCore, FCString("Human.rac")));
        character = new DCharacter();
        DHandBook::SetupCharacterWithRace(character, human.get());
        for (int level = 0; level < 20; ++level)
            character->AddHistory(classGuid("Fighter"), 1.0f);
        DHandBook::CharacterSetup(character, true);
        const struct {
            int type;
            const char* name;
        } items[] = {{kItemArmor, "Full plate"},
                     {kItemShield, "Shield, heavy steel"},
                     {kItemWeapon, "Longsword"},
                     {kItemRing, "Protection +3"},
                     {kItemRing, "Protection +1"},
                     {kItemWeapon, "Dagger"},
                     {kItemWeapon, "Longbow, composite"},
                     {kItemWeapon, "Arrows (20)"},
                     {kItemGoods, "Backpack"},
                     {kItemGoods, "Bedroll"},
                     {kItemGoods, "Rope, hempen (50 ft.)"},
                     {kItemGoods, "Torch"},
                     {kItemGoods, "Waterskin"},
                     {kItemGoods, "Flint and steel"},
                     {kItemGoods, "Rations, trail (per day)"},
                     {kItemGoods, "Sack"},
                     {kItemGoods, "Belt pouch"},
                     {kItemGoods, "Whetstone"},
                     {kItemGoods, "Pitons"},
                     {kItemGoods, "Grappling hook"}};
        for (const auto& wanted : items) {
            QUuid guid;
            DDatabase::FirstRow(
                QString::asprintf(
                    "SELECT Guid FROM %s WHERE (Name='%s')",
                    DRulesQuery::Table(DDatabase::GetItemTypeTableId(wanted.type)).constData(),
                    wanted.name),
                [&guid](odbc::ResultSet* row) { guid = row->getGUID(1); });
            FCRef<DItemInfo> info(guid.isNull() ? nullptr
                                                : DHandBook::BuildItemInfo(wanted.type, guid));
            if (!info)
                continue;
            DChosenItem* item =
                DHandBook::AddItemWithInfoToCharacter(character, info.get(), 0, -1, true);
            DHandBook::ToggleItemCarryingStatus(character, item, false);
            if (wanted.type == kItemArmor || wanted.type == kItemShield || wanted.type == kItemRing)
                DHandBook::EquipItem(character, item, false);
        }
        DHandBook::ComputeAndSetCharacterEncumberance(character);
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

void BM_EquippedFighter20SetupReplay(benchmark::State& state) {
    DCharacter* character = workspace().character;
    if (!character) {
        state.SkipWithError("no rules database");
        return;
    }
    for (auto _ : state) {
        DHandBook::CharacterSetup(character, true);
        benchmark::DoNotOptimize(character->GetCharacterStat(0));
    }
}
BENCHMARK(BM_EquippedFighter20SetupReplay)->Unit(benchmark::kMicrosecond);

void BM_EquippedFighter20SaveAndLoad(benchmark::State& state) {
    DCharacter* character = workspace().character;
    if (!character) {
        state.SkipWithError("no rules database");
        return;
    }
    const FCString path(workspace().library.userDir.path() + "/fighter.chr");
    for (auto _ : state) {
        if (!character->SaveToFile(path)) {
            state.SkipWithError("cannot save");
            return;
        }
        DCharacter* loaded = DCharacter::CreateFromFile(path, false, nullptr);
        benchmark::DoNotOptimize(loaded);
        if (loaded)
            loaded->Release();
    }
}
BENCHMARK(BM_EquippedFighter20SaveAndLoad)->Unit(benchmark::kMicrosecond);

} // namespace
