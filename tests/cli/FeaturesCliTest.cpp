// Class features through the program: the list a player reads, the picks of add-feature, a
// prestige level refused with its failing requirements until they are met, and a fall from a
// class and the atonement that ends it.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class FeaturesCli : public clitest::CliFixture {
protected:
    QString Make(const QStringList& options) const { return NewCharacter("Pc", options); }

    // "name (class)" of every feature the character shows.
    QStringList Features(const QString& file) const {
        QStringList names;
        const QJsonArray features = Show(file)["features"].toArray();
        for (const QJsonValue value : features)
            names << QStringLiteral("%1 (%2)").arg(value["name"].toString(),
                                                   value["class"].toString());
        return names;
    }
};

TEST_F(FeaturesCli, ARogueOfFiveAndItsTenthLevelPick) {
    const QString file = Make({"--class", "Rogue", "--level", "5"});
    const QStringList five = Features(file);
    // Sneak attack 3d6 at level 5 (1d6 per two levels), evasion at 2, uncanny dodge at 4.
    for (const char* name : {"Sneak attack +3d6 (Rogue) (Rogue)", "Evasion (Rogue) (Rogue)",
                             "Uncanny dodge (Rogue) (Rogue)", "Trap sense +1 (Rogue) (Rogue)"})
        EXPECT_TRUE(five.contains(name)) << name;
    for (const char* name : {"Sneak attack +2d6", "Sneak attack +1d6", "Improved uncanny dodge"})
        EXPECT_FALSE(five.contains(QStringLiteral("%1 (Rogue) (Rogue)").arg(name))) << name;
    const clitest::CliRun text = Hoard({"character", "show", file});
    EXPECT_TRUE(text.out.contains("Features:   Sneak attack +3d6 (Rogue)"))
        << text.out.toStdString();

    // No pick before level 10; an unknown name is answered with the nearest ones.
    ExpectRefused(file, {"add-feature", "Opportunist"}, "no feature picks left");
    ExpectRefused(file, {"add-feature", "Oportunist"},
                  "closest: Opportunist (Rogue special ability)");

    for (int level = 6; level <= 10; ++level)
        ASSERT_EQ(Hoard({"character", "level-up", file, "--class", "Rogue"}).status, 0);
    ASSERT_EQ(Hoard({"character", "add-feature", file, "opportunist"}).status, 0);
    const QStringList ten = Features(file);
    EXPECT_TRUE(ten.contains("Sneak attack +5d6 (Rogue) (Rogue)"));
    EXPECT_TRUE(ten.contains("Opportunist (Rogue special ability) (Rogue)"));
    EXPECT_EQ(Hoard({"character", "add-feature", file, "Crippling strike"}).status, 1)
        << "rogue 10 has one pick";
}

TEST_F(FeaturesCli, ArcaneArcherRefusedUntilItsRequirementsAreMet) {
    // Base attack +6 from fighter 6, but a human without the bow feats or arcane spells.
    QString file = Make({"--class", "Fighter", "--level", "6"});
    const QByteArray before = hoardtest::readFile(file);
    clitest::CliRun refused = Hoard({"character", "level-up", file, "--class", "Arcane Archer"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err.trimmed(),
              "hoard: Arcane Archer cannot be taken; requirements not met: race: Elf or "
              "Half-elf; Point Blank Shot; Precise Shot; Weapon Focus (longbow or shortbow); "
              "arcane spells of level 1");
    EXPECT_EQ(hoardtest::readFile(file), before);

    // So is a new character whose earlier classes do not open it; no file is written.
    const QString never = UserFile("never.chr");
    refused = Hoard({"character", "new", "--name", "N", "--class", "Fighter", "--level", "6",
                     "--class", "Arcane Archer", "-o", never});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("Arcane Archer cannot be taken")) << refused.err.toStdString();
    EXPECT_FALSE(QFile::exists(never));

    // An elf fighter 6 / wizard 1 with Int 14 casts a 1st-level spell; with the three feats the
    // level is taken and brings Enhance arrow +1.
    file = Make({"--race", "Elf", "--class", "Fighter", "--level", "6", "--class", "Wizard"});
    ASSERT_EQ(Hoard({"character", "set-ability", file, "INT", "14"}).status, 0);
    ASSERT_EQ(Hoard({"character", "add-feat", file, "Point Blank Shot"}).status, 0);
    refused = Hoard({"character", "level-up", file, "--class", "Arcane Archer"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.endsWith("requirements not met: Precise Shot; Weapon Focus (longbow "
                                     "or shortbow)\n"))
        << refused.err.toStdString();
    ASSERT_EQ(Hoard({"character", "add-feat", file, "Precise Shot"}).status, 0);
    ASSERT_EQ(Hoard({"character", "add-feat", file, "Weapon Focus", "--target", "Longbow"}).status,
              0);
    const clitest::CliRun taken =
        Hoard({"character", "level-up", file, "--class", "Arcane Archer"});
    ASSERT_EQ(taken.status, 0) << taken.err.toStdString();
    EXPECT_TRUE(Features(file).contains("Enhance arrow +1 (Arcane Archer) (Arcane Archer)"));
}

TEST_F(FeaturesCli, PrestigeClassesRefusedUntilTheirRequirementsAreMet) {
    // Human characters of score 10 throughout. A step with a command must succeed; one without
    // tries the prestige level: refused with exactly the failing requirements named and the
    // file untouched, or taken when nothing is named.
    struct Step {
        QStringList command;
        QString failing;
    };
    struct Case {
        const char* prestige;
        QStringList made;
        std::vector<Step> steps;
    };
    const QString metamagic = "one of: Empower Spell, Enlarge Spell, Extend Spell, Heighten "
                              "Spell, Maximize Spell, Quicken Spell, Silent Spell, Still Spell, "
                              "Widen Spell";
    const QString manifests = "one of: Psion level 3, Psychic Warrior level 4, Wilder level 4";
    const Case cases[] = {
        // Wizard 4 with Int 10 casts cantrips only (1st level needs 11); wizard 5 with Int 14
        // has 1 3rd-level spell. A fighter level brings the martial weapons.
        {"Eldritch Knight",
         {"--class", "Wizard", "--level", "4"},
         {{{}, "proficiency with all martial weapons; arcane spells of level 3"},
          {{"set-ability", "INT", "14"}, {}},
          {{"level-up", "--class", "Wizard"}, {}},
          {{}, "proficiency with all martial weapons"},
          {{"level-up", "--class", "Fighter"}, {}},
          {{}, {}}}},
        // Cleric 3 and wizard 3 reach 2nd-level spells with Wis and Int 12.
        {"Mystic Theurge",
         {"--class", "Cleric", "--level", "3", "--class", "Wizard", "--level", "3"},
         {{{},
           "Knowledge (Arcana) 6 ranks; Knowledge (Religion) 6 ranks; arcane spells of "
           "level 2; divine spells of level 2"},
          {{"set-ability", "INT", "12"}, {}},
          {{"set-ability", "WIS", "12"}, {}},
          {{}, "Knowledge (Arcana) 6 ranks; Knowledge (Religion) 6 ranks"},
          {{"add-skill", "Knowledge (Arcana)", "6"}, {}},
          {{"add-skill", "Knowledge (Religion)", "6"}, {}},
          {{}, {}}}},
        // Cleric 13 with Wis 17 has 1 7th-level spell; cleric 12 has none at any Wisdom.
        {"Hierophant",
         {"--class", "Cleric", "--level", "12"},
         {{{}, "Knowledge (Religion) 15 ranks; " + metamagic + "; divine spells of level 7"},
          {{"add-skill", "Knowledge (Religion)", "15"}, {}},
          {{"add-feat", "Extend Spell"}, {}},
          {{"set-ability", "WIS", "17"}, {}},
          {{}, "divine spells of level 7"},
          {{"level-up", "--class", "Cleric"}, {}},
          {{}, {}}}},
        // Lesser planar ally is a 4th-level cleric spell: cleric 7 with Wis 14.
        {"Thaumaturgist",
         {"--class", "Cleric", "--level", "6"},
         {{{"set-ability", "WIS", "14"}, {}},
          {{}, "Spell Focus (Conjuration); able to cast Planar Ally, Lesser"},
          {{"add-feat", "Spell Focus", "--target", "Conjuration"}, {}},
          {{}, "able to cast Planar Ally, Lesser"},
          {{"level-up", "--class", "Cleric"}, {}},
          {{}, {}}}},
        // A sorcerer casts without preparing; Int 12 gives the one bonus language.
        {"Dragon Disciple",
         {"--class", "Sorcerer", "--level", "5"},
         {{{"set-ability", "INT", "12"}, {}},
          {{}, "Knowledge (Arcana) 8 ranks; speaks Draconic"},
          {{"add-skill", "Knowledge (Arcana)", "8"}, {}},
          {{}, "speaks Draconic"},
          {{"add-language", "Draconic"}, {}},
          {{}, {}}}},
        // Wizard 3 with Int 12 casts 2nd-level spells; a psion manifests 2nd-level powers at 3.
        {"Cerebremancer",
         {"--class", "Psion", "--level", "2", "--class", "Wizard", "--level", "3"},
         {{{"set-ability", "INT", "12"}, {}},
          {{}, "Knowledge (Arcana) 6 ranks; Knowledge (Psionics) 6 ranks; " + manifests},
          {{"add-skill", "Knowledge (Arcana)", "6"}, {}},
          {{"add-skill", "Knowledge (Psionics)", "6"}, {}},
          {{}, manifests},
          {{"level-up", "--class", "Psion"}, {}},
          {{}, {}}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.prestige);
        const QString file = Make(c.made);
        for (const Step& step : c.steps) {
            if (!step.command.isEmpty()) {
                const clitest::CliRun run =
                    Hoard(QStringList{"character", step.command[0], file} + step.command.mid(1));
                ASSERT_EQ(run.status, 0)
                    << step.command.join(' ').toStdString() << ": " << run.err.toStdString();
                continue;
            }
            const QByteArray before = hoardtest::readFile(file);
            const clitest::CliRun run =
                Hoard({"--json", "character", "level-up", file, "--class", c.prestige});
            if (step.failing.isEmpty()) {
                ASSERT_EQ(run.status, 0) << run.err.toStdString();
                const QJsonArray classes = clitest::jsonObject(run)["classes"].toArray();
                EXPECT_EQ(classes.last()["name"].toString(), c.prestige);
                EXPECT_EQ(classes.last()["level"].toInt(), 1);
                continue;
            }
            EXPECT_EQ(run.status, 1);
            EXPECT_EQ(run.err.toStdString(),
                      QStringLiteral("hoard: %1 cannot be taken; requirements not met: %2\n")
                          .arg(c.prestige, step.failing)
                          .toStdString());
            EXPECT_EQ(hoardtest::readFile(file), before);
        }
    }
}

TEST_F(FeaturesCli, AFallenPaladinLosesFeaturesAndSpellsUntilItAtones) {
    // Paladin 4, Wis 12, Cha 14. Saves: Fort 4, Ref 1, Will 1 + 1 (Wis), and divine grace
    // adds the Charisma modifier +2 to each: 6, 3, 4. 1st-level spells: 0 from the table
    // + 1 bonus for Wis 12. Features of levels 1 to 4: aura of good, detect evil, smite evil
    // 1/day, divine grace, lay on hands, aura of courage, divine health, turn undead.
    const QString file =
        NewCharacter("Pc", {"--class", "Paladin", "--level", "4"}, {"WIS", "12", "CHA", "14"});
    const auto state = [this, &file]() {
        const QJsonObject object = Show(file);
        const QJsonObject caster = object["casters"].toArray()[0].toObject();
        return QStringLiteral("features %1, saves %2/%3/%4, 1st-level spells %5%6")
            .arg(object["features"].toArray().size())
            .arg(object["fortitude"].toInt())
            .arg(object["reflex"].toInt())
            .arg(object["will"].toInt())
            .arg(caster["per_day"].toArray()[1].toInt())
            .arg(caster["fallen"].toBool() ? ", fallen" : "");
    };
    EXPECT_EQ(state(), "features 8, saves 6/3/4, 1st-level spells 1");
    // Feature names carry their class; the list adds the owning class once more.
    const auto sorted = [this](const QString& character) {
        QStringList names = Features(character);
        names.sort();
        return names;
    };
    EXPECT_EQ(
        sorted(file),
        QStringList({"Aura of courage (Paladin) (Paladin)", "Aura of good (Paladin) (Paladin)",
                     "Detect evil (Paladin) (Paladin)", "Divine grace (Paladin) (Paladin)",
                     "Divine health (Paladin) (Paladin)", "Lay on hands (Paladin) (Paladin)",
                     "Smite evil 1/day (Paladin) (Paladin)", "Turn undead (Paladin) (Paladin)"}));

    ASSERT_EQ(Hoard({"character", "fall", file, "--class", "Paladin"}).status, 0);
    EXPECT_EQ(state(), "features 0, saves 4/1/2, 1st-level spells -1, fallen");
    const clitest::CliRun text = Hoard({"character", "show", file});
    EXPECT_TRUE(text.out.contains("Paladin, caster level 2 (fallen: no spells until it atones)\n"
                                  "  per day:  - - - - - - - - - -"))
        << text.out.toStdString();

    // While fallen: no paladin level, no prepared spell, no second fall.
    const QByteArray fallen = hoardtest::readFile(file);
    const std::pair<QStringList, QString> refusals[] = {
        {{"level-up", file, "--class", "Paladin"},
         "Paladin has fallen: it takes no new level until it atones"},
        {{"prepare", file, "Bless"}, "Paladin has fallen and casts no spells until it atones"},
        {{"fall", file, "--class", "Paladin"}, "Paladin has already fallen"},
        {{"fall", file, "--class", "Cleric"}, "the character has no Cleric level"},
        {{"fall", file, "--class", "Paladn"}, "unknown class 'Paladn'"},
        {{"fall", file}, "give FILE.chr --class CLASS (see --help)"},
    };
    for (const auto& [command, message] : refusals) {
        const clitest::CliRun run = Hoard(QStringList{"character"} + command);
        EXPECT_EQ(run.status, 1) << command.join(' ').toStdString();
        EXPECT_EQ(run.err.toStdString(), ("hoard: " + message + "\n").toStdString());
        EXPECT_EQ(hoardtest::readFile(file), fallen);
    }

    // Atonement brings every feature back from the first level, and the spells.
    ASSERT_EQ(Hoard({"character", "atone", file, "--class", "Paladin"}).status, 0);
    EXPECT_EQ(state(), "features 8, saves 6/3/4, 1st-level spells 1");
    const clitest::CliRun again = Hoard({"character", "atone", file, "--class", "Paladin"});
    EXPECT_EQ(again.err, "hoard: Paladin has not fallen\n");
    ASSERT_EQ(Hoard({"character", "level-up", file, "--class", "Paladin"}).status, 0);

    // A barbarian's fall takes its rage alone; a wizard has no fall.
    const QString barbarian = Make({"--class", "Barbarian", "--level", "4"});
    ASSERT_EQ(Hoard({"character", "fall", barbarian, "--class", "Barbarian"}).status, 0);
    const QStringList kept = {
        "Fast movement (Barbarian) (Barbarian)", "Illiteracy (Barbarian) (Barbarian)",
        "Trap sense +1 (Barbarian) (Barbarian)", "Uncanny dodge (Barbarian) (Barbarian)"};
    EXPECT_EQ(sorted(barbarian), kept);
    ASSERT_EQ(Hoard({"character", "atone", barbarian, "--class", "Barbarian"}).status, 0);
    QStringList atoned = kept;
    atoned << "Rage 2/day (Barbarian) (Barbarian)";
    atoned.sort();
    EXPECT_EQ(sorted(barbarian), atoned);
    const QString wizard = Make({"--class", "Wizard"});
    EXPECT_EQ(Hoard({"character", "fall", wizard, "--class", "Wizard"}).err,
              "hoard: Wizard: the rules hold no fall for this class (a paladin, druid or "
              "barbarian falls)\n");
}

} // namespace
