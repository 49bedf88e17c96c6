#include "FeatsCommand.h"

#include "CharacterCommand.h"
#include "CharacterSkills.h"
#include "CliContext.h"
#include "DCharacter.h"
#include "DDatabase.h"
#include "DFeatInfo.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

// Feats taken for a weapon, skill or school are judged without a target: the target only
// decides whether the same one was taken before.
QJsonArray eligibility(DCharacter& character, bool json) {
    QJsonArray rows;
    for (const QString& name : CharacterSkills::FeatNames()) {
        const QUuid feat = CharacterSkills::FindFeat(name);
        const QString refusal = CharacterSkills::FeatRefusal(character, feat, QUuid(), QUuid());
        if (json) {
            rows.append(QJsonObject{{"name", name},
                                    {"eligible", refusal.isEmpty()},
                                    {"reason", refusal.isEmpty() ? QJsonValue() : refusal}});
            continue;
        }
        CliContext::PrintLine(refusal.isEmpty() ? QStringLiteral("  %1").arg(name)
                                                : QStringLiteral("- %1: %2").arg(name, refusal));
    }
    return rows;
}

} // namespace

QString FeatsCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard feats [--json]\n"
        "  hoard feats --eligible FILE.chr [--json]\n\n"
        "Without --eligible it lists the names of all feats. With it, every feat of the rules\n"
        "on its own line: those the character can take now marked with two blanks, the others\n"
        "with '-' and the first prerequisite that fails.\n");
}

int FeatsCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString file;
    if (!TakeOption(args, "--eligible", file))
        return CliContext::Fail(QStringLiteral("--eligible is missing its FILE.chr"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    const QString path = file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath();
    if (!file.isEmpty() && !QFileInfo(path).isFile())
        return CliContext::Fail(QStringLiteral("no such file: %1").arg(file));
    if (!context.StartLibrary())
        return 1;
    if (file.isEmpty()) {
        const QStringList names = CharacterSkills::FeatNames();
        if (context.WantsJson())
            CliContext::PrintJson(QJsonArray::fromStringList(names));
        else
            for (const QString& name : names)
                CliContext::PrintLine(name);
        return 0;
    }
    DCharacter* character = CharacterCommand::LoadCharacter(path, error);
    if (!character)
        return CliContext::Fail(error);
    const QJsonArray rows = eligibility(*character, context.WantsJson());
    if (context.WantsJson())
        CliContext::PrintJson(rows);
    character->Release();
    return 0;
}
