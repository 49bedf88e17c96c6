#include "MagicItemCommand.h"

#include "CliContext.h"
#include "CliLookup.h"
#include "DItem.h"
#include "DTreasureGenerator.h"
#include "FCReleaser.h"
#include "TreasureJson.h"

#include <QJsonArray>

namespace {

constexpr int kMaxCount = 1000;
// A kind the tables hold nothing of in a class (minor rods and staffs) would roll forever.
constexpr int kTriesPerItem = 200;

QStringList ClassNames() {
    return {QStringLiteral("minor"), QStringLiteral("medium"), QStringLiteral("major")};
}

// In the order of DTreasureGenerator's kinds, from kKindArmor.
QStringList KindNames() {
    return {QStringLiteral("armor"), QStringLiteral("weapon"), QStringLiteral("potion"),
            QStringLiteral("ring"),  QStringLiteral("rod"),    QStringLiteral("scroll"),
            QStringLiteral("staff"), QStringLiteral("wand"),   QStringLiteral("wondrous")};
}

// The index of `name` in `names` (any case), -1 if it is not there.
int IndexOf(const QStringList& names, const QString& name) {
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

} // namespace

QString MagicItemCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard magic-item --class minor|medium|major [--kind KIND] [--count K] "
               "[--json]\n\n"
               "--class   the class of item, as the treasure tables name it.\n"
               "--kind    one of armor (armor and shields), weapon, potion, ring, rod, scroll,\n"
               "          staff, wand, wondrous; without it the kind is rolled as in a hoard.\n"
               "--count   how many items, 1 to %1 (default 1).\n"
               "Each item may come out intelligent or cursed, as in a hoard. One line per item\n"
               "with its name and price; --json gives an array of items. The global --seed\n"
               "repeats a run.\n")
        .arg(kMaxCount);
}

int MagicItemCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString error, classText, kindText, countText;
    if (!TakeOnlyOptions(
            args, {{"--class", &classText}, {"--kind", &kindText}, {"--count", &countText}}, error))
        return CliContext::Fail(error);
    if (classText.isEmpty())
        return CliContext::Fail(QStringLiteral("give --class minor|medium|major (see --help)"));
    const int quality = IndexOf(ClassNames(), classText);
    if (quality < 0)
        return CliContext::Fail(
            CliLookup::UnknownName(QStringLiteral("class"), classText,
                                   CliLookup::ClosestNames(classText, ClassNames(), 3)));
    int kind = DTreasureGenerator::kKindAny;
    if (!kindText.isEmpty()) {
        const int index = IndexOf(KindNames(), kindText);
        if (index < 0)
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("kind"), kindText,
                                       CliLookup::ClosestNames(kindText, KindNames(), 3)));
        kind = DTreasureGenerator::kKindArmor + index;
    }
    int count = 1;
    if (!countText.isEmpty() &&
        !ParseNumberOption(QStringLiteral("--count"), countText, 1, kMaxCount, count, error))
        return CliContext::Fail(error);
    if (!context.StartLibrary())
        return 1;
    const int treasureType = DTreasureGenerator::kTreasureMinor + quality;
    QJsonArray items;
    for (int i = 0; i < count; ++i) {
        FCRef<DItem> item;
        for (int attempt = 0; attempt < kTriesPerItem && !item; ++attempt)
            item.reset(DTreasureGenerator::CreateMagicItem(treasureType, kind));
        if (!item)
            return CliContext::Fail(QStringLiteral("the tables hold no %1 %2")
                                        .arg(ClassNames().at(quality), kindText.isEmpty()
                                                                           ? QStringLiteral("item")
                                                                           : kindText.toLower()));
        items.append(TreasureJson::Item(*item));
    }
    if (context.WantsJson()) {
        CliContext::PrintJson(items);
        return 0;
    }
    for (const QJsonValue value : items)
        CliContext::PrintLine(TreasureJson::ItemLine(value.toObject()));
    return 0;
}
