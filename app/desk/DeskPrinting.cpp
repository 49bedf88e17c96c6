#include "DeskPrinting.h"

#include "DCharacter.h"
#include "DCharacterXml.h"
#include "DOptions.h"
#include "DOutput.h"
#include "DXslTransform.h"
#include "D_UIPrintStyleDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>

namespace {

constexpr const char* kSheetStyle = "Character Sheet.xsl";
constexpr const char* kHtmlStatBlock = "Stat Block (HTML).xsl";

} // namespace

QString DeskPrinting::StatBlockHtml(DCharacter* character) {
    QByteArray result;
    QString error;
    if (!DOutput::Render(character, QString::fromLatin1(kHtmlStatBlock), result, error))
        return QStringLiteral("<p><b>No stat block:</b> %1</p>").arg(error.toHtmlEscaped());
    return QString::fromUtf8(result);
}

QString DeskPrinting::ChooseStyle(QWidget* parent, DCharacter* character,
                                  const QString& preferred) {
    D_UIPrintStyleDialog dialog(parent);
    dialog.Setup(DCharacterXml::KindWord(character), preferred);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    return dialog.GetStyleName();
}

bool DeskPrinting::RenderHtml(QWidget* parent, DCharacter* character, const QString& style,
                              QString& html) {
    QByteArray result;
    QString error;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool rendered = DOutput::Render(character, style, result, error);
    QApplication::restoreOverrideCursor();
    if (!rendered) {
        QMessageBox::warning(parent, QObject::tr("Output"), error);
        return false;
    }
    const QString sheet = DOutput::FindStyleSheet(DCharacterXml::KindWord(character), style);
    html = DOutput::ToHtml(result, DXslTransform::OutputMethod(sheet));
    return true;
}

void DeskPrinting::Print(QWidget* parent, DCharacter* character) {
    const QString style = ChooseStyle(parent, character, QString::fromLatin1(kSheetStyle));
    QString html;
    if (style.isEmpty() || !RenderHtml(parent, character, style, html))
        return;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QTextDocument document;
    document.setHtml(html);
    document.print(&printer);
}

void DeskPrinting::PrintPreview(QWidget* parent, DCharacter* character, const QString& style) {
    const QString chosen =
        style.isEmpty() ? ChooseStyle(parent, character, QString::fromLatin1(kSheetStyle)) : style;
    QString html;
    if (chosen.isEmpty() || !RenderHtml(parent, character, chosen, html))
        return;
    QTextDocument document;
    document.setHtml(html);
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setObjectName("printPreview");
    preview.resize(900, 700);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&document](QPrinter* target) { document.print(target); });
    preview.exec();
}

void DeskPrinting::Export(QWidget* parent, DCharacter* character) {
    const QString kind = DCharacterXml::KindWord(character);
    const QString folder = DOptions::GetUserDataPath() + "/" + kind;
    QDir().mkpath(folder);
    QString filter;
    QString path = QFileDialog::getSaveFileName(
        parent, QObject::tr("Export"), folder + "/" + character->GetCharacterName(),
        QObject::tr("PDF (*.pdf);;HTML (*.html);;Text (*.txt);;Markdown (*.md);;XML (*.xml)"),
        &filter);
    if (path.isEmpty())
        return;
    // A name without an extension takes the filter's; any other extension stays.
    if (QFileInfo(path).suffix().isEmpty())
        path += "." + filter.section("*.", 1).section(')', 0, 0);
    const QString suffix = QFileInfo(path).suffix().toLower();
    QString error;
    bool saved = false;
    if (suffix == "xml") {
        saved = DCharacterXml::SaveToXML(character, path);
        error = QObject::tr("%1 cannot be written.").arg(path);
    } else {
        const QString preferred = suffix == "md"    ? QStringLiteral("Stat Block (Markdown).xsl")
                                  : suffix == "txt" ? QStringLiteral("Stat Block.xsl")
                                                    : QString::fromLatin1(kSheetStyle);
        const QString style = ChooseStyle(parent, character, preferred);
        QByteArray result;
        if (style.isEmpty())
            return;
        QApplication::setOverrideCursor(Qt::WaitCursor);
        saved = DOutput::Render(character, style, result, error);
        if (saved && suffix == "pdf") {
            const QString sheet = DOutput::FindStyleSheet(kind, style);
            saved = DOutput::SavePdf(DOutput::ToHtml(result, DXslTransform::OutputMethod(sheet)),
                                     path, error);
        } else if (saved) {
            saved = DOutput::SaveBytes(result, path, error);
        }
        QApplication::restoreOverrideCursor();
    }
    if (!saved)
        QMessageBox::warning(parent, QObject::tr("Export"), error);
}
