// "hoard table" as a user runs it: import from tab-separated text, roll, show, export.
// The rolled tables use 1d1 dice where the figures are checked, so they hold for any seed.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

const char* const kRoad = "die\t1d1\n"
                          "roll\tcount\tkind\tname\tlevel\trace\talignment\n"
                          "1\t2\ttable\tCamp\n"
                          "1\t3\tmonster\tWolf\t4\n"
                          "1\t1\tcharacter\tNobody\n";
const char* const kCamp = "die\t1d1\n"
                          "roll\tcount\tkind\tname\n"
                          "1\t/1\ttext\tSmoke rises\n"
                          "1\t1\ttable\tMissing\n";

class TableCli : public clitest::CliFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(mUser.isValid());
        importTable("Road.tsv", kRoad);
        importTable("Camp.tsv", kCamp);
    }

    void importTable(const QString& file, const QByteArray& text) {
        ASSERT_TRUE(hoardtest::writeFile(mUser.filePath(file), text));
        const auto run = Hoard({"table", "import", mUser.filePath(file)});
        ASSERT_EQ(run.status, 0) << run.err.toStdString();
    }
};

QJsonObject result(const QString& kind, const QString& name, int count) {
    return QJsonObject{{"kind", kind}, {"name", name}, {"count", count}, {"results", QJsonArray()}};
}

} // namespace

TEST_F(TableCli, NestedRollAsJson) {
    // Road's three rows all cover its 1; Camp is rolled twice, each time giving its text
    // (1 / 1 = 1) and its missing table.
    const auto run = Hoard({"--json", "table", "roll", "Road"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    QJsonObject missing = result("table", "Missing", 1);
    missing.insert("problem", "no table named 'Missing'");
    missing.insert("rolls", QJsonArray());
    const QJsonObject smoke = result("text", "Smoke rises", 1);
    QJsonObject camp = result("table", "Camp", 2);
    camp.insert("rolls", QJsonArray{1, 1});
    camp.insert("results", QJsonArray{smoke, missing, smoke, missing});
    QJsonObject wolf = result("monster", "Wolf", 3);
    wolf.insert("extra", "HD 4");
    QJsonObject nobody = result("character", "Nobody", 1);
    nobody.insert("problem", "no character named 'Nobody'");
    const QJsonObject expected{
        {"table", "Road"}, {"roll", 1}, {"results", QJsonArray{camp, wolf, nobody}}};
    EXPECT_EQ(clitest::jsonObject(run), expected);
}

TEST_F(TableCli, NestedResultsAreIndentedUnderTheirRow) {
    const auto run = Hoard({"table", "roll", "road", "--count", "2"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QStringList once{"Road (1d1): 1",
                           "  table Camp x2, rolled 1, 1",
                           "    text \"Smoke rises\" x1",
                           "    table Missing x1: no table named 'Missing'",
                           "    text \"Smoke rises\" x1",
                           "    table Missing x1: no table named 'Missing'",
                           "  monster Wolf x3 (HD 4)",
                           "  character Nobody x1: no character named 'Nobody'"};
    EXPECT_EQ(run.out.split('\n', Qt::SkipEmptyParts), once + once);
}

TEST_F(TableCli, SeededRollsRepeatAndFollowTheRows) {
    importTable("Percent.tsv", "die\t1d100\n1-50\t1\ttext\tlow\n51-100\t1\ttext\thigh\n");
    const QStringList args{"--seed", "7", "--json", "table", "roll", "Percent", "--count", "20"};
    const auto first = Hoard(args);
    ASSERT_EQ(first.status, 0) << first.err.toStdString();
    EXPECT_EQ(Hoard(args).out, first.out);
    const QJsonArray rolls = QJsonDocument::fromJson(first.out.toUtf8()).array();
    ASSERT_EQ(rolls.size(), 20);
    QSet<int> seen;
    for (const QJsonValue& value : rolls) {
        const int roll = value["roll"].toInt();
        seen.insert(roll);
        ASSERT_GE(roll, 1);
        ASSERT_LE(roll, 100);
        EXPECT_EQ(value["results"][0]["name"].toString(), roll <= 50 ? "low" : "high");
    }
    EXPECT_GT(seen.size(), 1);
}

TEST_F(TableCli, ExportGivesBackTheImportedText) {
    const auto run = Hoard({"table", "export", "Road"});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.out.toStdString(), kRoad);

    // Imported again under another name, it exports the same.
    importTable("Copy.tsv", run.out.toUtf8());
    EXPECT_EQ(Hoard({"table", "export", "Copy"}).out.toStdString(), kRoad);
}

TEST_F(TableCli, ListAndShow) {
    ASSERT_TRUE(hoardtest::writeFile(mUser.filePath("x.tsv"), kCamp));
    ASSERT_EQ(Hoard({"table", "import", mUser.filePath("x.tsv"), "-o", "Camp Two"}).status, 0);
    const auto list = Hoard({"--json", "table", "list"});
    ASSERT_EQ(list.status, 0) << list.err.toStdString();
    QStringList user;
    for (const QJsonValue& entry : QJsonDocument::fromJson(list.out.toUtf8()).array()) {
        if (entry["folder"].toString() == "user")
            user << entry["name"].toString() + " " + entry["dice"].toString();
    }
    user.sort();
    EXPECT_EQ(user, (QStringList{"Camp 1d1", "Camp Two 1d1", "Road 1d1"}));

    const auto show = Hoard({"table", "show", "Road"});
    ASSERT_EQ(show.status, 0);
    EXPECT_TRUE(show.out.contains("monster   Wolf (HD 4)")) << show.out.toStdString();
    EXPECT_TRUE(show.out.contains("warning: rows 1, 2 and 3 cover 1")) << show.out.toStdString();
}

TEST_F(TableCli, BadInputIsOneLineAndStatusOne) {
    const QString bad = mUser.filePath("Bad.tsv");
    ASSERT_TRUE(hoardtest::writeFile(bad, "die\t1d6\n1\t1\ttext\tfine\n2\tlots\ttext\tno\n"));
    ASSERT_TRUE(QDir(mUser.path()).mkpath("Table"));
    ASSERT_TRUE(hoardtest::writeFile(mUser.filePath("Table/Broken.tbl"), "HOARjunk"));
    const struct {
        QStringList args;
        QString message;
    } cases[] = {
        {{"table", "import", bad}, bad + ":3: count 'lots' is not N, NdS+M, N%, LOW-HIGH or /N"},
        {{"table", "import", mUser.filePath("none.tsv")}, "cannot read"},
        {{"table", "import", mUser.filePath("Road.tsv"), "-o", "a/b"}, "'a/b' cannot name a table"},
        {{"table", "roll", "Raod"}, "unknown table 'Raod'; closest: Road"},
        {{"table", "roll", "Broken"}, "Broken.tbl cannot be read"},
        {{"table", "roll", "Road", "--count", "0"}, "--count takes a number from 1 to 1000"},
        {{"table", "fold"}, "unknown table command 'fold'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const auto run = Hoard(c.args);
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(run.err.contains(c.message)) << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
    }
    EXPECT_FALSE(QFile::exists(mUser.filePath("Table/Bad.tbl")));
}

TEST_F(TableCli, OverlapsAndGapsWarnButImport) {
    const QString path = mUser.filePath("Holes.tsv");
    ASSERT_TRUE(hoardtest::writeFile(path, "die\t1d6\n1-3\t1\ttext\ta\n3-4\t1\ttext\tb\n"));
    const auto run = Hoard({"table", "import", path});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.err.contains(path + ": warning: rows 1 and 2 cover 3"))
        << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(path + ": warning: no row covers 5-6 (after row 2)"));
    EXPECT_TRUE(QFile::exists(mUser.filePath("Table/Holes.tbl")));
}
