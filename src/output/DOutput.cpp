#include "DOutput.h"

#include "DCharacterXml.h"
#include "DOptions.h"
#include "DXslTransform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QTextDocument>
#include <QTextStream>

QString DOutput::WorkingFolder(const QString& kind) {
    const QString folder = DOptions::GetTempPath() + "/xml/" + kind;
    QDir().mkpath(folder);
    return folder;
}

QStringList DOutput::StyleSheetFolders(const QString& kind) {
    return {DOptions::GetUserDataPath() + "/xml/" + kind, DOptions::mAppPath + "/xml/" + kind};
}

QStringList DOutput::StyleSheetNames(const QString& kind) {
    QStringList names;
    for (const QString& folder : StyleSheetFolders(kind)) {
        for (const QString& name : QDir(folder).entryList({"*.xsl"}, QDir::Files)) {
            if (!names.contains(name))
                names << name;
        }
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

QString DOutput::FindStyleSheet(const QString& kind, const QString& name) {
    const QString file = name.endsWith(QLatin1String(".xsl")) ? name : name + ".xsl";
    // A name is a file in the folder, never a path out of it.
    if (file.contains('/') || file.contains('\\') || file.startsWith('.'))
        return QString();
    for (const QString& folder : StyleSheetFolders(kind)) {
        const QString path = folder + "/" + file;
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

DXslTransform DOutput::Transformer() {
    return DXslTransform({DOptions::GetUserDataPath() + "/xml", DOptions::mAppPath + "/xml"});
}

bool DOutput::Render(DCharacter* character, const QString& styleName, QByteArray& result,
                     QString& error) {
    const QString kind = DCharacterXml::KindWord(character);
    const QString style = FindStyleSheet(kind, styleName);
    if (style.isEmpty()) {
        error = QStringLiteral("no style sheet '%1' for the kind %2 (there are: %3)")
                    .arg(styleName, kind, StyleSheetNames(kind).join(", "));
        return false;
    }
    const QByteArray document = DCharacterXml::ToBytes(character, QFileInfo(style).fileName());
    const QString working = WorkingFolder(kind) + "/tmp.xml";
    if (!WriteWorkingFile(document, working, error))
        return false;
    return Transformer().Apply(document, working, style, result, error);
}

bool DOutput::BuildStatBlock(DCharacter* character, QString& text, QString& error) {
    QByteArray result;
    if (!Render(character, QString::fromLatin1(kStatBlockStyle), result, error))
        return false;
    text = QString::fromUtf8(result);
    return WriteWorkingFile(
        result, WorkingFolder(DCharacterXml::KindWord(character)) + "/block.txt", error);
}

bool DOutput::BuildRollStatBlock(const QList<DRollXml::RollList>& lists, QString& error) {
    const QString kind = QStringLiteral("Roll");
    const QString style = FindStyleSheet(kind, QString::fromLatin1(kStatBlockStyle));
    if (style.isEmpty()) {
        error = QStringLiteral("no style sheet '%1' for the kind Roll").arg(kStatBlockStyle);
        return false;
    }
    QByteArray document;
    {
        QTextStream out(&document);
        DRollXml::Write(lists, out, QFileInfo(style).fileName());
    }
    const QString folder = WorkingFolder(kind);
    QByteArray result;
    return WriteWorkingFile(document, folder + "/tmp.xml", error) &&
           Transformer().Apply(document, folder + "/tmp.xml", style, result, error) &&
           WriteWorkingFile(result, folder + "/block.txt", error);
}

QString DOutput::ToHtml(const QByteArray& result, const QString& outputMethod) {
    if (outputMethod == QLatin1String("html") || outputMethod == QLatin1String("xml"))
        return QString::fromUtf8(result);
    return "<html><body><pre>" + QString::fromUtf8(result).toHtmlEscaped() + "</pre></body></html>";
}

bool DOutput::SaveBytes(const QByteArray& bytes, const QString& path, QString& error) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

// Working files are scratch: rewritten from nothing each time, never synced to disk.
bool DOutput::WriteWorkingFile(const QByteArray& bytes, const QString& path, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        error =
            QStringLiteral("cannot write the working file %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

bool DOutput::SavePdf(const QString& html, const QString& path, QString& error) {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        error = QStringLiteral("PDF output needs the graphical part of Qt (a QGuiApplication)");
        return false;
    }
    // The printer writes as it goes: it writes a scratch file, and the target is replaced
    // whole from it.
    QTemporaryFile scratch(WorkingFolder(QStringLiteral("Print")) + "/XXXXXX.pdf");
    if (!scratch.open()) {
        error = QStringLiteral("cannot make a scratch file in %1").arg(WorkingFolder("Print"));
        return false;
    }
    scratch.close();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(scratch.fileName());
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    QTextDocument document;
    document.setHtml(html);
    document.print(&printer);
    QFile written(scratch.fileName());
    if (!written.open(QIODevice::ReadOnly) || written.size() == 0) {
        error = QStringLiteral("the PDF could not be laid out");
        return false;
    }
    return SaveBytes(written.readAll(), path, error);
}
