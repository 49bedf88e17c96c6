#include "DOffenseItem.h"

#include "FCArchive.h"

QString DOffenseItem::GetOrderDescription() const {
    if (mOffenseType == kOffenseNatural)
        return HasOffenseFlag(kOffensePrimary) ? QStringLiteral("Primary")
                                               : QStringLiteral("Secondary");
    if (mOffenseType == kOffenseWeapon)
        return HasOffenseFlag(kOffenseMainHand) ? QStringLiteral("MainHand")
                                                : QStringLiteral("OffHand");
    return {};
}

QString DOffenseItem::GetHandedDescription() const {
    if (mOffenseType != kOffenseWeapon)
        return {};
    if (HasOffenseFlag(kOffenseOneHand))
        return QStringLiteral("1 Hand");
    if (HasOffenseFlag(kOffenseDouble))
        return QStringLiteral("Double");
    if (HasOffenseFlag(kOffenseTwoHands))
        return QStringLiteral("2 Hands");
    return {};
}

void DOffenseItem::Serialize(FCArchive& archive) {
    archive.Transfer(mOffenseType);
    archive.Transfer(mOffenseId);
    archive.Transfer(mOffenseFlags);
}
