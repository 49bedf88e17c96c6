#pragma once

#include <QJsonObject>
#include <QString>

class DCurrency;
class DItem;

// How the treasure commands show an item: its name and one JSON object, shared by the hoards
// of "treasure" and the single items of "magic-item".
class TreasureJson {
public:
    TreasureJson() = delete;

    // The item's printed name; a scroll lists its spells with level and caster level.
    static QString ItemName(const DItem& item);
    // "weapon", "armor", "potion", ... "gem", "art" or "mundane".
    static QString KindName(const DItem& item);
    // {"name","kind","class","count","value_gp","intelligent","cursed"}, and "ego",
    // "alignment", "powers" for an intelligent item, "curse" for a cursed one.
    static QJsonObject Item(const DItem& item);
    // One line: "NAME (KIND, CLASS, VALUE gp)".
    static QString ItemLine(const QJsonObject& item);
    static double Gold(const DCurrency& money);
};
