#pragma once

#include "RulesTestSupport.h"

#include "DChosenFeat.h"
#include "DChosenItem.h"
#include "DChosenSpeed.h"
#include "DCustomMagicItemInfo.h"
#include "DItemInfo.h"
#include "DItemType.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

namespace rulestest {

// Characters with items, built through the engine as the program does.
class ItemsFixture : public RulesFixture {
protected:
    // The GUID of the row of that name in the item type's table; null if none.
    static QUuid ItemGuid(int itemType, const QString& name) {
        return hoardtest::rowGuid(DDatabase::GetItemTypeTableId(itemType), name);
    }

    static Ref<DItemInfo> Info(int itemType, const QString& name) {
        return Ref<DItemInfo>(DHandBook::BuildItemInfo(itemType, ItemGuid(itemType, name)));
    }

    // A Medium race of `typeClass` whose scores are 10, and a character of it with the
    // classes.
    Ref<DCharacter> Make(const QStringList& classes, int sizeId = 4, unsigned raceFlags = 0) {
        DRace race;
        race.SetClassGuid(ClassGuid(QStringLiteral("Humanoid (player race)")));
        race.SetHitDieCount(0);
        race.SetSizeId(sizeId);
        race.AddRaceFlag(raceFlags);
        for (int ability = 0; ability < kAbilityCount; ++ability)
            race.SetAbility(ability, 10);
        Ref<DChosenSpeed> land(new DChosenSpeed(1, 30, 0));
        race.AddSpeed(land.get());
        Ref<DFileObject> entry = SaveRace(race, QStringLiteral("Folk %1").arg(++mRaceCount));
        return NewCharacter(entry.get(), classes);
    }

    static void SetScore(DCharacter& character, DAbilityStatType ability, int score) {
        DHandBook::ChangeAbilityStatBase(&character, ability, score, false);
    }

    // Adds the row free of charge and carries it.
    static DChosenItem* Give(DCharacter& character, int itemType, const QString& name,
                             unsigned flags = 0) {
        Ref<DItemInfo> info = Info(itemType, name);
        DChosenItem* item =
            DHandBook::AddItemWithInfoToCharacter(&character, info.get(), flags, -1, true);
        DHandBook::ToggleItemCarryingStatus(&character, item, true);
        return item;
    }

    // A magic weapon, armor or shield of the row with that enhancement, given and carried.
    static DChosenItem* GiveMagic(DCharacter& character, int itemType, const QString& name,
                                  int bonus) {
        Ref<DItemInfo> base = Info(itemType, name);
        Ref<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
        custom->SetBaseItemInfo(base.get());
        custom->SetBonus(bonus);
        Ref<DChosenItem> item(new DChosenItem);
        item->SetItemInfo(custom.get());
        DHandBook::AddChosenItemToCharacter(&character, item.get(), true);
        return item.get();
    }

    static void TakeFeat(DCharacter& character, const QString& name, const QUuid& target = {}) {
        Ref<DChosenFeat> feat(new DChosenFeat());
        feat->SetFeatGuid(FeatGuid(name));
        feat->SetTargetGuid(target);
        DHandBook::AddFeat(&character, true, feat.get());
    }

private:
    int mRaceCount = 0;
};

} // namespace rulestest
