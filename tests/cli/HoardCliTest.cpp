// Runs the command-line program as a user would and checks what it prints and returns.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using clitest::CliRun;

CliRun hoard(const QStringList& args, const QString& userDir = QString()) {
    return clitest::runHoard(args, userDir);
}

QJsonObject json(const QString& text) {
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

} // namespace

TEST(HoardCli, UserErrorsGiveOneLineAndStatusOne) {
    QTemporaryDir user;
    QTemporaryDir files;
    const QString garbage = files.path() + "/garbage.chr";
    ASSERT_TRUE(hoardtest::writeFile(garbage, QByteArray(300, '\x5A')));
    const struct {
        QStringList args;
        QString expected;
    } cases[] = {
        {{"frobnicate"}, "unknown command 'frobnicate'"},
        {{"--seed", "abc", "demo"}, "--seed takes a whole number"},
        {{"--data"}, "option --data needs a value"},
        {{"character", "new", "-o", files.path() + "/x.chr"}, "--name NAME is required"},
        {{"character", "new", "--name", "A"}, "-o FILE.chr is required"},
        {{"character", "new", "--name", "A", "--race", "Nonesuch", "-o", files.path() + "/x.chr"},
         "unknown race 'Nonesuch'"},
        {{"character", "show", files.path() + "/absent.chr"}, "no such file"},
        {{"character", "show", garbage}, "not a readable character file"},
        {{"character", "fly"}, "unknown character command 'fly'"},
        {{"db", "info", "--db", files.path() + "/absent.db"}, "Connect failed."},
        // A file that is no database must stop the command before anything is saved.
        {{"character", "new", "--name", "A", "--race", "Human", "--db", garbage, "-o",
          files.path() + "/saved.chr"},
         "not a rules database"},
    };
    for (const auto& c : cases) {
        const CliRun run = hoard(c.args, user.path());
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_TRUE(run.err.contains(c.expected))
            << c.args.join(' ').toStdString() << "\n  stderr: " << run.err.toStdString();
        EXPECT_LE(run.err.count('\n'), 2) << run.err.toStdString();
    }
    EXPECT_FALSE(QFile::exists(files.path() + "/saved.chr"));
}

TEST(HoardCli, HelpNamesEveryCommandAndGlobalOption) {
    const CliRun run = hoard({"--help"});
    EXPECT_EQ(run.status, 0);
    for (const char* word :
         {"demo", "db", "character", "--data", "--user", "--db", "--seed", "--json"})
        EXPECT_TRUE(run.out.contains(word)) << word;
    for (const char* command : {"db", "character", "demo"})
        EXPECT_EQ(hoard({command, "--help"}).status, 0) << command;
    // The version the build was made as, and nothing else.
    for (const char* flag : {"--version", "-v"}) {
        const CliRun version = hoard({flag});
        EXPECT_EQ(version.status, 0) << flag;
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^hoard \\d+\\.\\d+\\.\\d+\n$"))
                        .match(version.out)
                        .hasMatch())
            << version.out.toStdString();
    }
}

TEST(HoardCli, DbInfoListsEveryTable) {
    const CliRun run = hoard({"db", "info", "--json"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonObject info = json(run.out);
    EXPECT_TRUE(info["database"].toString().endsWith("rules.db"));
    const QJsonArray tables = info["tables"].toArray();
    ASSERT_EQ(tables.size(), 212);
    EXPECT_EQ(tables[0].toObject()["name"].toString(), "[info Coin]");
    EXPECT_EQ(tables[211].toObject()["index"].toInt(), 211);
    EXPECT_EQ(info["tables_present"].toInt(), 212);
    EXPECT_GE(tables[1].toObject()["rows"].toInt(), 11) << "eleven base classes at least";
}

TEST(HoardCli, DemoSavesAndReadsBackACharacter) {
    QTemporaryDir user;
    const CliRun run = hoard({"demo", "--json"}, user.path());
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonObject character = json(run.out);
    EXPECT_EQ(character["name"].toString(), "Tordek");
    EXPECT_EQ(character["player"].toString(), "Demo Player");
    EXPECT_EQ(character["file_name"].toString(), "Tordek") << "named after its file";
    EXPECT_EQ(character["race"].toString(), "Dwarf");
    // Dwarf fighter 4, 15/13/14/10/12/8 before Con +2, Cha -2. Hit points: 10 + 3 at first
    // level, then three averaged d10s, 5.5 + 3 = 8 each: 37. Fort 4 + 3, Ref 1 + 1, Will 1 + 1.
    // AC 10 + Dex 1; grapple 4 + Str 2; Climb 4 ranks + Str 2.
    EXPECT_EQ(character["level"].toInt(), 4);
    EXPECT_EQ(character["hp"].toInt(), 37);
    EXPECT_EQ(character["ac"].toInt(), 11);
    EXPECT_EQ(character["ac_flat_footed"].toInt(), 10);
    EXPECT_EQ(character["grapple"].toInt(), 6);
    EXPECT_EQ(character["fortitude"].toInt(), 7);
    EXPECT_EQ(character["reflex"].toInt(), 2);
    EXPECT_EQ(character["will"].toInt(), 2);
    const QJsonArray skills = character["skills"].toArray();
    const auto climb = std::find_if(skills.begin(), skills.end(), [](const QJsonValue& skill) {
        return skill.toObject()["name"].toString() == "Climb";
    });
    ASSERT_NE(climb, skills.end());
    EXPECT_EQ(climb->toObject()["total"].toInt(), 6);
    EXPECT_EQ(character["feats"].toArray().size(), 2);
}

TEST(HoardCli, RulesPrintsRowsByTableAndKey) {
    // The fighter by the rules: d10 hit die, full base attack, good Fortitude only.
    const CliRun fighter = hoard({"rules", "[info Class]", "fighter", "--json"});
    ASSERT_EQ(fighter.status, 0) << fighter.err.toStdString();
    const QJsonArray rows = json(fighter.out)["rows"].toArray();
    ASSERT_EQ(rows.size(), 1);
    const QJsonObject row = rows[0].toObject();
    EXPECT_EQ(row["Name"].toString(), "Fighter");
    EXPECT_EQ(row["DieId"].toString(), "10");
    EXPECT_EQ(row["AttackBonusMultiplier"].toString().toDouble(), 1.0);
    EXPECT_EQ(row["HIFORT"].toString(), "1");
    EXPECT_EQ(row["HIREF"].toString(), "0");

    // By index and by the name without brackets: the nine sizes, Fine to Colossal.
    for (const char* table : {"9", "info size"}) {
        const CliRun sizes = hoard({"rules", table, "--json"});
        ASSERT_EQ(sizes.status, 0) << table;
        EXPECT_EQ(json(sizes.out)["rows"].toArray().size(), 9) << table;
    }
    const struct {
        QStringList args;
        QString expected;
    } errors[] = {{{"rules", "212"}, "no rules table '212'"},
                  {{"rules", "[info Nothing]"}, "no rules table"},
                  {{"rules", "[info Class]", "Plumber"}, "no row of [info Class]"}};
    for (const auto& e : errors) {
        const CliRun run = hoard(e.args);
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.err.contains(e.expected)) << run.err.toStdString();
    }
}

TEST(HoardCli, CharacterBuiltFromRaceAndClassesLevelsUpAndShows) {
    QTemporaryDir user;
    const QString file = user.path() + "/Tordek.chr";
    const CliRun made =
        hoard({"character", "new", "--name", "Tordek", "--race", "Dwarf", "--class", "fighter",
               "--level", "2", "--class", "Rogue", "--level", "3", "-o", file},
              user.path());
    ASSERT_EQ(made.status, 0) << made.err.toStdString();
    const CliRun up = hoard({"character", "level-up", file, "--class", "Fighter"}, user.path());
    ASSERT_EQ(up.status, 0) << up.err.toStdString();

    const QJsonObject shown = json(hoard({"character", "show", file, "--json"}, user.path()).out);
    EXPECT_EQ(shown["race"].toString(), "Dwarf");
    EXPECT_EQ(shown["level"].toInt(), 6) << "fighter 2 + rogue 3 + one more fighter level";
    QMap<QString, int> levels;
    for (const QJsonValue& entry : shown["classes"].toArray())
        levels[entry.toObject()["name"].toString()] = entry.toObject()["level"].toInt();
    EXPECT_EQ(levels.value("Fighter"), 3);
    EXPECT_EQ(levels.value("Rogue"), 3);

    const CliRun wrongClass = hoard({"character", "new", "--name", "X", "--race", "Dwarf",
                                     "--class", "Figther", "-o", user.path() + "/x.chr"},
                                    user.path());
    EXPECT_EQ(wrongClass.status, 1);
    EXPECT_TRUE(wrongClass.err.contains("unknown class 'Figther'")) << wrongClass.err.toStdString();
    EXPECT_TRUE(wrongClass.err.contains("Fighter")) << "the closest name is offered";
}

TEST(HoardCli, ShowNamesTheMissingRace) {
    QTemporaryDir user;
    // A user copy of a race, then a character on it, then the copy is gone with no core race
    // of that name to fall back on.
    QDir().mkpath(user.path() + "/Races");
    ASSERT_TRUE(QFile::copy(hoardtest::builtDataDir() + "/Core/Races/Dwarf.rac",
                            user.path() + "/Races/Stonefolk.rac"));
    const QString file = user.path() + "/Hero.chr";
    ASSERT_EQ(hoard({"character", "new", "--name", "Hero", "--race", "Stonefolk", "-o", file},
                    user.path())
                  .status,
              0);
    ASSERT_TRUE(QFile::remove(user.path() + "/Races/Stonefolk.rac"));
    const CliRun shown = hoard({"character", "show", file}, user.path());
    EXPECT_EQ(shown.status, 1);
    EXPECT_TRUE(shown.err.contains("Stonefolk.rac")) << shown.err.toStdString();
}
