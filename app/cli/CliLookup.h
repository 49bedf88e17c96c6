#pragma once

#include <QString>
#include <QStringList>

class DFileObject;

// Finding what a user named on the command line, and suggesting what was meant when nothing
// matches.
class CliLookup {
public:
    CliLookup() = delete;

    // The catalogue entry of the race whose file's base name is `name` (any case), a user race
    // before a core one; null if there is none.
    static DFileObject* FindRace(const QString& name);
    // The base names of the race files, each once.
    static QStringList RaceNames();
    // The `count` names nearest to `name`: a name containing it counts as a near miss, the
    // rest rank by edit distance, without regard to case.
    static QStringList ClosestNames(const QString& name, const QStringList& names, int count);
    // "unknown KIND 'NAME'; closest: A, B, C".
    static QString UnknownName(const QString& kind, const QString& name,
                               const QStringList& closest);
};
