#pragma once

#include "CliCommand.h"

// "hoard objects": the object catalogues and how many files each holds.
class ObjectsCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("objects"); }
    QString Summary() const override {
        return QStringLiteral("count the ready and user object files");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;
};
