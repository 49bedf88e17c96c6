// `hoard character level-down`: the last level taken back, worked by hand from the open 3.5
// rules; the levels of the making refused with one line.
#include "CliRunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class LevelDownCli : public clitest::CliFixture {
protected:
    // "character level-down FILE": it must succeed; its text output.
    QString LevelDown(const QString& file) const {
        const clitest::CliRun run = Hoard({"character", "level-down", file});
        EXPECT_EQ(run.status, 0) << run.err.toStdString();
        return run.out;
    }

    static int Count(const QJsonArray& list, const QString& name) {
        int count = 0;
        for (const QJsonValue entry : list)
            count += entry.toObject()["name"].toString() == name ? 1 : 0;
        return count;
    }
};

TEST_F(LevelDownCli, TheLastLevelIsTakenBackToTheFiguresOfTheLevelBefore) {
    const char* const kKeys[] = {"level",     "hp",     "base_attack", "grapple",
                                 "fortitude", "reflex", "will"};
    const struct {
        const char* name;
        QStringList newArgs;
        QStringList scores;
        int before[7];
        int after[7];
        const char* classesAfter;
        const char* pointsAfter; // the text line of the points left
        int bonusFeatsBefore, bonusFeatsAfter;
        int spellsBefore; // cantrips x 10 + first-level spells per day
        int casters;
    } cases[] = {
        // Human, Str 15, Dex 14, Con 13, Int 12, Wis 10, Cha 8. Fighter 1: 10 + 1 hit points;
        // the wizard's d4 averages 2, + 1. Fort 2 + 1, Ref 0 + 2, Will 0 + 0; the wizard adds
        // Will +2. Skill points (2 + 1) x 4 + 4 at the first level, 2 + 1 + 1 at the wizard's.
        // The wizard's 3 cantrips and 1 + 1 first-level spells go with him.
        {"fighter-wizard",
         {"--class", "Fighter", "--class", "Wizard"},
         {"15", "14", "13", "12", "10", "8"},
         {2, 14, 1, 3, 3, 2, 2},
         {1, 11, 1, 3, 3, 2, 0},
         "Fighter 1",
         "Points left: 16 skill, 2 feat, 1 bonus feat",
         1,
         1,
         32,
         0},
        // Dwarf, Str 15, Dex 13, Con 14 + 2, Wis 12. Fighter 4: 10 + 3, then 3 x (5 + 3);
        // fighter 3 loses one of those dice. Base attack 4 to 3, grapple + 2. Fort 4 + 3 to
        // 3 + 3; Ref 1 + 1 and Will 1 + 1 both levels. The 4th level's bonus feat goes; skill
        // points 2 x 4 + 2 x 2.
        {"dwarf-fighter",
         {"--race", "Dwarf", "--class", "Fighter", "--level", "4"},
         {"15", "13", "14", "10", "12", "10"},
         {4, 37, 4, 6, 7, 2, 2},
         {3, 29, 3, 5, 6, 2, 2},
         "Fighter 3",
         "Points left: 12 skill, 2 feat, 2 bonus feat",
         3,
         2,
         0,
         0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const QString file = NewCharacter(c.name, c.newArgs, InOrder(c.scores));
        const QJsonObject before = Show(file);
        for (int i = 0; i < 7; ++i)
            EXPECT_EQ(before[kKeys[i]].toInt(-999), c.before[i]) << "before: " << kKeys[i];
        EXPECT_EQ(Count(before["features"].toArray(), "Bonus feat (Fighter)"), c.bonusFeatsBefore);
        const QJsonArray perDay =
            before["casters"].toArray().first().toObject()["per_day"].toArray();
        EXPECT_EQ(perDay.size() > 1 ? perDay[0].toInt() * 10 + perDay[1].toInt() : 0,
                  c.spellsBefore);

        // The text is what level-up prints: the character as `show` has it.
        const QString out = LevelDown(file);
        EXPECT_TRUE(out.contains(QStringLiteral("Classes:    %1\n").arg(c.classesAfter)))
            << out.toStdString();
        EXPECT_TRUE(out.contains(c.pointsAfter)) << out.toStdString();

        // What was saved reads back with the lower figures.
        const QJsonObject after = Show(file);
        for (int i = 0; i < 7; ++i)
            EXPECT_EQ(after[kKeys[i]].toInt(-999), c.after[i]) << "after: " << kKeys[i];
        EXPECT_EQ(Count(after["features"].toArray(), "Bonus feat (Fighter)"), c.bonusFeatsAfter);
        EXPECT_EQ(after["casters"].toArray().size(), c.casters);
    }
}

TEST_F(LevelDownCli, AnAnimalCompanionFollowsItsDruidDown) {
    const QString druid = NewCharacter("druid", {"--class", "Druid", "--level", "3"});
    Ok({"add-companion", druid, "companion", "Wolf"});
    QJsonObject wolf = Show(druid)["companions"].toArray().first().toObject();
    // Druid 3: the wolf's 2 HD + 2, natural armor 2 + 2.
    ASSERT_EQ(wolf["hit_dice"].toDouble(), 4.0);
    ASSERT_EQ(wolf["natural_armor"].toInt(), 4);

    LevelDown(druid);
    // Druid 2: the wolf as its stat block has it, 2d8 + 4 (13), natural armor +2, AC
    // 10 + 2 + 2, Str 13 and Dex 15 again.
    wolf = Show(druid)["companions"].toArray().first().toObject();
    EXPECT_EQ(wolf["hit_dice"].toDouble(), 2.0);
    EXPECT_EQ(wolf["hp"].toInt(), 13);
    EXPECT_EQ(wolf["natural_armor"].toInt(), 2);
    EXPECT_EQ(wolf["ac"].toInt(), 14);
    EXPECT_EQ(wolf["abilities"].toObject()["str"].toInt(), 13);
    EXPECT_EQ(wolf["abilities"].toObject()["dex"].toInt(), 15);
}

TEST_F(LevelDownCli, TheLevelsOfTheMakingAndWhatIsNoCharacterAreRefused) {
    const QString fighter = NewCharacter("fighter", {"--class", "Fighter"});
    ExpectRefused(fighter, {"level-down"}, "fighter has no level to take back");
    const QString goblin = NewCharacter("goblin", {"--race", "Goblin"});
    ExpectRefused(goblin, {"level-down"}, "goblin has no level to take back");
    ExpectRefused(fighter, {"level-down", "--class", "Fighter"}, "unknown option '--class'");

    const QString junk = UserFile("junk.chr");
    QFile file(junk);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a character\n");
    file.close();
    ExpectRefused(junk, {"level-down"}, "is not a readable character file");
}

} // namespace
