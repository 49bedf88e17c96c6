#include "CharacterAbility.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "DCharacter.h"
#include "DHandBook.h"
#include "DObjectManager.h"

#include <QFileInfo>
#include <QJsonObject>

namespace {

const char* const kNames[] = {"Strength",     "Dexterity", "Constitution",
                              "Intelligence", "Wisdom",    "Charisma"};

QString signedText(int value) {
    return (value >= 0 ? QStringLiteral("+") : QString()) + QString::number(value);
}

} // namespace

int CharacterAbility::FindAbility(const QString& text) {
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        if (text.compare(QLatin1String(kAbilityShortNames[ability]), Qt::CaseInsensitive) == 0 ||
            text.compare(QLatin1String(kNames[ability]), Qt::CaseInsensitive) == 0)
            return ability;
    }
    return -1;
}

QString CharacterAbility::AbilityName(int ability) {
    return ability >= 0 && ability < kAbilityCount ? QLatin1String(kNames[ability]) : QString();
}

int CharacterAbility::RunSetAbility(CliContext& context, QStringList args) {
    for (const QString& arg : args) {
        if (arg.startsWith("--"))
            return CliContext::Fail(QStringLiteral("unknown option '%1' (see --help)").arg(arg));
    }
    if (args.size() != 3)
        return CliContext::Fail(
            QStringLiteral("set-ability takes FILE.chr ABILITY VALUE, e.g. hero.chr STR 16"));
    const int ability = FindAbility(args[1]);
    if (ability < 0)
        return CliContext::Fail(
            QStringLiteral("unknown ability '%1': use STR, DEX, CON, INT, WIS, CHA or the full "
                           "name")
                .arg(args[1]));
    bool ok = false;
    const int value = args[2].toInt(&ok);
    if (!ok || value < kMinScore || value > kMaxScore)
        return CliContext::Fail(QStringLiteral("an ability score runs from %1 to %2, not '%3'")
                                    .arg(kMinScore)
                                    .arg(kMaxScore)
                                    .arg(args[2]));
    const QString path = QFileInfo(args[0]).absoluteFilePath();
    if (!QFileInfo(path).isFile())
        return CliContext::Fail(QStringLiteral("no such file: %1").arg(args[0]));
    if (!context.StartLibrary())
        return 1;
    QString error;
    DCharacter* character = CharacterCommand::LoadCharacter(path, error);
    if (!character)
        return CliContext::Fail(error);
    if (character->IsNullAbility(ability)) {
        const QString name = character->GetCharacterName();
        character->Release();
        return CliContext::Fail(
            QStringLiteral("%1 has no %2 score to set").arg(name, AbilityName(ability)));
    }
    DHandBook::ChangeAbilityStatBase(character, DAbilityStatType(ability), value, false);
    const int score = character->GetAbilityStat(ability);
    const bool saved = character->SaveToFile(FCString(path));
    character->Release();
    if (!saved)
        return CliContext::Fail(QStringLiteral("cannot write %1").arg(path));
    DObjectManager::HandleCharacterSave(FCString(path));
    const int modifier = DHandBook::GetAbilityModifier(score);
    if (context.WantsJson()) {
        CliContext::PrintJson(QJsonObject{{"file", path},
                                          {"ability", AbilityName(ability)},
                                          {"base", value},
                                          {"score", score},
                                          {"modifier", modifier}});
        return 0;
    }
    CliContext::PrintLine(QStringLiteral("%1 %2 (%3)")
                              .arg(AbilityName(ability))
                              .arg(score)
                              .arg(signedText(modifier)));
    if (score != value)
        CliContext::PrintLine(
            QStringLiteral("  base %1, adjustments %2").arg(value).arg(signedText(score - value)));
    return 0;
}
