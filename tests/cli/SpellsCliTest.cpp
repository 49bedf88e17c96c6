// Casters of every kind worked by hand from the SRD class tables and bonus spells
// ((score / 2 - level - 1) / 4), built and shown through the program as a player would.
#include "CliRunner.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <vector>

namespace {

using Row = std::vector<int>;

Row Pad(Row row, int fill) {
    row.resize(10, fill);
    return row;
}

Row ToRow(const QJsonValue& value) {
    Row row;
    for (const QJsonValue entry : value.toArray())
        row.push_back(entry.toInt());
    return row;
}

class SpellsCli : public clitest::CliFixture {
protected:
    // A human of `level` levels of `className` with the casting score set.
    QString Make(const QString& className, int level, const QString& ability, int score) const {
        return NewCharacter(className, {"--class", className, "--level", QString::number(level)},
                            {ability, QString::number(score)});
    }

    QJsonObject Caster(const QString& file) const {
        const QJsonArray casters = Show(file)["casters"].toArray();
        EXPECT_EQ(casters.size(), 1);
        return casters.isEmpty() ? QJsonObject() : casters[0].toObject();
    }
};

TEST_F(SpellsCli, HandWorkedCastersShowTheirDayAndTheirAllowance) {
    const struct {
        const char* className;
        int level;
        const char* ability;
        int score;
        Row perDay;
        Row canKnow;
        int casterLevel;
    } cases[] = {
        // 4 3 2 1 at wizard 5; Int 12 adds one 1st-level spell and closes 3rd.
        {"Wizard", 5, "INT", 12, Pad({4, 4, 2}, -1), Pad({0, 6, 4, 2}, 0), 5},
        // 5 3 2 1 at cleric 5; Wis 16 adds one at each of levels 1 to 3.
        {"Cleric", 5, "WIS", 16, Pad({5, 4, 3, 2}, -1), Pad({}, 0), 5},
        // 6 6 3 per day and 6 3 1 known at sorcerer 4; Cha 14 adds one at levels 1 and 2.
        {"Sorcerer", 4, "CHA", 14, Pad({6, 7, 4}, -1), Pad({6, 3, 1}, 0), 4},
        // Bard 2 has 0 1st-level spells: without a bonus spell from Cha 12 the level is shut.
        {"Bard", 2, "CHA", 11, Pad({3}, -1), Pad({5, 2}, 0), 2},
        // Paladin 4 has 0 1st-level spells; Wis 12 gives the one bonus spell. Caster level 2.
        {"Paladin", 4, "WIS", 12, Pad({-1, 1}, -1), Pad({}, 0), 2},
        {"Ranger", 6, "WIS", 14, Pad({-1, 2}, -1), Pad({}, 0), 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.className);
        const QJsonObject caster = Caster(Make(c.className, c.level, c.ability, c.score));
        EXPECT_EQ(caster["class"].toString(), c.className);
        EXPECT_EQ(ToRow(caster["per_day"]), c.perDay);
        EXPECT_EQ(ToRow(caster["can_know"]), c.canKnow);
        EXPECT_EQ(caster["caster_level"].toInt(), c.casterLevel);
    }
}

TEST_F(SpellsCli, LearningAndPreparingRefuseWhatTheRulesDoNotAllow) {
    const QString file = Make("Wizard", 5, "INT", 12);
    ASSERT_EQ(Hoard({"character", "add-spell", file, "sleep"}).status, 0);
    const struct {
        QStringList command;
        const char* message;
    } refusals[] = {
        {{"add-spell", "Fireball"}, "above the highest level Wizard can cast (2)"},
        {{"add-spell", "Cure Light Wounds"}, "not on the Wizard spell list"},
        {{"add-spell", "Slep"}, "unknown spell 'Slep'; closest: Sleep"},
        {{"add-spell", "Sleep"}, "already known"},
        // Four 1st-level slots: 3 from the table and 1 from Int 12.
        {{"prepare", "Sleep", "--count", "5"}, "4 level-1 slots left"},
        {{"prepare", "Magic Missile"}, "not in the spellbook"},
    };
    for (const auto& r : refusals)
        ExpectRefused(file, r.command, r.message);
    ASSERT_EQ(Hoard({"character", "prepare", file, "Sleep", "--count", "4"}).status, 0);
    const QJsonObject caster = Caster(file);
    const QJsonObject prepared = caster["prepared"].toArray()[0].toObject();
    EXPECT_EQ(prepared["name"].toString(), "Sleep");
    EXPECT_EQ(prepared["count"].toInt(), 4);
    EXPECT_EQ(caster["known"].toArray()[0].toObject()["level"].toInt(), 1);
}

} // namespace
