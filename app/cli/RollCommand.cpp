#include "RollCommand.h"

#include "CliContext.h"
#include "DDieRoller.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

QString RollCommand::FormsText() {
    return QStringLiteral("use NdM, NdM+K, NdM-K or dM with N 1 to %1, M 1 to %2, K 0 to %3 "
                          "(e.g. 4d6, 2d8+3, d20)")
        .arg(kMaxDieCount)
        .arg(kMaxDieSides)
        .arg(kMaxModifier);
}

QString RollCommand::Help() const {
    return QStringLiteral("Usage: hoard roll EXPR [--sets N] [--json] [--seed N]\n\n"
                          "Rolls the dice of EXPR and prints the sum, one line per set.\n"
                          "EXPR is NdM, NdM+K, NdM-K or dM: N dice of M sides plus or minus K,\n"
                          "e.g. 4d6, 2d8+3, 3d6-1, d20.\n"
                          "Limits: N from 1 to %1, M from 1 to %2, K from 0 to %3.\n\n"
                          "  --sets N   roll the expression N times, 1 to %4 (default 1)\n"
                          "  --json     {\"expression\": \"4d6\", \"sets\": [n, ...]}\n"
                          "  --seed N   (global) repeat the same rolls\n")
        .arg(kMaxDieCount)
        .arg(kMaxDieSides)
        .arg(kMaxModifier)
        .arg(kMaxSets);
}

bool RollCommand::Parse(const QString& text, Expression& out) {
    // Digits are bounded by length first, so no number can overflow on the way in.
    static const QRegularExpression form(
        QStringLiteral("^([0-9]{0,9})[dD]([0-9]{1,9})(?:([+-])([0-9]{1,9}))?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return false;
    Expression parsed;
    parsed.count = match.captured(1).isEmpty() ? 1 : match.captured(1).toInt();
    parsed.sides = match.captured(2).toInt();
    if (match.hasCaptured(4))
        parsed.modifier = match.captured(4).toInt() * (match.captured(3) == "-" ? -1 : 1);
    if (parsed.count < 1 || parsed.count > kMaxDieCount || parsed.sides < 1 ||
        parsed.sides > kMaxDieSides || qAbs(parsed.modifier) > kMaxModifier)
        return false;
    out = parsed;
    return true;
}

int RollCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args) || args.isEmpty()) {
        CliContext::PrintLine(Help());
        return args.isEmpty() ? 1 : 0;
    }
    QString setsText;
    if (!TakeOption(args, QStringLiteral("--sets"), setsText))
        return CliContext::Fail(QStringLiteral("--sets needs a number from 1 to %1").arg(kMaxSets));
    QString error;
    int sets = 1;
    if (!setsText.isNull() &&
        !ParseNumberOption(QStringLiteral("--sets"), setsText, 1, kMaxSets, sets, error))
        return CliContext::Fail(error);
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (args.size() != 1)
        return CliContext::Fail(QStringLiteral("roll takes one dice expression: ") + FormsText());
    Expression expression;
    if (!Parse(args.first(), expression))
        return CliContext::Fail(QStringLiteral("bad dice expression '%1': ").arg(args.first()) +
                                FormsText());

    QString canonical = QStringLiteral("%1d%2").arg(expression.count).arg(expression.sides);
    if (expression.modifier != 0)
        canonical += (expression.modifier > 0 ? QStringLiteral("+") : QString()) +
                     QString::number(expression.modifier);
    QJsonArray sums;
    QStringList lines;
    for (int set = 0; set < sets; ++set) {
        const int sum = DDieRoller::RollDiceSum(expression.sides, unsigned(expression.count)) +
                        expression.modifier;
        sums.append(sum);
        lines << QString::number(sum);
    }
    if (context.WantsJson()) {
        CliContext::PrintJson(QJsonObject{{"expression", canonical}, {"sets", sums}});
        return 0;
    }
    for (const QString& line : lines)
        CliContext::PrintLine(line);
    return 0;
}
