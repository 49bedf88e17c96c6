#pragma once

#include "CliCommand.h"

class DFileObject;

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
    // The entry of that name, the user's file before the core one; null if none.
    static DFileObject* FindRace(const QString& name);
    // The known names nearest to `name`, nearest first.
    static QStringList ClosestNames(const QString& name, int count);
};
