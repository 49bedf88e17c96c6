#include "DHandBook.h"

#include "DCharacter.h"
#include "DCoinData.h"
#include "DCoinInfo.h"
#include "DCurrency.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DItemInfo.h"
#include "DItemType.h"
#include "DPotionInfo.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DScrollInfo.h"
#include "DSizeInfo.h"
#include "DSpell.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "ResultSet.h"

#include <cmath>

namespace {

// Creatures of this type pay the normal price for arms and armor; any other shape pays double.
constexpr QUuid kHumanoidShapeType = DRuleGuids::Guid("{98A55D06-667B-4897-9F3B-E643FBE82CAD}");

constexpr int kTableTable810Weapons = 62;
constexpr int kTableTable83ArmorShields = 54;
constexpr int kTablePotions = 73;
constexpr int kTableRings = 75;
constexpr int kTableRods = 77;
constexpr int kTableStaffs = 84;
constexpr int kTableMagicItemTypes = 127;
constexpr int kTableCreatureTreasure = 133;

// The size records of `from` and `to` when an item of size `from` is made at size `to`.
bool SizeFactors(const DItemInfo* info, int size, const DSizeInfo*& from, const DSizeInfo*& to) {
    if (size == -1 || !info->CanBeResized() || info->GetSizeType() == size)
        return false;
    from = DDatabase::GetSizeInfo(info->GetSizeType());
    to = DDatabase::GetSizeInfo(size);
    return from && to;
}

// Magic ammunition is priced by this many missiles.
constexpr int kAmmunitionPerPrice = 50;

// "SELECT CoinCount, CoinType" of the row with the item's GUID; a count of 0 without one.
void ReadPriceRow(int table, const QUuid& guid, DCoinData* out) {
    const QString sql = QString::asprintf("SELECT CoinCount, CoinType FROM %s WHERE (Guid=%s)",
                                          DRulesQuery::Table(table).constData(),
                                          DRulesQuery::Guid(guid).constData());
    DDatabase::FirstRow(sql, [out](odbc::ResultSet* row) { out->SetData(row); });
}

// The spell's material cost in gold; -1 when the spell has no row.
int SpellMaterialCost(const QUuid& spell) {
    int cost = -1;
    if (spell.isNull())
        return cost;
    DDatabase::FirstRow(QString::asprintf("SELECT MaterialCost FROM %s WHERE (Guid=%s)",
                                          DRulesQuery::Table(kTableSpell).constData(),
                                          DRulesQuery::Guid(spell).constData()),
                        [&cost](odbc::ResultSet* row) { cost = row->getInt("MaterialCost"); });
    return cost;
}

int SpellItemFactor(int itemType) {
    switch (itemType) {
    case kItemPotion:
        return 50;
    case kItemScroll:
        return 25;
    case kItemWand:
        return 750;
    default:
        return 0;
    }
}

void WandCost(const DWandInfo* wand, DCoinData* out) {
    DHandBook::ComputeMagicSpellItemCost(kItemWand, wand->GetSpellLevel(), wand->GetCasterLevel(),
                                         out);
    int cost = int(double(out->GetCoinCount()) * wand->GetCharges() * 0.02);
    const int material = SpellMaterialCost(wand->GetSpellGuid());
    if (material >= 0)
        cost = material * wand->GetCharges() + cost;
    out->SetCoinCount(cost);
}

// Coins of one type in copper; coin types run copper 0 to platinum 3, each worth ten of the last.
qint64 InCopper(const DCoinData& coins) {
    qint64 value = coins.GetCoinCount();
    for (int type = kCoinCopper; type < coins.GetCoinType(); ++type)
        value *= 10;
    return value;
}

// A copper amount in the largest of gold, silver and copper that holds it whole.
void SetFromCopper(qint64 copper, DCoinData* out) {
    int type = kCoinCopper;
    while (type < kCoinGold && copper % 10 == 0 && copper != 0) {
        copper /= 10;
        ++type;
    }
    out->SetCoinCount(int(copper));
    out->SetCoinType(copper == 0 ? kCoinGold : type);
}

void ScrollCost(const DScrollInfo* scroll, DCoinData* out) {
    qint64 copper = 0;
    for (FCObject* object : scroll->GetSpellArray()) {
        DCoinData spellCost;
        DHandBook::ComputeSpellCost(FCDynamicCast<DSpell>(object), &spellCost);
        copper += InCopper(spellCost);
    }
    SetFromCopper(copper, out);
}

// The price row of an enhancement of `bonus`, in copper; none beyond the table.
qint64 BonusPrice(int priceType, int bonus, int table) {
    DCoinData row;
    DHandBook::GetMagicBonusCostFromTable(priceType, bonus, table, &row);
    return InCopper(row);
}

} // namespace

DItemInfo* DHandBook::BuildItemInfo(int itemType, const QUuid& guid) {
    return DItemInfo::CreateFromDatabase(itemType, guid);
}

void DHandBook::ComputeItemCost(DItemInfo* info, DCharacter* forCharacter, unsigned flags, int size,
                                DCoinData& out) {
    if (!info) {
        out = DCoinData();
        return;
    }
    float price = float(info->GetCost());
    const DRace* race = forCharacter ? forCharacter->GetRace() : nullptr;
    if (race && DIsCoreItemType(info->GetItemType()) && info->GetItemType() != kItemGoods &&
        race->GetClassGuid() != kHumanoidShapeType)
        price *= 2;
    const DSizeInfo* from = nullptr;
    const DSizeInfo* to = nullptr;
    if (SizeFactors(info, size, from, to) && from->GetCostMod() != 0)
        price = std::ceil(to->GetCostMod() / from->GetCostMod() * price);
    int cost = int(price);
    if (flags & 0x1)
        cost = info->ComputeMasterWorkCost(cost);
    out.SetCoinCount(cost);
    out.SetCoinType(info->GetCostCoinType());
}

float DHandBook::ComputeItemWeight(DItemInfo* info, DCharacter*, int size) {
    if (!info)
        return 0;
    const DSizeInfo* from = nullptr;
    const DSizeInfo* to = nullptr;
    if (SizeFactors(info, size, from, to) && from->GetWeightMod() != 0)
        return to->GetWeightMod() / from->GetWeightMod() * info->GetWeight();
    return info->GetWeight();
}

void DHandBook::ComputeCustomMagicItemCost(DCustomMagicItemInfo* item, int size, DCoinData* out) {
    if (!item || !out)
        return;
    DCoinData base;
    ComputeItemCost(item->GetBaseItemInfo(), nullptr, item->GetCustomFlags(), size, base);
    out->SetCoinType(base.GetCoinType());
    const int baseType = item->GetBaseItemInfo() ? item->GetBaseItemInfo()->GetItemType() : -1;
    const int priceType = baseType == kItemShield ? 2 : 1;
    const int table = baseType == kItemWeapon ? kTableTable810Weapons : kTableTable83ArmorShields;
    const bool specific = item->HasCustomFlag(DCustomMagicItemInfo::kCustomFlagSpecific);
    const int bonus = item->GetBonus();
    if (bonus < 0) {
        if (specific) {
            out->SetCoinCount(base.GetCoinCount());
            return;
        }
        const double raw = 0.3 * bonus * bonus * 1000 + base.GetCoinCount() + 50;
        out->SetCoinCount(int(raw * 0.01) * 100);
        return;
    }
    // The abilities go with the first head; a specific item's name bonus costs nothing.
    qint64 magic = BonusPrice(priceType, bonus + item->GetSpecialAbilityBonus(), table);
    if (specific)
        magic -= BonusPrice(priceType, bonus, table);
    // A double weapon's second head is enhanced, and paid for, on its own.
    if (item->GetSecondBonus() > 0)
        magic += BonusPrice(priceType, item->GetSecondBonus(), table);
    // The table prices magic ammunition by the 50 missiles: a row of fewer pays its share.
    const auto* weapon = FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo());
    if (weapon && weapon->GetUseType() == DWeaponInfo::kUseAmmunition)
        magic = magic * weapon->GetOffenseCount() / kAmmunitionPerPrice;
    SetFromCopper(InCopper(base) + magic, out);
}

void DHandBook::GetMagicBonusCostFromTable(int itemType, int bonus, int table, DCoinData* out) {
    if (!out)
        return;
    out->SetCoinCount(0);
    const QString sql =
        QString::asprintf("SELECT CoinCount, CoinType FROM %s WHERE (ItemType=%d) AND (Bonus=%d)",
                          DRulesQuery::Table(table).constData(), itemType, bonus);
    DDatabase::FirstRow(sql, [out](odbc::ResultSet* row) { out->SetData(row); });
}

void DHandBook::ComputeMagicSpellItemCost(int itemType, int spellLevel, int casterLevel,
                                          DCoinData* out) {
    if (!out)
        return;
    const int base = casterLevel * SpellItemFactor(itemType);
    // A 0-level spell counts as half a level: an odd half is paid in silver (12 gp 5 sp).
    if (spellLevel == 0 && base % 2 != 0) {
        out->SetCoinCount(base * 5);
        out->SetCoinType(kCoinSilver);
        return;
    }
    out->SetCoinCount(spellLevel == 0 ? base / 2 : base * spellLevel);
    out->SetCoinType(kCoinGold);
}

void DHandBook::ComputeSpellCost(DSpell* spell, DCoinData* out) {
    if (!spell || !out)
        return;
    ComputeMagicSpellItemCost(kItemScroll, spell->GetSpellLevel(), spell->GetCasterLevel(), out);
    const int material = SpellMaterialCost(spell->GetSpellGuid());
    if (material > 0)
        SetFromCopper(InCopper(*out) + InCopper(DCoinData(material, kCoinGold)), out);
}

void DHandBook::ComputeMagicItemCost(DMagicItemInfo* item, DCoinData* out) {
    if (!item || !out)
        return;
    out->SetCoinCount(0);
    switch (item->GetItemType()) {
    case kItemPotion: {
        const auto* potion = static_cast<DPotionInfo*>(item);
        if (potion->GetItemGuid().isNull())
            ComputeMagicSpellItemCost(kItemPotion, potion->GetSpellLevel(),
                                      potion->GetCasterLevel(), out);
        else
            ReadPriceRow(kTablePotions, potion->GetItemGuid(), out);
        break;
    }
    case kItemRing:
        ReadPriceRow(kTableRings, item->GetItemGuid(), out);
        break;
    case kItemRod:
        ReadPriceRow(kTableRods, item->GetItemGuid(), out);
        break;
    case kItemScroll:
        ScrollCost(static_cast<DScrollInfo*>(item), out);
        break;
    case kItemStaff:
        ReadPriceRow(kTableStaffs, item->GetItemGuid(), out);
        // The table prices a full staff of 50 charges.
        out->SetCoinCount(
            int(static_cast<DStaffInfo*>(item)->GetCharges() * 0.02 * out->GetCoinCount()));
        break;
    case kItemWand:
        WandCost(static_cast<DWandInfo*>(item), out);
        break;
    case kItemWondrous:
        ReadPriceRow(kTableWondrousItems, item->GetItemGuid(), out);
        break;
    default:
        break;
    }
}

int DHandBook::GetMinCasterLevel(const QUuid& classId, int spellLevel) {
    int level = -1;
    DDatabase::FirstRow(
        QString::asprintf("SELECT MIN([SubId]) AS MinLevel FROM %s WHERE (Id=%s) AND ([%d]>=0)",
                          DRulesQuery::Table(kTableSpellsPerDay).constData(),
                          DRulesQuery::Guid(classId).constData(), spellLevel),
        [&level](odbc::ResultSet* row) {
            const int min = row->getInt("MinLevel");
            if (!row->wasNull())
                level = min;
        });
    return level;
}

int DHandBook::GetMaxSpellLevelCanCast(const QUuid& classId) {
    int lastLevel = -1;
    DDatabase::FirstRow(QString::asprintf("SELECT MAX([SubId]) AS MaxLevel FROM %s WHERE (Id=%s)",
                                          DRulesQuery::Table(kTableSpellsPerDay).constData(),
                                          DRulesQuery::Guid(classId).constData()),
                        [&lastLevel](odbc::ResultSet* row) {
                            const int max = row->getInt("MaxLevel");
                            if (!row->wasNull())
                                lastLevel = max;
                        });
    int result = -1;
    if (lastLevel < 0)
        return result;
    DDatabase::FirstRow(QString::asprintf("SELECT * FROM %s WHERE (Id=%s) AND (SubId=%d)",
                                          DRulesQuery::Table(kTableSpellsPerDay).constData(),
                                          DRulesQuery::Guid(classId).constData(), lastLevel),
                        [&result](odbc::ResultSet* row) {
                            for (int spellLevel = 9; spellLevel >= 0; --spellLevel) {
                                if (row->getInt(QByteArray::number(spellLevel).constData()) > 0) {
                                    result = spellLevel;
                                    return;
                                }
                            }
                        });
    return result;
}

bool DHandBook::CanMagicItemTypeBeIntelligent(int magicType) {
    bool can = false;
    DDatabase::FirstRow(
        QString::asprintf("SELECT CanBeIntelligent FROM %s WHERE (Id=%d)",
                          DRulesQuery::Table(kTableMagicItemTypes).constData(), magicType),
        [&can](odbc::ResultSet* row) { can = row->getBoolean("CanBeIntelligent"); });
    return can;
}

int DHandBook::GetItemTypeForMagicType(int magicType) {
    if (magicType >= 1 && magicType <= 7)
        return magicType + 4;
    switch (magicType) {
    case 9:
    case 12:
        return kItemWeapon;
    case 10:
    case 13:
        return kItemArmor;
    case 11:
    case 14:
        return kItemShield;
    default:
        return kItemGeneric;
    }
}

QString DHandBook::BuildCoinString(int count, int coinType) {
    return DCurrency::BuildCoinString(count, coinType);
}

QString DHandBook::BuildTreasureString(int treasureType, int percent) {
    QString text;
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Id=%d)",
                                          DRulesQuery::Table(kTableCreatureTreasure).constData(),
                                          treasureType),
                        [&text](odbc::ResultSet* row) { text = row->getString("Name"); });
    if (!text.isEmpty() && (treasureType == 3 || treasureType == 4))
        text += QStringLiteral(" (%1%)").arg(percent);
    return text;
}
