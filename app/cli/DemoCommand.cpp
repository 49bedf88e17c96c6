#include "DemoCommand.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "DCharacter.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DOptions.h"
#include "DRace.h"

#include <QDir>
#include <QTemporaryDir>

QString DemoCommand::Help() const {
    return QStringLiteral("Usage: hoard demo [--json]\n\n"
                          "Works in a scratch folder that is removed afterwards: writes a race "
                          "file,\n"
                          "builds a character on it, saves it, reads it back and prints it.\n");
}

int DemoCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QTemporaryDir scratch;
    if (!scratch.isValid())
        return CliContext::Fail(QStringLiteral("cannot make a scratch folder"));
    // The scratch folder stands in for the user folder, so the demo leaves no trace.
    DOptions::SetUserDataPath(FCString(scratch.path()));
    context.StartLibrary();

    DRace race;
    const QString racePath = scratch.path() + "/Races/Demo Human.rac";
    QDir().mkpath(scratch.path() + "/Races");
    if (!race.SaveToFile(FCString(racePath)))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(racePath));
    DObjectManager::HandleRaceSave(FCString(racePath));

    DCharacter character;
    character.SetCharacterName(FCString("Tordek"));
    character.SetPlayerName(FCString("Demo Player"));
    character.SetRaceFileObject(
        DObjectManager::CreateFileObject(kObjectRace, kFileUser, FCString("Demo Human.rac")));
    character.SetRace(&race);
    const QString characterPath = scratch.path() + "/Characters/Tordek.chr";
    if (!character.SaveToFile(FCString(characterPath)))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(characterPath));

    DCharacter* reloaded = DCharacter::CreateFromFile(FCString(characterPath), false, nullptr);
    if (!reloaded || reloaded->GetLoadResult() != 0) {
        if (reloaded)
            reloaded->Release();
        return CliContext::Fail(QStringLiteral("the saved character could not be read back"));
    }
    if (!context.WantsJson())
        CliContext::PrintLine(QStringLiteral("Saved and reloaded %1:\n").arg(characterPath));
    CharacterCommand::PrintCharacter(*reloaded, characterPath, context.WantsJson());
    reloaded->Release();
    return 0;
}
