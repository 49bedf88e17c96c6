#include "DTreasureGenerator.h"

#include "DCoinData.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DHandBook.h"
#include "DItemType.h"
#include "DMagicItemInfo.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "DSimpleItemInfo.h"
#include "DTreasure.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <algorithm>
#include <functional>

namespace {

constexpr int kTableCoins = 42;
constexpr int kTableTreasureGoods = 43;
constexpr int kTableItems = 44;
constexpr int kTableExtraItems = 45;
constexpr int kTableGemInfo = 46;
constexpr int kTableGems = 47;
constexpr int kTableArtInfo = 48;
constexpr int kTableArt = 49;
constexpr int kTableMundane = 50;
constexpr int kTableMagicKind = 53;
constexpr int kTableArmorShieldBonus = 54;
constexpr int kTableArmorType = 55;
constexpr int kTableShieldType = 56;
constexpr int kTableWeaponBonus = 62;
constexpr int kTableWeaponType = 63;
constexpr int kTablePotions = 74;
constexpr int kTableRings = 76;
constexpr int kTableRods = 78;
constexpr int kTableStaffs = 85;
constexpr int kTableWondrous[] = {89, 90, 91};
constexpr int kMaxLevel = 20;
constexpr int kMaxExtraLevel = 30;

// Creature treasure entries.
enum {
    kEntryStandard = 2,
    kEntryPercentCoins = 3,
    kEntryChance = 4,
    kEntryDouble = 5,
    kEntryTriple = 6
};

QByteArray Table(int table) {
    return DRulesQuery::Table(table);
}

int Percentile() {
    return DDieRoller::RollDie(100);
}

// The first row of `table` whose Min and Max hold a new percentile roll, with `where` added.
bool RollRow(int table, const QString& where, const std::function<void(odbc::ResultSet*)>& read,
             const QString& prefix = QString()) {
    const int roll = Percentile();
    QString sql = QString::asprintf("SELECT * FROM %s WHERE ", Table(table).constData());
    if (!where.isEmpty())
        sql += where + QStringLiteral(" AND ");
    sql += QStringLiteral("(%1Min<=%2) AND (%1Max>=%2)").arg(prefix).arg(roll);
    return DDatabase::FirstRow(sql, read);
}

int RollDice(odbc::ResultSet* row) {
    const int count = row->getInt("DieCount");
    return count > 0 ? DDieRoller::RollDiceSum(row->getInt("DieType"), unsigned(count)) : 0;
}

// A treasure item at the list price of its row, `count` of them.
void AddListedItem(DTreasure* treasure, DItemInfo* info, int count, bool masterwork) {
    if (!info)
        return;
    DCoinData unit;
    DHandBook::ComputeItemCost(info, nullptr, masterwork ? 1 : 0, -1, unit);
    FCRef<DItem> item(new DItem);
    item->SetItemInfo(info);
    item->SetCount(std::max(count, 1));
    item->SetItemFlags(masterwork ? quint32(DItem::kItemFlagMasterwork) : 0u);
    item->SetMarketCost(unit.GetCoinCount() * item->GetCount(), unit.GetCoinType());
    treasure->AddItem(item.get());
}

void AddPricedItem(DTreasure* treasure, DItemInfo* info, const DCoinData& price) {
    FCRef<DItem> item(new DItem);
    item->SetItemInfo(info);
    item->SetMarketCost(price.GetCoinCount(), price.GetCoinType());
    treasure->AddItem(item.get());
}

// The GUID in `column` of a roll on a plain Min/Max table; null without a row.
QUuid RollGuid(int table, const char* column, bool* masterwork = nullptr) {
    QUuid guid;
    RollRow(table, QString(), [&](odbc::ResultSet* row) {
        guid = row->getGUID(column);
        if (masterwork)
            *masterwork = row->getBoolean("IsMasterwork");
    });
    return guid;
}

void PickMundaneWeapon(DTreasure* treasure, int type) {
    bool masterwork = false;
    QUuid guid;
    switch (type) {
    case 5:
        guid = RollGuid(51, "ItemId", &masterwork);
        break;
    case 6:
        guid = RollGuid(52, "ItemId", &masterwork);
        break;
    case 7:
        guid = RollGuid(64, "ItemId", &masterwork);
        break;
    case 8:
        guid = RollGuid(65, "ItemId", &masterwork);
        break;
    case 9: {
        bool ammunition = false;
        RollRow(66, QString(), [&](odbc::ResultSet* row) {
            guid = row->getGUID("ItemId");
            masterwork = row->getBoolean("IsMasterwork");
            ammunition = row->getBoolean("PickAmmunition");
        });
        if (ammunition)
            guid = RollGuid(67, "ItemId", &masterwork);
        break;
    }
    default:
        return;
    }
    if (auto* info = static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)))
        AddListedItem(treasure, info, 1, masterwork);
}

// A magic weapon, armor or shield: the bonus row of the class, then a random base item.
void PickMagicArms(DTreasure* treasure, int treasureType, bool weapon) {
    const QString prefix = DTreasureGenerator::GetMinorMediumMajorPrefix(treasureType);
    int itemType = 0, bonus = 0;
    RollRow(
        weapon ? kTableWeaponBonus : kTableArmorShieldBonus, QString(),
        [&](odbc::ResultSet* row) {
            itemType = row->getInt("ItemType");
            bonus = row->getInt("Bonus");
        },
        prefix);
    if (bonus <= 0)
        return;
    QUuid base;
    int baseType = kItemWeapon;
    if (weapon) {
        int kind = 0;
        RollRow(kTableWeaponType, QString(),
                [&kind](odbc::ResultSet* row) { kind = row->getInt("ItemType"); });
        bool masterwork = false;
        base = kind == 7   ? RollGuid(64, "ItemId", &masterwork)
               : kind == 8 ? RollGuid(65, "ItemId", &masterwork)
                           : RollGuid(66, "ItemId", &masterwork);
    } else {
        baseType = itemType == 2 ? kItemShield : kItemArmor;
        base = RollGuid(baseType == kItemShield ? kTableShieldType : kTableArmorType, "ItemId");
    }
    FCRef<DItemInfo> info(base.isNull() ? nullptr : DHandBook::BuildItemInfo(baseType, base));
    if (!info)
        return;
    FCRef<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
    custom->SetBaseItemInfo(info.get());
    custom->SetBonus(bonus);
    custom->SetCustomFlags(0x1);
    custom->SetMagicType(weapon ? 9 : baseType == kItemShield ? 11 : 10);
    custom->SetQualityType(treasureType - DTreasureGenerator::kTreasureMundane);
    DCoinData price;
    DHandBook::ComputeCustomMagicItemCost(custom.get(), -1, &price);
    AddPricedItem(treasure, custom.get(), price);
}

// A magic item named by a row of a kind table and priced by its own row.
void PickNamedMagicItem(DTreasure* treasure, int treasureType, int itemType, int table,
                        const char* column, const QString& prefix) {
    QUuid guid;
    RollRow(
        table, QString(), [&](odbc::ResultSet* row) { guid = row->getGUID(column); }, prefix);
    FCRef<DItemInfo> info(guid.isNull() ? nullptr : DHandBook::BuildItemInfo(itemType, guid));
    auto* magic = FCDynamicCast<DMagicItemInfo>(info.get());
    if (!magic)
        return;
    magic->SetQualityType(treasureType - DTreasureGenerator::kTreasureMundane);
    DCoinData price;
    DHandBook::ComputeMagicItemCost(magic, &price);
    AddPricedItem(treasure, magic, price);
}

void GenerateFor(DTreasure* treasure, int level, int extra, int times) {
    for (int i = 0; i < times; ++i) {
        DTreasureGenerator::GenerateItems(treasure, level);
        if (extra > 0)
            DTreasureGenerator::GenerateExtraItems(treasure, extra);
    }
}

} // namespace

QString DTreasureGenerator::GetMinorMediumMajorPrefix(int treasureType) {
    switch (treasureType) {
    case kTreasureMinor:
        return QStringLiteral("Minor");
    case kTreasureMedium:
        return QStringLiteral("Med");
    case kTreasureMajor:
        return QStringLiteral("Major");
    default:
        return QString();
    }
}

void DTreasureGenerator::GenerateTreasure(DTreasure* treasure, int level) {
    if (!treasure || level < 1)
        return;
    const int extra = level > kMaxLevel ? std::min(level, kMaxExtraLevel) : 0;
    level = std::min(level, kMaxLevel);
    GenerateCoins(treasure, level, 100);
    GenerateGoods(treasure, level);
    GenerateItems(treasure, level);
    if (extra > 0)
        GenerateExtraItems(treasure, extra);
}

void DTreasureGenerator::GenerateTreasure(DTreasure* treasure, const DRace* race) {
    if (!treasure || !race)
        return;
    int level = int(std::max(race->GetChallengeRating(), 1.0f));
    const int extra = level > kMaxLevel ? std::min(level, kMaxExtraLevel) : 0;
    level = std::min(level, kMaxLevel);
    auto times = [](int entry) {
        return entry == kEntryStandard ? 1
               : entry == kEntryDouble ? 2
               : entry == kEntryTriple ? 3
                                       : 0;
    };
    const int coins = race->GetTreasureType(0);
    if (coins == kEntryPercentCoins)
        GenerateCoins(treasure, level, race->GetTreasureData(0));
    for (int i = 0; i < times(coins); ++i)
        GenerateCoins(treasure, level, 100);
    const int goods = race->GetTreasureType(1);
    const int goodsTimes =
        goods == kEntryChance ? (Percentile() <= race->GetTreasureData(1) ? 1 : 0) : times(goods);
    for (int i = 0; i < goodsTimes; ++i)
        GenerateGoods(treasure, level);
    const int items = race->GetTreasureType(2);
    GenerateFor(treasure, level, extra,
                items == kEntryChance ? (Percentile() <= race->GetTreasureData(2) ? 1 : 0)
                                      : times(items));
}

void DTreasureGenerator::GenerateCoins(DTreasure* treasure, int level, int percent) {
    int amount = 0, coinType = 2;
    RollRow(kTableCoins, QStringLiteral("(Level=%1)").arg(level), [&](odbc::ResultSet* row) {
        const int count = row->getInt("CoinCount");
        coinType = row->getInt("CoinType");
        amount = count > 0 ? RollDice(row) * count : 0;
    });
    if (amount <= 0)
        return;
    if (percent < 100)
        amount = int(amount * percent * 0.01);
    treasure->AdjustCurrencyAmount(coinType, amount);
}

void DTreasureGenerator::GenerateGoods(DTreasure* treasure, int level) {
    int count = 0, type = 0;
    RollRow(kTableTreasureGoods, QStringLiteral("(Level=%1)").arg(level),
            [&](odbc::ResultSet* row) {
                count = RollDice(row);
                type = row->getInt("TreasureType");
            });
    PickGoods(treasure, count, type);
}

void DTreasureGenerator::GenerateItems(DTreasure* treasure, int level) {
    int count = 0, type = 0;
    RollRow(kTableItems, QStringLiteral("(Level=%1)").arg(level), [&](odbc::ResultSet* row) {
        count = RollDice(row);
        type = row->getInt("TreasureType");
    });
    PickItems(treasure, count, type);
}

void DTreasureGenerator::GenerateExtraItems(DTreasure* treasure, int level) {
    int count = 0;
    DDatabase::FirstRow(QString::asprintf("SELECT * FROM %s WHERE (Level=%d)",
                                          Table(kTableExtraItems).constData(), level),
                        [&count](odbc::ResultSet* row) { count = row->getInt("Count"); });
    PickItems(treasure, count, kTreasureMajor);
}

void DTreasureGenerator::PickGoods(DTreasure* treasure, int count, int treasureType) {
    if (treasureType != kTreasureGems && treasureType != kTreasureArt)
        return;
    const bool gems = treasureType == kTreasureGems;
    for (int i = 0; i < count; ++i) {
        int value = 0, coinType = 2, category = -1;
        RollRow(gems ? kTableGems : kTableArt, QString(), [&](odbc::ResultSet* row) {
            value = RollDice(row) * row->getInt("CoinCount");
            coinType = row->getInt("CoinType");
            category = row->getInt("Category");
        });
        // Each good of the category is equally likely.
        QList<QUuid> goods;
        DDatabase::ForEachRow(
            QString::asprintf("SELECT Guid FROM %s WHERE (Category=%d)",
                              Table(gems ? kTableGemInfo : kTableArtInfo).constData(), category),
            [&goods](odbc::ResultSet* row) { goods << row->getGUID(1); });
        if (goods.isEmpty())
            continue;
        const QUuid guid = goods.at(FC::GetRandom(0, int(goods.size())));
        FCRef<DItemInfo> info(DHandBook::BuildItemInfo(gems ? kItemGem : kItemArtObject, guid));
        if (info)
            AddPricedItem(treasure, info.get(), DCoinData(value, coinType));
    }
}

void DTreasureGenerator::PickItems(DTreasure* treasure, int count, int treasureType) {
    for (int i = 0; i < count; ++i) {
        if (treasureType == kTreasureMundane)
            PickMundaneItem(treasure);
        else if (treasureType >= kTreasureMinor && treasureType <= kTreasureMajor)
            PickMagicItem(treasure, treasureType);
    }
}

void DTreasureGenerator::PickMundaneItem(DTreasure* treasure) {
    int type = 0, count = 0;
    bool masterwork = false;
    QUuid guid;
    QString sizeTable;
    RollRow(kTableMundane, QString(), [&](odbc::ResultSet* row) {
        type = row->getInt("MundaneType");
        masterwork = row->getBoolean("IsMasterwork");
        count = RollDice(row);
        static const char* const kColumns[] = {"WeaponId", "ArmorId", "ShieldId", "GoodsId"};
        if (type >= 1 && type <= 4)
            guid = row->getGUID(kColumns[type - 1]);
        sizeTable = row->getString("SizeTable");
    });
    if (type >= 5 && type <= 9) {
        PickMundaneWeapon(treasure, type);
        return;
    }
    if (type < 1 || type > 4 || guid.isNull())
        return;
    static constexpr int kItemTypes[] = {kItemWeapon, kItemArmor, kItemShield, kItemGoods};
    FCRef<DItemInfo> info(DHandBook::BuildItemInfo(kItemTypes[type - 1], guid));
    if (!info)
        return;
    if (!sizeTable.isEmpty()) {
        int size = -1;
        const int roll = Percentile();
        DDatabase::FirstRow(QString::asprintf("SELECT SizeId FROM %s WHERE (Min<=%d) AND (Max>=%d)",
                                              qUtf8Printable(sizeTable), roll, roll),
                            [&size](odbc::ResultSet* row) { size = row->getInt(1); });
        if (size >= 0 && size != info->GetSizeType()) {
            info->SetSizeType(size);
            info->AddInfoFlag(DItemInfo::kInfoFlagChanged);
        }
    }
    AddListedItem(treasure, info.get(), std::max(count, 1), masterwork);
    if (info->HasInfoFlag(DItemInfo::kInfoFlagChanged))
        treasure->GetItemArray().GetLast()->AddItemFlag(DItem::kItemFlagShowSize);
}

void DTreasureGenerator::PickMagicItem(DTreasure* treasure, int treasureType) {
    const QString prefix = GetMinorMediumMajorPrefix(treasureType);
    int kind = 0;
    RollRow(
        kTableMagicKind, QString(),
        [&kind](odbc::ResultSet* row) { kind = row->getInt("MagicItemType"); }, prefix);
    switch (kind) {
    case 1:
        PickMagicArms(treasure, treasureType, false);
        break;
    case 2:
        PickMagicArms(treasure, treasureType, true);
        break;
    case 3:
        PickNamedMagicItem(treasure, treasureType, kItemPotion, kTablePotions, "SpecificId",
                           prefix);
        break;
    case 4:
        PickNamedMagicItem(treasure, treasureType, kItemRing, kTableRings, "RingId", prefix);
        break;
    case 5:
        PickNamedMagicItem(treasure, treasureType, kItemRod, kTableRods, "ItemId", prefix);
        break;
    case 7:
        PickNamedMagicItem(treasure, treasureType, kItemStaff, kTableStaffs, "ItemId", prefix);
        break;
    case 9:
        PickNamedMagicItem(treasure, treasureType, kItemWondrous,
                           kTableWondrous[std::clamp(treasureType - kTreasureMinor, 0, 2)], "Id",
                           QString());
        break;
    default:
        // Scrolls and wands hold spells drawn from the spell lists: not generated yet.
        break;
    }
}
