#pragma once

#include "CliCommand.h"

// "hoard db info": which rules database is in use and what its tables hold.
class DbCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("db"); }
    QString Summary() const override { return QStringLiteral("show the rules database in use"); }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

private:
    int RunInfo(CliContext& context);
};
