// The generators through the program: a seed repeats a run, counts and folders behave, and
// every refusal is one line.
#include "CliRunner.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

namespace {

class GenerateCli : public clitest::CliFixture {
protected:
};

TEST_F(GenerateCli, SeededRunsRepeatAndSaveWhereAsked) {
    const QStringList args = {"--seed", "11",      "--json", "generate", "character", "--class",
                              "Cleric", "--level", "4",      "--count",  "3"};
    const clitest::CliRun first = Hoard(args);
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    EXPECT_EQ(Hoard(args).out, first.out);
    const QJsonArray all = QJsonDocument::fromJson(first.out.toUtf8()).array();
    ASSERT_EQ(all.size(), 3);
    for (const QJsonValue value : all) {
        const QJsonObject character = value.toObject();
        EXPECT_EQ(character["level"].toInt(), 4);
        EXPECT_EQ(character["classes"].toArray()[0].toObject()["name"].toString(),
                  QStringLiteral("Cleric"));
    }

    const QString folder = UserFile("out");
    const clitest::CliRun saved = Hoard(
        {"generate", "monster", "--race", "Ankheg", "--hd", "6", "--count", "2", "-o", folder});
    ASSERT_EQ(saved.status, 0) << saved.err.toStdString();
    EXPECT_EQ(QDir(folder).entryList({"*.mon"}).size(), 2);
    const clitest::CliRun shown = Hoard({"--json", "monster", "show", folder + "/Ankheg 1.mon"});
    EXPECT_EQ(clitest::jsonObject(shown)["size"].toString(), QStringLiteral("Huge"));
}

TEST_F(GenerateCli, EveryMonsterOfAChallengeRatingCanComeUp) {
    // Two ready monsters have challenge rating 29, the Demilich and the Hagunemnon: twelve
    // draws that never reach one of them would mean the pick leaves out a list's end.
    const clitest::CliRun run =
        Hoard({"--seed", "1", "--json", "generate", "monster", "--cr", "29", "--count", "12"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    QSet<QString> races;
    for (const QJsonValue value : QJsonDocument::fromJson(run.out.toUtf8()).array())
        races << value.toObject()["race"].toString();
    EXPECT_EQ(races, QSet<QString>({"Demilich", "Hagunemnon (Protean)"}));
}

TEST_F(GenerateCli, RefusalsNameTheReason) {
    const struct {
        QStringList args;
        const char* reason;
    } cases[] = {
        {{"character", "--level", "0"}, "from 1 to 20"},
        {{"character", "--level", "21"}, "from 1 to 20"},
        {{"character", "--race", "Dwarff"}, "closest: Dwarf"},
        {{"character", "--alignment", "Lawful Goood"}, "closest: Lawful Good"},
        {{"character", "--count", "1000"}, "--count"},
        {{"monster", "--type", "Dragn"}, "closest: Dragon"},
        {{"monster", "--race", "Ankheg", "--hd", "12"}, "3 to 9"},
        {{"monster", "--race", "Ankheg", "--type", "Dragon"}, "one of"},
        {{"monster", "--cr", "99"}, "--cr"},
    };
    for (const auto& c : cases) {
        const clitest::CliRun run = Hoard(QStringList{"generate"} + c.args);
        EXPECT_EQ(run.status, 1) << c.args.join(' ').toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String(c.reason))) << run.err.toStdString();
    }
}

} // namespace
