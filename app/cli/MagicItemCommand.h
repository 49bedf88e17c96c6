#pragma once

#include "CliCommand.h"

// "hoard magic-item": random magic items of a class, and of a kind if one is named.
class MagicItemCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("magic-item"); }
    QString Summary() const override {
        return QStringLiteral("generate random magic items of a class (minor, medium, major)");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
