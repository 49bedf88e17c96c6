#pragma once

#include "CliCommand.h"
#include "FCReleaser.h"

class DFileObject;
class DTable;

// "hoard table list|show|roll|import|export": the random tables of the Core and User folders.
class TableCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("table"); }
    QString Summary() const override {
        return QStringLiteral("list, show, roll, import or export random tables");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

private:
    int RunList(CliContext& context, QStringList args);
    int RunShow(CliContext& context, QStringList args);
    int RunRoll(CliContext& context, QStringList args);
    int RunImport(CliContext& context, QStringList args);
    int RunExport(CliContext& context, QStringList args);
    // The table NAME (a user table before a core one) or the .tbl file NAME; null after one
    // message.
    static FCRef<DTable> OpenTable(CliContext& context, const QString& name);
};
