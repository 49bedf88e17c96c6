// Companions through the command line: added, shown with their own numbers, kept in the file,
// following a level-up and a changed score of the master, refused with one line.
#include "CliRunner.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class CompanionsCli : public clitest::CliFixture {
protected:
    QString Make(const QString& className, int level) const {
        return NewCharacter(className, {"--class", className, "--level", QString::number(level)});
    }

    QJsonObject Companion(const QString& file) const {
        return Show(file)["companions"].toArray().first().toObject();
    }
};

TEST_F(CompanionsCli, AnAnimalCompanionIsShownKeptAndFollowsItsDruid) {
    const QString druid = Make("Druid", 2);
    ExpectRefused(druid, {"add-companion", "companion", "Cat"},
                  "Cat cannot serve as an animal companion");
    ExpectRefused(druid, {"add-companion", "companion", "Wolff"}, "closest: Wolf");
    ExpectRefused(druid, {"add-companion", "familiar", "Cat"}, "no class that grants a familiar");
    ExpectRefused(druid, {"remove-companion"}, "has no companion");
    Ok({"add-companion", druid, "companion", "Wolf"});

    // Druid 2: the wolf as its stat block has it, 2d8+4 (13), AC 14, base attack +1, Fort +5,
    // Ref +5, Will +1, with link and share spells and one bonus trick.
    QJsonObject wolf = Companion(druid);
    EXPECT_EQ(wolf["kind"].toString(), "companion");
    EXPECT_EQ(wolf["race"].toString(), "Wolf");
    EXPECT_EQ(wolf["hit_dice"].toDouble(), 2.0);
    EXPECT_EQ(wolf["hp"].toInt(), 13);
    EXPECT_EQ(wolf["ac"].toInt(), 14);
    EXPECT_EQ(wolf["base_attack"].toInt(), 1);
    EXPECT_EQ(wolf["fortitude"].toInt(), 5);
    EXPECT_EQ(wolf["reflex"].toInt(), 5);
    EXPECT_EQ(wolf["will"].toInt(), 1);
    EXPECT_EQ(wolf["bonus_tricks"].toInt(), 1);
    EXPECT_EQ(wolf["features"].toArray().size(), 2);

    // Druid 3: +2 HD, natural armor +2, Str and Dex +1: 4 x (4.5 + 2) = 26, AC 10 + 3 + 4.
    Ok({"level-up", druid, "--class", "Druid"});
    wolf = Companion(druid);
    EXPECT_EQ(wolf["hit_dice"].toDouble(), 4.0);
    EXPECT_EQ(wolf["hp"].toInt(), 26);
    EXPECT_EQ(wolf["natural_armor"].toInt(), 4);
    EXPECT_EQ(wolf["ac"].toInt(), 17);
    EXPECT_EQ(wolf["abilities"].toObject()["str"].toInt(), 14);
    EXPECT_EQ(wolf["abilities"].toObject()["dex"].toInt(), 16);

    ExpectRefused(druid, {"remove-companion", "Dog"}, "no companion of race 'Dog'");
    Ok({"remove-companion", druid, "wolf"});
    EXPECT_TRUE(Show(druid)["companions"].toArray().isEmpty());
}

TEST_F(CompanionsCli, AFamiliarHasHalfItsMastersHitPoints) {
    const QString wizard = Make("Wizard", 1);
    ExpectRefused(wizard, {"add-companion", "mount", "Warhorse, Heavy"},
                  "no class that grants a special mount");
    ExpectRefused(wizard, {"add-companion", "pet", "Cat"}, "unknown companion kind 'pet'");
    Ok({"add-companion", wizard, "familiar", "Cat"});
    // A score that moves the master's hit points moves the familiar's: a wizard 1 has 4 + his
    // Constitution modifier, Con 14 6 (the cat 3), Con 18 8 (the cat 4).
    const struct {
        const char* constitution;
        int master, familiar;
    } cases[] = {{"14", 6, 3}, {"18", 8, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.constitution);
        Ok({"set-ability", wizard, "CON", c.constitution});
        const QJsonObject shown = Show(wizard);
        const QJsonObject cat = shown["companions"].toArray().first().toObject();
        EXPECT_EQ(shown["hp"].toInt(), c.master);
        EXPECT_EQ(cat["hp"].toInt(), c.familiar);
        // Master level 1: natural armor +1, Int 6.
        EXPECT_EQ(cat["natural_armor"].toInt(), 1);
        EXPECT_EQ(cat["abilities"].toObject()["int"].toInt(), 6);
    }
}

} // namespace
