#include "DChosenItem.h"
#include "DCoinData.h"
#include "DCurrency.h"
#include "DCustomMagicItemInfo.h"
#include "DItemCollection.h"
#include "DMagicBonus.h"
#include "DOffenseGroup.h"
#include "DWeaponInfo.h"
#include "ItemsCompare.h"
#include "ItemsSamples.h"

#include <QBuffer>
#include <QDataStream>

#include <gtest/gtest.h>

using namespace itemstest;

namespace {

// Serialize of a plain value record into memory and back.
template <typename T> T valueRoundTrip(T value, int* size = nullptr) {
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QDataStream stream(&buffer);
        FCArchive archive(&stream, FCArchive::Store);
        value.Serialize(archive);
    }
    if (size)
        *size = int(bytes.size());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    FCArchive archive(&stream, FCArchive::Load);
    T read;
    read.Serialize(archive);
    EXPECT_TRUE(archive.IsOk());
    return read;
}

} // namespace

TEST(ItemArchive, EveryInfoClassComesBackWithEveryField) {
    const int liveBefore = TestRecord::sLive;
    {
        std::vector<Ref<DItemInfo>> infos = sampleInfos();
        infos.emplace_back(sampleCustom().release());
        for (const Ref<DItemInfo>& info : infos) {
            SCOPED_TRACE(info->GetClassInfoA()->GetClassName());
            Ref<DItemInfo> read = roundTrip(*info);
            ASSERT_TRUE(read);
            expectSameInfo(info.get(), read.get(), false);
            // Files do not hold the masterwork type: it comes from the rules database.
            EXPECT_EQ(read->GetMasterWorkType(), 0);
        }
    }
    EXPECT_EQ(TestRecord::sLive, liveBefore);
}

TEST(ItemArchive, ItemsChosenItemsAndCollectionsComeBackWithEveryField) {
    const int liveBefore = TestRecord::sLive;
    {
        Ref<DItemCollection> collection = sampleCollection();
        Ref<DItemCollection> read = roundTrip(*collection);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->GetItemArray().GetOwnership(), kFCRetained);
        ASSERT_EQ(read->GetItemCount(), collection->GetItemCount());
        // The first item names a database weapon by GUID; with no rules database open it
        // comes back without an info (the database side is in ItemDatabaseTest).
        const DItem* shared = read->GetItemArray().At(0);
        EXPECT_EQ(shared->GetItemInfo(), nullptr);
        EXPECT_EQ(shared->GetItemFlags(), DItem::kItemFlagCarried);
        for (int i = 1; i < collection->GetItemCount(); ++i) {
            SCOPED_TRACE(i);
            expectSameItem(collection->GetItemArray().At(i), read->GetItemArray().At(i));
        }
        const auto* chosen = FCDynamicCast<DChosenItem>(read->GetItemArray().At(2));
        ASSERT_TRUE(chosen);
        EXPECT_EQ(chosen->GetItemId(), 9);
    }
    EXPECT_EQ(TestRecord::sLive, liveBefore);
}

TEST(ItemArchive, SmallRecordsComeBack) {
    DMagicSpecialAbility ability(3, 4, 5, 2);
    ability.SetTargetData(makeRecord(1).get());
    Ref<DMagicSpecialAbility> readAbility = roundTrip(ability);
    ASSERT_TRUE(readAbility);
    expectSameAbility(&ability, readAbility.get());

    DMagicBonus bonus(5, 3, 0);
    bonus.SetTargetGuid(guid(4));
    bonus.SetSourceItemType(kItemRing);
    bonus.SetIsApplied(false);
    Ref<DMagicBonus> readBonus = roundTrip(bonus);
    ASSERT_TRUE(readBonus);
    expectSameBonus(bonus, *readBonus);

    DCurrency money;
    money.SetAmount(kCoinCopper, 1);
    money.SetAmount(kCoinSilver, -2);
    money.SetAmount(kCoinGold, 300);
    money.SetAmount(kCoinPlatinum, 4);
    int size = 0;
    EXPECT_EQ(valueRoundTrip(money, &size), money);
    EXPECT_EQ(size, 16);

    const DCoinData coins(250, kCoinSilver);
    EXPECT_EQ(valueRoundTrip(coins, &size), coins);
    EXPECT_EQ(size, 8);

    DOffenseGroup group;
    group.AddOffenseItem(
        DOffenseItem(DOffenseItem::kOffenseWeapon, 3, DOffenseItem::kOffenseOneHand));
    group.AddOffenseItem(DOffenseItem(DOffenseItem::kOffenseNatural, 1));
    Ref<DOffenseGroup> readGroup = roundTrip(group);
    ASSERT_TRUE(readGroup);
    ASSERT_EQ(readGroup->GetOffenseItemCount(), 2);
    for (int i = 0; i < 2; ++i) {
        const DOffenseItem& expected = group.GetOffenseItemArray().At(i);
        const DOffenseItem& actual = readGroup->GetOffenseItemArray().At(i);
        EXPECT_EQ(actual.GetOffenseType(), expected.GetOffenseType());
        EXPECT_EQ(actual.GetOffenseId(), expected.GetOffenseId());
        EXPECT_EQ(actual.GetOffenseFlags(), expected.GetOffenseFlags());
    }
}
