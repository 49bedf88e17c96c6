#include "DemoCommand.h"

#include "CharacterCommand.h"
#include "CharacterSkills.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharacter.h"
#include "DChosenFeat.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOptions.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

// Tordek's rolled scores, before the dwarf's Con +2 and Cha -2.
constexpr int kScores[kAbilityCount] = {15, 13, 14, 10, 12, 8};
constexpr int kFighterLevels = 4;

// A dwarf fighter 4 built the way `character new`, `set-ability`, `add-skill` and `add-feat`
// build one, so that the demo runs every stage of the rules once.
bool buildTordek(DCharacter& character, DFileObject* dwarf) {
    character.SetCharacterName(FCString("Tordek"));
    character.SetPlayerName(FCString("Demo Player"));
    DHandBook::SetupCharacterWithRace(&character, dwarf);
    if (!character.GetRace())
        return false;
    const QUuid fighter = CharacterCommand::FindClass(QStringLiteral("Fighter"));
    for (int level = 0; level < kFighterLevels; ++level)
        character.AddHistory(fighter, 1.0f);
    DHandBook::CharacterSetup(&character, true);
    for (int ability = 0; ability < kAbilityCount; ++ability)
        DHandBook::ChangeAbilityStatBase(&character, DAbilityStatType(ability), kScores[ability],
                                         false);
    character.SetActiveClassId(fighter);
    CharacterSkills::SkillName climb;
    if (CharacterSkills::FindSkill(QStringLiteral("Climb"), climb))
        DHandBook::AddSkill(&character, climb.skill, climb.subSkill, 1, 4.0f, true);
    for (const char* name : {"Power Attack", "Cleave"}) {
        auto* feat = new DChosenFeat();
        feat->SetFeatGuid(CharacterSkills::FindFeat(QString::fromLatin1(name)));
        DHandBook::AddFeat(&character, true, feat);
        feat->Release();
    }
    return true;
}

} // namespace

QString DemoCommand::Help() const {
    return QStringLiteral("Usage: hoard demo [-o FILE.chr] [--json]\n\n"
                          "Works in a scratch folder that is removed afterwards: builds Tordek, "
                          "a dwarf\n"
                          "fighter 4, by the rules (scores 15/13/14/10/12/8, Climb, Power Attack, "
                          "Cleave),\n"
                          "saves him, reads him back and prints him. --seed makes the rolls "
                          "repeatable.\n"
                          "-o keeps a copy of the character file (for `hoard statblock`).\n");
}

int DemoCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString keep;
    if (!TakeOption(args, "-o", keep))
        return CliContext::Fail(QStringLiteral("-o is missing its value"));
    QTemporaryDir scratch;
    if (!scratch.isValid())
        return CliContext::Fail(QStringLiteral("cannot make a scratch folder"));
    // The scratch folder stands in for the user folder, so the demo leaves no trace.
    DOptions::SetUserDataPath(FCString(scratch.path()));
    if (!context.StartLibrary())
        return 1;
    DFileObject* dwarf = DObjectManager::FindRaceFile(QStringLiteral("Dwarf"));
    if (!dwarf)
        return CliContext::Fail(
            QStringLiteral("the ready race Dwarf is not installed in %1").arg(context.DataDir()));
    DCharacter character;
    if (!buildTordek(character, dwarf))
        return CliContext::Fail(
            QStringLiteral("the race file %1 cannot be read").arg(dwarf->GetAccessFilePath()));
    // With -o the kept copy is the one read back and named, so the path printed stays valid.
    const QString characterPath = keep.isEmpty() ? scratch.path() + "/Characters/Tordek.chr"
                                                 : QFileInfo(keep).absoluteFilePath();
    QDir().mkpath(QFileInfo(characterPath).absolutePath());
    if (!character.SaveToFile(FCString(characterPath)))
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(characterPath));
    QString error;
    DCharacter* reloaded = CharacterCommand::LoadCharacter(characterPath, error);
    if (!reloaded)
        return CliContext::Fail(
            QStringLiteral("the saved character could not be read back: %1").arg(error));
    if (!context.WantsJson())
        CliContext::PrintLine(QStringLiteral("Saved and reloaded %1:\n").arg(characterPath));
    CharacterCommand::PrintCharacter(*reloaded, characterPath, context.WantsJson());
    reloaded->Release();
    return 0;
}
