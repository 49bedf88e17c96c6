// The rows a list shows under a magic item: the stats of its mind and its curse. A +2 longsword
// with a +1 special ability and a mind of Int 17 (+3), Wis 10, Cha 12 (+1), one primary ability,
// one extraordinary power, a special purpose and Read Magic has ego 1 + 2 + 4 + 1 + 3 + 1 = 12,
// and 15 with its enhancement and ability bonuses.
#include "D_UIItemRows.h"

#include "BuiltRulesTest.h"
#include "DCursedData.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DIntelligentData.h"
#include "DItem.h"
#include "DItemType.h"
#include "DRingInfo.h"
#include "FCReleaser.h"
#include "TestSupport.h"

#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

class ItemRowsTest : public hoardtest::BuiltRulesTest {};

QStringList ChildTexts(const QTreeWidgetItem* row) {
    QStringList texts;
    for (int index = 0; index < row->childCount(); ++index)
        texts << row->child(index)->text(0);
    return texts;
}

FCRef<DItem> CursedRing(int type, int subType, const QString& detail) {
    FCRef<DRingInfo> ring(new DRingInfo);
    ring->SetItemGuid(
        hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemRing), "Feather falling"));
    FCRef<DCursedData> curse(new DCursedData(type));
    curse->SetCurseSubType(subType);
    curse->SetCurseDescription(detail);
    ring->SetCursedData(curse.get());
    FCRef<DItem> item(new DItem);
    item->SetItemInfo(ring.get());
    return item;
}

TEST_F(ItemRowsTest, AnIntelligentSwordListsItsMind) {
    const QUuid guid = hoardtest::rowGuid(DDatabase::GetItemTypeTableId(kItemWeapon), "Longsword");
    FCRef<DCustomMagicItemInfo> sword(new DCustomMagicItemInfo);
    sword->SetBaseItemInfo(static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)));
    sword->SetBonus(2);
    sword->AddSpecialAbility(3, 1, 1, 1);
    FCRef<DIntelligentData> mind(new DIntelligentData);
    mind->SetAlignmentId(9);
    mind->SetAbilityStat(3, 17);
    mind->SetAbilityStat(4, 10);
    mind->SetAbilityStat(5, 12);
    mind->AddCommunication(DIntelligentData::kCommunicationSpeech);
    mind->AddLanguage(hoardtest::rowGuid(kTableLanguage, "Common"));
    mind->SetCanReadMagic(true);
    mind->AddAbility(1);
    mind->AddPower(4, 1, 1);
    mind->SetPurposeId(1);
    mind->AddPurposePower(2);
    sword->SetIntelligentData(mind.get());
    FCRef<DItem> item(new DItem);
    item->SetItemInfo(sword.get());

    QTreeWidget list;
    QTreeWidgetItem* row = D_UIItemRows::AddItemRow(&list, *item);
    ASSERT_EQ(list.topLevelItemCount(), 1);
    EXPECT_EQ(row->text(0), item->GetItemDescription());
    EXPECT_TRUE(row->isExpanded());
    // The special ability's row, then the mind.
    ASSERT_EQ(row->childCount(), 2);
    const QTreeWidgetItem* stats = row->child(1);
    EXPECT_EQ(stats->text(0), QStringLiteral("Intelligent Stats"));
    EXPECT_EQ(ChildTexts(stats),
              (QStringList{
                  "Alignment: Lawful Good",
                  "Ability Scores: Int 17 Wis 10 Cha 12",
                  "Ego: 15",
                  "Communication: Speech",
                  "Languages: Common",
                  "Read Magic",
                  "Primary Ability: Item can bless its allies 3/day",
                  "Extraordinary Power: Item can use dimensional anchor on a foe 1/day (1 Per day)",
                  "Special Purpose: Defeat/slay diametrically opposed alignment",
                  "Special Purpose Power: Item can use confusion",
              }));
}

TEST_F(ItemRowsTest, ACurseShowsItsKindAndItsDetailBelow) {
    struct Case {
        int type, subType;
        QString detail;
        QString row;
        QStringList children;
    };
    const Case cases[] = {
        {3, 2, "Underwater", "Cursed: Intermittent functioning, Dependent", {"Underwater"}},
        {5, -1, "Hair grows", "Cursed: Drawback", {"Hair grows"}},
        // No detail: no child row.
        {1, -1, "", "Cursed: Delusion", {}},
    };
    for (const Case& c : cases) {
        const FCRef<DItem> item = CursedRing(c.type, c.subType, c.detail);
        QTreeWidget list;
        QTreeWidgetItem* row = D_UIItemRows::AddItemRow(&list, *item);
        ASSERT_EQ(row->childCount(), 1) << c.row.toStdString();
        EXPECT_EQ(row->child(0)->text(0), c.row);
        EXPECT_EQ(ChildTexts(row->child(0)), c.children) << c.row.toStdString();
    }
}

} // namespace
