#pragma once

#include <QByteArray>
#include <QString>
#include <QTextStream>

class DRace;

// The `races` document of one race: what the race editor exports.
class DRaceXml {
public:
    DRaceXml() = delete;

    static void Write(const DRace& race, QTextStream& out, const QString& styleSheet);
    static QByteArray ToBytes(const DRace& race, const QString& styleSheet);
};
