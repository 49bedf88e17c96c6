#include "TableResultBuilder.h"

#include "DCharHistory.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DCharacterGenerator.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DItem.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DTableItem.h"
#include "DTableResult.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("TableResultBuilder", text);
}

FCRef<DCharacter> loadCharacter(const QString& file, QString& error) {
    FCRef<DCharacter> character(DCharacter::CreateFromFile(FCString(file), false, nullptr));
    if (!character)
        error = tr("%1 cannot be read").arg(QFileInfo(file).fileName());
    return character;
}

FCRef<DCharacter> buildMonster(const DTableResult& result, QString& error) {
    if (result.objectType == kObjectRace) {
        DFileObject* race = DObjectManager::FindRaceFile(result.name);
        if (!race) {
            error = tr("no ready race named '%1'").arg(result.name);
            return nullptr;
        }
        return FCRef<DCharacter>(DCharacterGenerator::GenerateMonster(race, result.level, error));
    }
    FCRef<DCharacter> monster = loadCharacter(result.file, error);
    const DRace* race = monster ? monster->GetRace() : nullptr;
    // A row without hit dice, or a race that does not advance, keeps the file's own.
    if (!race || result.level <= 0 || race->GetMaxHitDieCount() == 0.0f ||
        monster->GetHistoryCount() == 0)
        return monster;
    const float own = monster->GetHistoryAtPosition(0)->GetLevel();
    if (float(result.level) > race->GetMaxHitDieCount() ||
        float(result.level) < race->GetHitDieCount()) {
        error = tr("%1 cannot have %2 hit dice").arg(result.name).arg(result.level);
        return nullptr;
    }
    DHandBook::AdvanceCharacterWithHD(monster.get(), own, float(result.level), false);
    return monster;
}

FCRef<DCharacter> buildCharacter(const DTableResult& result, QString& error) {
    FCRef<DCharacter> character = loadCharacter(result.file, error);
    if (!character)
        return nullptr;
    bool changed = false;
    // A row below the file's level leaves the character as it was saved.
    const QUuid lastClass = character->GetLastHistoryClassGuid();
    while (!lastClass.isNull() && character->GetHistoryCharacterLevel() < result.level) {
        if (!DHandBook::AddCharacterLevel(character.get(), lastClass, false))
            break;
        changed = true;
    }
    if (!result.race.isEmpty()) {
        DFileObject* race = DObjectManager::FindRaceFile(result.race);
        if (!race) {
            error = tr("no ready race named '%1'").arg(result.race);
            return nullptr;
        }
        DHandBook::ChangeCharacterRace(character.get(), race);
        changed = true;
    }
    if (result.alignment != 0) {
        TableResultBuilder::ApplyAlignment(*character, result.alignment);
        changed = true;
    }
    if (changed)
        DHandBook::CharacterSetup(character.get(), false);
    return character;
}

} // namespace

FCRef<DCharacter> TableResultBuilder::BuildCreature(const DTableResult& result, QString& error) {
    if (result.file.isEmpty()) {
        error = result.problem.isEmpty() ? tr("%1 has no file").arg(result.name) : result.problem;
        return nullptr;
    }
    switch (result.kind) {
    case DTableItem::kElementMonster:
        return buildMonster(result, error);
    case DTableItem::kElementCharacter:
        return buildCharacter(result, error);
    default:
        error = tr("%1 is not a monster or a character").arg(result.name);
        return nullptr;
    }
}

FCRef<DTreasure> TableResultBuilder::BuildTreasure(const DTableResult& result, QString& error) {
    if (result.kind != DTableItem::kElementTreasure) {
        error = tr("%1 is not a treasure").arg(result.name);
        return nullptr;
    }
    FCRef<DTreasure> treasure;
    if (!result.file.isEmpty()) {
        treasure.reset(DTreasure::CreateFromFile(result.file));
        if (!treasure) {
            error = tr("%1 cannot be read").arg(QFileInfo(result.file).fileName());
            return nullptr;
        }
    } else {
        treasure.reset(new DTreasure);
    }
    DTreasureGenerator::GenerateTreasure(treasure.get(), result.level);
    return treasure;
}

void TableResultBuilder::ApplyAlignment(DCharacter& character, int alignment) {
    character.SetAlignmentId(alignment);
    const int classes = character.GetClassCount();
    for (int i = 0; i < classes; ++i) {
        DCharacterClass* characterClass = character.GetClassAtPosition(i);
        // A single first level taken before the others is no longer the character's calling.
        if (i == 0 && classes >= 2 && characterClass->GetLevel() <= 1.0f)
            continue;
        // The setup pass reads a class's ex state from its history entries.
        const bool ex = !DHandBook::GetIsValidAlignment(characterClass->GetClassGuid(), alignment);
        characterClass->SetIsExClass(ex);
        for (DCharHistory* entry : character.GetHistoryArray()) {
            if (entry->GetClassGuid() == characterClass->GetClassGuid())
                entry->SetIsExClass(ex);
        }
    }
}

QString TableResultBuilder::Title(const DTableResult& result) {
    switch (result.kind) {
    case DTableItem::kElementMonster:
        return tr("Generated Monster");
    case DTableItem::kElementCharacter:
        return tr("Generated Character");
    case DTableItem::kElementTreasure:
        return tr("Generated Treasure");
    default:
        return QString();
    }
}

QString TableResultBuilder::TreasureHtml(const DTreasure& treasure) {
    const DCurrency& coins = treasure.GetCurrency();
    QString html =
        tr("<b>Coins:</b> %1<br>")
            .arg(coins.IsEmpty() ? tr("none") : coins.GetCostDescription().toHtmlEscaped());
    for (const DItem* item : treasure.GetItemArray()) {
        DCurrency price;
        item->GetMarketCost(price);
        html += QStringLiteral("&nbsp;&nbsp;%1 (%2)<br>")
                    .arg(item->GetItemPrintDescription(true).toHtmlEscaped(),
                         price.GetCostDescription().toHtmlEscaped());
    }
    DCurrency total;
    treasure.GetTotalCost(total);
    return html + tr("<b>Total:</b> %1").arg(total.GetCostDescription().toHtmlEscaped());
}
