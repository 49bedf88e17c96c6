#pragma once

#include <QString>

// Runs the rules database tool as the build does and reports how it ended.
struct RulesDbRun {
    int exitCode = -1;
    QString errorText; // standard error, trimmed

    static RulesDbRun run(const QString& sourceDir, const QString& output);

    // The sources of the project, which the tests copy or build from.
    static QString projectSources();
};
