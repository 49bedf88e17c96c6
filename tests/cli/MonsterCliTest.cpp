// A ready monster advanced through the program, checked against the open 3.5 rules: the
// ankheg (Large magical beast, 3d10, Str 21, Dex 10, Con 17, natural armor +9) grows Huge at
// 5 HD, taking Str +8, Dex -2, Con +4 and natural armor +3.
#include "CliRunner.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class MonsterCli : public clitest::CliFixture {
protected:
    QJsonObject Json(const QStringList& args) const {
        const clitest::CliRun run = Hoard(QStringList{"--json", "monster"} + args);
        EXPECT_EQ(run.status, 0) << run.err.toStdString();
        return clitest::jsonObject(run);
    }
};

TEST_F(MonsterCli, AnAnkhegGrowsHugeAndBack) {
    const QJsonObject base = Json({"show", "Ankheg"});
    EXPECT_EQ(base["size"].toString(), QStringLiteral("Large"));
    EXPECT_EQ(base["ac"].toInt(), 10 - 1 + 9);
    EXPECT_EQ(base["grapple"].toInt(), 3 + 5 + 4);

    const QString file = UserFile("ankheg.mon");
    const QJsonObject huge = Json({"advance", "Ankheg", "--hd", "6", "-o", file});
    EXPECT_EQ(huge["size"].toString(), QStringLiteral("Huge"));
    EXPECT_EQ(huge["hit_dice"].toDouble(), 6.0);
    EXPECT_EQ(huge["natural_armor"].toInt(), 12);
    const QJsonObject abilities = huge["abilities"].toObject();
    EXPECT_EQ(abilities["str"].toInt(), 29);
    EXPECT_EQ(abilities["dex"].toInt(), 8);
    EXPECT_EQ(abilities["con"].toInt(), 21);
    // 6d10 at 5.5 a die with Con +5: 63, and the race's Toughness 3; Huge -2 and Dex -1 on
    // armor class; grapple +6 +9 +8.
    EXPECT_EQ(huge["hp"].toInt(), 63 + 3);
    EXPECT_EQ(huge["ac"].toInt(), 10 - 2 - 1 + 12);
    EXPECT_EQ(huge["base_attack"].toInt(), 6);
    EXPECT_EQ(huge["grapple"].toInt(), 6 + 9 + 8);
    EXPECT_EQ(huge["fortitude"].toInt(), 5 + 5);
    // Its 3 HD bought the block's Climb 3 and Listen 3 with (2 + Int 1's -5, at least 1) x 6
    // points; each added die brings at least 1, left for the user to spend.
    EXPECT_TRUE(Hoard({"monster", "show", file}).out.contains("Points left: 3 skill"));

    // The saved monster goes back to its own 3 HD whole.
    const QJsonObject back = Json({"advance", file, "--hd", "3"});
    EXPECT_EQ(back["size"].toString(), QStringLiteral("Large"));
    EXPECT_EQ(back["hp"].toInt(), base["hp"].toInt());
    EXPECT_EQ(back["abilities"].toObject(), base["abilities"].toObject());
}

TEST_F(MonsterCli, AnOgreFightsWithItsGreatclubInHide) {
    // Large, Str 21, Dex 8, natural +5, in hide (+3): AC 10 - 1 - 1 + 5 + 3. The greatclub in
    // two hands, made Large (2d8): 3 + 5 - 1 and Weapon Focus 1, Strength and a half; the
    // javelin thrown (1d8 at Large): 3 - 1 (Dex) - 1, Strength once.
    const QJsonObject ogre = Json({"show", "Ogre"});
    EXPECT_EQ(ogre["ac"].toInt(), 16);
    const QJsonArray attacks = ogre["attacks"].toArray();
    ASSERT_EQ(attacks.size(), 2);
    EXPECT_EQ(attacks[0].toObject()["text"].toString(), QStringLiteral("Greatclub +8 (2d8+7)"));
    EXPECT_EQ(attacks[1].toObject()["text"].toString(),
              QStringLiteral("Javelin +1 (1d8+5), range 30 ft"));
}

TEST_F(MonsterCli, NamesInTheSpokenOrderFindTheReadyOnes) {
    // The ready names put the kind first ("Red Dragon, Adult"); a name as it is said finds
    // them, in any case; a name that is neither stays unknown.
    const struct {
        const char* asked;
        const char* race;
    } cases[] = {{"Adult Red Dragon", "Red Dragon, Adult"},
                 {"young adult red dragon", "Red Dragon, Young adult"},
                 {"Huge Air Elemental", "Air Elemental, Huge"},
                 {"Giant Squid", "Squid, Giant"},
                 {"Owlbear", "Owlbear"}};
    for (const auto& c : cases)
        EXPECT_EQ(Json({"show", c.asked})["race"].toString(), QString::fromLatin1(c.race))
            << c.asked;
    EXPECT_EQ(Hoard({"monster", "show", "Purple Dragon"}).status, 1);
}

TEST_F(MonsterCli, AnUndeadWithoutConstitutionGrowsLarge) {
    // The bodak (Medium undead, 9d12, Str 13, Dex 15, no Con, Wis 12, natural armor +8) is
    // Large from 14 HD: Str 21, Dex 13, still no Con, natural armor +10. Undead hit dice are
    // d12 at 6.5 with nothing added for Constitution; half base attack; good Will only.
    const QJsonObject large = Json({"advance", "Bodak", "--hd", "14"});
    EXPECT_EQ(large["size"].toString(), QStringLiteral("Large"));
    const QJsonObject abilities = large["abilities"].toObject();
    EXPECT_EQ(abilities["str"].toInt(), 21);
    EXPECT_EQ(abilities["dex"].toInt(), 13);
    EXPECT_TRUE(abilities["con"].isNull());
    EXPECT_EQ(large["natural_armor"].toInt(), 10);
    EXPECT_EQ(large["hp"].toInt(), 91);
    EXPECT_EQ(large["ac"].toInt(), 10 - 1 + 1 + 10);
    EXPECT_EQ(large["base_attack"].toInt(), 7);
    EXPECT_EQ(large["grapple"].toInt(), 7 + 4 + 5);
    EXPECT_EQ(large["fortitude"].toInt(), 4);
    EXPECT_EQ(large["reflex"].toInt(), 4 + 1);
    EXPECT_EQ(large["will"].toInt(), 2 + 7 + 1);
}

// A race without hit dice of its own meets the party as the open rules' orc warrior: Str 17,
// base attack +1, grapple 1 + 3, Fort 2 + 1, Ref 0 + 0, Will 0 - 2.
TEST_F(MonsterCli, AnOrcIsAFirstLevelWarrior) {
    const QJsonObject orc = Json({"show", "Orc"});
    const int expected[] = {17, 1, 4, 3, 0, -2};
    const int built[] = {orc["abilities"].toObject()["str"].toInt(),
                         orc["base_attack"].toInt(),
                         orc["grapple"].toInt(),
                         orc["fortitude"].toInt(),
                         orc["reflex"].toInt(),
                         orc["will"].toInt()};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(built[i], expected[i]) << i;
}

TEST_F(MonsterCli, RefusalsNameTheReason) {
    const struct {
        QStringList args;
        const char* reason;
    } cases[] = {
        {{"advance", "Ankheg", "--hd", "10"}, "from 1 to 9"},
        {{"advance", "Ankheg", "--hd", "0"}, "from 1 to 9"},
        {{"advance", "Ogre", "--hd", "5"}, "does not advance"},
        {{"advance", "Ankheg"}, "--hd"},
        {{"show", "Ankhg"}, "closest: Ankheg"},
    };
    for (const auto& c : cases) {
        const clitest::CliRun run = Hoard(QStringList{"monster"} + c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String(c.reason))) << run.err.toStdString();
    }
}

} // namespace
