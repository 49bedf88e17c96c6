#include "DHandBook.h"

#include <gtest/gtest.h>

TEST(BuildDieString, HitDieAndDamageText) {
    const struct {
        float dice;
        int die;
        const char* expected;
    } cases[] = {
        // No dice at all.
        {0.0f, 8, ""},
        {-1.0f, 8, ""},
        {-0.5f, 6, ""},
        // Exactly one half.
        {0.5f, 8, "1/2d8"},
        {0.5f, 100, "1/2d100"},
        // Any other fraction below one counts as a quarter.
        {0.25f, 8, "1/4d8"},
        {0.125f, 8, "1/4d8"},
        {0.75f, 6, "1/4d6"},
        {0.999f, 4, "1/4d4"},
        {0.4999f, 10, "1/4d10"},
        // One or more: the whole dice, fractions dropped.
        {1.0f, 12, "1d12"},
        {2.5f, 8, "2d8"},
        {2.99f, 4, "2d4"},
        {20.0f, 10, "20d10"},
        // A count beyond the int range is capped at its top.
        {1e20f, 8, "2147483647d8"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DHandBook::BuildDieString(c.dice, c.die), QString::fromLatin1(c.expected))
            << c.dice << " d" << c.die;
}
