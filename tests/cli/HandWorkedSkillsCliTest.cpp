// Skills, skill points and feats of three characters worked by hand from the open 3.5 rules,
// bought through the built program one command at a time as a player would.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

using CliResult = clitest::CliRun;

struct SkillLine {
    const char* name;
    double ranks;
    int total;
};

struct Refusal {
    QStringList command; // after "character", with the file put in second place
    const char* message;
};

struct HandWorked {
    const char* name;
    QStringList newArgs;
    QStringList scores; // STR DEX CON INT WIS CHA as rolled, before the race
    QList<QStringList> commands;
    QList<SkillLine> skills;
    const char* pointsLeft;
    QStringList feats;
    QList<Refusal> refusals;
};

class HandWorkedSkillsCli : public clitest::CliFixture {
protected:
    // "add-skill Climb 7" on FILE becomes "character add-skill FILE Climb 7".
    CliResult OnFile(const QString& file, QStringList command) const {
        command.insert(1, file);
        return Hoard(QStringList{"character"} + command);
    }

    QString Make(const HandWorked& c) const {
        return NewCharacter(c.name, c.newArgs, InOrder(c.scores));
    }
};

QJsonObject findByName(const QJsonArray& list, const QString& name) {
    for (const QJsonValue& entry : list) {
        if (entry["name"].toString() == name)
            return entry.toObject();
    }
    return QJsonObject();
}

QString featText(const QJsonObject& feat) {
    const QString target = feat["target"].toString();
    return target.isEmpty() ? feat["name"].toString()
                            : QStringLiteral("%1 (%2)").arg(feat["name"].toString(), target);
}

TEST_F(HandWorkedSkillsCli, TotalsPointsAndFeatsMatchTheHandWorkedSheets) {
    const HandWorked cases[] = {
        // Dwarf: CON 16 (+3), CHA 8; STR +2, DEX +1, INT +0, WIS +1.
        // Fighter (2 + 0) x 4 at 1st, 2 at each of 2nd-4th: 14 points, class-skill cap 7,
        // cross-class cap 7 / 2. Feats: 1 + 4 / 3 = 2, fighter bonus 1 + 4 / 2 = 3.
        {"dwarf",
         {"--race", "Dwarf", "--class", "Fighter", "--level", "4"},
         {"15", "13", "14", "10", "12", "10"},
         {{"add-skill", "Climb", "7"},
          {"add-skill", "Jump", "3"},
          {"add-skill", "Listen", "1"}, // cross-class: 2 points
          {"add-feat", "Power Attack"}, // the three fighter bonus feats first
          {"add-feat", "Cleave"},
          {"add-feat", "Weapon Focus", "--target", "Longsword"},
          {"add-feat", "Alertness"},
          {"add-feat", "Toughness"}},
         {
             {"Climb", 7, 9},  // 7 + STR 2
             {"Jump", 3, 5},   // 3 + STR 2
             {"Listen", 1, 4}, // 1 + WIS 1 + Alertness 2
             {"Spot", 0, 3},   // WIS 1 + Alertness 2
             {"Search", 0, 0}, // stonecunning is conditional: no racial bonus
             {"Swim", 0, 2},   // STR 2
         },
         "Points left: 2 skill, 0 feat, 0 bonus feat", // 14 - 7 - 3 - 2
         {"Alertness", "Cleave", "Power Attack", "Toughness", "Weapon Focus (Longsword)"},
         {{{"add-skill", "Swim", "3"}, "3 ranks of Swim cost 3 skill points; Fighter has 2 left"},
          {{"add-skill", "Climb", "1"}, "Climb would have 8 ranks; the limit is 7"},
          {{"add-feat", "Dodge"}, "cannot take Dodge: no feat points left"}}},
        // Elf: DEX 16 (+3), CON 10; STR -1, INT 17 (+3), WIS +1, CHA +0.
        // Wizard (2 + 3) x 4 + 4 x 5 = 40 points, cap 8, cross-class cap 4. Feats:
        // 1 + 5 / 3 = 2, wizard bonus 5 / 5 = 1. Knowledge (Arcana) is bought before
        // Spellcraft: the synergy must reach a skill that arrives after its source.
        {"elf",
         {"--race", "Elf", "--class", "Wizard", "--level", "5"},
         {"8", "14", "12", "17", "12", "10"},
         {{"add-skill", "Knowledge (Arcana)", "8"},
          {"add-skill", "Spellcraft", "8"},
          {"add-skill", "Concentration", "8"},
          {"add-skill", "Knowledge (The Planes)", "5"},
          {"add-skill", "Listen", "2"}, // cross-class: 4 points
          {"add-feat", "Spell Focus", "--target", "Evocation"},
          {"add-feat", "Skill Focus", "--target", "Spellcraft"},
          {"add-feat", "Empower Spell"}},
         {
             {"Spellcraft", 8, 16},            // 8 + INT 3 + Arcana 2 + Skill Focus 3
             {"Knowledge (Arcana)", 8, 11},    // 8 + INT 3
             {"Concentration", 8, 8},          // 8 + CON 0
             {"Knowledge (The Planes)", 5, 8}, // 5 + INT 3
             {"Survival", 0, 1},               // WIS 1; The Planes helps only on other planes
             {"Listen", 2, 5},                 // 2 + WIS 1 + elf 2
             {"Spot", 0, 3},                   // WIS 1 + elf 2
             {"Search", 0, 5},                 // INT 3 + elf 2
         },
         "Points left: 7 skill, 0 feat, 0 bonus feat", // 40 - 8 - 8 - 8 - 5 - 4
         // Scribe Scroll comes with the first wizard level and costs no feat point.
         {"Empower Spell", "Scribe Scroll", "Skill Focus (Spellcraft)", "Spell Focus (Evocation)"},
         {{{"add-skill", "Listen", "3"}, "Listen would have 5 ranks; the limit is 4"}}},
        // Halfling: STR 8 (-1), DEX 17 (+3); CON +1, INT +1, WIS +0, CHA +2. Small: Hide +4.
        // Rogue (8 + 1) x 4 + 9 + 9 = 54 points at 3rd level, cap 6, all spent; each sorcerer
        // level then brings 2 + 1. Feats 1 + 3 / 3 = 2, still 2 at 5th.
        {"halfling",
         {"--race", "Halfling", "--class", "Rogue", "--level", "3"},
         {"10", "15", "12", "12", "10", "14"},
         {{"add-skill", "Tumble", "6"},
          {"add-skill", "Hide", "6"},
          {"add-skill", "Move Silently", "6"},
          {"add-skill", "Listen", "6"},
          {"add-skill", "Spot", "6"},
          {"add-skill", "Search", "6"},
          {"add-skill", "Disable Device", "6"},
          {"add-skill", "Open Lock", "6"},
          {"add-skill", "Bluff", "6"},
          {"add-feat", "Dodge"},
          {"add-feat", "Weapon Finesse"},
          {"level-up", "--class", "Sorcerer"},
          {"add-skill", "Concentration", "3"},
          {"level-up", "--class", "Sorcerer"},
          {"add-skill", "Concentration", "2"}},
         {
             {"Tumble", 6, 9},         // 6 + DEX 3
             {"Jump", 0, 3},           // STR -1 + halfling 2 + Tumble 2
             {"Balance", 0, 5},        // DEX 3 + Tumble 2
             {"Climb", 0, 1},          // STR -1 + halfling 2
             {"Hide", 6, 13},          // 6 + DEX 3 + Small 4
             {"Move Silently", 6, 11}, // 6 + DEX 3 + halfling 2
             {"Listen", 6, 8},         // 6 + WIS 0 + halfling 2
             {"Search", 6, 7},         // 6 + INT 1
             {"Survival", 0, 0},       // WIS 0; Search helps only in tracking
             {"Disable Device", 6, 5}, // 6 + INT 1 - 2 without thieves' tools
             {"Open Lock", 6, 7},      // 6 + DEX 3 - 2 without thieves' tools
             {"Bluff", 6, 8},          // 6 + CHA 2
             {"Diplomacy", 0, 4},      // CHA 2 + Bluff 2
             {"Intimidate", 0, 4},     // CHA 2 + Bluff 2
             {"Concentration", 5, 6},  // 5 + CON 1
         },
         "Points left: 1 skill, 0 feat, 0 bonus feat", // 54 - 54, then 3 - 3 and 3 - 2
         {"Dodge", "Weapon Finesse"},
         {{{"add-feat", "Mobility"}, "cannot take Mobility: no feat points left"},
          {{"add-skill", "Spellcraft", "2"},
           "2 ranks of Spellcraft cost 2 skill points; Sorcerer has 1 left"}}},
    };
    for (const HandWorked& c : cases) {
        SCOPED_TRACE(c.name);
        const QString file = Make(c);
        for (const QStringList& command : c.commands) {
            const CliResult run = OnFile(file, command);
            EXPECT_EQ(run.status, 0)
                << command.join(' ').toStdString() << ": " << run.err.toStdString();
        }
        // A refusal is one line and changes nothing that is checked below.
        for (const Refusal& refusal : c.refusals) {
            const CliResult run = OnFile(file, refusal.command);
            EXPECT_EQ(run.status, 1) << refusal.command.join(' ').toStdString();
            EXPECT_EQ(run.err.trimmed(), QStringLiteral("hoard: %1").arg(refusal.message));
        }
        const CliResult json = Hoard({"character", "show", file, "--json"});
        ASSERT_EQ(json.status, 0) << json.err.toStdString();
        const QJsonObject shown = clitest::jsonObject(json);
        for (const SkillLine& expected : c.skills) {
            const QJsonObject skill = findByName(shown["skills"].toArray(), expected.name);
            ASSERT_FALSE(skill.isEmpty()) << expected.name;
            EXPECT_EQ(skill["ranks"].toDouble(), expected.ranks) << expected.name;
            EXPECT_EQ(skill["total"].toInt(), expected.total) << expected.name;
        }
        QStringList feats;
        for (const QJsonValue& feat : shown["feats"].toArray())
            feats << featText(feat.toObject());
        EXPECT_EQ(feats, c.feats);
        const CliResult text = Hoard({"character", "show", file});
        EXPECT_TRUE(text.out.contains(QLatin1String(c.pointsLeft))) << text.out.toStdString();
    }
}

// A creature's own skill points: (type points + INT modifier, at least 1) x (HD + 3). A new
// character of a monster race buys the ranks its stat block shows with them; a skill the block
// leaves to a choice ("Knowledge (any one)") leaves its points open.
TEST_F(HandWorkedSkillsCli, MonstersSpendTheirTypesSkillPointsAsPublished) {
    const struct {
        const char* race;
        int points;
        int left;
    } cases[] = {
        // Aberration 2 + INT 15 (+2), 8 HD: 4 x 11 = 44. Concentration, Listen and Spot +16 are
        // 11 ranks each (CON +5, WIS +3 and Alertness 2); Knowledge (any one) keeps its 11.
        {"Aboleth", 44, 11},
        // Giant 2 + INT 6 (-2) = 0, at least 1; 4 HD: 1 x 7. Listen and Spot +2 on WIS 10 are
        // 2 ranks each; Climb +5 in hide armor (-3) on STR 21 is 3 ranks.
        {"Ogre", 7, 0},
        // Magical beast 2 + INT 2 (-4), at least 1; 5 HD: 1 x 8. Listen and Spot +8 on WIS 12
        // and Alertness would need 5 ranks each: the 8 points give 4 each, and +1 is racial.
        {"Owlbear", 8, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.race);
        const QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("monster.chr"));
        const CliResult made =
            Hoard({"character", "new", "--name", c.race, "--race", c.race, "-o", path});
        ASSERT_EQ(made.status, 0) << made.err.toStdString();
        const CliResult text = Hoard({"character", "show", path});
        EXPECT_TRUE(text.out.contains(QStringLiteral("Points left: %1 skill").arg(c.left)))
            << text.out.toStdString();
        const QJsonObject shown = clitest::jsonObject(Hoard({"character", "show", path, "--json"}));
        double ranks = 0.0;
        for (const QJsonValue& skill : shown["skills"].toArray())
            ranks += skill.toObject()["ranks"].toDouble();
        EXPECT_EQ(ranks, c.points - c.left);
    }
}

} // namespace
