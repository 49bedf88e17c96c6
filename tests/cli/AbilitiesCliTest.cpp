// "hoard abilities" and "hoard character set-ability" as a user runs them: seeded dice, point
// costs against budgets, the standard array, and bad input. Costs are the 3.5 point-buy table
// (8 free, 14 for 6, 15 for 8, 18 for 16); modifiers are (score - 10) / 2 rounded down.
#include "TestSupport.h"

#include "CliRunner.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "FCRandom.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using clitest::CliRun;

std::vector<int> ints(const QJsonValue& value) {
    std::vector<int> out;
    for (const QJsonValue& v : value.toArray())
        out.push_back(v.toInt());
    return out;
}

class AbilitiesCli : public clitest::CliFixture {
protected:
    // A new character saved by the program, named after its race.
    QString NewCharacter(const QString& race, const QStringList& classes) const {
        QStringList args{"--race", race};
        for (const QString& name : classes)
            args << "--class" << name;
        return CliFixture::NewCharacter(race, args);
    }
};

} // namespace

TEST_F(AbilitiesCli, BadInputIsOneLineAndStatusOne) {
    const QString chr = NewCharacter("Human", {"Fighter"});
    const QString allip = NewCharacter("Allip", {});
    const struct {
        QStringList args;
        QString expected;
    } cases[] = {
        {{"abilities", "--sets", "2"}, "--method METHOD is required"},
        {{"abilities", "--method", "7d6"}, "unknown method '7d6'"},
        {{"abilities", "--method", "10"}, "unknown method '10'"},
        {{"abilities", "--method"}, "--method is missing its value"},
        {{"abilities", "--method", "0", "--sets", "0"}, "--sets takes a number from 1 to 100"},
        {{"abilities", "--method", "0", "--sets", "99999999999999"}, "--sets takes a number"},
        {{"abilities", "--method", "array", "--sets", "2"}, "--sets only goes with a dice"},
        {{"abilities", "--method", "0", "--scores", "15,14,13,12,10,8"}, "--scores only goes"},
        {{"abilities", "--method", "point-buy"}, "needs --scores"},
        {{"abilities", "--method", "point-buy", "--scores", "15,14,13"}, "six scores"},
        {{"abilities", "--method", "point-buy", "--scores", "15,14,13,12,10,7"},
         "from 8 to 99, not '7'"},
        {{"abilities", "--method", "free", "--scores", "0,10,10,10,10,10"}, "from 1 to 99"},
        {{"abilities", "--method", "point-buy", "--scores", "15,14,13,12,10,x"}, "not 'x'"},
        // Six 15s cost 48 of 25.
        {{"abilities", "--method", "point-buy", "--scores", "15,15,15,15,15,15"},
         "over budget: 15,15,15,15,15,15 cost 48 points of 25 (-23 left)"},
        {{"abilities", "--method", "point-buy", "--scores", "18,8,8,8,8,8", "--budget", "15"},
         "cost 16 points of 15 (-1 left)"},
        // Low-powered gives 15 points; 15,14,13,12,10,8 needs 25.
        {{"abilities", "--method", "point-buy", "--campaign", "low-powered", "--scores",
          "15,14,13,12,10,8"},
         "cost 25 points of 15 (-10 left)"},
        {{"abilities", "--method", "point-buy", "--budget", "-5", "--scores", "8,8,8,8,8,8"},
         "--budget takes a number from 0 to 10000"},
        {{"abilities", "--method", "campaign", "--scores", "8,8,8,8,8,8"}, "needs --campaign"},
        {{"abilities", "--method", "campaign", "--campaign", "Heroic", "--scores", "8,8,8,8,8,8"},
         "unknown campaign 'Heroic'"},
        {{"abilities", "--method", "campaign", "--budget", "30", "--scores", "8,8,8,8,8,8"},
         "not --budget"},
        {{"abilities", "--method", "0", "--frob"}, "unknown option '--frob'"},
        {{"character", "set-ability", chr, "STR"}, "takes FILE.chr ABILITY VALUE"},
        {{"character", "set-ability", chr, "Luck", "12"}, "unknown ability 'Luck'"},
        {{"character", "set-ability", chr, "STR", "0"}, "runs from 1 to 99, not '0'"},
        {{"character", "set-ability", chr, "STR", "100"}, "runs from 1 to 99, not '100'"},
        {{"character", "set-ability", chr, "STR", "12x"}, "not '12x'"},
        {{"character", "set-ability", UserFile("absent.chr"), "STR", "12"}, "no such file"},
        {{"character", "set-ability", allip, "con", "12"}, "has no Constitution score to set"},
    };
    for (const auto& c : cases) {
        const CliRun run = Hoard(c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_TRUE(run.err.contains(c.expected))
            << c.args.join(' ').toStdString() << "\n  stderr: " << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
    }
}

TEST_F(AbilitiesCli, SeededRollsAreTheDiceOfTheRandomSource) {
    const struct {
        const char* method;
        int id;
        int dice;
        int dropped;
    } cases[] = {{"4d6-assign", 0, 4, 1},   {"1", 1, 4, 1},          {"3d6-assign", 2, 3, 0},
                 {"3D6-IN-ORDER", 3, 3, 0}, {"5d6-assign", 4, 5, 2}, {"4d6-reroll", 5, 4, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        const CliRun run = Hoard({"--seed", "4242", "abilities", "--method", c.method, "--json"});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        const QJsonObject set = clitest::jsonObject(run);
        EXPECT_EQ(set["method"].toInt(), c.id);
        EXPECT_FALSE(set["name"].toString().isEmpty());

        // The same seed here draws the same dice: six scores of `dice` each, in order.
        FC::SeedRandom(4242);
        const QJsonArray dice = set["dice"].toArray();
        const std::vector<int> scores = ints(set["scores"]);
        const std::vector<int> modifiers = ints(set["modifiers"]);
        ASSERT_EQ(dice.size(), 6);
        ASSERT_EQ(scores.size(), 6u);
        ASSERT_EQ(modifiers.size(), 6u);
        for (int slot = 0; slot < 6; ++slot) {
            std::vector<int> expected;
            for (int d = 0; d < c.dice; ++d)
                expected.push_back(DDieRoller::RollDie(6));
            EXPECT_EQ(ints(dice[slot]), expected) << "slot " << slot;
            std::sort(expected.begin(), expected.end());
            int kept = 0;
            for (size_t d = size_t(c.dropped); d < expected.size(); ++d)
                kept += expected[d];
            EXPECT_EQ(scores[size_t(slot)], kept) << "slot " << slot;
            EXPECT_EQ(modifiers[size_t(slot)], kept / 2 - 5) << "slot " << slot;
        }
        EXPECT_EQ(Hoard({"--seed", "4242", "abilities", "--method", c.method, "--json"}).out,
                  run.out)
            << "a seed repeats the run";
    }

    const CliRun three = Hoard({"--seed", "9", "abilities", "--method", "0", "--sets", "3"});
    ASSERT_EQ(three.status, 0) << three.err.toStdString();
    for (const char* header : {"Set 1:", "Set 2:", "Set 3:"})
        EXPECT_TRUE(three.out.contains(header)) << header;
    EXPECT_EQ(three.out.count("dice "), 18);
    const CliRun threeJson =
        Hoard({"--seed", "9", "abilities", "--method", "0", "--sets", "3", "--json"});
    EXPECT_EQ(QJsonDocument::fromJson(threeJson.out.toUtf8()).array().size(), 3);
}

TEST_F(AbilitiesCli, PointBuyCostsAndBudgets) {
    const struct {
        QStringList options;
        std::vector<int> scores;
        std::vector<int> costs;
        int budget;
        int left;
        const char* campaign;
    } cases[] = {
        {{"--method", "point-buy"}, {15, 14, 13, 12, 10, 8}, {8, 6, 5, 4, 2, 0}, 25, 0, ""},
        {{"--method", "6", "--budget", "32"}, {18, 8, 8, 8, 8, 8}, {16, 0, 0, 0, 0, 0}, 32, 16, ""},
        {{"--method", "point-buy", "--campaign", "High-powered"},
         {16, 16, 14, 10, 8, 8},
         {10, 10, 6, 2, 0, 0},
         32,
         4,
         "High-powered"},
        {{"--method", "campaign", "--campaign", "1"},
         {14, 14, 11, 10, 9, 8},
         {6, 6, 3, 2, 1, 0},
         22,
         4,
         "Challenging"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.options.join(' ').toStdString());
        QStringList scores;
        for (int score : c.scores)
            scores << QString::number(score);
        const CliRun run = Hoard(QStringList{"abilities"} + c.options +
                                 QStringList{"--scores", scores.join(','), "--json"});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        const QJsonObject set = clitest::jsonObject(run);
        EXPECT_EQ(ints(set["scores"]), c.scores);
        EXPECT_EQ(ints(set["costs"]), c.costs);
        EXPECT_EQ(set["budget"].toInt(), c.budget);
        EXPECT_EQ(set["left"].toInt(), c.left);
        EXPECT_EQ(set["spent"].toInt(), c.budget - c.left);
        EXPECT_EQ(set["campaign"].toString().toStdString(), c.campaign);
    }
    const CliRun text =
        Hoard({"abilities", "--method", "point-buy", "--scores", "15,14,13,12,10,8"});
    ASSERT_EQ(text.status, 0) << text.err.toStdString();
    EXPECT_TRUE(text.out.contains("budget 25"));
    EXPECT_TRUE(text.out.contains("15  +2   cost 8"));
    EXPECT_TRUE(text.out.contains("8  -1   cost 0"));
    EXPECT_TRUE(text.out.contains("Spent 25 of 25, 0 left"));
}

TEST_F(AbilitiesCli, TheStandardArrayAndFreeEntryNeedNoDice) {
    const std::uint64_t before = FC::GetRandomDrawCount();
    const CliRun array = Hoard({"abilities", "--method", "array", "--json"});
    ASSERT_EQ(array.status, 0) << array.err.toStdString();
    EXPECT_EQ(ints(clitest::jsonObject(array)["scores"]),
              (std::vector<int>{15, 14, 13, 12, 10, 8}));
    EXPECT_EQ(ints(clitest::jsonObject(array)["modifiers"]), (std::vector<int>{2, 2, 1, 1, 0, -1}));
    EXPECT_EQ(FC::GetRandomDrawCount(), before);

    const CliRun text = Hoard({"abilities", "--method", "8"});
    ASSERT_EQ(text.status, 0);
    QStringList numbers;
    for (const QString& line : text.out.split('\n', Qt::SkipEmptyParts).mid(1))
        numbers << line.split(' ', Qt::SkipEmptyParts).first();
    EXPECT_EQ(numbers.join(' ').toStdString(), "15 14 13 12 10 8");

    const CliRun free =
        Hoard({"abilities", "--method", "free", "--scores", "3,18,1,99,10,9", "--json"});
    ASSERT_EQ(free.status, 0) << free.err.toStdString();
    EXPECT_EQ(ints(clitest::jsonObject(free)["modifiers"]),
              (std::vector<int>{-4, 4, -5, 44, 0, -1}));
}

TEST_F(AbilitiesCli, SetAbilityKeepsTheRaceAdjustmentAndSaves) {
    const QString dwarf = NewCharacter("Dwarf", {"Fighter"});
    // A dwarf has Con +2 and Cha -2 over the rolled score.
    const struct {
        const char* ability;
        int value;
        const char* name;
        int score;
        int modifier;
    } cases[] = {
        {"STR", 16, "Strength", 16, 3},     {"dexterity", 7, "Dexterity", 7, -2},
        {"Con", 14, "Constitution", 16, 3}, {"cha", 10, "Charisma", 8, -1},
        {"INT", 13, "Intelligence", 13, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ability);
        const CliRun run = Hoard(
            {"character", "set-ability", dwarf, c.ability, QString::number(c.value), "--json"});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
        const QJsonObject result = clitest::jsonObject(run);
        EXPECT_EQ(result["ability"].toString().toStdString(), c.name);
        EXPECT_EQ(result["base"].toInt(), c.value);
        EXPECT_EQ(result["score"].toInt(), c.score);
        EXPECT_EQ(result["modifier"].toInt(), c.modifier);
    }
    const CliRun text = Hoard({"character", "set-ability", dwarf, "WIS", "12"});
    EXPECT_EQ(text.out.trimmed().toStdString(), "Wisdom 12 (+1)");

    // Read back by the library: every score stands, and a fighter's first hit die (10) now
    // carries Con 16's +3.
    DOptions::mAppPath = FCString(hoardtest::builtDataDir());
    ASSERT_TRUE(DDatabase::StartUp(FCString(hoardtest::builtDataDir() + "/rules.db")));
    DObjectManager::StartUp();
    DCharacter* saved = DCharacter::CreateFromFile(FCString(dwarf), false, nullptr);
    ASSERT_NE(saved, nullptr);
    const int scores[6] = {16, 7, 16, 13, 12, 8};
    for (int a = 0; a < 6; ++a)
        EXPECT_EQ(saved->GetAbilityStat(a), scores[a]) << "ability " << a;
    EXPECT_EQ(saved->GetCharacterStat(kStatHitPoints), 13);
    saved->Release();
    DDatabase::ShutDown();
}
