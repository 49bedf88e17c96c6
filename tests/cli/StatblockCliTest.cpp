// hoard statblock and hoard export through the built program: the stat blocks of the report,
// PDF pages, and one clean line with nothing left behind for every bad request.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using clitest::runHoard;

class StatblockCliTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mUser.isValid());
        QDir().mkpath(Path("xml/Monster"));
    }
    QString Path(const QString& name) const { return mUser.path() + "/" + name; }

    QTemporaryDir mUser;
};

TEST_F(StatblockCliTest, StatBlocksOfTheReadyRaceAndTheDemoCharacter) {
    const clitest::CliRun ogre = runHoard({"statblock", "--race", "Ogre"}, mUser.path());
    ASSERT_EQ(ogre.status, 0) << ogre.err.toStdString();
    EXPECT_TRUE(ogre.out.startsWith("Ogre\nSize/Type: Large Giant\nHit Dice: 4d8+11 (29 hp)\n"))
        << ogre.out.toStdString();
    const clitest::CliRun demo = runHoard({"demo", "-o", Path("tordek.chr")}, mUser.path());
    ASSERT_EQ(demo.status, 0) << demo.err.toStdString();
    const clitest::CliRun tordek =
        runHoard({"statblock", Path("tordek.chr"), "--format", "md"}, mUser.path());
    ASSERT_EQ(tordek.status, 0) << tordek.err.toStdString();
    EXPECT_TRUE(tordek.out.contains("**Hit Dice:** 4d10+12 (37 hp)  \n"))
        << tordek.out.toStdString();
    EXPECT_TRUE(tordek.out.contains("**Saves:** Fort +7, Ref +2, Will +2  \n"));
}

TEST_F(StatblockCliTest, PdfExportHasPages) {
    const QString pdf = Path("ogre.pdf");
    const clitest::CliRun run = runHoard({"export", "--race", "Ogre", "-o", pdf}, mUser.path());
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QByteArray bytes = hoardtest::readFile(pdf);
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF"));
    // Page objects, not the page tree ("/Type /Pages").
    EXPECT_GE(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r") +
                  bytes.count("/Type /Page/") + bytes.count("/Type /Page>"),
              1);
}

TEST_F(StatblockCliTest, BadRequestsFailInOneLineAndLeaveNothing) {
    ASSERT_TRUE(hoardtest::writeFile(Path("plain"), "x"));
    ASSERT_TRUE(hoardtest::writeFile(Path("xml/Monster/Broken.xsl"), "<xsl:stylesheet"));
    ASSERT_TRUE(hoardtest::writeFile(
        Path("xml/Monster/Probe.xsl"),
        "<!DOCTYPE s [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>"
        "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
        "<xsl:template match=\"/\">&x;</xsl:template></xsl:stylesheet>"));
    const struct {
        QStringList args;
        const char* expected;
        const char* output; // must not exist afterwards
    } cases[] = {
        {{"statblock", "--race", "Ogre", "--style", "No Such Sheet"}, "no style sheet", nullptr},
        {{"export", "--race", "Ogre", "--style", "Broken", "-o", "OUT/b.txt"},
         "Broken.xsl",
         "b.txt"},
        {{"export", "--race", "Ogre", "--style", "Probe", "-o", "OUT/p.txt"}, "refused", "p.txt"},
        {{"export", "--race", "Ogre", "-o", "OUT/plain/ogre.html"}, "cannot write", nullptr},
        {{"export", "--race", "Ogre", "-o", "OUT/plain/ogre.pdf"}, "cannot write", nullptr},
        {{"statblock", "--race", "Ogre", "--format", "pdf"}, "needs -o", nullptr},
        {{"statblock", "--race", "Ogre", "--format", "doc"}, "--format takes", nullptr},
        {{"statblock", "--race", "Ogar"}, "unknown race 'Ogar'; closest:", nullptr},
        {{"statblock", "hoard.trs"}, "not written yet", nullptr},
    };
    for (const auto& c : cases) {
        QStringList args = c.args;
        args.replaceInStrings("OUT", mUser.path());
        SCOPED_TRACE(args.join(' ').toStdString());
        const clitest::CliRun run = runHoard(args, mUser.path());
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.startsWith("hoard: ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(c.expected)) << run.err.toStdString();
        EXPECT_FALSE(run.err.contains("root:"));
        if (c.output) {
            EXPECT_FALSE(QFileInfo::exists(Path(c.output)));
        }
    }
    EXPECT_EQ(hoardtest::readFile(Path("plain")), "x");
}

} // namespace
