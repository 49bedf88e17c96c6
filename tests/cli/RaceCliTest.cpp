// The race commands through the built program, against the ready races the build made.
// Expected figures are the open 3.5 rules' own, written down by hand.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using CommandRun = clitest::CliRun;

CommandRun hoard(const QStringList& args, const QString& userDir) {
    return clitest::runHoard(args, userDir);
}

QJsonDocument json(const CommandRun& run) {
    return QJsonDocument::fromJson(run.out.toUtf8());
}

QJsonObject showRace(const QString& name, const QString& userDir) {
    const CommandRun run = hoard({"race", "show", name, "--json"}, userDir);
    EXPECT_EQ(run.status, 0) << name.toStdString() << ": " << run.err.toStdString();
    return json(run).object();
}

QStringList strings(const QJsonValue& value) {
    QStringList out;
    for (const QJsonValue& v : value.toArray())
        out << v.toString();
    return out;
}

double landSpeed(const QJsonObject& race) {
    for (const QJsonValue& v : race["speeds"].toArray()) {
        if (v.toObject()["type"].toString() == "Land")
            return v.toObject()["feet"].toDouble();
    }
    return -1;
}

} // namespace

TEST(RaceCli, ListHoldsThePlayerRacesAndTheMonsters) {
    QTemporaryDir user;
    const CommandRun run = hoard({"race", "list", "--json"}, user.path());
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonArray list = json(run).array();
    QSet<QString> names;
    QSet<QString> types;
    QSet<QString> sizes;
    int monsters = 0;
    for (const QJsonValue& v : list) {
        const QJsonObject race = v.toObject();
        for (const char* key : {"name", "tree", "size", "type", "hit_dice"})
            EXPECT_TRUE(race.contains(key)) << key;
        names.insert(race["name"].toString());
        types.insert(race["type"].toString());
        sizes.insert(race["size"].toString());
        monsters += race["type"].toString() != "Humanoid (player race)" ? 1 : 0;
    }
    for (const char* name : {"Dwarf", "Elf", "Gnome", "Half-Elf", "Half-Orc", "Halfling", "Human"})
        EXPECT_TRUE(names.contains(name)) << name;
    EXPECT_GE(monsters, 150);
    for (const char* type :
         {"Aberration", "Animal", "Construct", "Dragon", "Elemental", "Fey", "Giant", "Humanoid",
          "Magical Beast", "Monstrous Humanoid", "Ooze", "Outsider", "Plant", "Undead", "Vermin"})
        EXPECT_TRUE(types.contains(type)) << type;
    for (const char* size : {"Fine", "Diminutive", "Tiny", "Small", "Medium", "Large", "Huge",
                             "Gargantuan", "Colossal"})
        EXPECT_TRUE(sizes.contains(size)) << size;
}

TEST(RaceCli, RacesHoldTheRulesFigures) {
    QTemporaryDir user;
    const struct {
        const char* race;
        const char* size;
        double hitDice;
        double land;
        int adjustments[6]; // Str, Dex, Con, Int, Wis, Cha
        const char* quality;
    } cases[] = {
        {"Dwarf", "Medium", 0, 20, {0, 0, 2, 0, 0, -2}, "Darkvision"},
        {"Elf", "Medium", 0, 30, {0, 2, -2, 0, 0, 0}, "Low-light vision"},
        {"Gnome", "Small", 0, 20, {-2, 0, 2, 0, 0, 0}, "Low-light vision"},
        {"Half-Orc", "Medium", 0, 30, {2, 0, 0, -2, 0, -2}, "Darkvision"},
        {"Halfling", "Small", 0, 20, {-2, 2, 0, 0, 0, 0}, nullptr},
        {"Human", "Medium", 0, 30, {0, 0, 0, 0, 0, 0}, nullptr},
        // Races behind the open rules' 1st-level warriors.
        {"Goblin", "Small", 0, 30, {-2, 2, 0, 0, 0, -2}, "Darkvision"},
        {"Orc", "Medium", 0, 30, {4, 0, 0, -2, -2, -2}, "Darkvision"},
        {"Kobold", "Small", 0, 30, {-4, 2, -2, 0, 0, 0}, "Darkvision"},
        // Hill giant: 12d8, Large, base speed 40 ft., Str 25 Dex 8 Con 19 Int 6 Wis 10 Cha 7,
        // so +14, -2, +8, -4, +0, -4 against a 10 (odd scores round down to even).
        {"Hill Giant", "Large", 12, 40, {14, -2, 8, -4, 0, -4}, "Low-light vision"},
    };
    for (const auto& c : cases) {
        const QJsonObject race = showRace(c.race, user.path());
        EXPECT_EQ(race["name"].toString(), c.race);
        EXPECT_EQ(race["size"].toString(), c.size) << c.race;
        EXPECT_EQ(race["hit_dice"].toDouble(), c.hitDice) << c.race;
        EXPECT_EQ(landSpeed(race), c.land) << c.race;
        const QJsonArray adjustments = race["ability_adjustments"].toArray();
        ASSERT_EQ(adjustments.size(), 6) << c.race;
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(adjustments[i].toInt(), c.adjustments[i]) << c.race << " ability " << i;
        if (c.quality) {
            EXPECT_TRUE(strings(race["special_qualities"]).contains(c.quality)) << c.race;
        }
    }

    const QJsonObject dwarf = showRace("dwarf", user.path());
    EXPECT_EQ(strings(dwarf["languages"]), (QStringList{"Common", "Dwarven"}));
    EXPECT_TRUE(strings(dwarf["features"]).contains("Favored class: Fighter"));
    const QJsonObject ages = dwarf["start_ages"].toObject();
    EXPECT_EQ(ages["adult"].toInt(), 40);
    EXPECT_EQ(ages["venerable"].toInt(), 250);
    // 3 ft. 9 in. plus 2d4 for a male dwarf.
    const QJsonObject male = dwarf["height"].toObject()["male"].toObject();
    EXPECT_EQ(male["base_inches"].toInt(), 45);
    EXPECT_EQ(male["dice_count"].toInt(), 2);
    EXPECT_EQ(male["die"].toInt(), 4);
    const QJsonObject halfling = showRace("Halfling", user.path());
    for (const char* save : {"fort", "ref", "will"})
        EXPECT_EQ(halfling["save_bonus"].toObject()[save].toInt(), 1) << save;
    const QJsonObject human = showRace("Human", user.path());
    EXPECT_EQ(human["extra_feats_first_level"].toInt(), 1);
    EXPECT_EQ(human["extra_skill_points_first_level"].toInt(), 4);

    // The owlbear's Listen and Spot +8 on Wis 12 and Alertness would need 5 ranks each of its
    // 8 points: 4 each, and +1 racial. Its routine: 2 claws 1d6 and a bite 1d8. The minotaur
    // gores beside its greataxe; an elf has racial bonuses and no ranks.
    const QJsonObject owlbear = showRace("Owlbear", user.path());
    EXPECT_TRUE(strings(owlbear["skills"]).contains("Listen (4 ranks, racial +1)"));
    EXPECT_EQ(strings(owlbear["feats"]), (QStringList{"Alertness", "Track"}));
    EXPECT_EQ(strings(owlbear["natural_attacks"]), QStringList{"2 Claw 1d6, Bite 1d8"});
    EXPECT_EQ(strings(showRace("Minotaur", user.path())["natural_attacks"]),
              QStringList{"its weapon, Gore 1d8"});
    EXPECT_TRUE(strings(showRace("Elf", user.path())["skills"]).contains("Listen (racial +2)"));
}

TEST(RaceCli, MonstersKeepTheirAdvancementRows) {
    QTemporaryDir user;
    const struct {
        const char* race;
        const char* type;
        double hitDice;
        double maxHitDice;
        QList<std::tuple<int, int, QString>> rows;
    } cases[] = {
        // Dragon turtle: 12 HD; advances 13-24 HD Huge, 25-36 HD Gargantuan.
        {"Dragon Turtle", "Dragon", 12, 36, {{13, 24, "Huge"}, {25, 36, "Gargantuan"}}},
        // Behir: 9 HD; advances 10-13 HD Huge, 14-27 HD Gargantuan.
        {"Behir", "Magical Beast", 9, 27, {{10, 13, "Huge"}, {14, 27, "Gargantuan"}}},
        // Hill giant: advances by character class, so no rows.
        {"Hill Giant", "Giant", 12, 0, {}},
    };
    for (const auto& c : cases) {
        const QJsonObject race = showRace(c.race, user.path());
        EXPECT_EQ(race["type"].toString(), c.type) << c.race;
        EXPECT_EQ(race["hit_dice"].toDouble(), c.hitDice) << c.race;
        EXPECT_EQ(race["max_hit_dice"].toDouble(), c.maxHitDice) << c.race;
        const QJsonArray rows = race["advancement"].toArray();
        ASSERT_EQ(rows.size(), c.rows.size()) << c.race;
        for (int i = 0; i < rows.size(); ++i) {
            const QJsonObject row = rows[i].toObject();
            EXPECT_EQ(row["min_hit_dice"].toInt(), std::get<0>(c.rows[i])) << c.race;
            EXPECT_EQ(row["max_hit_dice"].toInt(), std::get<1>(c.rows[i])) << c.race;
            EXPECT_EQ(row["size"].toString(), std::get<2>(c.rows[i])) << c.race;
        }
    }
}

TEST(RaceCli, FiltersUnknownNamesAndUnreadableFiles) {
    QTemporaryDir user;
    // Filters: --type keeps one creature type, "humanoid" taking the player races along.
    const QJsonArray giants =
        json(hoard({"race", "list", "--type", "giant", "--json"}, user.path())).array();
    QStringList giantNames;
    for (const QJsonValue& v : giants)
        giantNames << v.toObject()["name"].toString();
    EXPECT_TRUE(giantNames.contains("Hill Giant"));
    EXPECT_FALSE(giantNames.contains("Dwarf"));
    const QJsonArray humanoids =
        json(hoard({"race", "list", "--type", "Humanoid", "--json"}, user.path())).array();
    QStringList humanoidNames;
    for (const QJsonValue& v : humanoids)
        humanoidNames << v.toObject()["name"].toString();
    EXPECT_TRUE(humanoidNames.contains("Dwarf"));
    EXPECT_FALSE(humanoidNames.contains("Hill Giant"));

    // An empty user tree lists nothing; a broken user file is one line and not fatal.
    CommandRun run = hoard({"race", "list", "--tree", "user", "--json"}, user.path());
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(json(run).array().isEmpty());
    const int coreCount =
        json(hoard({"race", "list", "--core", "--json"}, user.path())).array().size();
    ASSERT_TRUE(QDir(user.path()).mkpath("Races"));
    ASSERT_TRUE(hoardtest::writeFile(user.filePath("Races/Broken.rac"), QByteArray(64, '\x33')));
    run = hoard({"race", "list", "--json"}, user.path());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("Broken.rac")) << run.err.toStdString();
    EXPECT_EQ(json(run).array().size(), coreCount);

    run = hoard({"race", "show", "Dwarff"}, user.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.startsWith("hoard: unknown race 'Dwarff'")) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("Dwarf")) << run.err.toStdString();
    EXPECT_EQ(run.err.count('\n'), 1);
}

TEST(RaceCli, ObjectsCountsEveryCatalogue) {
    QTemporaryDir user;
    const CommandRun run = hoard({"objects", "--json"}, user.path());
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonArray catalogues = json(run).object()["catalogues"].toArray();
    QStringList names;
    for (const QJsonValue& v : catalogues) {
        const QJsonObject c = v.toObject();
        names << c["catalogue"].toString();
        EXPECT_EQ(c["count"].toInt(), c["core"].toInt() + c["user"].toInt());
        if (c["catalogue"] == "races") {
            EXPECT_GE(c["core"].toInt(), 157);
        }
    }
    EXPECT_EQ(names, (QStringList{"races", "characters", "monsters", "treasures", "tables",
                                  "encounters"}));
}
