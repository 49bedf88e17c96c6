#include "MonsterCommand.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DRaceAdvance.h"
#include "DSizeInfo.h"
#include "FCReleaser.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

// A monster of the named race, or the character in the file when NAME is one.
FCRef<DCharacter> LoadMonster(CliContext& context, const QString& name, QString& path,
                              QString& error) {
    if (QFileInfo(name).isFile()) {
        path = QFileInfo(name).absoluteFilePath();
        if (!context.StartLibrary())
            return nullptr;
        FCRef<DCharacter> character(CharacterCommand::LoadCharacter(path, error));
        return character;
    }
    if (!context.StartLibrary())
        return nullptr;
    DFileObject* entry = DObjectManager::FindRaceFile(name);
    if (!entry) {
        error = CliLookup::UnknownName(QStringLiteral("race"), name,
                                       CliLookup::ClosestNames(name, CliLookup::RaceNames(), 3));
        return nullptr;
    }
    FCRef<DCharacter> monster(DCharacterGenerator::GenerateMonster(entry, 0, error));
    if (!monster) {
        error = QStringLiteral("the race file %1 cannot be read").arg(entry->GetAccessFilePath());
        return nullptr;
    }
    monster->SetCharacterName(FCString(name));
    return monster;
}

QString advancementText(const DRace& race) {
    QStringList rows;
    for (const DRaceAdvance* advance : race.GetAdvanceArray()) {
        const DSizeInfo* size = DDatabase::GetSizeInfo(advance->GetSizeId());
        rows << QStringLiteral("%1-%2 HD (%3)")
                    .arg(advance->GetMinHitDie())
                    .arg(advance->GetMaxHitDie())
                    .arg(size ? QString(size->GetSizeName()) : QStringLiteral("?"));
    }
    return rows.isEmpty() ? QStringLiteral("none") : rows.join(QStringLiteral("; "));
}

void printMonster(CliContext& context, DCharacter& monster, const QString& file) {
    const DSizeInfo* size = monster.GetSizeInfo();
    const QString sizeName = size ? QString(size->GetSizeName()) : QStringLiteral("?");
    const DCharHistory* raceEntry = monster.GetHistoryAtPosition(0);
    const float hitDice = raceEntry ? raceEntry->GetLevel() : 0.0f;
    if (context.WantsJson()) {
        QJsonObject description = CharacterCommand::Describe(monster);
        description.insert("size", sizeName);
        description.insert("hit_dice", double(hitDice));
        description.insert("natural_armor", monster.GetCharacterStat(kStatNaturalArmor));
        if (!file.isEmpty())
            description.insert("file", file);
        CliContext::PrintJson(description);
        return;
    }
    CliContext::PrintLine(QStringLiteral("Size:       %1, %2 HD, natural armor +%3")
                              .arg(sizeName, DHandBook::BuildFractionString(hitDice))
                              .arg(monster.GetCharacterStat(kStatNaturalArmor)));
    if (const DRace* race = monster.GetRace())
        CliContext::PrintLine(QStringLiteral("Advancement: %1").arg(advancementText(*race)));
    CharacterCommand::PrintCharacter(monster, file, false);
}

} // namespace

QString MonsterCommand::Help() const {
    return QStringLiteral(
        "Usage:\n"
        "  hoard monster show NAME|FILE.mon [--json]\n"
        "  hoard monster advance NAME|FILE.mon --hd N [-o FILE.mon] [--json]\n\n"
        "show     a ready monster (NAME as `hoard race list` names it) as its race makes it, or\n"
        "         a saved one: size, hit dice, the combat block, abilities, attacks, skills, "
        "feats.\n"
        "advance  gives the monster N racial hit dice (1 to the race's maximum): hit points, base\n"
        "         attack, saves, skill and feat points follow, and crossing a size of the race's\n"
        "         advancement changes Strength, Dexterity, Constitution, natural armor and the\n"
        "         dice of its natural attacks. -o saves the result.\n");
}

int MonsterCommand::Run(CliContext& context, QStringList args) {
    QString sub;
    int status = 0;
    if (!TakeSubcommand(args, sub, status))
        return status;
    if (sub == "show")
        return RunShow(context, args);
    if (sub == "advance")
        return RunAdvance(context, args);
    return CliContext::Fail(
        QStringLiteral("unknown monster command '%1' (try: show, advance)").arg(sub));
}

int MonsterCommand::RunShow(CliContext& context, QStringList args) {
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("give one monster name or file (see --help)"));
    QString path;
    FCRef<DCharacter> monster = LoadMonster(context, args.first(), path, error);
    if (!monster)
        return error.isEmpty() ? 1 : CliContext::Fail(error);
    printMonster(context, *monster, path);
    return 0;
}

int MonsterCommand::RunAdvance(CliContext& context, QStringList args) {
    QString hdText, output, error;
    if (!TakeOption(args, "--hd", hdText) || !TakeOption(args, "-o", output))
        return CliContext::Fail(QStringLiteral("--hd and -o need a value"));
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1 || hdText.isEmpty())
        return CliContext::Fail(QStringLiteral("give a monster name or file and --hd N"));
    QString path;
    FCRef<DCharacter> monster = LoadMonster(context, args.first(), path, error);
    if (!monster)
        return error.isEmpty() ? 1 : CliContext::Fail(error);
    const DRace* race = monster->GetRace();
    if (!monster->IsMonsterClassOnly())
        return CliContext::Fail(QStringLiteral("%1 has class levels: advance it by level-up")
                                    .arg(monster->GetCharacterName()));
    const int maximum = int(race->GetMaxHitDieCount());
    if (maximum < 1 || race->GetAdvanceArray().IsEmpty())
        return CliContext::Fail(QStringLiteral("%1 does not advance by hit dice (its race has no "
                                               "advancement)")
                                    .arg(QString(race->GetRaceName())));
    int hitDice = 0;
    if (!ParseNumberOption(QStringLiteral("--hd"), hdText, 1, maximum, hitDice, error))
        return CliContext::Fail(error);
    const float oldHD = monster->GetHistoryAtPosition(0)->GetLevel();
    DHandBook::AdvanceCharacterWithHD(monster.get(), oldHD, float(hitDice), false);
    if (!output.isEmpty()) {
        const QString target = QFileInfo(output).absoluteFilePath();
        if (!monster->SaveToFile(FCString(target)))
            return CliContext::Fail(QStringLiteral("cannot write %1").arg(output));
        DObjectManager::HandleCharacterSave(FCString(target));
        path = target;
    }
    printMonster(context, *monster, path);
    return 0;
}
