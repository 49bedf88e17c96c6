#pragma once

#include "CliCommand.h"

// "hoard roll 4d6 --sets 6": rolls a dice expression and prints one sum per set.
class RollCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("roll"); }
    QString Summary() const override { return QStringLiteral("roll dice, e.g. 4d6 or d20+2"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

    // Limits that keep every sum far from overflow and every run short.
    static constexpr int kMaxDieCount = 1000;
    static constexpr int kMaxDieSides = 1000;
    static constexpr int kMaxModifier = 1000000;
    static constexpr int kMaxSets = 1000;

private:
    struct Expression {
        int count = 1;
        int sides = 0;
        int modifier = 0;
    };
    // False when `text` is not one of the accepted forms or leaves the limits.
    static bool Parse(const QString& text, Expression& out);
    static QString FormsText();
};
