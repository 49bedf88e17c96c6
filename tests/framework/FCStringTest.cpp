#include "FCString.h"

#include <gtest/gtest.h>

#include <climits>

TEST(FCStringTest, NumberWithSignAlwaysShowsTheSign) {
    struct Case {
        int value;
        const char* expected;
    };
    const Case cases[] = {
        {3, "+3"},
        {0, "+0"},
        {-2, "-2"},
        {10, "+10"},
        {INT_MAX, "+2147483647"},
        {INT_MIN, "-2147483648"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(FCString::numberWithSign(c.value), QString(c.expected));
    }
}

TEST(FCStringTest, GuidTextIsBracedUpperCase) {
    struct Case {
        QUuid guid;
        const char* expected;
    };
    const Case cases[] = {
        {QUuid("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}"), "{6BA7B810-9DAD-11D1-80B4-00C04FD430C8}"},
        {QUuid("6ba7b811-9dad-11d1-80b4-00c04fd430c8"), "{6BA7B811-9DAD-11D1-80B4-00C04FD430C8}"},
        {QUuid(), "{00000000-0000-0000-0000-000000000000}"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(FCString::guidText(c.guid), QString(c.expected));
        EXPECT_EQ(QUuid(FCString::guidText(c.guid)), c.guid);
    }
}
