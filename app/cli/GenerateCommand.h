#pragma once

#include "CliCommand.h"

class DCharacter;

// "hoard generate character|monster": random characters and monsters built by the rules.
class GenerateCommand : public CliCommand {
public:
    QString Name() const override { return QStringLiteral("generate"); }
    QString Summary() const override {
        return QStringLiteral("generate random characters or monsters");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

private:
    int RunCharacters(CliContext& context, QStringList args);
    int RunMonsters(CliContext& context, QStringList args);
    // Prints one or several, and saves each into `folder` when one is given.
    static int Emit(CliContext& context, QList<DCharacter*>& made, const QString& folder,
                    const QString& extension);
};
