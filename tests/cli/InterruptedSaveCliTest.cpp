// A save that cannot finish (here: the file-size limit of the saving process stops the write
// half-way, as a full disk would) must leave the previous file whole and no scratch file.
#include "CliRunner.h"
#include "TestSupport.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

using clitest::runHoard;

TEST(InterruptedSaveCli, AFailedWriteKeepsTheOldFileWhole) {
    QTemporaryDir user;
    QTemporaryDir files;
    const QString path = files.path() + "/hero.chr";
    const auto made = runHoard({"character", "new", "--name", "Hero", "--race", "Human", "--class",
                                "Fighter", "--level", "12", "-o", path},
                               user.path());
    ASSERT_EQ(made.status, 0) << made.err.toStdString();
    const QByteArray before = hoardtest::readFile(path);
    ASSERT_GT(before.size(), 1024);

    QProcess process;
    const rlim_t limit = rlim_t(before.size() / 2);
    process.setChildProcessModifier([limit] {
        // Without this the first write past the limit kills the process instead of failing.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit fileSize{limit, limit};
        setrlimit(RLIMIT_FSIZE, &fileSize);
    });
    process.start(QStringLiteral(HOARD_CLI),
                  {"character", "set-ability", path, "STR", "17", "--user", user.path()});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1) << process.readAllStandardError().toStdString();

    EXPECT_EQ(hoardtest::readFile(path), before);
    EXPECT_EQ(QDir(files.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("hero.chr")});
    // And the same command without the limit does save: the refusal above was the write's.
    const auto saved = runHoard({"character", "set-ability", path, "STR", "17"}, user.path());
    EXPECT_EQ(saved.status, 0) << saved.err.toStdString();
    EXPECT_NE(hoardtest::readFile(path), before);
}
