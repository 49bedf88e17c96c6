// Treasure through the program: a seed repeats a hoard, the JSON adds up, a file is written and
// read back, and every refusal is one line.
#include "CliRunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

class TreasureCli : public clitest::CliFixture {
protected:
};

TEST_F(TreasureCli, SeededHoardsRepeatAddUpAndKeep) {
    const QString file = UserFile("hoard.trs");
    const QStringList args = {"--seed", "9", "--json", "treasure", "--el", "14", "-o", file};
    const clitest::CliRun first = Hoard(args);
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    EXPECT_EQ(Hoard(args).out, first.out);
    const QJsonObject hoard = clitest::jsonObject(first);
    EXPECT_EQ(hoard["el"].toInt(), 14);
    const QJsonObject coins = hoard["coins"].toObject();
    double total = coins["cp"].toInt() / 100.0 + coins["sp"].toInt() / 10.0 + coins["gp"].toInt() +
                   coins["pp"].toInt() * 10.0;
    for (const QJsonValue item : hoard["items"].toArray())
        total += item.toObject()["value_gp"].toDouble();
    EXPECT_DOUBLE_EQ(hoard["total_gp"].toDouble(), total);

    const clitest::CliRun shown = Hoard({"--json", "treasure", "show", file});
    ASSERT_EQ(shown.status, 0) << shown.err.toStdString();
    const QJsonObject kept = clitest::jsonObject(shown);
    EXPECT_EQ(kept["items"], hoard["items"]);
    EXPECT_EQ(kept["coins"], hoard["coins"]);

    const clitest::CliRun several = Hoard({"--json", "treasure", "--el", "3", "--count", "4"});
    EXPECT_EQ(QJsonDocument::fromJson(several.out.toUtf8()).array().size(), 4);
}

TEST_F(TreasureCli, MagicItemsComeOfTheClassAndKindAsked) {
    const clitest::CliRun run = Hoard({"--seed", "3", "--json", "magic-item", "--class", "major",
                                       "--kind", "wand", "--count", "5"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonArray items = QJsonDocument::fromJson(run.out.toUtf8()).array();
    ASSERT_EQ(items.size(), 5);
    for (const QJsonValue value : items) {
        const QJsonObject item = value.toObject();
        // A cursed wand may have been swapped for a specific cursed item of another kind.
        if (item["cursed"].toBool())
            continue;
        EXPECT_EQ(item["kind"].toString(), QStringLiteral("wand"));
        EXPECT_EQ(item["class"].toString(), QStringLiteral("major"));
        EXPECT_TRUE(item["name"].toString().startsWith(QStringLiteral("Wand of ")));
        EXPECT_GT(item["value_gp"].toDouble(), 0);
    }
}

TEST_F(TreasureCli, RefusalsNameTheReason) {
    const QString junk = UserFile("junk.trs");
    QFile file(junk);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a treasure at all");
    file.close();
    const struct {
        QStringList args;
        const char* reason;
    } cases[] = {
        {{"treasure", "--el", "0"}, "from 1 to 30"},
        {{"treasure", "--el", "31"}, "from 1 to 30"},
        {{"treasure", "--el", "3", "--count", "5000"}, "--count"},
        {{"treasure", "--race", "Ankhg"}, "closest: Ankheg"},
        {{"treasure", "--race", "Dire Wolf"}, "has no treasure"},
        {{"treasure", "show", junk}, "not a readable treasure"},
        {{"treasure"}, "--el N or --race"},
        {{"magic-item", "--class", "mediun"}, "closest: medium"},
        {{"magic-item", "--class", "major", "--kind", "wnd"}, "closest: wand"},
        {{"magic-item", "--class", "minor", "--kind", "rod"}, "no minor rod"},
        {{"magic-item", "--class", "minor", "--count", "1001"}, "--count"},
        {{"magic-item"}, "--class"},
    };
    for (const auto& c : cases) {
        const clitest::CliRun run = Hoard(c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String(c.reason))) << run.err.toStdString();
    }
}

} // namespace
