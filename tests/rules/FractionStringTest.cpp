// Levels as text: racial hit dice below one die show as the fraction that monster entries use.
#include "DHandBook.h"

#include <gtest/gtest.h>

namespace {

TEST(BuildFractionString, FractionsOfADieAndWholeLevels) {
    const struct {
        float value;
        const char* text;
    } cases[] = {
        {0.125f, "1/8"},
        {0.167f, "1/6"},
        {0.25f, "1/4"},
        {0.333f, "1/3"},
        {0.5f, "1/2"},
        {4.0f, "4"},
        {20.0f, "20"},
        {2.5f, "2.5"},
        {0.0f, "0"},
        // Only the stored values count as fractions: a true third is a plain number.
        {1.0f / 3.0f, "0.333333"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DHandBook::BuildFractionString(c.value).toStdString(), c.text) << c.value;
}

} // namespace
