#pragma once

#include "CliCommand.h"

// "hoard demo": the first slice end to end, in a scratch folder: a race file, a character
// built on it, saved, read back and printed.
class DemoCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("demo"); }
    QString Summary() const override {
        return QStringLiteral("create, save, reload and print a character");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
