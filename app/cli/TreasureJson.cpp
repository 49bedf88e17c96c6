#include "TreasureJson.h"

#include "DCurrency.h"
#include "DCursedItemGenerator.h"
#include "DDatabase.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DItem.h"
#include "DItemType.h"
#include "DMagicItemInfo.h"
#include "DRulesQuery.h"
#include "DScrollInfo.h"
#include "DSpell.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QStringList>

namespace {

QString SpellName(const QUuid& spell) {
    QString name;
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                                          DRulesQuery::Table(kTableSpell).constData(),
                                          DRulesQuery::Guid(spell).constData()),
                        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QJsonValue ClassOf(const DItem& item) {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    static const char* const kClasses[] = {"minor", "medium", "major"};
    const int quality = magic ? magic->GetQualityType() : 0;
    return quality >= 1 && quality <= 3 ? QJsonValue(QLatin1String(kClasses[quality - 1]))
                                        : QJsonValue();
}

} // namespace

QString TreasureJson::ItemName(const DItem& item) {
    const QString name = item.GetItemPrintDescription(true);
    const auto* scroll = FCDynamicCast<DScrollInfo>(item.GetItemInfo());
    if (!scroll)
        return name;
    QStringList spells;
    for (FCObject* object : scroll->GetSpellArray()) {
        if (const auto* spell = FCDynamicCast<DSpell>(object))
            spells << QStringLiteral("%1 (level %2, CL %3)")
                          .arg(SpellName(spell->GetSpellGuid()))
                          .arg(spell->GetSpellLevel())
                          .arg(spell->GetCasterLevel());
    }
    const QString kind =
        scroll->GetSpellCasterType() == 1 ? QStringLiteral("arcane") : QStringLiteral("divine");
    return name + kind + QStringLiteral(": ") + spells.join(QStringLiteral(", "));
}

QString TreasureJson::KindName(const DItem& item) {
    switch (item.GetItemType()) {
    case kItemGem:
        return QStringLiteral("gem");
    case kItemArtObject:
        return QStringLiteral("art");
    case kItemPotion:
        return QStringLiteral("potion");
    case kItemRing:
        return QStringLiteral("ring");
    case kItemRod:
        return QStringLiteral("rod");
    case kItemScroll:
        return QStringLiteral("scroll");
    case kItemStaff:
        return QStringLiteral("staff");
    case kItemWand:
        return QStringLiteral("wand");
    case kItemWondrous:
        return QStringLiteral("wondrous");
    case kItemCustomMagic:
        return item.GetBaseItemType() == kItemWeapon ? QStringLiteral("weapon")
                                                     : QStringLiteral("armor");
    default:
        return QStringLiteral("mundane");
    }
}

double TreasureJson::Gold(const DCurrency& money) {
    return double(money.GetCopperCost()) / 100.0;
}

QJsonObject TreasureJson::Item(const DItem& item) {
    DCurrency value;
    item.GetMarketCost(value);
    const QString curse = DCursedItemGenerator::GetCurseDescription(item);
    QJsonObject object{{"name", ItemName(item)},    {"kind", KindName(item)},
                       {"class", ClassOf(item)},    {"count", item.GetCount()},
                       {"value_gp", Gold(value)},   {"intelligent", item.GetIsIntelligentItem()},
                       {"cursed", !curse.isEmpty()}};
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    if (const auto* mind =
            magic ? FCDynamicCast<DIntelligentData>(magic->GetIntelligentData()) : nullptr) {
        object.insert("ego", DIntelligentItemGenerator::GetItemEgo(item));
        object.insert("alignment", DIntelligentItemGenerator::GetAlignmentName(*mind));
        object.insert("powers",
                      QJsonArray::fromStringList(DIntelligentItemGenerator::GetPowerNames(*mind)));
    }
    if (!curse.isEmpty())
        object.insert("curse", curse);
    return object;
}

QString TreasureJson::ItemLine(const QJsonObject& item) {
    QString notes;
    if (item.contains("ego"))
        notes += QStringLiteral("; intelligent, %1, ego %2: %3")
                     .arg(item["alignment"].toString())
                     .arg(item["ego"].toInt())
                     .arg(item["powers"].toVariant().toStringList().join(QStringLiteral(", ")));
    if (item.contains("curse"))
        notes += QStringLiteral("; cursed: ") + item["curse"].toString();
    return QStringLiteral("%1 (%2%3, %4 gp%5)")
        .arg(item["name"].toString(), item["kind"].toString(),
             item["class"].isNull() ? QString() : QStringLiteral(", ") + item["class"].toString())
        .arg(item["value_gp"].toDouble())
        .arg(notes);
}
