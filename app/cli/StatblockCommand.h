#pragma once

#include "CliCommand.h"

class DCharacter;

// "hoard statblock" and "hoard export": a character, monster or ready race through a style
// sheet to text, HTML, Markdown, XML or PDF; export always writes a file.
class StatblockCommand : public CliCommand {
public:
    explicit StatblockCommand(bool exportFile) : mExport(exportFile) {}

    QString Name() const override {
        return mExport ? QStringLiteral("export") : QStringLiteral("statblock");
    }
    QString Summary() const override {
        return mExport ? QStringLiteral("write a stat block or sheet to a file (text, HTML, "
                                        "Markdown, XML, PDF)")
                       : QStringLiteral("show the stat block of a character, monster or race");
    }
    QString Help() const override;
    int Run(CliContext& context, QStringList args) override;

    // Whether the command line may ask one of the two commands for a PDF, which needs the
    // graphical part of Qt.
    static bool WantsPdf(int argc, char* argv[]);
    // Without a display Qt draws off screen, in the runtime folder it would pick itself.
    static void PrepareOffscreen();

private:
    // The character of a file or a monster made from a ready race; null after a message.
    static DCharacter* LoadSubject(CliContext& context, const QString& file,
                                   const QString& raceName);

    bool mExport;
};
