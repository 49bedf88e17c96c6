#pragma once

#include "DRollXml.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class DCharacter;
class DXslTransform;

// The output pipeline: a document is written to the kind's working folder ("tmp.xml"), a style
// sheet of the kind turns it into text or HTML, and the result is shown, saved, printed or
// made a PDF. Working files live in the user's writable folder, never beside the installed
// style sheets. One run ends before the next starts: the working files are shared.
class DOutput {
public:
    DOutput() = delete;

    static constexpr const char* kStatBlockStyle = "Stat Block.xsl";

    // "<temp>/xml/<Kind>", made if missing.
    static QString WorkingFolder(const QString& kind);
    // The user's folder first, then the installed one.
    static QStringList StyleSheetFolders(const QString& kind);
    // Names of the kind's style sheets ("Stat Block.xsl", ...), each once, sorted.
    static QStringList StyleSheetNames(const QString& kind);
    // The path of the named sheet (".xsl" may be left off); empty if there is none.
    static QString FindStyleSheet(const QString& kind, const QString& name);
    // The transformer allowed to import from the installed and the user's style sheets.
    static DXslTransform Transformer();

    // Writes the character's document to the working "tmp.xml", naming `styleName` in it, and
    // applies the style sheet to it. False with `error` set.
    static bool Render(DCharacter* character, const QString& styleName, QByteArray& result,
                       QString& error);
    // Render with "Stat Block.xsl" whose result also goes to the working "block.txt".
    static bool BuildStatBlock(DCharacter* character, QString& text, QString& error);
    // The dice window's rolls through the Roll kind's stat block into its "block.txt".
    static bool BuildRollStatBlock(const QList<DRollXml::RollList>& lists, QString& error);

    // HTML that QTextDocument shows as the sheet meant it: a text result goes in <pre>.
    static QString ToHtml(const QByteArray& result, const QString& outputMethod);
    // Replaces `path` whole or leaves it as it was.
    static bool SaveBytes(const QByteArray& bytes, const QString& path, QString& error);
    // Lays the HTML out on A4/Letter pages and saves it as PDF. Needs a QGuiApplication.
    static bool SavePdf(const QString& html, const QString& path, QString& error);

private:
    static bool WriteWorkingFile(const QByteArray& bytes, const QString& path, QString& error);
};
