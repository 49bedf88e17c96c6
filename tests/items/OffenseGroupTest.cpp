#include "DOffenseGroup.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr qint32 kNatural = DOffenseItem::kOffenseNatural;
constexpr qint32 kWeapon = DOffenseItem::kOffenseWeapon;

struct Entry {
    qint32 type;
    quint32 flags;
};

std::vector<quint32> flagsOf(const DOffenseGroup& group) {
    std::vector<quint32> flags;
    for (const DOffenseItem& item : group.GetOffenseItemArray())
        flags.push_back(item.GetOffenseFlags());
    return flags;
}

} // namespace

// Flags: 1 one hand, 2 two hands, 4 double, 8 several attacks, 0x100 main hand, 0x200 primary,
// 0x800 light, 0x1000 light off hand or double.
TEST(OffenseGroup, UsageFlagsFollowOrderAndHands) {
    struct Case {
        const char* what;
        std::vector<Entry> entries;
        std::vector<quint32> expected;
    } cases[] = {
        {"one weapon", {{kWeapon, 0x1}}, {0x101}},
        {"two weapons, light off hand", {{kWeapon, 0x1}, {kWeapon, 0x801}}, {0x1109, 0x809}},
        {"two weapons, heavy off hand", {{kWeapon, 0x1}, {kWeapon, 0x1}}, {0x109, 0x9}},
        {"light main hand does not count", {{kWeapon, 0x801}, {kWeapon, 0x1}}, {0x909, 0x9}},
        {"double weapon alone", {{kWeapon, 0x6}}, {0x110E}},
        {"three natural attacks", {{kNatural, 0}, {kNatural, 0}, {kNatural, 0}}, {0x208, 0x8, 0x8}},
        {"one natural attack", {{kNatural, 0}}, {0x200}},
        {"weapon then natural", {{kWeapon, 0x1}, {kNatural, 0}}, {0x101, 0x0}},
        {"natural then weapon", {{kNatural, 0}, {kWeapon, 0x1}}, {0x0, 0x101}},
        {"stale flags are cleared", {{kWeapon, 0x1309}}, {0x101}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DOffenseGroup group;
        for (size_t i = 0; i < c.entries.size(); ++i)
            group.AddOffenseItem(DOffenseItem(c.entries[i].type, qint32(i), c.entries[i].flags));
        EXPECT_EQ(flagsOf(group), c.expected);
    }
}

TEST(OffenseGroup, RemovingAndMovingRecomputeTheFlags) {
    DOffenseGroup group;
    group.AddOffenseItem(DOffenseItem(kWeapon, 1, 0x1));
    group.AddOffenseItem(DOffenseItem(kWeapon, 2, 0x801));
    group.AddOffenseItem(DOffenseItem(kNatural, 3));
    EXPECT_EQ(flagsOf(group), (std::vector<quint32>{0x1109, 0x809, 0x0}));

    // The light weapon moves to the front: it is the main hand now, and the off hand is heavy.
    EXPECT_TRUE(group.MoveOffenseItem(DOffenseItem(kWeapon, 2), 0));
    EXPECT_EQ(flagsOf(group), (std::vector<quint32>{0x909, 0x9, 0x0}));

    EXPECT_TRUE(group.MoveOffenseItem(DOffenseItem(kNatural, 3), 99));
    EXPECT_EQ(group.GetOffenseItemArray().At(2).GetOffenseId(), 3);
    EXPECT_FALSE(group.MoveOffenseItem(DOffenseItem(kNatural, 4), 0));

    // Equality is type and id: the flags of the argument do not matter.
    EXPECT_TRUE(group.RemoveOffenseItem(DOffenseItem(kWeapon, 2, 0x4)));
    EXPECT_EQ(flagsOf(group), (std::vector<quint32>{0x101, 0x0}));
    EXPECT_FALSE(group.RemoveOffenseItem(DOffenseItem(kWeapon, 2)));

    EXPECT_TRUE(group.HasOffenseItem(3, kNatural));
    EXPECT_FALSE(group.HasOffenseItem(3, kWeapon));
    EXPECT_TRUE(group.RemoveOffenseItem(DOffenseItem(kWeapon, 1)));
    // A natural attack alone is primary again.
    EXPECT_EQ(flagsOf(group), (std::vector<quint32>{0x200}));
    group.RemoveAllOffenseItems();
    EXPECT_EQ(group.GetOffenseItemCount(), 0);
}

TEST(OffenseGroup, DescriptionsNameOrderAndGrip) {
    struct Case {
        qint32 type;
        quint32 flags;
        const char* order;
        const char* handed;
    } cases[] = {
        {kNatural, 0x200, "Primary", ""},
        {kNatural, 0x1, "Secondary", ""},
        {kWeapon, 0x101, "MainHand", "1 Hand"},
        {kWeapon, 0x6, "OffHand", "Double"},
        {kWeapon, 0x2, "OffHand", "2 Hands"},
        {kWeapon, 0x0, "OffHand", ""},
        {-1, 0x101, "", ""},
    };
    for (const Case& c : cases) {
        const DOffenseItem item(c.type, 0, c.flags);
        EXPECT_EQ(item.GetOrderDescription(), QLatin1String(c.order)) << c.type << " " << c.flags;
        EXPECT_EQ(item.GetHandedDescription(), QLatin1String(c.handed)) << c.type << " " << c.flags;
    }
}
