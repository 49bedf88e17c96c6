#include "DFailureReporter.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>

#include <cstdio>

namespace {
int gReportCount = 0;
QString& lastCaption() {
    static QString caption;
    return caption;
}
QString& lastText() {
    static QString text;
    return text;
}
bool gQuiet = false;

bool hasScreen() {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           QGuiApplication::primaryScreen() &&
           QGuiApplication::platformName() != QLatin1String("offscreen");
}
} // namespace

void DFailureReporter::Report(const QString& caption, const QString& text) {
    ++gReportCount;
    lastCaption() = caption;
    lastText() = text;
    if (hasScreen()) {
        QMessageBox::warning(nullptr, caption, text);
        return;
    }
    if (!gQuiet)
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(caption), qUtf8Printable(text));
}

int DFailureReporter::GetReportCount() {
    return gReportCount;
}
QString DFailureReporter::GetLastCaption() {
    return lastCaption();
}
QString DFailureReporter::GetLastText() {
    return lastText();
}

void DFailureReporter::ResetReports() {
    gReportCount = 0;
    lastCaption().clear();
    lastText().clear();
}

void DFailureReporter::SetQuiet(bool quiet) {
    gQuiet = quiet;
}
