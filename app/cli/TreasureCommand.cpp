#include "TreasureCommand.h"

#include "CliContext.h"
#include "CliLookup.h"
#include "DFileObject.h"
#include "DItemType.h"
#include "DMagicItemInfo.h"
#include "DRace.h"
#include "DTreasure.h"
#include "DTreasureGenerator.h"
#include "FCReleaser.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace {

constexpr int kMaxCount = 1000;
constexpr int kMaxLevel = 30;

QString kindOf(const DItem& item) {
    switch (item.GetItemType()) {
    case kItemGem:
        return QStringLiteral("gem");
    case kItemArtObject:
        return QStringLiteral("art");
    case kItemPotion:
        return QStringLiteral("potion");
    case kItemRing:
        return QStringLiteral("ring");
    case kItemRod:
        return QStringLiteral("rod");
    case kItemScroll:
        return QStringLiteral("scroll");
    case kItemStaff:
        return QStringLiteral("staff");
    case kItemWand:
        return QStringLiteral("wand");
    case kItemWondrous:
        return QStringLiteral("wondrous");
    case kItemCustomMagic:
        return item.GetBaseItemType() == kItemWeapon ? QStringLiteral("weapon")
                                                     : QStringLiteral("armor");
    default:
        return QStringLiteral("mundane");
    }
}

QJsonValue classOf(const DItem& item) {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    static const char* const kClasses[] = {"minor", "medium", "major"};
    const int quality = magic ? magic->GetQualityType() : 0;
    return quality >= 1 && quality <= 3 ? QJsonValue(QLatin1String(kClasses[quality - 1]))
                                        : QJsonValue();
}

double gold(const DCurrency& money) {
    return double(money.GetCopperCost()) / 100.0;
}

QJsonObject describe(const DTreasure& treasure, int level) {
    QJsonArray items;
    for (const DItem* item : treasure.GetItemArray()) {
        DCurrency value;
        item->GetMarketCost(value);
        items.append(QJsonObject{{"name", item->GetItemPrintDescription(true)},
                                 {"kind", kindOf(*item)},
                                 {"class", classOf(*item)},
                                 {"count", item->GetCount()},
                                 {"value_gp", gold(value)},
                                 {"intelligent", item->GetIsIntelligentItem()},
                                 {"cursed", item->GetIsCursedItem()}});
    }
    const DCurrency& coins = treasure.GetCurrency();
    DCurrency total;
    treasure.GetTotalCost(total);
    return QJsonObject{{"el", level > 0 ? QJsonValue(level) : QJsonValue()},
                       {"coins", QJsonObject{{"cp", coins.GetAmount(0)},
                                             {"sp", coins.GetAmount(1)},
                                             {"gp", coins.GetAmount(2)},
                                             {"pp", coins.GetAmount(3)}}},
                       {"items", items},
                       {"total_gp", gold(total)}};
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
    for (const QJsonValue value : treasure["items"].toArray()) {
        const QJsonObject item = value.toObject();
        CliContext::PrintLine(QStringLiteral("  %1 (%2%3, %4 gp)")
                                  .arg(item["name"].toString(), item["kind"].toString(),
                                       item["class"].isNull()
                                           ? QString()
                                           : QStringLiteral(", ") + item["class"].toString())
                                  .arg(item["value_gp"].toDouble()));
    }
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
               "Magic items come as armor, shields and weapons with their bonus, potions, rings,\n"
               "rods, staffs and wondrous items; scrolls and wands are not drawn yet.\n"
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
        DFileObject* entry = CliLookup::FindRace(race);
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
