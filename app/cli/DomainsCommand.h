#pragma once

#include "CliCommand.h"

// "hoard domains": each cleric domain with its granted power.
class DomainsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("domains"); }
    QString Summary() const override { return QStringLiteral("list the cleric domains"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
