// Skills and feats through the built program: buying ranks, taking feats, the refusals and
// the feat list of a character. Expected figures are worked by hand from the SRD.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

using CommandRun = clitest::CliRun;

class SkillFeatCli : public clitest::CliFixture {
protected:
    QString NewCharacter(const QString& className, const QStringList& abilities) const {
        return CliFixture::NewCharacter(className, {"--race", "Human", "--class", className},
                                        abilities);
    }

    // The "skills" entry of that name in `character show --json`.
    QJsonObject Skill(const QString& file, const QString& name) {
        for (const QJsonValue& skill : Show(file)["skills"].toArray()) {
            if (skill["name"].toString() == name)
                return skill.toObject();
        }
        return QJsonObject();
    }

    // A refused command: status 1 and one line naming `expected`.
    void ExpectRefused(const QStringList& args, const QString& expected) {
        const CommandRun run = Hoard(args);
        EXPECT_EQ(run.status, 1) << args.join(' ').toStdString();
        EXPECT_TRUE(run.err.startsWith("hoard: ") && run.err.contains(expected))
            << args.join(' ').toStdString() << "\n  stderr: " << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
    }
};

TEST_F(SkillFeatCli, RanksWithinTheLimitAndThePoints) {
    // Human rogue 1, Int 16: (8 + 3) x 4 + 4 = 48 points.
    const QString rogue = NewCharacter("Rogue", {"INT", "16"});
    EXPECT_EQ(Hoard({"character", "add-skill", rogue, "Tumble", "4"}).status, 0);
    EXPECT_EQ(Skill(rogue, "Tumble")["ranks"].toDouble(), 4.0);
    EXPECT_EQ(Skill(rogue, "Tumble")["total"].toInt(), 4);
    // Cross-class: 1.5 ranks for 3 points; the total counts Int +3 and the whole rank.
    EXPECT_EQ(Hoard({"character", "add-skill", rogue, "Spellcraft", "1.5"}).status, 0);
    EXPECT_EQ(Skill(rogue, "Spellcraft")["total"].toInt(), 4);
    EXPECT_EQ(Hoard({"character", "add-skill", rogue, "knowledge (arcana)", "2"}).status, 0);
    EXPECT_EQ(Skill(rogue, "Knowledge (Arcana)")["total"].toInt(), 5);
    // 48 less 4, 3 and 2.
    const CommandRun shown = Hoard({"character", "show", rogue});
    EXPECT_TRUE(shown.out.contains("Points left: 39 skill")) << shown.out.toStdString();

    ExpectRefused({"character", "add-skill", rogue, "Tumble", "1"},
                  "Tumble would have 5 ranks; the limit is 4");
    ExpectRefused({"character", "add-skill", rogue, "Spellcraft", "1"},
                  "Spellcraft would have 2.5 ranks; the limit is 2");
    ExpectRefused({"character", "add-skill", rogue, "Tumbel", "1"},
                  "unknown skill 'Tumbel'; closest: Tumble");
    ExpectRefused({"character", "add-skill", rogue, "Hide", "0"}, "RANKS takes");
    ExpectRefused({"character", "add-skill", rogue, "Hide", "1.5"}, "ranks come whole");
    ExpectRefused({"character", "add-skill", rogue, "Literacy", "1"}, "Rogue cannot take");

    // Human wizard 1, Int 10: (2 + 0) x 4 + 4 = 12 points, all spent on three class skills.
    const QString wizard = NewCharacter("Wizard", {});
    for (const char* skill : {"Spellcraft", "Concentration", "Knowledge (Arcana)"})
        EXPECT_EQ(Hoard({"character", "add-skill", wizard, skill, "4"}).status, 0) << skill;
    ExpectRefused({"character", "add-skill", wizard, "Decipher Script", "1"},
                  "cost 1 skill points; Wizard has 0 left");
}

TEST_F(SkillFeatCli, FeatsWithTheirPrerequisites) {
    // Human fighter 1: two feats and one fighter bonus feat.
    const QString fighter = NewCharacter("Fighter", {"STR", "13"});
    ExpectRefused({"character", "add-feat", fighter, "Cleave"},
                  "cannot take Cleave: needs Power Attack");
    ExpectRefused({"character", "add-feat", fighter, "Power Atack"},
                  "unknown feat 'Power Atack'; closest: Power Attack");
    ExpectRefused({"character", "add-feat", fighter, "Weapon Focus"},
                  "Weapon Focus needs --target WEAPON");
    ExpectRefused({"character", "add-feat", fighter, "Weapon Focus", "--target", "Longsord"},
                  "closest: Longsword");
    EXPECT_EQ(Hoard({"character", "add-feat", fighter, "Power Attack"}).status, 0);
    EXPECT_EQ(Hoard({"character", "add-feat", fighter, "Cleave"}).status, 0);
    EXPECT_EQ(
        Hoard({"character", "add-feat", fighter, "Weapon Focus", "--target", "longsword"}).status,
        0);
    ExpectRefused({"character", "add-feat", fighter, "Toughness"}, "no feat points left");

    const CommandRun shown = Hoard({"character", "show", fighter, "--json"});
    const QJsonArray feats = clitest::jsonObject(shown)["feats"].toArray();
    ASSERT_EQ(feats.size(), 3) << shown.out.toStdString();
    EXPECT_EQ(feats[0]["name"].toString(), "Cleave");
    EXPECT_TRUE(feats[0]["target"].isNull());
    EXPECT_EQ(feats[2]["name"].toString(), "Weapon Focus");
    EXPECT_EQ(feats[2]["target"].toString(), "Longsword");

    const CommandRun eligible = Hoard({"feats", "--eligible", fighter});
    EXPECT_EQ(eligible.status, 0);
    for (const char* line :
         {"- Great Cleave: needs base attack +4\n", "- Power Attack: already taken\n",
          "  Blind-Fight\n", "- Dodge: needs Dex 13\n", "- Brew Potion: needs a caster level\n"})
        EXPECT_TRUE(eligible.out.contains(line)) << line;
    ExpectRefused({"feats", "--eligible", fighter + ".absent"}, "no such file");
}

} // namespace
