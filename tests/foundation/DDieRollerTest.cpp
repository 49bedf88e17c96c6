#include "DDieRoller.h"

#include "DDieData.h"
#include "FCRandom.h"


#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

// Every test seeds first, so the order in which tests run does not matter.
class DDieRollerTest : public ::testing::Test {
protected:
    void SetUp() override { FC::SeedRandom(20261123); }
};

} // namespace

TEST_F(DDieRollerTest, SumsStayInRangeAndCentreOnTheExpectedMean) {
    // Mean of NdM is N(M+1)/2; the variance of one die is (M^2-1)/12. Tolerances are about
    // 3.5 standard errors of the mean over `rolls`, and both extremes must come up.
    struct Case {
        const char* name;
        std::function<int()> roll;
        int rolls;
        int low;
        int high;
        double mean;
        double tolerance;
    };
    const DDieData fourD6(4, 6);
    const Case cases[] = {
        // 3d6: variance 3 * 35/12 = 8.75, standard error over 10,000 rolls 0.030.
        {"3d6", [] { return DDieRoller::RollDiceSum(6, 3); }, 10000, 3, 18, 10.5, 0.1},
        // d20: variance 399/12 = 33.25, standard error over 20,000 rolls 0.041.
        {"d20", [] { return DDieRoller::RollDie(20); }, 20000, 1, 20, 10.5, 0.15},
        // d100: variance 9999/12 = 833.25, standard error over 20,000 rolls 0.204.
        {"d100", [] { return DDieRoller::RollDie(100); }, 20000, 1, 100, 50.5, 0.75},
        // 4d6 through DDieData: variance 4 * 35/12 = 11.67, standard error 0.034.
        {"DDieData 4d6", [&fourD6] { return fourD6.Roll(); }, 10000, 4, 24, 14.0, 0.12},
        // 2d4: variance 2 * 15/12 = 2.5, standard error 0.016.
        {"2d4", [] { return DDieRoller::RollDiceSum(4, 2); }, 10000, 2, 8, 5.0, 0.06},
        // A one-sided die has no spread at all.
        {"d1", [] { return DDieRoller::RollDie(1); }, 1000, 1, 1, 1.0, 0.0},
        {"5d1", [] { return DDieRoller::RollDiceSum(1, 5); }, 1000, 5, 5, 5.0, 0.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        int lowest = c.high + 1;
        int highest = c.low - 1;
        double sum = 0;
        for (int i = 0; i < c.rolls; ++i) {
            const int value = c.roll();
            ASSERT_GE(value, c.low);
            ASSERT_LE(value, c.high);
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
            sum += value;
        }
        EXPECT_EQ(lowest, c.low);
        EXPECT_EQ(highest, c.high);
        EXPECT_NEAR(sum / c.rolls, c.mean, c.tolerance);
    }
}

TEST_F(DDieRollerTest, BestAndWorstOfSeveralSums) {
    // Of two d6 the higher averages 161/36 = 4.472 and the lower 91/36 = 2.528 (standard
    // deviation 1.40, so 0.05 is 5 standard errors over 20,000 trials). Swapping the two
    // operations or taking one sum only moves the mean by at least 0.97.
    constexpr int kTrials = 20000;
    double high = 0;
    double low = 0;
    for (int i = 0; i < kTrials; ++i) {
        high += DDieRoller::RollDiceMaxSum(6, 1, 2);
        low += DDieRoller::RollDiceMinSum(6, 1, 2);
    }
    EXPECT_NEAR(high / kTrials, 161.0 / 36.0, 0.05);
    EXPECT_NEAR(low / kTrials, 91.0 / 36.0, 0.05);
    // One sum of 3d1 is 3 whether it is the best or the worst.
    EXPECT_EQ(DDieRoller::RollDiceMaxSum(1, 3, 4), 3);
    EXPECT_EQ(DDieRoller::RollDiceMinSum(1, 3, 4), 3);
    EXPECT_EQ(DDieRoller::MaxDieValue(12), 12);
}

TEST_F(DDieRollerTest, NothingToRollDrawsNothing) {
    const struct {
        const char* name;
        std::function<int()> roll;
        int expected;
    } cases[] = {
        {"RollDiceSum of 0 dice", [] { return DDieRoller::RollDiceSum(6, 0); }, 0},
        {"RollDiceMaxSum of 0 sums", [] { return DDieRoller::RollDiceMaxSum(6, 3, 0); }, 0},
        {"RollDiceMinSum of 0 sums", [] { return DDieRoller::RollDiceMinSum(6, 3, 0); }, 0},
        {"RollDiceMaxSum of 0 dice", [] { return DDieRoller::RollDiceMaxSum(6, 0, 5); }, 0},
        {"RollDie of a zero die", [] { return DDieRoller::RollDie(0); }, 1},
        {"RollDie of a negative die", [] { return DDieRoller::RollDie(-4); }, 1},
        {"DDieData of 0 dice", [] { return DDieData(0, 20).Roll(); }, 0},
        {"DDieData of -3 dice", [] { return DDieData(-3, 6).Roll(); }, 0},
    };
    for (const auto& c : cases) {
        const std::uint64_t before = FC::GetRandomDrawCount();
        EXPECT_EQ(c.roll(), c.expected) << c.name;
        EXPECT_EQ(FC::GetRandomDrawCount(), before) << c.name;
    }
    FCArray<int> list;
    list.Add(7);
    for (const int times : {0, -1, -100}) {
        const std::uint64_t before = FC::GetRandomDrawCount();
        DDieRoller::GenerateDieRollList(times, 6, list);
        EXPECT_TRUE(list.IsEmpty()) << times;
        list.Add(7);
        DDieRoller::GenerateDieRollSumList(times, 6, 3, list);
        EXPECT_TRUE(list.IsEmpty()) << times;
        EXPECT_EQ(FC::GetRandomDrawCount(), before) << times;
    }
}

TEST_F(DDieRollerTest, RollListsReplaceWhatTheyHeld) {
    FCArray<int> list;
    for (int i = 0; i < 3; ++i)
        list.Add(-1);
    DDieRoller::GenerateDieRollList(50, 4, list);
    ASSERT_EQ(list.GetCount(), 50);
    for (const int value : list) {
        EXPECT_GE(value, 1);
        EXPECT_LE(value, 4);
    }
    DDieRoller::GenerateDieRollSumList(40, 6, 3, list);
    ASSERT_EQ(list.GetCount(), 40);
    for (const int value : list) {
        EXPECT_GE(value, 3);
        EXPECT_LE(value, 18);
    }
}
