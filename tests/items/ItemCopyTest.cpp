#include "DCustomMagicItemInfo.h"
#include "DItem.h"
#include "DItemCollection.h"
#include "DPotionInfo.h"
#include "DRingInfo.h"
#include "DScrollInfo.h"
#include "DStaffInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "ItemsCompare.h"
#include "ItemsSamples.h"

#include <gtest/gtest.h>

using namespace itemstest;

TEST(ItemCopy, ItemSharesOnlyUnchangedDatabaseRecords) {
    Ref<DWeaponInfo> shared = sampleWeapon();
    Ref<DWeaponInfo> changed(shared->Clone());
    changed->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    Ref<DRingInfo> ring(new DRingInfo);

    struct Case {
        const char* what;
        DItemInfo* info;
        bool shared;
    } cases[] = {
        {"database weapon", shared.get(), true},
        {"resized weapon", changed.get(), false},
        {"magic ring", ring.get(), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DItem item;
        item.SetItemInfo(c.info);
        const int countBefore = c.info->GetRetainCount();
        const DItem copy(item);
        expectSameItem(&item, &copy);
        EXPECT_EQ(copy.GetItemInfo() == c.info, c.shared);
        EXPECT_EQ(c.info->GetRetainCount(), countBefore + (c.shared ? 1 : 0));

        DItem assigned;
        assigned = item;
        EXPECT_EQ(assigned.GetItemInfo() == c.info, c.shared);
    }
}

TEST(ItemCopy, ChangingACopiedPrivateInfoLeavesTheOriginal) {
    Ref<DWeaponInfo> changed(sampleWeapon()->Clone());
    changed->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    DItem item;
    item.SetItemInfo(changed.get());
    DItem copy(item);
    copy.GetItemInfo()->SetSizeType(2);
    copy.GetItemInfo()->SetItemName(QStringLiteral("Small longsword"));
    EXPECT_EQ(changed->GetSizeType(), 4);
    EXPECT_EQ(changed->GetItemName(), QStringLiteral("Longsword"));
}

TEST(ItemCopy, CustomMagicItemClonesItsPartsButSharesADatabaseBase) {
    const int liveBefore = TestRecord::sLive;
    {
        Ref<DCustomMagicItemInfo> custom = sampleCustom();
        Ref<DCustomMagicItemInfo> copy(custom->Clone());
        expectSameInfo(custom.get(), copy.get(), true);
        // The sample's base is a changed record: private to each copy.
        EXPECT_NE(copy->GetBaseItemInfo(), custom->GetBaseItemInfo());
        EXPECT_NE(copy->GetTargetData(), custom->GetTargetData());
        EXPECT_NE(copy->GetIntelligentData(), custom->GetIntelligentData());
        EXPECT_NE(copy->GetCursedData(), custom->GetCursedData());
        EXPECT_NE(copy->GetSpecialAbility(1), custom->GetSpecialAbility(1));
        EXPECT_NE(copy->GetSpecialAbility(1)->GetTargetData(),
                  custom->GetSpecialAbility(1)->GetTargetData());

        copy->GetSpecialAbility(0)->SetBonus(5);
        copy->RemoveSpecialAbility(4);
        EXPECT_EQ(custom->GetSpecialAbility(0)->GetBonus(), 1);
        EXPECT_EQ(custom->GetSpecialAbilityCount(), 2);
        EXPECT_EQ(custom->GetSpecialAbilityBonus(), 3);

        Ref<DWeaponInfo> database = sampleWeapon();
        custom->SetBaseItemInfo(database.get());
        DCustomMagicItemInfo assigned;
        assigned = *custom;
        EXPECT_EQ(assigned.GetBaseItemInfo(), database.get());
        EXPECT_EQ(assigned.GetSpecialAbilityCount(), 2);
    }
    EXPECT_EQ(TestRecord::sLive, liveBefore);
}

TEST(ItemCopy, ListsOfScrollsWondrousItemsAndCollectionsAreCloned) {
    const int liveBefore = TestRecord::sLive;
    {
        DScrollInfo scroll;
        scroll.AddSpell(makeRecord(1).get());
        DScrollInfo scrollCopy(scroll);
        ASSERT_EQ(scrollCopy.GetSpellCount(), 1);
        EXPECT_NE(scrollCopy.GetSpell(0), scroll.GetSpell(0));
        EXPECT_TRUE(sameRecord(scrollCopy.GetSpell(0), scroll.GetSpell(0)));
        scrollCopy.RemoveAllSpells();
        EXPECT_EQ(scroll.GetSpellCount(), 1);

        DWondrousInfo wondrous;
        DWondrousInfo noListCopy(wondrous);
        EXPECT_FALSE(noListCopy.HasTargetList());
        wondrous.AddTarget(makeRecord(2).get());
        DWondrousInfo wondrousCopy;
        wondrousCopy = wondrous;
        ASSERT_EQ(wondrousCopy.GetTargetCount(), 1);
        EXPECT_NE(wondrousCopy.GetTarget(0), wondrous.GetTarget(0));
        EXPECT_TRUE(sameRecord(wondrousCopy.GetTarget(0), wondrous.GetTarget(0)));

        // A borrowed list handed in is cloned, not adopted.
        FCPointerArray<FCObject> borrowed;
        Ref<TestRecord> outside = makeRecord(3);
        borrowed.Add(outside.get());
        wondrous.SetTargets(&borrowed);
        ASSERT_EQ(wondrous.GetTargetCount(), 1);
        EXPECT_NE(wondrous.GetTarget(0), outside.get());
        EXPECT_EQ(outside->GetRetainCount(), 1);

        Ref<DItemCollection> collection = sampleCollection();
        DItemCollection collectionCopy(*collection);
        ASSERT_EQ(collectionCopy.GetItemCount(), collection->GetItemCount());
        for (int i = 0; i < collection->GetItemCount(); ++i) {
            EXPECT_NE(collectionCopy.GetItemArray().At(i), collection->GetItemArray().At(i));
            expectSameItem(collection->GetItemArray().At(i), collectionCopy.GetItemArray().At(i));
        }
    }
    EXPECT_EQ(TestRecord::sLive, liveBefore);
}

TEST(ItemCopy, PotionAndStaffCopiesTakeTheirKindAndQualityZero) {
    DPotionInfo potion;
    potion.SetQualityType(3);
    potion.SetCasterLevel(5);
    const DPotionInfo potionCopy(potion);
    EXPECT_EQ(potion.GetMagicType(), kMagicNone);
    EXPECT_EQ(potionCopy.GetMagicType(), kMagicPotion);
    EXPECT_EQ(potionCopy.GetQualityType(), 0);
    EXPECT_EQ(potionCopy.GetCasterLevel(), 5);

    DStaffInfo staff;
    EXPECT_EQ(staff.GetCharges(), 50);
    staff.SetCharges(12);
    staff.SetQualityType(2);
    const DStaffInfo staffCopy(staff);
    EXPECT_EQ(staffCopy.GetMagicType(), kMagicStaff);
    EXPECT_EQ(staffCopy.GetQualityType(), 0);
    EXPECT_EQ(staffCopy.GetCharges(), 12);
}
