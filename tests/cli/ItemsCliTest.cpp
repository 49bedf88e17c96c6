// A player equips a dwarf fighter through the program: every figure worked by hand from the
// open 3.5 rules (prices from the equipment tables, chainmail +5 armor, -5 check, 30% spell
// failure, max Dex +2; a heavy steel shield +2, -2, 15%; a longsword 1d8, 19-20).
#include "CliRunner.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

// A level-5 dwarf fighter with Strength 15 (+2), Dexterity 14 (+2) and 100 gp.
class ItemsCli : public clitest::CliFixture {
protected:
    QString MakeFighter() const {
        return NewCharacter("Tordek", {"--race", "Dwarf", "--class", "Fighter", "--level", "5"},
                            {"STR", "15", "DEX", "14"});
    }
};

TEST_F(ItemsCli, AFighterBuysArmsAndArmor) {
    const QString file = MakeFighter();
    const int startGold = Show(file)["gold"].toInt();
    for (const QStringList& buy :
         {QStringList{"Longsword"}, QStringList{"Chainmail"}, QStringList{"Shield, heavy steel"}})
        ASSERT_EQ(Hoard(QStringList{"character", "add-item", file} + buy +
                        QStringList{"--buy", "--equip"})
                      .status,
                  0)
            << buy.first().toStdString();
    QJsonObject shown = Show(file);
    EXPECT_EQ(shown["gold"].toInt(), startGold - 15 - 150 - 20);
    // 10 + armor 5 + shield 2 + Dexterity capped at +2.
    EXPECT_EQ(shown["ac"].toInt(), 19);
    EXPECT_EQ(shown["armor_check_penalty"].toInt(), -7);
    EXPECT_EQ(shown["spell_failure"].toInt(), 45);
    EXPECT_EQ(shown["max_dex"].toInt(), 2);
    // 59 lb. is a light load for Strength 15, and a dwarf keeps 20 feet in armor.
    EXPECT_EQ(shown["load"].toString(), QStringLiteral("light"));
    EXPECT_EQ(shown["speed"].toInt(), 20);
    const QJsonArray attacks = shown["attacks"].toArray();
    ASSERT_EQ(attacks.size(), 1);
    const QJsonObject sword = attacks[0].toObject();
    EXPECT_EQ(sword["name"].toString(), QStringLiteral("Longsword"));
    EXPECT_EQ(sword["bonus"].toArray(), QJsonArray({7}));
    EXPECT_EQ(sword["damage"].toString(), QStringLiteral("1d8+2"));
    EXPECT_EQ(sword["critical"].toString(), QStringLiteral("19-20/x2"));
    const clitest::CliRun text = Hoard({"character", "show", file});
    EXPECT_TRUE(text.out.contains(QStringLiteral("Longsword +7 (1d8+2/19-20)")))
        << text.out.toStdString();

    const clitest::CliRun block = Hoard({"statblock", file});
    EXPECT_TRUE(block.out.contains(QStringLiteral("Attack: Longsword +7 melee (1d8+2/19-20)")))
        << block.out.toStdString();
    EXPECT_TRUE(block.out.contains(
        QStringLiteral("Possessions: Longsword, Chainmail, Shield, heavy steel")));

    // A level later the fighter has a second attack: base attack +6 gives +8/+3.
    ASSERT_EQ(Hoard({"character", "level-up", file, "--class", "Fighter"}).status, 0);
    EXPECT_EQ(Show(file)["attacks"].toArray()[0].toObject()["bonus"].toArray(), QJsonArray({8, 3}));

    // Two masterwork daggers for the belt: 302 gp each, 1 lb. each.
    ASSERT_EQ(
        Hoard({"character", "add-item", file, "Dagger", "--masterwork", "--count", "2"}).status, 0);
    bool found = false;
    for (const QJsonValue value : Show(file)["equipment"].toArray()) {
        const QJsonObject item = value.toObject();
        if (item["name"].toString().startsWith(QStringLiteral("Dagger, Masterwork"))) {
            found = true;
            EXPECT_EQ(item["count"].toInt(), 2);
            EXPECT_DOUBLE_EQ(item["cost_gp"].toDouble(), 604.0);
            EXPECT_DOUBLE_EQ(item["weight"].toDouble(), 2.0);
            EXPECT_FALSE(item["equipped"].toBool());
        }
    }
    EXPECT_TRUE(found);

    // Taking the shield off frees the hand and the armor class drops by 2.
    ASSERT_EQ(Hoard({"character", "unequip", file, "Shield, heavy steel"}).status, 0);
    EXPECT_EQ(Show(file)["ac"].toInt(), 17);
    ASSERT_EQ(Hoard({"character", "remove-item", file, "Shield, heavy steel", "--sell"}).status, 0);
    EXPECT_EQ(Show(file)["gold"].toInt(), startGold - 15 - 150);
}

TEST_F(ItemsCli, HandWorkedSheets) {
    // A dwarf fighter 4, Str 14, Dex 13, in chainmail with a heavy steel shield and a dwarven
    // waraxe, which dwarves wield as a martial weapon: 63 lb. is a medium load for Str 14, yet
    // the dwarf keeps 20 ft.; AC 10 + 5 + 2 + Dex 1; the armor's -7 reaches Climb (Str +2).
    const QString dwarf = mUser.path() + "/dwarf.chr";
    ASSERT_EQ(Hoard({"character", "new", "--name", "Dain", "--race", "Dwarf", "--class", "Fighter",
                     "--level", "4", "-o", dwarf})
                  .status,
              0);
    ASSERT_EQ(Hoard({"character", "set-ability", dwarf, "STR", "14"}).status, 0);
    ASSERT_EQ(Hoard({"character", "set-ability", dwarf, "DEX", "13"}).status, 0);
    for (const char* item : {"Chainmail", "Shield, heavy steel", "Waraxe, dwarven"})
        ASSERT_EQ(Hoard({"character", "add-item", dwarf, item, "--equip"}).status, 0) << item;
    QJsonObject shown = Show(dwarf);
    EXPECT_EQ(shown["ac"].toInt(), 18);
    EXPECT_EQ(shown["load"].toString(), QStringLiteral("medium"));
    EXPECT_EQ(shown["speed"].toInt(), 20);
    EXPECT_EQ(shown["armor_check_penalty"].toInt(), -7);
    double climb = 0;
    for (const QJsonValue skill : shown["skills"].toArray()) {
        if (skill.toObject()["name"].toString() == QLatin1String("Climb"))
            climb = skill.toObject()["total"].toDouble();
    }
    EXPECT_EQ(climb, 2 - 7);
    const QJsonObject axe = shown["attacks"].toArray()[0].toObject();
    EXPECT_EQ(axe["text"].toString(), QStringLiteral("Waraxe, dwarven +6 (1d10+2/x3)"));

    // A human wizard with Str 8 in chainmail (40 lb.): a medium load slows 30 ft. to 20 ft.
    const QString wizard = mUser.path() + "/wizard.chr";
    ASSERT_EQ(
        Hoard({"character", "new", "--name", "Mialee", "--class", "Wizard", "-o", wizard}).status,
        0);
    ASSERT_EQ(Hoard({"character", "set-ability", wizard, "STR", "8"}).status, 0);
    ASSERT_EQ(Hoard({"character", "add-item", wizard, "Chainmail"}).status, 0);
    shown = Show(wizard);
    EXPECT_EQ(shown["load"].toString(), QStringLiteral("medium"));
    EXPECT_EQ(shown["speed"].toInt(), 20);

    // An elf ranger 1 with Dex 16 and a masterwork composite longbow: +1 base, +3 Dex, +1
    // masterwork; 1d8, x3, 110 ft. A +1 flaming longsword prices as +2: 15 + 300 + 8,000.
    const QString ranger = mUser.path() + "/ranger.chr";
    ASSERT_EQ(Hoard({"character", "new", "--name", "Soveliss", "--race", "Elf", "--class", "Ranger",
                     "-o", ranger})
                  .status,
              0);
    ASSERT_EQ(Hoard({"character", "set-ability", ranger, "DEX", "14"}).status, 0);
    ASSERT_EQ(
        Hoard({"character", "add-item", ranger, "Longbow, composite", "--masterwork", "--equip"})
            .status,
        0);
    ASSERT_EQ(Hoard({"character", "add-item", ranger, "Longsword", "--enhancement", "1",
                     "--ability", "Flaming"})
                  .status,
              0);
    shown = Show(ranger);
    const QJsonObject bow = shown["attacks"].toArray()[0].toObject();
    EXPECT_EQ(bow["text"].toString(),
              QStringLiteral("Longbow, composite, Masterwork +5 (1d8/x3), range 110 ft"));
    double price = 0;
    for (const QJsonValue value : shown["equipment"].toArray()) {
        const QJsonObject item = value.toObject();
        if (item["name"].toString().startsWith(QLatin1String("+1 Longsword")))
            price = item["cost_gp"].toDouble();
    }
    EXPECT_DOUBLE_EQ(price, 8315.0);
}

TEST_F(ItemsCli, RefusalsNameTheReasonAndLeaveTheFile) {
    const QString file = MakeFighter();
    ASSERT_EQ(Hoard({"character", "add-item", file, "Greatsword", "--equip"}).status, 0);
    ASSERT_EQ(Hoard({"character", "add-item", file, "Chainmail", "--equip"}).status, 0);
    const QByteArray before = hoardtest::readFile(file);
    const struct {
        QStringList args;
        const char* reason;
    } cases[] = {
        {{"Longsword", "--enhancement", "5", "--buy"}, "missing"},
        {{"Breastplate", "--equip"}, "already wears Chainmail"},
        {{"Dagger", "--equip"}, "no free hand"},
        {{"Longsword", "--enhancement", "6"}, "+1 to +5"},
        {{"Longsword", "--enhancement", "5", "--ability", "Vorpal", "--ability", "Holy"},
         "above the +10"},
        {{"Longswrd"}, "closest: Longsword"},
        {{"Longsword", "--enhancement", "1", "--ability", "Flamming"}, "closest: Flaming"},
        {{"Cure light wounds (potion)", "--masterwork"}, "masterwork form"},
        {{"Longsword", "--count", "0"}, "--count"},
        {{"#1", "--from"}, "--from needs"},
        {{"#1", "--from", file}, "not a readable treasure"},
    };
    for (const auto& c : cases) {
        const clitest::CliRun run = Hoard(QStringList{"character", "add-item", file} + c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String(c.reason))) << run.err.toStdString();
        EXPECT_EQ(hoardtest::readFile(file), before) << c.args.join(' ').toStdString();
    }
    const clitest::CliRun unknown = Hoard({"character", "equip", file, "Rapier"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(hoardtest::readFile(file), before);
}

// A seeded hoard of encounter level 16 holds an intelligent ring and a cursed shield; taken
// into a character they keep mind and curse, and the stat block prints them.
TEST_F(ItemsCli, TreasureItemsComeWithMindAndCurse) {
    const QString treasure = UserFile("hoard.trs");
    const clitest::CliRun rolled =
        Hoard({"--seed", "25", "treasure", "--el", "16", "--json", "-o", treasure});
    ASSERT_EQ(rolled.status, 0) << rolled.err.toStdString();
    QString mindName, cursedName;
    int ego = -1;
    for (const QJsonValue& value : clitest::jsonObject(rolled)["items"].toArray()) {
        const QJsonObject item = value.toObject();
        if (item["intelligent"].toBool() && mindName.isEmpty()) {
            mindName = item["name"].toString();
            ego = item["ego"].toInt();
        } else if (item["cursed"].toBool() && cursedName.isEmpty()) {
            cursedName = item["name"].toString();
        }
    }
    ASSERT_FALSE(mindName.isEmpty());
    ASSERT_FALSE(cursedName.isEmpty());
    const QString file = MakeFighter();
    Ok({"add-item", file, mindName, "--from", treasure});
    Ok({"add-item", file, cursedName, "--from", treasure, "--equip"});
    const QByteArray before = hoardtest::readFile(file);
    const struct {
        QStringList args;
        const char* reason;
    } refusals[] = {
        {{"No such thing", "--from", treasure}, "holds no item"},
        {{"#99", "--from", treasure}, "holds no item"},
        {{"#1", "--from", treasure, "--count", "2"}, "comes as it is"},
    };
    for (const auto& c : refusals) {
        const clitest::CliRun run = Hoard(QStringList{"character", "add-item", file} + c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String(c.reason))) << run.err.toStdString();
    }
    EXPECT_EQ(hoardtest::readFile(file), before);

    const clitest::CliRun block = Hoard({"statblock", file});
    EXPECT_TRUE(block.out.contains(QStringLiteral("EGO %1").arg(ego))) << block.out.toStdString();
    EXPECT_TRUE(block.out.contains(QStringLiteral(": Cursed: "))) << block.out.toStdString();
}

TEST_F(ItemsCli, TheCatalogueListsPriceAndWeight) {
    const clitest::CliRun run = Hoard({"--json", "items", "--kind", "armor", "chainmail"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    bool found = false;
    for (const QJsonValue value : QJsonDocument::fromJson(run.out.toUtf8()).array()) {
        const QJsonObject item = value.toObject();
        EXPECT_EQ(item["kind"].toString(), QStringLiteral("armor"));
        if (item["name"].toString() == QLatin1String("Chainmail")) {
            found = true;
            EXPECT_DOUBLE_EQ(item["cost_gp"].toDouble(), 150.0);
            EXPECT_DOUBLE_EQ(item["weight"].toDouble(), 40.0);
        }
    }
    EXPECT_TRUE(found);
    EXPECT_EQ(Hoard({"items", "--kind", "spaceship"}).status, 1);
}

} // namespace
