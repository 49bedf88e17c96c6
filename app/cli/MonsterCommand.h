#pragma once

#include "CliCommand.h"

class DCharacter;

// "hoard monster show|advance": a ready monster as its race makes it, or advanced by hit dice.
class MonsterCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("monster"); }
    QString Summary() const override {
        return QStringLiteral("show a monster, or advance it by hit dice");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

private:
    int RunShow(CliContext& context, QStringList args);
    int RunAdvance(CliContext& context, QStringList args);
};
