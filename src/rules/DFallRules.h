#pragma once

#include <QList>
#include <QUuid>

class DCharacter;

// Which classes may fall and atone: a paladin or druid who breaks his code loses his powers, a
// barbarian who turns lawful his rage. Other classes hold no such loss.
class DFallRules {
public:
    DFallRules() = delete;

    static bool CanFall(const QUuid& classGuid);
    // The character's classes, in the order taken, that may fall now (`fallen` true: those not
    // fallen) or atone (`fallen` false: those fallen).
    static QList<QUuid> ClassesToChange(const DCharacter& character, bool fallen);
};
