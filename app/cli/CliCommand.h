#pragma once

#include <QString>
#include <QStringList>

#include <utility>

class CliContext;

// One top-level command of the program, such as "db" or "character".
class CliCommand {
public:
    virtual ~CliCommand() = default;
    virtual QString Name() const = 0;
    virtual QString Summary() const = 0;
    virtual QString Help() const = 0;
    // Exit status: 0 success, 1 a user error (already reported in one line).
    virtual int Run(CliContext& context, QStringList args) = 0;

    // Removes "--name VALUE"; false when the option is there without a value.
    static bool TakeOption(QStringList& args, const QString& name, QString& value);

protected:
    static bool WantsHelp(const QStringList& args) {
        return args.contains("--help") || args.contains("-h");
    }
    // For a command that takes no arguments: prints the help when asked, refuses any argument
    // and starts the library. False with the exit status in `status` when the run is over.
    bool BeginWithoutArguments(CliContext& context, const QStringList& args, int& status) const;
    // Takes the subcommand word into `sub`. With no word or with --help it prints the help
    // instead and returns false, with the exit status in `status`.
    bool TakeSubcommand(QStringList& args, QString& sub, int& status) const;
    // `text`, the value of `option`, as a whole number from `min` to `max`; false with `error`
    // naming the range otherwise.
    static bool ParseNumberOption(const QString& option, const QString& text, int min, int max,
                                  int& value, QString& error);
    // Takes every named option into its string; then anything left, an unknown option or a
    // stray word, is an error.
    static bool TakeOnlyOptions(QStringList& args,
                                const QList<std::pair<QString, QString*>>& options, QString& error);
    // Any argument left that starts with '-' is an unknown option.
    static bool RejectUnknownOptions(const QStringList& args, QString& error);
};
