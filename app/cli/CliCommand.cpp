#include "CliCommand.h"

#include "CliContext.h"

bool CliCommand::TakeOption(QStringList& args, const QString& name, QString& value) {
    const int i = int(args.indexOf(name));
    if (i < 0)
        return true;
    if (i + 1 >= args.size())
        return false;
    value = args[i + 1];
    args.remove(i, 2);
    return true;
}

bool CliCommand::ParseNumberOption(const QString& option, const QString& text, int min, int max,
                                   int& value, QString& error) {
    bool ok = false;
    const int parsed = text.toInt(&ok);
    if (!ok || parsed < min || parsed > max) {
        error = QStringLiteral("%1 takes a number from %2 to %3, not '%4'")
                    .arg(option)
                    .arg(min)
                    .arg(max)
                    .arg(text);
        return false;
    }
    value = parsed;
    return true;
}

bool CliCommand::RejectUnknownOptions(const QStringList& args, QString& error) {
    for (const QString& arg : args) {
        if (arg.startsWith('-') && arg.size() > 1) {
            error = QStringLiteral("unknown option '%1' (see --help)").arg(arg);
            return false;
        }
    }
    return true;
}

bool CliCommand::TakeOnlyOptions(QStringList& args,
                                 const QList<std::pair<QString, QString*>>& options,
                                 QString& error) {
    for (const auto& [name, value] : options) {
        if (!TakeOption(args, name, *value)) {
            error = QStringLiteral("%1 is missing its value").arg(name);
            return false;
        }
    }
    if (!RejectUnknownOptions(args, error))
        return false;
    if (!args.isEmpty()) {
        error = QStringLiteral("unexpected argument '%1' (see --help)").arg(args.first());
        return false;
    }
    return true;
}

bool CliCommand::BeginWithoutArguments(CliContext& context, const QStringList& args,
                                       int& status) const {
    status = 0;
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return false;
    }
    QString error;
    if (!RejectUnknownOptions(args, error))
        status = CliContext::Fail(error);
    else if (!args.isEmpty())
        status = CliContext::Fail(QStringLiteral("unexpected argument '%1'").arg(args.first()));
    else if (!context.StartLibrary())
        status = 1;
    else
        return true;
    return false;
}

bool CliCommand::TakeSubcommand(QStringList& args, QString& sub, int& status) const {
    if (args.isEmpty() || WantsHelp(args)) {
        CliContext::PrintLine(Help());
        status = args.isEmpty() ? 1 : 0;
        return false;
    }
    sub = args.takeFirst();
    return true;
}
