#include "TreasureCommand.h"

#include "CliContext.h"
#include "CliLookup.h"
#include "DFileObject.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"
#include "FCReleaser.h"
#include "TreasureJson.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace {

constexpr int kMaxCount = 1000;
constexpr int kMaxLevel = 30;

QJsonObject describe(const DTreasure& treasure, int level) {
    QJsonArray items;
    for (const DItem* item : treasure.GetItemArray())
        items.append(TreasureJson::Item(*item));
    const DCurrency& coins = treasure.GetCurrency();
    DCurrency total;
    treasure.GetTotalCost(total);
    return QJsonObject{{"el", level > 0 ? QJsonValue(level) : QJsonValue()},
                       {"coins", QJsonObject{{"cp", coins.GetAmount(0)},
                                             {"sp", coins.GetAmount(1)},
                                             {"gp", coins.GetAmount(2)},
                                             {"pp", coins.GetAmount(3)}}},
                       {"items", items},
                       {"total_gp", TreasureJson::Gold(total)}};
}

void print(const QJsonObject& treasure) {
    const QJsonObject coins = treasure["coins"].toObject();
    QStringList money;
    for (const char* coin : {"pp", "gp", "sp", "cp"}) {
        if (coins[coin].toInt() > 0)
            money << QStringLiteral("%1 %2").arg(coins[coin].toInt()).arg(QLatin1String(coin));
    }
    if (!treasure["el"].isNull())
        CliContext::PrintLine(
            QStringLiteral("Treasure, encounter level %1").arg(treasure["el"].toInt()));
    CliContext::PrintLine(QStringLiteral("Coins: %1")
                              .arg(money.isEmpty() ? QStringLiteral("none") : money.join(", ")));
    for (const QJsonValue value : treasure["items"].toArray())
        CliContext::PrintLine(QStringLiteral("  ") + TreasureJson::ItemLine(value.toObject()));
    CliContext::PrintLine(QStringLiteral("Total: %1 gp").arg(treasure["total_gp"].toDouble()));
}

} // namespace

QString TreasureCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard treasure --el N [--count K] [-o FILE.trs] [--json]\n"
               "  hoard treasure --race NAME [--count K] [-o FILE.trs] [--json]\n"
               "  hoard treasure show FILE.trs [--json]\n\n"
               "--el      a hoard for encounter level N (1 to %1): coins, goods and items, each a\n"
               "          percentile roll on the treasure tables; above 20 the hoard of level 20\n"
               "          and the extra major items of the level.\n"
               "--race    the treasure of a creature by its treasure entries (standard, double,\n"
               "          triple, a share of the coins, a chance) at its challenge rating.\n"
               "K runs up to %2 (a JSON array then); -o saves the first to a treasure file.\n"
               "Magic items come as armor, shields and weapons with their bonus, special "
               "abilities\n"
               "or as specific items, potions, rings, rods, scrolls, staffs, wands and wondrous\n"
               "items; see also 'hoard magic-item'.\n"
               "The global --seed repeats a run.\n")
        .arg(kMaxLevel)
        .arg(kMaxCount);
}

int TreasureCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString error;
    if (!args.isEmpty() && args.first() == QLatin1String("show")) {
        args.removeFirst();
        if (!RejectUnknownOptions(args, error))
            return CliContext::Fail(error);
        if (args.size() != 1)
            return CliContext::Fail(QStringLiteral("give one treasure file (see --help)"));
        if (!context.StartLibrary())
            return 1;
        FCRef<DTreasure> treasure(
            DTreasure::CreateFromFile(QFileInfo(args.first()).absoluteFilePath()));
        if (!treasure)
            return CliContext::Fail(
                QStringLiteral("%1 is not a readable treasure file").arg(args.first()));
        const QJsonObject description = describe(*treasure, 0);
        context.WantsJson() ? CliContext::PrintJson(description) : print(description);
        return 0;
    }
    QString levelText, race, countText, output;
    if (!TakeOnlyOptions(
            args,
            {{"--el", &levelText}, {"--race", &race}, {"--count", &countText}, {"-o", &output}},
            error))
        return CliContext::Fail(error);
    if (levelText.isEmpty() == race.isEmpty())
        return CliContext::Fail(QStringLiteral("give --el N or --race NAME (see --help)"));
    int level = 0, count = 1;
    if ((!levelText.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--el"), levelText, 1, kMaxLevel, level, error)) ||
        (!countText.isEmpty() &&
         !ParseNumberOption(QStringLiteral("--count"), countText, 1, kMaxCount, count, error)))
        return CliContext::Fail(error);
    if (!context.StartLibrary())
        return 1;
    FCRef<DRace> creature;
    if (!race.isEmpty()) {
        DFileObject* entry = DObjectManager::FindRaceFile(race);
        if (!entry)
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("race"), race,
                                       CliLookup::ClosestNames(race, CliLookup::RaceNames(), 3)));
        creature.reset(DRace::CreateFromFile(entry->GetAccessFilePath(), false));
        if (!creature)
            return CliContext::Fail(QStringLiteral("the race file of %1 cannot be read").arg(race));
        bool any = false;
        for (int kind = 0; kind < 3; ++kind)
            any = any ||
                  (creature->GetTreasureType(kind) >= 2 && creature->GetTreasureType(kind) <= 6);
        if (!any)
            return CliContext::Fail(QStringLiteral("%1 has no treasure").arg(race));
    }
    QJsonArray all;
    for (int i = 0; i < count; ++i) {
        FCRef<DTreasure> treasure(new DTreasure);
        if (creature)
            DTreasureGenerator::GenerateTreasure(treasure.get(), creature.get());
        else
            DTreasureGenerator::GenerateTreasure(treasure.get(), level);
        if (i == 0 && !output.isEmpty() &&
            !treasure->SaveToFile(QFileInfo(output).absoluteFilePath()))
            return CliContext::Fail(QStringLiteral("cannot write %1").arg(output));
        const int shownLevel = creature ? std::max(1, int(creature->GetChallengeRating())) : level;
        all.append(describe(*treasure, shownLevel));
    }
    if (context.WantsJson()) {
        count == 1 ? CliContext::PrintJson(all.first()) : CliContext::PrintJson(all);
        return 0;
    }
    for (const QJsonValue value : all)
        print(value.toObject());
    return 0;
}
