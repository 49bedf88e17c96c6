#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

// The rule rows a user can name as an item: mundane weapons, armor, shields and goods, and
// the magic items that have rows of their own (potions, rings, rods, staffs, wondrous items).
class ItemCatalogue {
public:
    ItemCatalogue() = delete;

    struct Entry {
        QUuid guid;
        QString name;
        int itemType = 0;
        int cost = 0;
        int coinType = 2;
        float weight = 0;
    };

    // The item types of a kind word ("weapon", "armor", "shield", "goods", "potion", "ring",
    // "rod", "staff", "wondrous"); an empty word takes them all. False for an unknown word.
    static bool TypesOfKind(const QString& kind, QList<int>& types);
    static QStringList KindNames();
    static QString KindName(int itemType);
    // Every row of the types, by kind then name.
    static QList<Entry> Entries(const QList<int>& types);
    // The row of that name (any case) among all kinds; false with `error` offering the
    // closest names otherwise.
    static bool Find(const QString& name, Entry& found, QString& error);
};
