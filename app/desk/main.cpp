#include "DeskMainWindow.h"

#include "DOptions.h"
#include "D_UICharacterGenFrame.h"
#include "D_UIMonsterGenFrame.h"
#include "FCRandom.h"
#include "TableGenFrame.h"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

namespace {

bool hasDisplay() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

bool asksOnlyForText(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if (arg == "-h" || arg == "--help" || arg == "--help-all" || arg == "-v" ||
            arg == "--version")
            return true;
    }
    return false;
}

// The generator window of the kind with something in it, for a picture.
QWidget* OpenGeneratorForCheck(DeskMainWindow& window, const QString& kind, bool statBlock) {
    if (kind == QLatin1String("character")) {
        auto* frame = static_cast<D_UICharacterGenFrame*>(window.OpenGenerator(false));
        for (const char* name : {"mRandomClass", "mRandomRace", "mRandomAlignment", "mAppendBox"})
            frame->findChild<QCheckBox*>(QLatin1String(name))->setChecked(true);
        for (int i = 0; i < 4; ++i)
            frame->Generate();
        if (statBlock)
            frame->ShowStatBlockTab();
        return frame;
    }
    if (kind != QLatin1String("monster") && !kind.startsWith(QLatin1String("monster:")))
        return nullptr;
    auto* frame = static_cast<D_UIMonsterGenFrame*>(window.OpenGenerator(true));
    const QString name = kind.section(QLatin1Char(':'), 1);
    if (!name.isEmpty() && !frame->SelectMonster(name))
        return nullptr;
    if (statBlock)
        frame->ShowStatBlockTab();
    return frame;
}

} // namespace

int main(int argc, char* argv[]) {
    // Without a display Qt aborts with a message about platform plugins; say what is wrong
    // instead, and still answer --help and --version.
    if (!hasDisplay()) {
        if (!asksOnlyForText(argc, argv)) {
            std::fprintf(stderr, "hoard-desk: no display (DISPLAY is not set); start it in a "
                                 "desktop session or under xvfb-run\n");
            return 1;
        }
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    // Every session rolls differently; the command line offers --seed for repeatable runs.
    FC::SeedRandomFromTime();
    QApplication::setApplicationName(QStringLiteral("hoard-desk"));
    QApplication::setApplicationVersion(QStringLiteral(HOARD_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Hoard desktop program"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption dataOption(
        "data", "Installed data folder.", "DIR",
        DOptions::FindDefaultAppPath(FCString(HOARD_DATA_BUILD_DIR)));
    const QCommandLineOption userOption("user", "User data folder.", "DIR");
    const QCommandLineOption dbOption("db", "Rules database connection.", "CONNECTION");
    const QCommandLineOption quitOption("quit-after", "Quit after MS milliseconds (for checks).",
                                        "MS");
    const QCommandLineOption grabOption("screenshot", "Save a picture of the window to FILE.",
                                        "FILE");
    const QCommandLineOption statBlockOption(
        "stat-block", "Show the stat block tab (of the table window with --tables).");
    const QCommandLineOption previewOption(
        "print-preview", "Open the print preview with the style sheet STYLE.", "STYLE");
    const QCommandLineOption tablesOption("tables", "Open the table window and roll NAME once.",
                                          "NAME");
    const QCommandLineOption generatorOption(
        "generator",
        "Open the character generator (\"character\": four random rows) or the monster "
        "generator (\"monster\" or \"monster:NAME\" with NAME selected).",
        "KIND");
    const QCommandLineOption commandOption(
        "command", "Run the menu command CAPTION (as the menu reads, without '&') on the file.",
        "CAPTION");
    parser.addOptions({dataOption, userOption, dbOption, quitOption, grabOption, statBlockOption,
                       previewOption, tablesOption, generatorOption, commandOption});
    parser.addPositionalArgument("file", "A character or treasure file to open.", "[file]");
    parser.process(app);

    DOptions::mAppPath = FCString(QDir(parser.value(dataOption)).absolutePath());
    if (parser.isSet(userOption))
        DOptions::SetUserDataPath(FCString(QDir(parser.value(userOption)).absolutePath()));
    const QString database =
        parser.isSet(dbOption) ? parser.value(dbOption) : DOptions::mAppPath + "/rules.db";
    DeskMainWindow window(database);
    window.show();
    QWidget* tables = nullptr;
    if (!parser.positionalArguments().isEmpty()) {
        const QString file = QFileInfo(parser.positionalArguments().first()).absoluteFilePath();
        // A treasure opens in its own window, which is then what a picture shows.
        if (file.endsWith(QStringLiteral(".trs"), Qt::CaseInsensitive))
            tables = window.OpenTreasure(file);
        else
            window.OpenFile(file);
    }
    if (parser.isSet(statBlockOption))
        window.ShowStatBlockTab();
    if (parser.isSet(tablesOption))
        tables = window.OpenTables(parser.value(tablesOption));
    if (auto* frame = qobject_cast<TableGenFrame*>(tables); frame && parser.isSet(statBlockOption))
        frame->ShowStatBlockTab();
    if (parser.isSet(generatorOption)) {
        const QString kind = parser.value(generatorOption);
        tables = OpenGeneratorForCheck(window, kind, parser.isSet(statBlockOption));
        if (!tables) {
            qCritical("--generator: '%s' is not character, monster or monster:NAME",
                      qPrintable(kind));
            return 1;
        }
    }
    if (parser.isSet(quitOption)) {
        const QString screenshot = parser.value(grabOption);
        QTimer::singleShot(
            parser.value(quitOption).toInt(), &window, [&window, screenshot, tables] {
                // A dialog open in front (the print preview) or the table window is what the
                // picture shows.
                QWidget* shown = QApplication::activeModalWidget();
                if (!shown)
                    shown = tables;
                if (!screenshot.isEmpty())
                    (shown ? shown : static_cast<QWidget*>(&window))->grab().save(screenshot);
                // A timed run is a check: it ends without asking to save what it made.
                QCoreApplication::exit(0);
            });
    }
    if (parser.isSet(commandOption)) {
        // Later, as a click would come: a command that asks runs its dialog in the event loop.
        const QString caption = parser.value(commandOption);
        QTimer::singleShot(0, &window, [&window, caption] {
            if (!window.TriggerMenuCommand(caption))
                qWarning("--command: no enabled menu command '%s'", qPrintable(caption));
        });
    }
    if (parser.isSet(previewOption)) {
        const QString style = parser.value(previewOption);
        QTimer::singleShot(0, &window, [&window, style] { window.OpenPrintPreview(style); });
    }
    return app.exec();
}
