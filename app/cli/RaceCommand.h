#pragma once

#include "CliCommand.h"

// "hoard race list|show": the ready and the user's races.
class RaceCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("race"); }
    QString Summary() const override { return QStringLiteral("list races or show one"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

private:
    int RunList(CliContext& context, QStringList args);
    int RunShow(CliContext& context, QStringList args);
};
