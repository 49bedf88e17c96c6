#pragma once

#include <QString>

// The one way a database failure reaches the user: a warning box when a GUI is running, one
// line on standard error otherwise, so command-line runs and tests never block on a dialog.
class DFailureReporter {
public:
    static void Report(const QString& caption, const QString& text);

    // What was reported last and how often, for callers that must turn a failure into an exit
    // status or a test that must see exactly one report.
    static int GetReportCount();
    static QString GetLastCaption();
    static QString GetLastText();
    static void ResetReports();
    // Keeps reports off standard error (tests that provoke failures on purpose).
    static void SetQuiet(bool quiet);
};
