// The combat block and the vital statistics of `hoard character new` and `show`, for
// characters worked by hand from the open 3.5 rules.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using CliResult = clitest::CliRun;

class CharacterCombatCli : public clitest::CliFixture {
protected:
    QString File(const QString& name) const { return UserFile(name + ".chr"); }

    // `new` with the race and classes, then each rolled score typed in with `set-ability`.
    QJsonObject Build(const QString& name, const QStringList& newArgs,
                      const QStringList& scores = {}) const {
        return Show(NewCharacter(name, newArgs, InOrder(scores)));
    }
};

TEST_F(CharacterCombatCli, HandWorkedCharactersMatchLineByLine) {
    const char* const kKeys[] = {"hp",         "ac",          "ac_touch", "ac_flat_footed",
                                 "initiative", "base_attack", "grapple",  "fortitude",
                                 "reflex",     "will",        "xp"};
    const struct {
        const char* name;
        QStringList newArgs;
        QStringList scores;
        int expected[11];
    } cases[] = {
        // Con 16: 10 + 3 and 3 x 8. Grapple 4 + 2. Fort 4 + 3, Ref 1 + 1, Will 1 + 1.
        {"dwarf",
         {"--race", "Dwarf", "--class", "Fighter", "--level", "4"},
         {"15", "13", "14", "10", "12", "10"},
         {37, 11, 11, 10, 1, 4, 6, 7, 2, 2, 6000}},
        // Dex 16, Con 10: 4 and 4 x 2. Grapple 2 - 1. Fort 1, Ref 1 + 3, Will 4 + 1.
        {"elf",
         {"--race", "Elf", "--class", "Wizard", "--level", "5"},
         {"8", "14", "12", "17", "12", "10"},
         {12, 13, 13, 10, 3, 2, 1, 1, 4, 5, 10000}},
        // Small, Dex 17, Con 12: 7 + 2 x 4 + 2 x 3. Grapple 3 - 1 - 4. Saves with +1 race.
        {"halfling",
         {"--race", "Halfling", "--class", "Rogue", "--level", "3", "--class", "Sorcerer",
          "--level", "2"},
         {"10", "15", "12", "12", "10", "14"},
         {21, 14, 14, 11, 3, 3, -2, 3, 7, 5, 10000}},
        // The open rules' goblin warrior (Str 11, Dex 13, Con 12, Int 10, Wis 9, Cha 6): a full
        // d8 + 1 at first level; Small, so AC 10 + 1 + 1 and grapple 1 + 0 - 4; Fort 2 + 1.
        {"goblin",
         {"--race", "Goblin", "--class", "Warrior"},
         {"13", "11", "12", "10", "9", "8"},
         {9, 12, 12, 11, 1, 1, -3, 3, 1, -1, 0}},
        // Large construct, 9d10: 49 + 30. Grapple 6 + 5 + 4.
        {"golem", {"--race", "Flesh Golem"}, {}, {79, 18, 8, 18, -1, 6, 15, 3, 2, 3, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const QJsonObject shown = Build(c.name, c.newArgs, c.scores);
        for (int i = 0; i < 11; ++i)
            EXPECT_EQ(shown[kKeys[i]].toInt(-999), c.expected[i]) << kKeys[i];
    }
    // The text form of the first one, as a player reads it.
    const CliResult text = Hoard({"character", "show", File("dwarf")});
    for (const char* line :
         {"Abilities:  STR 15 (+2), DEX 13 (+1), CON 16 (+3), INT 10 (+0), WIS 12 (+1), CHA 8 (-1)",
          "HP:         37", "AC:         11, touch 11, flat-footed 10", "Initiative: +1",
          "Base attack: +4, grapple +6", "Saves:      Fort +7, Ref +2, Will +2"})
        EXPECT_TRUE(text.out.contains(line)) << line << "\n" << text.out.toStdString();
}

TEST_F(CharacterCombatCli, VitalStatisticsAndGoldComeFromRaceAndClass) {
    for (const char* seed : {"1", "2", "3"}) {
        SCOPED_TRACE(seed);
        const QJsonObject dwarf =
            Build("d", {"--race", "Dwarf", "--class", "Fighter", "--seed", seed});
        // Adult at 40 + 5d6; male 45 in. + 2d4; 130 lb. + (height roll) x 2d6; 6d4 x 10 gp.
        EXPECT_GE(dwarf["age"].toInt(), 45);
        EXPECT_LE(dwarf["age"].toInt(), 70);
        const int roll = dwarf["height"].toInt() - 45;
        EXPECT_GE(roll, 2);
        EXPECT_LE(roll, 8);
        EXPECT_EQ((dwarf["weight"].toInt() - 130) % qMax(roll, 1), 0);
        EXPECT_GE(dwarf["gold"].toInt(), 60);
        EXPECT_LE(dwarf["gold"].toInt(), 240);
        EXPECT_EQ(dwarf["gold"].toInt() % 10, 0);
        EXPECT_EQ(dwarf["xp"].toInt(), 0);
        EXPECT_EQ(dwarf["abilities"].toObject()["con"].toInt(), 12);
    }
    const QJsonObject golem = Build("g", {"--race", "Flesh Golem"});
    EXPECT_TRUE(golem["abilities"].toObject()["con"].isNull()) << "no Constitution score";
    EXPECT_EQ(golem["gold"].toInt(), 0);
}

TEST_F(CharacterCombatCli, HitPointsAveragedOrRolled) {
    // Fighter 4, Con 12: the first die is full (11), the others average 6.5 or roll 2 to 11.
    const QJsonObject averaged =
        Build("a", {"--race", "Dwarf", "--class", "Fighter", "--level", "4", "--hp", "average"});
    EXPECT_EQ(averaged["hp"].toInt(), 11 + 3 * 6);
    QList<int> rolled;
    for (const char* seed : {"11", "12", "13", "14", "15", "16"}) {
        const QJsonObject one = Build("r", {"--race", "Dwarf", "--class", "Fighter", "--level", "4",
                                            "--hp", "roll", "--seed", seed});
        EXPECT_GE(one["hp"].toInt(), 11 + 3 * 2);
        EXPECT_LE(one["hp"].toInt(), 11 + 3 * 11);
        rolled << one["hp"].toInt();
    }
    const QJsonObject again = Build("r", {"--race", "Dwarf", "--class", "Fighter", "--level", "4",
                                          "--hp", "roll", "--seed", "11"});
    EXPECT_EQ(again["hp"].toInt(), rolled.first()) << "a seed repeats the roll";
    EXPECT_GT(*std::max_element(rolled.begin(), rolled.end()),
              *std::min_element(rolled.begin(), rolled.end()))
        << "six seeds, six times the same rolls";

    const CliResult bad =
        Hoard({"character", "new", "--name", "x", "--hp", "max", "-o", File("x")});
    EXPECT_EQ(bad.status, 1);
    EXPECT_TRUE(bad.err.startsWith("hoard: --hp takes average or roll")) << bad.err.toStdString();
    EXPECT_EQ(bad.err.count('\n'), 1);
}

TEST_F(CharacterCombatCli, ClassWithoutRuleRowsIsNamedAndCountsNothing) {
    const CliResult rules = Hoard({"rules", "[info Class]", "Fighter", "--json"});
    ASSERT_EQ(rules.status, 0);
    const QUuid fighter(QJsonDocument::fromJson(rules.out.toUtf8())
                            .object()["rows"][0]
                            .toObject()["Guid"]
                            .toString());
    ASSERT_FALSE(fighter.isNull());
    Build("w", {"--race", "Human", "--class", "Wizard", "--class", "Fighter"});

    // The fighter level of the file becomes a class this database does not know.
    const QUuid unknown = QUuid::createUuid();
    QByteArray bytes = hoardtest::readFile(File("w"));
    ASSERT_TRUE(bytes.contains(fighter.toRfc4122()));
    bytes.replace(fighter.toRfc4122(), unknown.toRfc4122());
    ASSERT_TRUE(hoardtest::writeFile(File("w"), bytes));

    const CliResult shown = Hoard({"character", "show", File("w"), "--json"});
    ASSERT_EQ(shown.status, 0) << shown.err.toStdString();
    EXPECT_TRUE(shown.err.contains(unknown.toString(QUuid::WithBraces).toUpper()))
        << shown.err.toStdString();
    const QJsonObject character = clitest::jsonObject(shown);
    EXPECT_EQ(character["missing_rows"].toArray().size(), 1);
    // What was stored stands; a level-up works out the rest without the unknown class.
    const CliResult levelled =
        Hoard({"character", "level-up", File("w"), "--class", "Wizard", "--json"});
    ASSERT_EQ(levelled.status, 0) << levelled.err.toStdString();
    const QJsonObject after = clitest::jsonObject(levelled);
    EXPECT_EQ(after["base_attack"].toInt(), 1) << "wizard 2: 1; the unknown class: 0";
    EXPECT_EQ(after["will"].toInt(), 3) << "wizard 2 good Will only";
}

} // namespace
