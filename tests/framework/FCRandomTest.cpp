#include "FCRandom.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <map>
#include <vector>

namespace {

// Every test seeds first, so the order in which tests run does not matter.
class FCRandomTest : public ::testing::Test {
protected:
    void SetUp() override { FC::SeedRandom(424242); }
};

} // namespace

TEST_F(FCRandomTest, DrawsStayInTheHalfOpenRangeAndAreEvenlySpread) {
    struct Case {
        int low;
        int high;
    };
    const Case cases[] = {{1, 7}, {1, 21}, {1, 101}, {-5, -2}, {-3, 3}, {0, 2}, {1000, 1010}};
    constexpr int kDraws = 60000;
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "[" << c.low << ", " << c.high << ")");
        const int span = c.high - c.low;
        std::map<int, int> seen;
        double sum = 0;
        for (int i = 0; i < kDraws; ++i) {
            const int value = FC::GetRandom(c.low, c.high);
            ASSERT_GE(value, c.low);
            ASSERT_LT(value, c.high);
            ++seen[value];
            sum += value;
        }
        EXPECT_EQ(int(seen.size()), span); // both ends are reachable
        // The mean of a uniform draw over [low, high) is (low + high - 1) / 2; its standard
        // error here is below span / sqrt(12 * kDraws), so 6 of those is a loose yet firm
        // bound.
        const double mean = sum / kDraws;
        const double expectedMean = (c.low + c.high - 1) / 2.0;
        const double bound = 6.0 * span / std::sqrt(12.0 * kDraws);
        EXPECT_NEAR(mean, expectedMean, bound);
        // Each value should come up kDraws / span times, give or take 6 standard deviations.
        const double expectedEach = double(kDraws) / span;
        const double deviation = std::sqrt(expectedEach * (1.0 - 1.0 / span));
        for (const auto& [value, count] : seen)
            EXPECT_NEAR(count, expectedEach, 6.0 * deviation) << value;
    }
}

TEST_F(FCRandomTest, ExtremeRangesDoNotOverflow) {
    for (int i = 0; i < 2000; ++i) {
        const int full = FC::GetRandom(INT_MIN, INT_MAX);
        EXPECT_LT(full, INT_MAX);
        const int top = FC::GetRandom(INT_MAX - 2, INT_MAX);
        EXPECT_GE(top, INT_MAX - 2);
        EXPECT_LT(top, INT_MAX);
        const int bottom = FC::GetRandom(INT_MIN, INT_MIN + 2);
        EXPECT_LE(bottom, INT_MIN + 1);
    }
    // Over the whole range, draws land on both sides of zero.
    int negative = 0;
    for (int i = 0; i < 1000; ++i)
        negative += FC::GetRandom(INT_MIN, INT_MAX) < 0 ? 1 : 0;
    EXPECT_GT(negative, 400);
    EXPECT_LT(negative, 600);
}

TEST_F(FCRandomTest, ASingleValueRangeAlwaysGivesItAndEmptyRangesDoNotDraw) {
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(FC::GetRandom(1, 2), 1);
    }

    struct Case {
        int low;
        int high;
    };
    const Case empty[] = {{5, 5}, {7, 3}, {0, 0}, {-1, -4}, {INT_MAX, INT_MIN}};
    for (const Case& c : empty) {
        SCOPED_TRACE(testing::Message() << "[" << c.low << ", " << c.high << ")");
        const auto draws = FC::GetRandomDrawCount();
        EXPECT_EQ(FC::GetRandom(c.low, c.high), c.low);
        EXPECT_EQ(FC::GetRandomDrawCount(), draws);
    }
    const auto draws = FC::GetRandomDrawCount();
    FC::GetRandom(1, 7);
    EXPECT_GE(FC::GetRandomDrawCount(), draws + 1);
}

TEST_F(FCRandomTest, TheSameSeedGivesTheSameSequence) {
    auto sequence = [](std::uint64_t seed) {
        FC::SeedRandom(seed);
        std::vector<int> out;
        for (int i = 0; i < 50; ++i)
            out.push_back(FC::GetRandom(1, 1001));
        return out;
    };
    const std::vector<int> first = sequence(99);
    EXPECT_EQ(FC::GetRandomDrawCount(), 50u); // seeding starts the count afresh
    EXPECT_EQ(sequence(99), first);
    EXPECT_NE(sequence(100), first);

    const std::uint64_t seed = FC::SeedRandomFromTime();
    std::vector<int> timed;
    for (int i = 0; i < 20; ++i)
        timed.push_back(FC::GetRandom(1, 1001));
    FC::SeedRandom(seed);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(FC::GetRandom(1, 1001), timed[size_t(i)]) << i;
}
