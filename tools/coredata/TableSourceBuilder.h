#pragma once

#include <QString>

// Turns the tab-separated table sources into ready tables. Every source is read and checked
// before anything is written; a fault throws CoreDataError with "FILE:LINE: message".
class TableSourceBuilder {
public:
    // `racesDir` holds the ready races the monster rows must name.
    TableSourceBuilder(const QString& sourceDir, const QString& racesDir);
    void Build(const QString& outputDir) const;

private:
    QString mSourceDir;
    QString mRacesDir;
};
