#include "CliRunner.h"

#include "TestSupport.h"

#include <QJsonDocument>
#include <QProcess>

namespace clitest {

CliRun runHoard(const QStringList& args, const QString& userDir, int timeoutMs) {
    QStringList full = args;
    if (!userDir.isEmpty())
        full << "--user" << userDir;
    QProcess process;
    process.start(QStringLiteral(HOARD_CLI), full);
    const bool finished = process.waitForFinished(timeoutMs);
    if (!finished)
        process.kill();
    return {finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QJsonObject jsonObject(const CliRun& run) {
    return QJsonDocument::fromJson(run.out.toUtf8()).object();
}

void CliFixture::Ok(const QStringList& args) const {
    const CliRun run = Hoard(QStringList{"character"} + args);
    EXPECT_EQ(run.status, 0) << args.join(' ').toStdString() << ": " << run.err.toStdString();
}

QString CliFixture::NewCharacter(const QString& name, const QStringList& newArgs,
                                 const QStringList& abilityValues) const {
    const QString file = UserFile(name + ".chr");
    Ok(QStringList{"new", "--name", name, "-o", file} + newArgs);
    for (int i = 0; i + 1 < abilityValues.size(); i += 2)
        Ok({"set-ability", file, abilityValues[i], abilityValues[i + 1]});
    return file;
}

QStringList CliFixture::InOrder(const QStringList& scores) {
    static const char* const kAbilities[] = {"STR", "DEX", "CON", "INT", "WIS", "CHA"};
    QStringList pairs;
    for (int i = 0; i < scores.size() && i < 6; ++i)
        pairs << kAbilities[i] << scores[i];
    return pairs;
}

QJsonObject CliFixture::Show(const QString& file) const {
    const CliRun shown = Hoard({"--json", "character", "show", file});
    EXPECT_EQ(shown.status, 0) << shown.err.toStdString();
    return jsonObject(shown);
}

void CliFixture::ExpectRefused(const QString& file, const QStringList& command,
                               const char* message) const {
    SCOPED_TRACE(command.join(' ').toStdString());
    const QByteArray before = hoardtest::readFile(file);
    const CliRun run = Hoard(QStringList{"character", command[0], file} + command.mid(1));
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains(message)) << run.err.toStdString();
    EXPECT_EQ(run.err.count('\n'), 1);
    EXPECT_EQ(hoardtest::readFile(file), before);
}

} // namespace clitest
