#pragma once

#include <QList>
#include <QString>
#include <QUuid>

class DCharacter;

// Whether a character may take a level of a class: a fallen class takes none until it atones,
// and a prestige class asks its entry requirements of a character who does not hold it yet.
class DClassEntryRules {
public:
    DClassEntryRules() = delete;

    // Why the level is refused, in one sentence; empty when it may be taken.
    static QString Refusal(DCharacter& character, const QUuid& classGuid);
    // The base and prestige classes a character may choose from, by name.
    static QList<QUuid> ClassesToOffer();
};
