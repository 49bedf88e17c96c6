#include "ItemsCommand.h"

#include "CliContext.h"
#include "DCurrency.h"
#include "ItemCatalogue.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

double goldValue(const ItemCatalogue::Entry& entry) {
    DCurrency price;
    price.SetAmount(entry.coinType, entry.cost);
    return double(price.GetCopperCost()) / 100.0;
}

} // namespace

QString ItemsCommand::Help() const {
    return QStringLiteral(
               "Usage:\n"
               "  hoard items [--kind KIND] [NAME] [--json]\n\n"
               "Lists the items of the rules as 'KIND  NAME  PRICE  WEIGHT'. KIND is one of %1.\n"
               "NAME keeps the items whose name contains it (any case). Prices are those of an\n"
               "item made for a Medium body; `character add-item` fits arms and armor to the\n"
               "buyer's size.\n")
        .arg(ItemCatalogue::KindNames().join(", "));
}

int ItemsCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString kind;
    if (!TakeOption(args, "--kind", kind))
        return CliContext::Fail(QStringLiteral("--kind is missing its value"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() > 1)
        return CliContext::Fail(QStringLiteral("give at most one NAME (see --help)"));
    QList<int> types;
    if (!ItemCatalogue::TypesOfKind(kind, types))
        return CliContext::Fail(QStringLiteral("unknown kind '%1' (one of %2)")
                                    .arg(kind, ItemCatalogue::KindNames().join(", ")));
    if (!context.StartLibrary())
        return 1;
    const QString filter = args.isEmpty() ? QString() : args.first();
    QJsonArray rows;
    for (const ItemCatalogue::Entry& entry : ItemCatalogue::Entries(types)) {
        if (!entry.name.contains(filter, Qt::CaseInsensitive))
            continue;
        const QString kindName = ItemCatalogue::KindName(entry.itemType);
        if (context.WantsJson())
            rows.append(QJsonObject{{"kind", kindName},
                                    {"name", entry.name},
                                    {"cost_gp", goldValue(entry)},
                                    {"weight", double(entry.weight)}});
        else
            CliContext::PrintLine(
                QStringLiteral("%1  %2  %3  %4 lb.")
                    .arg(kindName, -8)
                    .arg(entry.name, -36)
                    .arg(DCurrency::BuildCoinString(entry.cost, entry.coinType), -10)
                    .arg(double(entry.weight)));
    }
    if (context.WantsJson())
        CliContext::PrintJson(rows);
    return 0;
}
