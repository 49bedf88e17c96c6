#pragma once

#include "CliCommand.h"

// "hoard items [--kind K] [NAME]": the items a character can be given, with price and weight.
class ItemsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("items"); }
    QString Summary() const override {
        return QStringLiteral("list weapons, armor, goods and magic items with price and weight");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
