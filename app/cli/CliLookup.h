#pragma once

#include <QString>
#include <QStringList>

// Finding what a user named on the command line, and suggesting what was meant when nothing
// matches.
class CliLookup {
public:
    CliLookup() = delete;
    // The base names of the race files, each once.
    static QStringList RaceNames();
    // The `count` names nearest to `name`: a name containing it counts as a near miss, the
    // rest rank by edit distance, without regard to case.
    static QStringList ClosestNames(const QString& name, const QStringList& names, int count);
    // "unknown KIND 'NAME'; closest: A, B, C".
    static QString UnknownName(const QString& kind, const QString& name,
                               const QStringList& closest);
};
