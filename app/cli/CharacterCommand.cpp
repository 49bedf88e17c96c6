#include "CharacterCommand.h"

#include "CliContext.h"
#include "DCharacter.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DRace.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

QString CharacterCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard character new --name NAME [--player NAME] [--race RACE] -o FILE.chr\n"
        "  hoard character show FILE.chr [--json]\n\n"
        "new    makes a character of the named race (a race file's name, as `hoard race list`\n"
        "       shows; Human when none is given) and saves it to FILE.chr.\n"
        "show   reads a character file and prints what it holds.\n");
}

int CharacterCommand::Run(CliContext& context, QStringList args) {
    if (args.isEmpty() || (WantsHelp(args) && args.size() == 1)) {
        CliContext::PrintLine(Help());
        return args.isEmpty() ? 1 : 0;
    }
    const QString sub = args.takeFirst();
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    if (sub == "new")
        return RunNew(context, args);
    if (sub == "show")
        return RunShow(context, args);
    return CliContext::Fail(
        QStringLiteral("unknown character command '%1' (try: new, show)").arg(sub));
}

DFileObject* CharacterCommand::FindRace(const QString& name) {
    DFileObject* found = nullptr;
    for (const auto& entry : DObjectManager::GetRaceFileSet()) {
        if (entry->GetBaseFileName().compare(name, Qt::CaseInsensitive) != 0)
            continue;
        if (!found || entry->GetFileObjectType() == kFileUser)
            found = entry.Get();
    }
    return found;
}

QStringList CharacterCommand::RaceNames() {
    QStringList names;
    for (const auto& entry : DObjectManager::GetRaceFileSet())
        names << entry->GetBaseFileName();
    names.removeDuplicates();
    return names;
}

int CharacterCommand::RunNew(CliContext& context, QStringList args) {
    QString name, player, race, output;
    if (!TakeOption(args, "--name", name) || !TakeOption(args, "--player", player) ||
        !TakeOption(args, "--race", race) || !TakeOption(args, "-o", output) ||
        !TakeOption(args, "--output", output))
        return CliContext::Fail(QStringLiteral("an option is missing its value (see --help)"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    if (name.trimmed().isEmpty())
        return CliContext::Fail(QStringLiteral("--name NAME is required"));
    if (output.isEmpty())
        return CliContext::Fail(QStringLiteral("-o FILE.chr is required"));
    if (!context.StartLibrary())
        return 1;
    const QString raceName = race.isEmpty() ? QStringLiteral("Human") : race;
    DFileObject* raceEntry = FindRace(raceName);
    if (!raceEntry) {
        const QStringList known = RaceNames();
        return CliContext::Fail(
            QStringLiteral("unknown race '%1'%2")
                .arg(raceName, known.isEmpty()
                                   ? QStringLiteral(" (no races are installed in %1/Core/Races)")
                                         .arg(context.DataDir())
                                   : QStringLiteral("; known races: ") + known.join(", ")));
    }
    auto* raceObject = FCDynamicCast<DRace>(raceEntry->GetCoreObject(DFileObject::kFlagEdit));
    if (!raceObject)
        return CliContext::Fail(
            QStringLiteral("the race file %1 cannot be read").arg(raceEntry->GetAccessFilePath()));
    DCharacter character;
    character.SetCharacterName(FCString(name.trimmed()));
    if (!player.isEmpty())
        character.SetPlayerName(FCString(player));
    character.SetRaceFileObject(static_cast<DFileObject*>(raceEntry->Clone()));
    character.SetRace(raceObject);
    if (!character.SaveToFile(FCString(QFileInfo(output).absoluteFilePath())))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(output));
    DObjectManager::HandleCharacterSave(FCString(output));
    if (context.WantsJson())
        CliContext::PrintJson(QJsonObject{{"file", QFileInfo(output).absoluteFilePath()},
                                          {"name", character.GetCharacterName()}});
    else
        CliContext::PrintLine(QStringLiteral("Saved %1 to %2").arg(name.trimmed(), output));
    return 0;
}

int CharacterCommand::RunShow(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("give one character file (see --help)"));
    const QString path = QFileInfo(args.first()).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return CliContext::Fail(QStringLiteral("no such file: %1").arg(args.first()));
    if (!context.StartLibrary())
        return 1;
    DCharacter* character = DCharacter::CreateFromFile(FCString(path), false, nullptr);
    if (!character)
        return CliContext::Fail(
            QStringLiteral("%1 is not a readable character file").arg(args.first()));
    const bool raceMissing = character->GetLoadResult() == 1;
    const QString raceFile = character->GetRaceFileObject()->GetAccessFilePath();
    if (raceMissing) {
        character->Release();
        return CliContext::Fail(
            QStringLiteral("the race of %1 is missing: %2").arg(args.first(), raceFile));
    }
    PrintCharacter(*character, path, context.WantsJson());
    character->Release();
    return 0;
}

QJsonObject CharacterCommand::Describe(const DCharacter& character) {
    const DRace* race = character.GetRace();
    return QJsonObject{
        {"name", character.GetCharacterName()},
        {"player", character.GetPlayerName()},
        {"file_name", character.GetFileCharacterName()},
        {"race", race ? QJsonValue(race->GetRaceName()) : QJsonValue()},
        {"race_file", character.GetRaceFileObject()->GetAccessFilePath()},
        {"level", int(character.GetCharacterLevel())},
        {"alignment_id", character.GetAlignmentId()},
        {"monster", character.HasInfoFlag(DCharacter::kInfoMonster)},
    };
}

void CharacterCommand::PrintCharacter(const DCharacter& character, const QString& file,
                                      bool json) {
    QJsonObject description = Describe(character);
    description.insert("file", file);
    if (json) {
        CliContext::PrintJson(description);
        return;
    }
    CliContext::PrintLine(QStringLiteral("%1: %2")
                              .arg(character.HasInfoFlag(DCharacter::kInfoMonster)
                                       ? QStringLiteral("Monster")
                                       : QStringLiteral("Character"),
                                   character.GetCharacterName()));
    CliContext::PrintLine(QStringLiteral("Player:     %1").arg(character.GetPlayerName()));
    CliContext::PrintLine(QStringLiteral("Race:       %1 (%2)")
                              .arg(description["race"].toString(),
                                   description["race_file"].toString()));
    CliContext::PrintLine(
        QStringLiteral("Level:      %1").arg(int(character.GetCharacterLevel())));
    CliContext::PrintLine(QStringLiteral("File:       %1").arg(file));
}
