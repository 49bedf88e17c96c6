#pragma once

#include "CliCommand.h"

// "hoard spells [--class C] [--level N]": the spells of a class's list, by level.
class SpellsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("spells"); }
    QString Summary() const override { return QStringLiteral("list the spells of a class"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
