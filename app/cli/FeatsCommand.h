#pragma once

#include "CliCommand.h"

// "hoard feats [--eligible FILE.chr]": the feats of the rules, or those a character qualifies
// for with the reason for each it does not.
class FeatsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("feats"); }
    QString Summary() const override {
        return QStringLiteral("list feats, or the feats a character can take");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
