#include "AbilitiesCommand.h"
#include "CharacterCommand.h"
#include "CliContext.h"
#include "DbCommand.h"
#include "DemoCommand.h"
#include "DomainsCommand.h"
#include "FCRandom.h"
#include "FeatsCommand.h"
#include "GenerateCommand.h"
#include "GodsCommand.h"
#include "ItemsCommand.h"
#include "MagicItemCommand.h"
#include "MonsterCommand.h"
#include "ObjectsCommand.h"
#include "RaceCommand.h"
#include "RollCommand.h"
#include "RulesCommand.h"
#include "SpellsCommand.h"
#include "StatblockCommand.h"
#include "TableCommand.h"
#include "TreasureCommand.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<CliCommand>> makeCommands() {
    std::vector<std::unique_ptr<CliCommand>> commands;
    commands.push_back(std::make_unique<DemoCommand>());
    commands.push_back(std::make_unique<DbCommand>());
    commands.push_back(std::make_unique<RulesCommand>());
    commands.push_back(std::make_unique<CharacterCommand>());
    commands.push_back(std::make_unique<RaceCommand>());
    commands.push_back(std::make_unique<FeatsCommand>());
    commands.push_back(std::make_unique<SpellsCommand>());
    commands.push_back(std::make_unique<GodsCommand>());
    commands.push_back(std::make_unique<DomainsCommand>());
    commands.push_back(std::make_unique<ItemsCommand>());
    commands.push_back(std::make_unique<MonsterCommand>());
    commands.push_back(std::make_unique<GenerateCommand>());
    commands.push_back(std::make_unique<TreasureCommand>());
    commands.push_back(std::make_unique<MagicItemCommand>());
    commands.push_back(std::make_unique<ObjectsCommand>());
    commands.push_back(std::make_unique<RollCommand>());
    commands.push_back(std::make_unique<TableCommand>());
    commands.push_back(std::make_unique<AbilitiesCommand>());
    commands.push_back(std::make_unique<StatblockCommand>(false));
    commands.push_back(std::make_unique<StatblockCommand>(true));
    return commands;
}

QString programHelp(const std::vector<std::unique_ptr<CliCommand>>& commands) {
    QString text = QStringLiteral("Usage: hoard [global options] COMMAND [ARGS...]\n\n"
                                  "Rules core for the open 3.5 rules: characters, monsters, "
                                  "races, treasure, tables, dice.\n\nCommands:\n");
    for (const auto& command : commands)
        text += QStringLiteral("  %1%2\n").arg(command->Name(), -12).arg(command->Summary());
    text += "\n" + CliContext::GlobalOptionsHelp();
    text += QStringLiteral("\n'hoard COMMAND --help' tells more about a command.\n");
    return text;
}

} // namespace

int main(int argc, char* argv[]) {
    // PDF pages are laid out by Qt's graphical part; without a display it draws off screen.
    // Taken before the application object exists: the graphical one eats options of its own
    // (--style among them).
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    std::unique_ptr<QCoreApplication> application;
    if (StatblockCommand::WantsPdf(argc, argv)) {
        StatblockCommand::PrepareOffscreen();
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("hoard"));
    const auto commands = makeCommands();

    // Runs without --seed must not repeat each other's rolls; --seed replaces this seed.
    FC::SeedRandomFromTime();
    CliContext context;
    QString error;
    if (!context.ParseGlobalOptions(args, error))
        return CliContext::Fail(error);
    if (args.isEmpty() || args.first() == "--help" || args.first() == "-h" ||
        args.first() == "help") {
        CliContext::PrintLine(programHelp(commands));
        return args.isEmpty() ? 1 : 0;
    }
    if (args.first() == "--version" || args.first() == "-v") {
        CliContext::PrintLine(QStringLiteral("hoard %1").arg(QStringLiteral(HOARD_VERSION)));
        return 0;
    }
    const QString name = args.takeFirst();
    for (const auto& command : commands) {
        if (command->Name() == name) {
            const int status = command->Run(context, args);
            context.StopLibrary();
            return status;
        }
    }
    return CliContext::Fail(QStringLiteral("unknown command '%1' (see hoard --help)").arg(name));
}
