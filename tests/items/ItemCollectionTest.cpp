#include "DCurrency.h"
#include "DItem.h"
#include "DItemCollection.h"
#include "DItemType.h"

#include <gtest/gtest.h>

#include <array>

TEST(ItemCollection, AddRetainsAndRemoveReleases) {
    DItem* sword = new DItem;
    DItem* shield = new DItem;
    {
        DItemCollection collection;
        EXPECT_EQ(collection.GetItemArray().GetOwnership(), 2);
        collection.AddItem(sword);
        collection.AddItem(shield);
        collection.AddItem(sword);
        EXPECT_EQ(sword->GetRetainCount(), 3);
        EXPECT_EQ(shield->GetRetainCount(), 2);

        // Only the first entry goes.
        EXPECT_TRUE(collection.RemoveItem(sword));
        EXPECT_EQ(sword->GetRetainCount(), 2);
        ASSERT_EQ(collection.GetItemCount(), 2);
        EXPECT_EQ(collection.GetItemArray().At(0), shield);
        EXPECT_EQ(collection.GetItemArray().At(1), sword);

        DItem stranger;
        EXPECT_FALSE(collection.RemoveItem(&stranger));
        EXPECT_EQ(stranger.GetRetainCount(), 1);
        EXPECT_EQ(collection.GetItemCount(), 2);

        collection.RemoveAllItems();
        EXPECT_EQ(sword->GetRetainCount(), 1);
        EXPECT_EQ(shield->GetRetainCount(), 1);
        collection.AddItem(shield);
        EXPECT_EQ(shield->GetRetainCount(), 2);
    }
    // The collection's end releases what it still held.
    EXPECT_EQ(shield->GetRetainCount(), 1);
    sword->Release();
    shield->Release();
}

TEST(Currency, AddsAndSubtractsCoinByCoin) {
    using Coins = std::array<qint32, 4>;
    struct Case {
        const char* what;
        Coins left;
        Coins right;
        bool add;
        Coins expected;
    } cases[] = {
        {"plain sum", {1, 2, 3, 4}, {10, 20, 30, 40}, true, {11, 22, 33, 44}},
        {"no exchange on subtraction", {0, 0, 1, 0}, {0, 5, 0, 0}, false, {0, -5, 1, 0}},
        {"going below zero", {5, 0, 0, 0}, {7, 0, 0, 0}, false, {-2, 0, 0, 0}},
        {"adding a debt", {0, 0, 10, 2}, {0, 0, -4, -2}, true, {0, 0, 6, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DCurrency left;
        DCurrency right;
        for (int coin = 0; coin < 4; ++coin) {
            left.SetAmount(coin, c.left[size_t(coin)]);
            right.SetAmount(coin, c.right[size_t(coin)]);
        }
        if (c.add)
            left += right;
        else
            left -= right;
        for (int coin = 0; coin < 4; ++coin)
            EXPECT_EQ(left.GetAmount(coin), c.expected[size_t(coin)]) << "coin " << coin;
    }
}
