#include "GenerateCommand.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <vector>

namespace {

constexpr int kMaxCount = 100;
constexpr int kTableAlignment = 5;

QStringList classNames(bool baseOnly) {
    QStringList names;
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (!baseOnly || DCharacterGenerator::IsBaseClass(guid))
            names << static_cast<const DClassInfo*>(info)->mName;
    }
    return names;
}

// The alignment of that name or short name (any case); -1 if none.
int findAlignment(const QString& name, QStringList& names) {
    int found = -1;
    DDatabase::ForEachRow(QString::asprintf("SELECT Id, Name, ShortName FROM %s WHERE (Id>0)",
                                            DRulesQuery::Table(kTableAlignment).constData()),
                          [&](odbc::ResultSet* row) {
                              names << row->getString(2);
                              if (row->getString(2).compare(name, Qt::CaseInsensitive) == 0 ||
                                  row->getString(3).compare(name, Qt::CaseInsensitive) == 0)
                                  found = row->getInt(1);
                          });
    return found;
}

struct RaceEntry {
    QString name;
    QString type;
    float challenge = 0;
};

// Every ready race with its creature type and challenge rating.
QList<RaceEntry> raceEntries() {
    QList<RaceEntry> entries;
    for (const QString& name : CliLookup::RaceNames()) {
        DFileObject* entry = DObjectManager::FindRaceFile(name);
        FCRef<DRace> race(entry ? DRace::CreateFromFile(entry->GetAccessFilePath(), false)
                                : nullptr);
        if (!race)
            continue;
        const DClassInfo* type = DDatabase::GetClassInfoA(race->GetClassGuid());
        entries.append({name, type ? QString(type->mName) : QString(), race->GetChallengeRating()});
    }
    return entries;
}

bool parseChallenge(const QString& text, float& value) {
    bool ok = false;
    if (text.contains(QLatin1Char('/'))) {
        const int denominator = text.section(QLatin1Char('/'), 1).toInt(&ok);
        value = ok && denominator > 0 ? 1.0f / float(denominator) : 0.0f;
        return ok && denominator > 0 && text.section(QLatin1Char('/'), 0, 0) == QLatin1String("1");
    }
    value = text.toFloat(&ok);
    return ok && value > 0 && value <= 30;
}

} // namespace

QString GenerateCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard generate character [--race R] [--class C] [--level N] [--alignment A]\n"
               "                           [--count K] [-o DIR] [--json]\n"
               "  hoard generate monster [--race R | --type T | --cr X] [--hd N] [--count K]\n"
               "                         [-o DIR] [--json]\n\n"
               "character  what is not given is drawn: one of the seven player races, one of the\n"
               "           eleven base classes, a level from 1 to 20 (racial hit dice count), an\n"
               "           alignment the class allows. Abilities are rolled 4d6 drop the lowest "
               "and\n"
               "           placed where the class needs them; skill ranks are bought at the rank "
               "limit\n"
               "           in the class skills of the best abilities; feats are taken from a class "
               "list\n"
               "           as their prerequisites allow; the best weapon, armor and shield the "
               "class\n"
               "           may use, made to its size and within a light load, are bought with\n"
               "           the wealth of its level, made magic with the highest bonus a third of\n"
               "           what is left pays for.\n"
               "monster    a ready monster: the one named, or one drawn among those of a creature "
               "type\n"
               "           (Dragon, Undead, ...) or a challenge rating (3, 1/2); --hd advances "
               "it.\n"
               "K runs up to %1. -o saves each into DIR (NAME.chr or NAME.mon, numbered when "
               "several).\n"
               "The global --seed repeats a run.\n")
        .arg(kMaxCount);
}

int GenerateCommand::Run(CliContext& context, QStringList args) {
    QString sub;
    int status = 0;
    if (!TakeSubcommand(args, sub, status))
        return status;
    if (sub == "character")
        return RunCharacters(context, args);
    if (sub == "monster")
        return RunMonsters(context, args);
    return CliContext::Fail(
        QStringLiteral("unknown generate command '%1' (try: character, monster)").arg(sub));
}

int GenerateCommand::RunCharacters(CliContext& context, QStringList args) {
    QString race, className, level, alignment, countText, folder, error;
    if (!TakeOnlyOptions(args,
                         {{"--race", &race},
                          {"--class", &className},
                          {"--level", &level},
                          {"--alignment", &alignment},
                          {"--count", &countText},
                          {"-o", &folder}},
                         error))
        return CliContext::Fail(error);
    DCharacterGenerator::Request request;
    int count = 1;
    if ((!level.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--level"), level, 1, 20, request.level, error)) ||
        (!countText.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--count"), countText, 1, kMaxCount, count, error)))
        return CliContext::Fail(error);
    if (!context.StartLibrary())
        return 1;
    if (!race.isEmpty()) {
        request.race = DObjectManager::FindRaceFile(race);
        if (!request.race)
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("race"), race,
                                       CliLookup::ClosestNames(race, CliLookup::RaceNames(), 3)));
    }
    if (!className.isEmpty()) {
        request.classGuid = CharacterCommand::FindClass(className);
        if (request.classGuid.isNull())
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("class"), className,
                                       CliLookup::ClosestNames(className, classNames(false), 3)));
    }
    if (!alignment.isEmpty()) {
        QStringList names;
        request.alignmentId = findAlignment(alignment, names);
        if (request.alignmentId < 0)
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("alignment"), alignment,
                                       CliLookup::ClosestNames(alignment, names, 3)));
    }
    QList<DCharacter*> made;
    for (int i = 0; i < count; ++i) {
        DCharacter* character = DCharacterGenerator::GenerateCharacter(request, error);
        if (!character) {
            for (DCharacter* done : made)
                done->Release();
            return CliContext::Fail(error);
        }
        made << character;
    }
    return Emit(context, made, folder, DCharacter::GetCharacterFileExtension());
}

int GenerateCommand::RunMonsters(CliContext& context, QStringList args) {
    QString race, type, challenge, hitDiceText, countText, folder, error;
    if (!TakeOnlyOptions(args,
                         {{"--race", &race},
                          {"--type", &type},
                          {"--cr", &challenge},
                          {"--hd", &hitDiceText},
                          {"--count", &countText},
                          {"-o", &folder}},
                         error))
        return CliContext::Fail(error);
    if (int(!race.isEmpty()) + int(!type.isEmpty()) + int(!challenge.isEmpty()) > 1)
        return CliContext::Fail(QStringLiteral("give one of --race, --type and --cr"));
    int count = 1, hitDice = 0;
    float rating = 0;
    if ((!countText.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--count"), countText, 1, kMaxCount, count, error)) ||
        (!hitDiceText.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--hd"), hitDiceText, 1, 99, hitDice, error)))
        return CliContext::Fail(error);
    if (!challenge.isEmpty() && !parseChallenge(challenge, rating))
        return CliContext::Fail(
            QStringLiteral("--cr takes a rating from 1/8 to 30, not '%1'").arg(challenge));
    if (!context.StartLibrary())
        return 1;
    QStringList pool;
    if (!race.isEmpty()) {
        if (!DObjectManager::FindRaceFile(race))
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("race"), race,
                                       CliLookup::ClosestNames(race, CliLookup::RaceNames(), 3)));
        pool << race;
    } else {
        const QList<RaceEntry> entries = raceEntries();
        QStringList types;
        for (const RaceEntry& entry : entries) {
            if (!types.contains(entry.type))
                types << entry.type;
            if ((type.isEmpty() || entry.type.compare(type, Qt::CaseInsensitive) == 0) &&
                (challenge.isEmpty() || entry.challenge == rating))
                pool << entry.name;
        }
        if (!type.isEmpty() && pool.isEmpty())
            return CliContext::Fail(CliLookup::UnknownName(
                QStringLiteral("creature type"), type, CliLookup::ClosestNames(type, types, 3)));
        if (pool.isEmpty())
            return CliContext::Fail(
                QStringLiteral("no ready monster has challenge rating %1").arg(challenge));
    }
    QList<DCharacter*> made;
    for (int i = 0; i < count; ++i) {
        const QString name = pool.at(FC::GetRandom(0, int(pool.size())));
        DCharacter* monster = DCharacterGenerator::GenerateMonster(
            DObjectManager::FindRaceFile(name), hitDice, error);
        if (!monster) {
            for (DCharacter* done : made)
                done->Release();
            return CliContext::Fail(error);
        }
        made << monster;
    }
    return Emit(context, made, folder, DCharacter::GetMonsterFileExtension());
}

int GenerateCommand::Emit(CliContext& context, QList<DCharacter*>& made, const QString& folder,
                          const QString& extension) {
    std::vector<FCRef<DCharacter>> owned;
    for (DCharacter* character : made)
        owned.emplace_back(character);
    QStringList files;
    if (!folder.isEmpty()) {
        if (!QDir().mkpath(folder))
            return CliContext::Fail(QStringLiteral("cannot make the folder %1").arg(folder));
        for (size_t i = 0; i < owned.size(); ++i) {
            QString base = QString(owned[i]->GetCharacterName());
            if (owned.size() > 1)
                base += QStringLiteral(" %1").arg(i + 1);
            const QString path = QDir(folder).absoluteFilePath(base + QLatin1Char('.') + extension);
            if (!owned[i]->SaveToFile(FCString(path)))
                return CliContext::Fail(QStringLiteral("cannot write %1").arg(path));
            DObjectManager::HandleCharacterSave(FCString(path));
            files << path;
        }
    }
    if (context.WantsJson()) {
        QJsonArray all;
        for (size_t i = 0; i < owned.size(); ++i) {
            QJsonObject description = CharacterCommand::Describe(*owned[i]);
            if (qsizetype(i) < files.size())
                description.insert("file", files[i]);
            all.append(description);
        }
        if (all.size() == 1)
            CliContext::PrintJson(all.first());
        else
            CliContext::PrintJson(all);
        return 0;
    }
    for (size_t i = 0; i < owned.size(); ++i) {
        if (i > 0)
            CliContext::PrintLine(QString());
        CharacterCommand::PrintCharacter(
            *owned[i], qsizetype(i) < files.size() ? files[qsizetype(i)] : QString(), false);
    }
    return 0;
}
