#pragma once

#include "CliCommand.h"

// "hoard demo": the rules end to end, in a scratch folder: a dwarf fighter built, saved, read
// back and printed.
class DemoCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("demo"); }
    QString Summary() const override {
        return QStringLiteral("build a dwarf fighter 4 by the rules, save, reload, print");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
