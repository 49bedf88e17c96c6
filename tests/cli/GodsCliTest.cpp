// A cleric's god and domains, a specialist wizard and bonus languages worked by hand from the
// open rules and built through the program as a player would: cleric 1 with Wisdom 15 has
// 3 orisons and 1 + 1 bonus 1st-level spells, and a domain adds one 1st-level slot; a human
// wizard with Intelligence 16 has 3 bonus languages, 1 with Intelligence 12.
#include "CliRunner.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

QStringList Strings(const QJsonValue& value) {
    QStringList list;
    for (const QJsonValue entry : value.toArray())
        list << entry.toString();
    return list;
}

class GodsCli : public clitest::CliFixture {
protected:
    QString Make(const QString& className, const QString& ability, int score,
                 const QString& race = QStringLiteral("Human")) const {
        return NewCharacter(className + race, {"--race", race, "--class", className},
                            {ability, QString::number(score)});
    }

    void ExpectRefusals(const QString& file,
                        const std::vector<std::pair<QStringList, const char*>>& refusals) const {
        for (const auto& [command, message] : refusals)
            ExpectRefused(file, command, message);
    }
};

TEST_F(GodsCli, AClericsGodAndDomainsOpenTheDomainSlot) {
    const QString file = Make("Cleric", "WIS", 15);
    Ok({"set-alignment", file, "LG"});
    ExpectRefusals(file, {{{"set-god", "Draegor"}, "may not follow Draegor"},
                          {{"set-god", "Valmra"}, "unknown god 'Valmra'; closest: Valmora"},
                          {{"add-domain", "War"}, "set the god first"}});
    Ok({"set-god", file, "Valmora"});
    Ok({"add-domain", file, "War"});
    Ok({"add-domain", file, "Good"});
    ExpectRefusals(file, {{{"add-domain", "Law"}, "already has 2 domains"}});

    const QJsonObject shown = Show(file);
    EXPECT_EQ(shown["god"].toString(), "Valmora");
    EXPECT_EQ(Strings(shown["domains"]), QStringList({"War", "Good"}));
    const QJsonObject caster = shown["casters"].toArray()[0].toObject();
    EXPECT_EQ(caster["per_day"].toArray()[1].toInt(), 2);
    EXPECT_EQ(caster["extra_per_day"].toArray()[1].toInt(), 1);
    EXPECT_EQ(caster["extra_per_day"].toArray()[2].toInt(), 0);
    // War under Valmora brings the longsword on top of the cleric's simple weapons and armor.
    const QJsonObject proficiencies = shown["proficiencies"].toObject();
    EXPECT_EQ(Strings(proficiencies["weapons"]), QStringList({"simple", "Longsword"}));
    EXPECT_EQ(Strings(proficiencies["armor"]), QStringList({"light", "medium", "heavy", "shield"}));

    const QString other = Make("Cleric", "WIS", 15, QStringLiteral("Dwarf"));
    Ok({"set-alignment", other, "LG"});
    Ok({"set-god", other, "Valmora"});
    ExpectRefusals(other, {{{"add-domain", "Fire"}, "Fire is not a domain of Valmora"}});
}

TEST_F(GodsCli, ASpecialistWizardNamesItsProhibitedSchools) {
    const QString file = Make("Wizard", "INT", 16);
    ExpectRefusals(file,
                   {{{"set-school", "Evocation", "--prohibit", "Evocation,Illusion"},
                     "cannot be both the school and prohibited"},
                    {{"set-school", "Evocation", "--prohibit", "Illusion"}, "name 2 prohibited"},
                    {{"set-school", "Evocation", "--prohibit", "Divination,Illusion"},
                     "Divination cannot be prohibited"},
                    {{"set-school", "Evocaton", "--prohibit", "Illusion"}, "closest: Evocation"}});
    Ok({"set-school", file, "Evocation", "--prohibit", "Enchantment,Illusion"});
    QJsonObject shown = Show(file);
    EXPECT_EQ(shown["school"].toString(), "Evocation");
    EXPECT_EQ(Strings(shown["prohibited"]), QStringList({"Enchantment", "Illusion"}));
    // 3 cantrips and 1 + 1 bonus 1st-level spells, each level with one more of the school.
    const QJsonObject caster = shown["casters"].toArray()[0].toObject();
    EXPECT_EQ(caster["extra_per_day"].toArray()[0].toInt(), 1);
    EXPECT_EQ(caster["extra_per_day"].toArray()[1].toInt(), 1);
    EXPECT_EQ(caster["extra_per_day"].toArray()[2].toInt(), 0);
    // Sleep is enchantment and Color Spray illusion, both given up; Magic Missile is evocation.
    // Universal is no school of a specialist.
    ExpectRefusals(file,
                   {{{"add-spell", "Sleep"},
                     "Sleep is a spell of Enchantment, a school the wizard has "
                     "prohibited"},
                    {{"add-spell", "Color Spray"}, "Color Spray is a spell of Illusion, a school"},
                    {{"set-school", "Universal", "--prohibit", "Necromancy,Illusion"},
                     "Universal is not a school to specialize in or prohibit"},
                    {{"set-school", "Evocation", "--prohibit", "Universal,Illusion"},
                     "Universal is not a school to specialize in or prohibit"}});
    Ok({"add-spell", file, "Magic Missile"});
    // A school with a spell in the book can no longer be given up.
    ExpectRefusals(file, {{{"set-school", "Conjuration", "--prohibit", "Evocation,Illusion"},
                           "the spellbook holds Magic Missile, a spell of Evocation"}});
    // A diviner gives up one school only; enchantment is open to it again.
    Ok({"set-school", file, "Divination", "--prohibit", "Necromancy"});
    EXPECT_EQ(Strings(Show(file)["prohibited"]), QStringList({"Necromancy"}));
    Ok({"add-spell", file, "Sleep"});
    ExpectRefusals(file, {{{"add-spell", "Ray of Enfeeblement"},
                           "Ray of Enfeeblement is a spell of Necromancy"}});
    EXPECT_EQ(
        Strings(Show(file)["proficiencies"].toObject()["weapons"]),
        QStringList({"Club", "Crossbow, heavy", "Crossbow, light", "Dagger", "Quarterstaff"}));
}

TEST_F(GodsCli, BonusLanguagesStopAtTheIntelligenceAllowance) {
    // Intelligence 16: +3, three bonus languages; 12: +1, one.
    const QString bright = Make("Wizard", "INT", 16);
    for (const char* language : {"Draconic", "Elven", "Dwarven"})
        Ok({"add-language", bright, language});
    ExpectRefusals(bright, {{{"add-language", "Orc"}, "no bonus languages left"},
                            {{"add-language", "Elven"}, "already spoken"}});
    EXPECT_EQ(Strings(Show(bright)["languages"]),
              QStringList({"Common", "Draconic", "Dwarven", "Elven"}));

    const QString dwarf = Make("Fighter", "INT", 12, QStringLiteral("Dwarf"));
    ExpectRefusals(dwarf, {{{"add-language", "Elven"}, "not a bonus language of the race"},
                           {{"add-language", "Druidic"}, "not a bonus language of the race"},
                           {{"add-language", "Elvish"}, "closest: Elven"}});
    Ok({"add-language", dwarf, "Orc"});
    ExpectRefusals(dwarf, {{{"add-language", "Goblin"}, "no bonus languages left"}});
    EXPECT_EQ(Strings(Show(dwarf)["languages"]), QStringList({"Common", "Dwarven", "Orc"}));

    // Druidic comes with the class and takes none of the one bonus language of Intelligence 12.
    const QString druid = Make("Druid", "INT", 12);
    Ok({"add-language", druid, "Sylvan"});
    ExpectRefusals(druid, {{{"add-language", "Elven"}, "no bonus languages left"}});
    EXPECT_EQ(Strings(Show(druid)["languages"]), QStringList({"Common", "Druidic", "Sylvan"}));
}

} // namespace
