#pragma once

#include <QString>
#include <QtGlobal>

class FCArchive;

// One weapon or natural attack in an offense group, held by value: which one, and how it is
// used this round.
class DOffenseItem {
public:
    enum : qint32 {
        kOffenseNatural = 0,
        kOffenseWeapon = 1,
    };
    enum : quint32 {
        kOffenseOneHand = 0x1,
        kOffenseTwoHands = 0x2,
        kOffenseDouble = 0x4,
        // The group fights with more than one weapon or attack.
        kOffenseMultiple = 0x8,
        kOffenseMainHand = 0x100,
        kOffensePrimary = 0x200,
        // The weapon is light for its wielder.
        kOffenseLight = 0x800,
        // The off hand holds a light weapon, or the weapon is double.
        kOffenseLightOffHand = 0x1000,
        // A race's natural attack that it makes beside the weapon it carries ("greataxe and
        // gore"): a monster built with its gear has that weapon join the attack's group.
        kOffenseBesideWeapon = 0x2000,
    };

    DOffenseItem() = default;
    DOffenseItem(qint32 type, qint32 id, quint32 flags = 0)
        : mOffenseType(type), mOffenseId(id), mOffenseFlags(flags) {}

    // 0 a natural attack of the character, 1 an inventory weapon.
    qint32 GetOffenseType() const { return mOffenseType; }
    // The attack id, or the inventory key of the weapon.
    qint32 GetOffenseId() const { return mOffenseId; }

    quint32 GetOffenseFlags() const { return mOffenseFlags; }
    void SetOffenseFlags(quint32 flags) { mOffenseFlags = flags; }
    bool HasOffenseFlag(quint32 mask) const { return (mOffenseFlags & mask) != 0; }
    void AddOffenseFlag(quint32 mask) { mOffenseFlags |= mask; }
    void RemoveOffenseFlag(quint32 mask) { mOffenseFlags &= ~mask; }

    // The same attack or weapon, however it is used.
    bool operator==(const DOffenseItem& other) const {
        return mOffenseType == other.mOffenseType && mOffenseId == other.mOffenseId;
    }

    // "Primary" or "Secondary" for a natural attack, "MainHand" or "OffHand" for a weapon.
    QString GetOrderDescription() const;
    // "1 Hand", "Double" or "2 Hands" for a weapon; empty otherwise.
    QString GetHandedDescription() const;

    // Type; id; flags.
    void Serialize(FCArchive& archive);

private:
    qint32 mOffenseType = -1;
    qint32 mOffenseId = -1;
    quint32 mOffenseFlags = 0;
};
