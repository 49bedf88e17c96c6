#include "AbilitiesCommand.h"

#include "CliContext.h"
#include "CliLookup.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DRollTables.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <iterator>

namespace {

constexpr int kFixedArray[] = {15, 14, 13, 12, 10, 8};

QString modifierText(int score) {
    const int modifier = DHandBook::GetAbilityModifier(score);
    return (modifier >= 0 ? QStringLiteral("+") : QString()) + QString::number(modifier);
}

QString joined(const QList<int>& values, const QString& separator) {
    QStringList parts;
    for (int value : values)
        parts << QString::number(value);
    return parts.join(separator);
}

QJsonArray jsonArray(const QList<int>& values) {
    QJsonArray array;
    for (int value : values)
        array.append(value);
    return array;
}

// Six whole numbers from "15,14,13,12,10,8"; false with `error` set otherwise.
bool parseScores(const QString& text, int low, int high, QList<int>& scores, QString& error) {
    const QStringList parts = text.split(',');
    if (parts.size() != 6) {
        error = QStringLiteral("--scores takes six scores separated by commas, not '%1'").arg(text);
        return false;
    }
    for (const QString& part : parts) {
        bool ok = false;
        const int score = part.trimmed().toInt(&ok);
        if (!ok || score < low || score > high) {
            error = QStringLiteral("a score here runs from %1 to %2, not '%3'")
                        .arg(low)
                        .arg(high)
                        .arg(part.trimmed());
            return false;
        }
        scores.append(score);
    }
    return true;
}

bool isDiceMethod(int method) {
    return method >= kRoll4d6DropLowest && method <= kRoll4d6ReplaceLowest;
}

bool isPointBuy(int method) {
    return method == kRollPointBuy || method == kRollPointBuyCampaign;
}

} // namespace

const QList<AbilitiesCommand::Method>& AbilitiesCommand::Methods() {
    static const QList<Method> methods = {
        {kRoll4d6DropLowest, "4d6-assign",
         "4d6 per score, the lowest die dropped; the scores go where you choose"},
        {kRoll4d6InOrderRerollOne, "4d6-in-order",
         "4d6 per score, the lowest dropped, in ability order; one may be rerolled, two "
         "switched"},
        {kRoll3d6, "3d6-assign", "3d6 per score; the scores go where you choose"},
        {kRoll3d6InOrder, "3d6-in-order", "3d6 per score, in ability order"},
        {kRoll5d6DropTwoLowest, "5d6-assign",
         "5d6 per score, the two lowest dice dropped; the scores go where you choose"},
        {kRoll4d6ReplaceLowest, "4d6-reroll",
         "4d6 per score, the lowest dropped; a score's lowest die may be rolled again"},
        {kRollPointBuy, "point-buy", "buy --scores from 8 up with a budget (25 unless --budget)"},
        {kRollPointBuyCampaign, "campaign",
         "point buy with the budget of a --campaign of \"[types Roll Campaigns]\""},
        {kRollFixedArray, "array", "the standard array 15, 14, 13, 12, 10, 8"},
        {kRollFreeEntry, "free", "any six --scores from 1 to 99, no budget"},
    };
    return methods;
}

int AbilitiesCommand::FindMethod(const QString& text) {
    for (const Method& method : Methods()) {
        if (text == QString::number(method.id) ||
            text.compare(QLatin1String(method.shortName), Qt::CaseInsensitive) == 0)
            return method.id;
    }
    return -1;
}

QString AbilitiesCommand::MethodName(int id) {
    for (const DRollTables::Row& row : DRollTables::Methods()) {
        if (row.id == id)
            return row.name;
    }
    return QString::fromLatin1(Methods().value(id).shortName);
}

QString AbilitiesCommand::Help() const {
    QString text = QStringLiteral(
        "Usage:\n"
        "  hoard abilities --method METHOD [--sets N] [--json]\n"
        "  hoard abilities --method point-buy --scores S,S,S,S,S,S [--budget N | --campaign C]\n"
        "  hoard abilities --method free --scores S,S,S,S,S,S\n\n"
        "Rolls six ability scores and prints each with its dice and modifier. Point buy\n"
        "prints what each score costs and the points left, and refuses a set over budget.\n\n"
        "Methods (give the id or the short name):\n");
    for (const Method& method : Methods()) {
        const QString name = DDatabase::GetConnection() ? MethodName(method.id) : QString();
        text += QStringLiteral("  %1 %2%3\n      %4\n")
                    .arg(method.id)
                    .arg(QLatin1String(method.shortName), -14)
                    .arg(name.isEmpty() ? QString() : QStringLiteral("\"%1\"").arg(name))
                    .arg(QLatin1String(method.what));
    }
    text += QStringLiteral("\n"
                           "  --sets N        roll N sets of six, 1 to %1 (dice methods only)\n"
                           "  --scores LIST   six scores for point buy (8 to %2) or free entry\n"
                           "  --budget N      point-buy budget, 0 to %3 (default %4)\n"
                           "  --campaign C    point buy with a campaign's budget, by name or id\n"
                           "  --json          {\"method\": ID, \"name\": \"...\", \"scores\": "
                           "[..], \"dice\": [[..],..], ...};\n"
                           "                  an array of these for more than one set\n"
                           "  --seed N        (global) repeat the same rolls\n")
                .arg(kMaxSets)
                .arg(kMaxScore)
                .arg(kMaxBudget)
                .arg(kDefaultBudget);
    return text;
}

int AbilitiesCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args) || args.isEmpty()) {
        // The method names come from the database when there is one; help works without.
        if (QFileInfo(context.DatabaseConnection()).isFile())
            context.StartLibrary();
        CliContext::PrintLine(Help());
        return args.isEmpty() ? 1 : 0;
    }
    QString methodText, setsText, scoresText, budgetText, campaignText;
    for (const auto& [option, value] :
         {std::pair{"--method", &methodText}, std::pair{"--sets", &setsText},
          std::pair{"--scores", &scoresText}, std::pair{"--budget", &budgetText},
          std::pair{"--campaign", &campaignText}}) {
        if (!TakeOption(args, QLatin1String(option), *value))
            return CliContext::Fail(QStringLiteral("%1 is missing its value").arg(option));
    }
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (!args.isEmpty())
        return CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    if (methodText.isEmpty())
        return CliContext::Fail(
            QStringLiteral("--method METHOD is required (hoard abilities --help lists them)"));
    int method = FindMethod(methodText.trimmed());
    if (method < 0) {
        QStringList names;
        for (const Method& known : Methods())
            names << QLatin1String(known.shortName);
        return CliContext::Fail(
            QStringLiteral("unknown method '%1': give an id from 0 to 9 or one of %2")
                .arg(methodText, names.join(", ")));
    }
    if (!campaignText.isNull() && method == kRollPointBuy)
        method = kRollPointBuyCampaign;

    int sets = 1;
    if (!setsText.isNull()) {
        if (!isDiceMethod(method))
            return CliContext::Fail(QStringLiteral("--sets only goes with a dice method"));
        if (!ParseNumberOption(QStringLiteral("--sets"), setsText, 1, kMaxSets, sets, error))
            return CliContext::Fail(error);
    }
    const bool takesScores = isPointBuy(method) || method == kRollFreeEntry;
    if (!scoresText.isNull() && !takesScores)
        return CliContext::Fail(
            QStringLiteral("--scores only goes with point buy or free entry; %1 makes its own")
                .arg(QLatin1String(Methods().value(method).shortName)));
    if (takesScores && scoresText.isNull())
        return CliContext::Fail(QStringLiteral("%1 needs --scores S,S,S,S,S,S")
                                    .arg(QLatin1String(Methods().value(method).shortName)));
    if (!budgetText.isNull() && method != kRollPointBuy)
        return CliContext::Fail(method == kRollPointBuyCampaign
                                    ? QStringLiteral("campaign point buy takes its budget "
                                                     "from --campaign, not --budget")
                                    : QStringLiteral("--budget only goes with point-buy"));
    if (!campaignText.isNull() && method != kRollPointBuyCampaign)
        return CliContext::Fail(QStringLiteral("--campaign only goes with point buy"));

    QList<int> scores;
    if (takesScores) {
        const int low = method == kRollFreeEntry ? 1 : kPointBuyFloor;
        if (!parseScores(scoresText, low, kMaxScore, scores, error))
            return CliContext::Fail(error);
    }
    int budget = kDefaultBudget;
    if (!budgetText.isNull() &&
        !ParseNumberOption(QStringLiteral("--budget"), budgetText, 0, kMaxBudget, budget, error))
        return CliContext::Fail(error);
    if (!context.StartLibrary())
        return 1;
    QString campaignName;
    if (method == kRollPointBuyCampaign) {
        const QList<DRollTables::Row> known = DRollTables::Campaigns();
        QStringList names;
        const DRollTables::Row* chosen = nullptr;
        for (const DRollTables::Row& campaign : known) {
            names << campaign.name;
            if (campaignText.trimmed() == QString::number(campaign.id) ||
                campaign.name.compare(campaignText.trimmed(), Qt::CaseInsensitive) == 0)
                chosen = &campaign;
        }
        if (campaignText.isNull())
            return CliContext::Fail(QStringLiteral("campaign point buy needs --campaign, one of %1")
                                        .arg(names.join(", ")));
        if (!chosen)
            return CliContext::Fail(
                CliLookup::UnknownName(QStringLiteral("campaign"), campaignText,
                                       CliLookup::ClosestNames(campaignText, names, 3)));
        budget = chosen->points;
        campaignName = chosen->name;
    }
    if (isDiceMethod(method))
        return RunDice(context, method, sets);
    if (isPointBuy(method))
        return RunPointBuy(context, method, scores, budget, campaignName);
    return RunFixed(context, method,
                    method == kRollFixedArray
                        ? QList<int>(std::begin(kFixedArray), std::end(kFixedArray))
                        : scores);
}

QJsonObject AbilitiesCommand::SetObject(int method, const QList<int>& scores,
                                        const QList<QList<int>>& dice) {
    QJsonArray diceArray;
    QJsonArray modifiers;
    for (int slot = 0; slot < scores.size(); ++slot) {
        diceArray.append(jsonArray(dice.value(slot)));
        modifiers.append(DHandBook::GetAbilityModifier(scores[slot]));
    }
    return QJsonObject{{"method", method},
                       {"name", MethodName(method)},
                       {"scores", jsonArray(scores)},
                       {"dice", diceArray},
                       {"modifiers", modifiers}};
}

void AbilitiesCommand::PrintSet(const QList<int>& scores, const QList<QList<int>>& dice,
                                const QList<int>& costs) {
    for (int slot = 0; slot < scores.size(); ++slot) {
        QStringList parts{QStringLiteral("%1").arg(scores[slot], 4),
                          QStringLiteral("%1").arg(modifierText(scores[slot]), -3)};
        if (!dice.value(slot).isEmpty())
            parts << QStringLiteral("dice ") + joined(dice[slot], QStringLiteral(" "));
        if (slot < costs.size())
            parts << QStringLiteral("cost %1").arg(costs[slot]);
        QString line = parts.join(QStringLiteral("  "));
        while (line.endsWith(' '))
            line.chop(1);
        CliContext::PrintLine(line);
    }
}

int AbilitiesCommand::RunDice(CliContext& context, int method, int sets) {
    QJsonArray all;
    if (!context.WantsJson())
        CliContext::PrintLine(QStringLiteral("%1 (method %2)").arg(MethodName(method)).arg(method));
    for (int set = 0; set < sets; ++set) {
        QList<int> scores;
        QList<QList<int>> dice;
        for (int slot = 0; slot < 6; ++slot) {
            FCArray<int> rolled;
            scores.append(DHandBook::RollAbilityStat(DRollMethodType(method), &rolled));
            dice.append(QList<int>(rolled.begin(), rolled.end()));
        }
        if (context.WantsJson()) {
            all.append(SetObject(method, scores, dice));
            continue;
        }
        if (sets > 1)
            CliContext::PrintLine(QStringLiteral("Set %1:").arg(set + 1));
        PrintSet(scores, dice, {});
    }
    if (context.WantsJson())
        CliContext::PrintJson(sets == 1 ? QJsonValue(all.first()) : QJsonValue(all));
    return 0;
}

int AbilitiesCommand::RunPointBuy(CliContext& context, int method, const QList<int>& scores,
                                  int budget, const QString& campaign) {
    QList<int> costs;
    int spent = 0;
    for (int score : scores) {
        costs.append(DHandBook::ComputeStatPointValue(score));
        spent += costs.last();
    }
    const int left = budget - spent;
    if (left < 0)
        return CliContext::Fail(QStringLiteral("over budget: %1 cost %2 points of %3 (%4 left)")
                                    .arg(joined(scores, QStringLiteral(",")))
                                    .arg(spent)
                                    .arg(budget)
                                    .arg(left));
    if (context.WantsJson()) {
        QJsonObject object = SetObject(method, scores, {});
        object.insert("costs", jsonArray(costs));
        object.insert("budget", budget);
        object.insert("spent", spent);
        object.insert("left", left);
        if (!campaign.isEmpty())
            object.insert("campaign", campaign);
        CliContext::PrintJson(object);
        return 0;
    }
    QString title = QStringLiteral("%1 (method %2)").arg(MethodName(method)).arg(method);
    if (!campaign.isEmpty())
        title += QStringLiteral(", %1").arg(campaign);
    CliContext::PrintLine(title + QStringLiteral(", budget %1").arg(budget));
    PrintSet(scores, {}, costs);
    CliContext::PrintLine(
        QStringLiteral("Spent %1 of %2, %3 left").arg(spent).arg(budget).arg(left));
    return 0;
}

int AbilitiesCommand::RunFixed(CliContext& context, int method, const QList<int>& scores) {
    if (context.WantsJson()) {
        CliContext::PrintJson(SetObject(method, scores, {}));
        return 0;
    }
    CliContext::PrintLine(QStringLiteral("%1 (method %2)").arg(MethodName(method)).arg(method));
    PrintSet(scores, {}, {});
    return 0;
}
