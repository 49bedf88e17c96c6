#include "StatblockCommand.h"

#include "CharacterCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharacter.h"
#include "DCharacterGenerator.h"
#include "DCharacterXml.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DOutput.h"
#include "DXslTransform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>

#include <cstdio>

#include <unistd.h>

namespace {

struct Format {
    const char* name;
    const char* defaultStyle; // null: no transformation
};

constexpr Format kFormats[] = {
    {"text", "Stat Block.xsl"},          {"html", "Stat Block (HTML).xsl"},
    {"md", "Stat Block (Markdown).xsl"}, {"xml", nullptr},
    {"pdf", "Stat Block (HTML).xsl"},
};

const Format* FindFormat(const QString& name) {
    for (const Format& format : kFormats) {
        if (name == QLatin1String(format.name))
            return &format;
    }
    return nullptr;
}

// The format an output file's extension names; text for any other.
QString FormatOfPath(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == "htm" || suffix == "html")
        return QStringLiteral("html");
    if (suffix == "md" || suffix == "pdf" || suffix == "xml")
        return suffix;
    return QStringLiteral("text");
}

struct Releaser {
    DCharacter* character;
    ~Releaser() {
        if (character)
            character->Release();
    }
};

} // namespace

QString StatblockCommand::Help() const {
    const QString name = Name();
    return QStringLiteral(
               "Usage:\n"
               "  hoard %1 FILE.chr|FILE.mon [--format FORMAT] [--style NAME] %2\n"
               "  hoard %1 --race NAME [--format FORMAT] [--style NAME] %2\n\n"
               "Writes the document of the character or monster and applies a style sheet of\n"
               "its kind (xml/Character or xml/Monster of the data folder, or of the user\n"
               "folder). --race builds the ready monster NAME as 'monster show' does.\n"
               "FORMAT: text (\"Stat Block.xsl\"), html (\"Stat Block (HTML).xsl\"), md\n"
               "(\"Stat Block (Markdown).xsl\"), xml (the document itself) or pdf (the HTML laid\n"
               "out on pages). --style names another sheet of the folder, with or without .xsl.\n"
               "%3")
        .arg(name, mExport ? QStringLiteral("-o OUT") : QStringLiteral("[-o OUT]"),
             mExport ? QStringLiteral("The format follows OUT's extension unless --format is "
                                      "given. The file is\nreplaced whole or not at all.\n")
                     : QStringLiteral("Without -o the result goes to standard output (pdf "
                                      "needs -o).\n--json prints the result in an object.\n"));
}

bool StatblockCommand::WantsPdf(int argc, char* argv[]) {
    bool command = false;
    bool pdf = false;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        command = command || arg == "statblock" || arg == "export";
        pdf = pdf || arg == "pdf" || arg.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    }
    return command && pdf;
}

void StatblockCommand::PrepareOffscreen() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString runtime = QDir::tempPath() + QStringLiteral("/runtime-%1").arg(getuid());
        if (QDir().mkpath(runtime) &&
            QFile::setPermissions(runtime, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                               QFileDevice::ExeOwner))
            qputenv("XDG_RUNTIME_DIR", runtime.toLocal8Bit());
    }
}

DCharacter* StatblockCommand::LoadSubject(CliContext& context, const QString& file,
                                          const QString& raceName) {
    if (!context.StartLibrary())
        return nullptr;
    QString error;
    if (raceName.isEmpty()) {
        const QString suffix = QFileInfo(file).suffix().toLower();
        if (suffix == "trs" || suffix == "tbl") {
            CliContext::Fail(QStringLiteral("%1: treasure and table documents are not written "
                                            "yet")
                                 .arg(file));
            return nullptr;
        }
        if (!QFileInfo(file).isFile()) {
            CliContext::Fail(QStringLiteral("no such file: %1").arg(file));
            return nullptr;
        }
        DCharacter* character =
            CharacterCommand::LoadCharacter(QFileInfo(file).absoluteFilePath(), error);
        if (!character)
            CliContext::Fail(error);
        return character;
    }
    DFileObject* entry = DObjectManager::FindRaceFile(raceName);
    if (!entry) {
        CliContext::Fail(
            CliLookup::UnknownName(QStringLiteral("race"), raceName,
                                   CliLookup::ClosestNames(raceName, CliLookup::RaceNames(), 3)));
        return nullptr;
    }
    // Built as 'monster show' builds it: with its gear, a race of no hit dice as a warrior.
    DCharacter* character = DCharacterGenerator::GenerateMonster(entry, 0, error);
    if (!character)
        CliContext::Fail(QStringLiteral("%1: %2").arg(entry->GetAccessFilePath(), error));
    return character;
}

int StatblockCommand::Run(CliContext& context, QStringList args) {
    if (WantsHelp(args)) {
        CliContext::PrintLine(Help());
        return 0;
    }
    QString formatName, style, output, raceName;
    if (!TakeOption(args, "--format", formatName) || !TakeOption(args, "--style", style) ||
        !TakeOption(args, "-o", output) || !TakeOption(args, "--output", output) ||
        !TakeOption(args, "--race", raceName))
        return CliContext::Fail(QStringLiteral("an option is missing its value (see --help)"));
    QString error;
    if (!RejectUnknownOptions(args, error))
        return CliContext::Fail(error);
    if (raceName.isEmpty() ? args.size() != 1 : !args.isEmpty())
        return CliContext::Fail(
            QStringLiteral("give one character or monster file, or --race NAME (see --help)"));
    if (mExport && output.isEmpty())
        return CliContext::Fail(QStringLiteral("export needs -o OUT"));
    if (formatName.isEmpty())
        formatName = output.isEmpty() ? QStringLiteral("text") : FormatOfPath(output);
    const Format* format = FindFormat(formatName);
    if (!format)
        return CliContext::Fail(
            QStringLiteral("--format takes text, html, md, xml or pdf, not '%1'").arg(formatName));
    if (formatName == "pdf" && output.isEmpty())
        return CliContext::Fail(QStringLiteral("--format pdf needs -o FILE.pdf"));

    DCharacter* character = LoadSubject(context, args.value(0), raceName);
    if (!character)
        return 1;
    Releaser releaser{character};
    const QString kind = DCharacterXml::KindWord(character);
    if (style.isEmpty() && format->defaultStyle)
        style = QString::fromLatin1(format->defaultStyle);

    QByteArray result;
    if (!format->defaultStyle) {
        // The document itself; a style names the sheet a browser would apply to it.
        if (!style.isEmpty() && !style.endsWith(QLatin1String(".xsl")))
            style += QStringLiteral(".xsl");
        result = DCharacterXml::ToBytes(character, style);
    } else if (!DOutput::Render(character, style, result, error)) {
        return CliContext::Fail(error);
    }
    if (formatName == "pdf") {
        const QString sheet = DOutput::FindStyleSheet(kind, style);
        if (!DOutput::SavePdf(DOutput::ToHtml(result, DXslTransform::OutputMethod(sheet)), output,
                              error))
            return CliContext::Fail(error);
    } else if (!output.isEmpty() && !DOutput::SaveBytes(result, output, error)) {
        return CliContext::Fail(error);
    }
    if (context.WantsJson()) {
        QJsonObject out{{"name", character->GetCharacterName()},
                        {"kind", kind},
                        {"format", formatName},
                        {"style", style}};
        if (!output.isEmpty())
            out["output"] = QFileInfo(output).absoluteFilePath();
        else
            out["text"] = QString::fromUtf8(result);
        CliContext::PrintJson(out);
    } else if (output.isEmpty()) {
        std::fwrite(result.constData(), 1, size_t(result.size()), stdout);
    } else {
        CliContext::PrintLine(QStringLiteral("Wrote %1").arg(output));
    }
    return 0;
}
