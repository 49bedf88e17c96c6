// Class features through the program: the list a player reads, the picks of add-feature, and a
// prestige level refused with its failing requirements until they are met.
#include "CliRunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class FeaturesCli : public ::testing::Test {
protected:
    clitest::CliRun Hoard(const QStringList& args) const {
        return clitest::runHoard(args, mUser.path());
    }

    QString Make(const QStringList& options) const {
        const QString file = mUser.path() + "/pc.chr";
        const clitest::CliRun made = Hoard(QStringList({"character", "new", "--name", "Pc"}) +
                                           options + QStringList{"-o", file});
        EXPECT_EQ(made.status, 0) << made.err.toStdString();
        return file;
    }

    // "name (class)" of every feature the character shows.
    QStringList Features(const QString& file) const {
        const clitest::CliRun shown = Hoard({"--json", "character", "show", file});
        EXPECT_EQ(shown.status, 0) << shown.err.toStdString();
        QStringList names;
        const QJsonArray features =
            QJsonDocument::fromJson(shown.out.toUtf8()).object()["features"].toArray();
        for (const QJsonValue value : features)
            names << QStringLiteral("%1 (%2)").arg(value["name"].toString(),
                                                   value["class"].toString());
        return names;
    }

    QTemporaryDir mUser;
};

TEST_F(FeaturesCli, ARogueOfFiveAndItsTenthLevelPick) {
    const QString file = Make({"--class", "Rogue", "--level", "5"});
    const QStringList five = Features(file);
    // Sneak attack 3d6 at level 5 (1d6 per two levels), evasion at 2, uncanny dodge at 4.
    for (const char* name : {"Sneak attack +3d6 (Rogue) (Rogue)", "Evasion (Rogue) (Rogue)",
                             "Uncanny dodge (Rogue) (Rogue)", "Trap sense +1 (Rogue) (Rogue)"})
        EXPECT_TRUE(five.contains(name)) << name;
    EXPECT_FALSE(five.contains("Sneak attack +2d6 (Rogue) (Rogue)"));
    const clitest::CliRun text = Hoard({"character", "show", file});
    EXPECT_TRUE(text.out.contains("Features:   Sneak attack +3d6 (Rogue)"))
        << text.out.toStdString();

    // No pick before level 10; an unknown name is answered with the nearest ones.
    const QByteArray before = Bytes(file);
    clitest::CliRun refused = Hoard({"character", "add-feature", file, "Opportunist"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("no feature picks left")) << refused.err.toStdString();
    refused = Hoard({"character", "add-feature", file, "Oportunist"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("closest: Opportunist (Rogue special ability)"))
        << refused.err.toStdString();
    EXPECT_EQ(Bytes(file), before);

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
    const QByteArray before = Bytes(file);
    clitest::CliRun refused = Hoard({"character", "level-up", file, "--class", "Arcane Archer"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err.trimmed(),
              "hoard: Arcane Archer cannot be taken; requirements not met: race: Elf or "
              "Half-elf; Point Blank Shot; Precise Shot; Weapon Focus (longbow or shortbow); "
              "arcane spells of level 1");
    EXPECT_EQ(Bytes(file), before);

    // So is a new character whose earlier classes do not open it; no file is written.
    const QString never = mUser.path() + "/never.chr";
    refused = Hoard({"character", "new", "--name", "N", "--class", "Fighter", "--level", "6",
                     "--class", "Arcane Archer", "-o", never});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("Arcane Archer cannot be taken")) << refused.err.toStdString();
    EXPECT_FALSE(QFile::exists(never));

    // A prestige class whose requirements the data cannot hold is refused as such.
    refused = Hoard({"character", "level-up", file, "--class", "Eldritch Knight"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.contains("no entry requirements")) << refused.err.toStdString();

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

} // namespace
