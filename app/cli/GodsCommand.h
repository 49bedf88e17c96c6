#pragma once

#include "CliCommand.h"

// "hoard gods": each god with its alignment and domains.
class GodsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("gods"); }
    QString Summary() const override { return QStringLiteral("list the gods and their domains"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
