#include "ItemCatalogue.h"

#include "CliLookup.h"
#include "DDatabase.h"
#include "DItemType.h"
#include "DRulesQuery.h"
#include "ResultSet.h"

namespace {

struct Kind {
    const char* word;
    int itemType;
};

constexpr Kind kKinds[] = {
    {"weapon", kItemWeapon}, {"armor", kItemArmor},   {"shield", kItemShield},
    {"goods", kItemGoods},   {"potion", kItemPotion}, {"ring", kItemRing},
    {"rod", kItemRod},       {"staff", kItemStaff},   {"wondrous", kItemWondrous},
};

void AddRows(int itemType, QList<ItemCatalogue::Entry>& out) {
    const int table = DDatabase::GetItemTypeTableId(itemType);
    if (table < 0)
        return;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Guid, Name, CoinCount, CoinType, Weight FROM %s ORDER BY Name",
                          DRulesQuery::Table(table).constData()),
        [&out, itemType](odbc::ResultSet* row) {
            out.append({row->getGUID(1), row->getString(2), itemType, row->getInt(3),
                        row->getInt(4), row->getFloat(5)});
        });
}

} // namespace

bool ItemCatalogue::TypesOfKind(const QString& kind, QList<int>& types) {
    types.clear();
    for (const Kind& entry : kKinds) {
        if (kind.isEmpty() || kind.compare(QLatin1String(entry.word), Qt::CaseInsensitive) == 0)
            types << entry.itemType;
    }
    return !types.isEmpty();
}

QStringList ItemCatalogue::KindNames() {
    QStringList names;
    for (const Kind& entry : kKinds)
        names << QLatin1String(entry.word);
    return names;
}

QString ItemCatalogue::KindName(int itemType) {
    for (const Kind& entry : kKinds) {
        if (entry.itemType == itemType)
            return QLatin1String(entry.word);
    }
    return QStringLiteral("item");
}

QList<ItemCatalogue::Entry> ItemCatalogue::Entries(const QList<int>& types) {
    QList<Entry> entries;
    for (const int type : types)
        AddRows(type, entries);
    return entries;
}

bool ItemCatalogue::Find(const QString& name, Entry& found, QString& error) {
    QList<int> all;
    TypesOfKind(QString(), all);
    const QList<Entry> entries = Entries(all);
    QStringList names;
    for (const Entry& entry : entries) {
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0) {
            found = entry;
            return true;
        }
        names << entry.name;
    }
    error = CliLookup::UnknownName(QStringLiteral("item"), name,
                                   CliLookup::ClosestNames(name, names, 3));
    return false;
}
