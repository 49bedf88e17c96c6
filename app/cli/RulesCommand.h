#pragma once

#include "CliCommand.h"

// "hoard rules TABLE [KEY-OR-NAME]": the rows of one rules table, for checking a rule's numbers.
class RulesCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("rules"); }
    QString Summary() const override {
        return QStringLiteral("print rows of a rules table by index or name");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

    // The registry index of a table given as its index, its full name ("[info Class]") or its
    // name without brackets, any case; -1 if none.
    static int FindTable(const QString& text);
};
