#pragma once

#include "CliCommand.h"

// "hoard treasure": hoards by encounter level or by creature, and treasure files.
class TreasureCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("treasure"); }
    QString Summary() const override {
        return QStringLiteral("generate a treasure by encounter level or creature, or show one");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
