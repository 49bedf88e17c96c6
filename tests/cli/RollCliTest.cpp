// Runs "hoard roll" as a user would: sums, seeds, JSON, limits and errors.
#include "CliRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

struct RollRun {
    int status = -1;
    QStringList lines;
    QString out;
    QString err;
};

RollRun roll(const QStringList& args) {
    // A bad input must end at once; a generous bound still tells a hang from a slow machine.
    const clitest::CliRun ran = clitest::runHoard(QStringList{"roll"} + args, QString(), 20000);
    RollRun run;
    run.status = ran.status;
    run.out = ran.out;
    run.err = ran.err;
    run.lines = run.out.split('\n', Qt::SkipEmptyParts);
    return run;
}

std::vector<int> numbers(const RollRun& run) {
    std::vector<int> values;
    for (const QString& line : run.lines) {
        bool ok = false;
        values.push_back(line.toInt(&ok));
        EXPECT_TRUE(ok) << "not a number: " << line.toStdString();
    }
    return values;
}

} // namespace

TEST(RollCli, BadInputIsOneLineAndStatusOne) {
    const QString forms = QStringLiteral("NdM, NdM+K, NdM-K or dM");
    const struct {
        QStringList args;
        QString expected;
    } cases[] = {
        {{"0d6"}, forms},
        {{"d0"}, forms},
        {{"3d"}, forms},
        {{"99999999999999999999d6"}, forms},
        {{"abc"}, forms},
        {{"4d6+"}, forms},
        {{"4d6+-1"}, forms},
        {{""}, forms},
        {{"1001d6"}, forms},
        {{"d1001"}, forms},
        {{"d6+1000001"}, forms},
        {{"d6-1000001"}, forms},
        {{"4d6", "2d8"}, forms},
        {{"4d6", "--sets", "0"}, "--sets takes a number from 1 to 1000"},
        {{"4d6", "--sets", "1001"}, "--sets takes a number from 1 to 1000"},
        {{"4d6", "--sets", "six"}, "--sets takes a number from 1 to 1000"},
        {{"4d6", "--sets"}, "--sets needs a number"},
        {{"4d6", "--times", "3"}, "unknown option '--times'"},
    };
    for (const auto& c : cases) {
        const std::string what = c.args.join(' ').toStdString();
        const RollRun run = roll(c.args);
        EXPECT_EQ(run.status, 1) << what;
        EXPECT_TRUE(run.err.startsWith("hoard: ")) << what << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(c.expected)) << what << ": " << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << what << ": " << run.err.toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << what;
    }
}

TEST(RollCli, SameSeedSameSums) {
    const RollRun first = roll({"4d6", "--sets", "6", "--seed", "7"});
    const RollRun second = roll({"4d6", "--sets", "6", "--seed", "7"});
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    ASSERT_EQ(first.lines.size(), 6);
    EXPECT_EQ(second.lines, first.lines);
    for (const int sum : numbers(first)) {
        EXPECT_GE(sum, 4);
        EXPECT_LE(sum, 24);
    }
    // Another seed, or none, gives other rolls: six equal sums of 100d100 by chance are out of
    // reach.
    const RollRun other = roll({"100d100", "--sets", "6", "--seed", "8"});
    EXPECT_NE(other.lines, roll({"100d100", "--sets", "6", "--seed", "7"}).lines);
    const RollRun unseeded = roll({"100d100", "--sets", "6"});
    EXPECT_EQ(unseeded.lines.size(), 6);
    EXPECT_NE(unseeded.lines, roll({"100d100", "--sets", "6"}).lines);
}

TEST(RollCli, SumsAreExactOrWithinReach) {
    const struct {
        QStringList args;
        int sets;
        int low;
        int high;
    } cases[] = {
        // One-sided dice leave nothing to chance.
        {{"1d1+5"}, 1, 6, 6},
        {{"3d1-2", "--sets", "4"}, 4, 1, 1},
        {{"d1"}, 1, 1, 1},
        {{"2D1"}, 1, 2, 2},
        {{"d20", "--sets", "50"}, 50, 1, 20},
        {{"2d8+3", "--sets", "50"}, 50, 5, 19},
        {{"3d6-1", "--sets", "50"}, 50, 2, 17},
        // The limits themselves are accepted.
        {{"1000d1000+1000000", "--sets", "2"}, 2, 1001000, 2000000},
        {{"d6-1000000"}, 1, -999999, -999994},
        {{"1d6", "--sets", "1000"}, 1000, 1, 6},
    };
    for (const auto& c : cases) {
        const std::string what = c.args.join(' ').toStdString();
        const RollRun run = roll(c.args);
        ASSERT_EQ(run.status, 0) << what << ": " << run.err.toStdString();
        const std::vector<int> sums = numbers(run);
        EXPECT_EQ(int(sums.size()), c.sets) << what;
        for (const int sum : sums) {
            EXPECT_GE(sum, c.low) << what;
            EXPECT_LE(sum, c.high) << what;
        }
    }
}

TEST(RollCli, ManySumsOf3d6CentreOnTenAndAHalf) {
    // 1,000 sums of 3d6: mean 10.5, standard deviation sqrt(8.75) = 2.96, so the mean of the
    // thousand lies within 0.35 (3.7 standard errors); every sum from 3 to 18 comes up (the
    // rarest, 3 and 18, 4.6 times each on average).
    const RollRun run = roll({"3d6", "--sets", "1000", "--seed", "11"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const std::vector<int> sums = numbers(run);
    ASSERT_EQ(sums.size(), 1000u);
    double total = 0;
    int lowest = 99;
    int highest = 0;
    for (const int sum : sums) {
        total += sum;
        lowest = std::min(lowest, sum);
        highest = std::max(highest, sum);
    }
    EXPECT_NEAR(total / 1000.0, 10.5, 0.35);
    EXPECT_EQ(lowest, 3);
    EXPECT_EQ(highest, 18);
}

TEST(RollCli, JsonNamesTheExpressionAndItsSets) {
    const struct {
        QString input;
        QString expression;
        int sets;
        int low;
        int high;
    } cases[] = {
        {"4d6", "4d6", 6, 4, 24},    {"d20", "1d20", 1, 1, 20}, {"3d6+2", "3d6+2", 3, 5, 20},
        {"2d4-1", "2d4-1", 2, 1, 7}, {"2d4+0", "2d4", 2, 2, 8},
    };
    for (const auto& c : cases) {
        const RollRun run = roll({c.input, "--sets", QString::number(c.sets), "--json"});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        const QJsonObject object = QJsonDocument::fromJson(run.out.toUtf8()).object();
        EXPECT_EQ(object.keys(), (QStringList{"expression", "sets"})) << run.out.toStdString();
        EXPECT_EQ(object["expression"].toString(), c.expression);
        const QJsonArray sets = object["sets"].toArray();
        ASSERT_EQ(sets.size(), c.sets) << run.out.toStdString();
        for (const QJsonValue& value : sets) {
            EXPECT_TRUE(value.isDouble());
            EXPECT_GE(value.toInt(), c.low) << c.input.toStdString();
            EXPECT_LE(value.toInt(), c.high) << c.input.toStdString();
        }
    }
}
