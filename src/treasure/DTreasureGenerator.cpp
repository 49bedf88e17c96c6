#include "DTreasureGenerator.h"

#include "DAlignmentInfo.h"
#include "DArmorShieldBaseInfo.h"
#include "DCoinData.h"
#include "DCursedItemGenerator.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DHandBook.h"
#include "DIntelligentData.h"
#include "DIntelligentItemGenerator.h"
#include "DItemType.h"
#include "DMagicItemInfo.h"
#include "DPotionInfo.h"
#include "DRace.h"
#include "DScrollInfo.h"
#include "DSpell.h"
#include "DStaffInfo.h"
#include "DTargetData.h"
#include "DTreasure.h"
#include "DTreasureTables.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <algorithm>

std::unique_ptr<DTreasureTables> DTreasureGenerator::mTables;

namespace {

using Row = DTreasureTables::Row;

constexpr int kTableCoins = 42;
constexpr int kTableTreasureGoods = 43;
constexpr int kTableItems = 44;
constexpr int kTableExtraItems = 45;
constexpr int kTableGemInfo = 46;
constexpr int kTableGems = 47;
constexpr int kTableArtInfo = 48;
constexpr int kTableArt = 49;
constexpr int kTableMundane = 50;
constexpr int kTableShortbows = 51;
constexpr int kTableLongbows = 52;
constexpr int kTableMagicKind = 53;
constexpr int kTableArmorShieldBonus = 54;
constexpr int kTableArmorType = 55;
constexpr int kTableShieldType = 56;
constexpr int kTableArmorAbilityRolls = 57;
constexpr int kTableShieldAbilityRolls = 58;
constexpr int kTableSpecificArmors = 59;
constexpr int kTableSpecificShields = 60;
constexpr int kTableArmorAbilities = 61;
constexpr int kTableWeaponBonus = 62;
constexpr int kTableWeaponType = 63;
constexpr int kTableCommonMelee = 64;
constexpr int kTableUncommon = 65;
constexpr int kTableCommonRanged = 66;
constexpr int kTableAmmunition = 67;
constexpr int kTableMeleeAbilityRolls = 68;
constexpr int kTableRangedAbilityRolls = 69;
constexpr int kTableSpecificWeapons = 70;
constexpr int kTableWeaponAbilities = 71;
constexpr int kTableDesignatedFoe = 72;
constexpr int kTablePotions = 74;
constexpr int kTableRings = 76;
constexpr int kTableRods = 78;
constexpr int kTableScrollTypes = 79;
constexpr int kTableScrollSpellCount = 80;
constexpr int kTableScrollSpellLevel = 81;
constexpr int kTableArcaneScrolls = 82;
constexpr int kTableDivineScrolls = 83;
constexpr int kTableStaffs = 85;
constexpr int kTableWands = 86;
constexpr int kTableWondrous[] = {89, 90, 91};
constexpr int kMaxLevel = 20;
constexpr int kMaxExtraLevel = 30;
// An item's enhancement bonus and the bonus value of its abilities stay within this total.
constexpr int kMaxTotalBonus = 10;
constexpr int kMaxAbilityRounds = 200;
// Charges of a freshly found staff or wand run from 1 to 50.
constexpr int kMaxCharges = 50;
constexpr int kCasterArcane = 1;

// Weapons that name a foe when they are made (the two slaying arrows).
constexpr QUuid kFoeWeapons[] = {
    QUuid(0xCCE80EED, 0xCB40, 0x425D, 0xB4, 0x76, 0x56, 0x9A, 0xCE, 0xE1, 0x61, 0xA8),
    QUuid(0xCCF148B2, 0x0866, 0x48D5, 0xAB, 0xE4, 0xFC, 0x75, 0xD0, 0xB6, 0x6A, 0xC6)};

// Creature treasure entries.
enum {
    kEntryStandard = 2,
    kEntryPercentCoins = 3,
    kEntryChance = 4,
    kEntryDouble = 5,
    kEntryTriple = 6
};

int Percentile() {
    return DDieRoller::RollDie(100);
}

DTreasureTables& Tables() {
    return DTreasureGenerator::Tables();
}

// The row a new percentile roll selects in a plain Min/Max table.
std::optional<Row> Roll(int table) {
    return Tables().Find(table, Percentile());
}

// The same in a table with one range per class of treasure.
std::optional<Row> RollByClass(int table, int treasureType) {
    return Tables().Find(
        table, Percentile(),
        DTreasureGenerator::GetMinorMediumMajorPrefix(treasureType).toLatin1().constData());
}

// The same among the rows of one encounter level.
std::optional<Row> RollAtLevel(int table, int level) {
    return Tables().Find(table, Percentile(), "", "Level", level);
}

int RollDice(const Row& row) {
    const int count = row.Int("DieCount");
    return count > 0 ? DDieRoller::RollDiceSum(row.Int("DieType"), unsigned(count)) : 0;
}

DItem* NewItem(DItemInfo* info, const DCoinData& price) {
    auto* item = new DItem;
    item->SetItemInfo(info);
    item->SetMarketCost(price.GetCoinCount(), price.GetCoinType());
    return item;
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

// The GUID in `column` of a roll on a plain Min/Max table; null without a row.
QUuid RollGuid(int table, const char* column, bool* masterwork = nullptr) {
    const auto row = Roll(table);
    if (!row)
        return QUuid();
    if (masterwork)
        *masterwork = row->Bool("IsMasterwork");
    return row->Guid(column);
}

// A mundane weapon of the mundane types 5 to 9 (bows, common melee, uncommon, ranged).
QUuid PickMundaneWeapon(int type, bool& masterwork) {
    switch (type) {
    case 5:
        return RollGuid(kTableShortbows, "ItemId", &masterwork);
    case 6:
        return RollGuid(kTableLongbows, "ItemId", &masterwork);
    case 7:
        return RollGuid(kTableCommonMelee, "ItemId", &masterwork);
    case 8:
        return RollGuid(kTableUncommon, "ItemId", &masterwork);
    case 9: {
        const auto row = Roll(kTableCommonRanged);
        if (!row)
            return QUuid();
        if (row->Bool("PickAmmunition"))
            return RollGuid(kTableAmmunition, "ItemId", &masterwork);
        masterwork = row->Bool("IsMasterwork");
        return row->Guid("ItemId");
    }
    default:
        return QUuid();
    }
}

// A designated foe: a creature type, narrowed to an alignment for outsiders; null without a row.
DTargetData* PickTargetFoe() {
    const auto row = Roll(kTableDesignatedFoe);
    if (!row)
        return nullptr;
    auto* target = new DTargetData;
    target->SetTargetGuid(row->Guid("Id"));
    QString text = row->String("Name");
    const int alignment = row->Int("AlignId");
    if (alignment > 0) {
        target->SetTargetSubLong(alignment);
        if (const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(alignment))
            text += QStringLiteral(" (%1)").arg(QString(info->GetAlignmentName()));
    }
    target->SetTargetString(FCString(text));
    return target;
}

bool IsRanged(const DItemInfo* base) {
    const auto* weapon = FCDynamicCast<DWeaponInfo>(base);
    return weapon && weapon->GetRangeIncrement() > 0;
}

// Whether a weapon may take the ability: the damage type it needs, and no opposite ability
// (holy and unholy, axiomatic and anarchic) already on it.
bool IsWeaponAbilityLegal(const Row& ability, const DCustomMagicItemInfo* item) {
    const auto* weapon = FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo());
    const int damage = ability.Int("WeaponType");
    if (damage > 0 && weapon && (damage & weapon->GetDamageType()) == 0)
        return false;
    const int category = ability.Int("Category");
    if (category <= 0)
        return true;
    for (int i = 0; i < item->GetSpecialAbilityCount(); ++i) {
        const auto other =
            Tables().FindBy(kTableWeaponAbilities, "Id", item->GetSpecialAbility(i)->GetType());
        if (other && other->Int("OppositeCategory") == category)
            return false;
    }
    return true;
}

// One round of special ability rolls; true if the budget of bonuses is spent.
bool AddOneSpecialAbility(int treasureType, DCustomMagicItemInfo* item, int& count) {
    const int baseType = item->GetBaseItemInfo() ? item->GetBaseItemInfo()->GetItemType() : -1;
    const bool weapon = baseType == kItemWeapon;
    const int rollTable = weapon ? (IsRanged(item->GetBaseItemInfo()) ? kTableRangedAbilityRolls
                                                                      : kTableMeleeAbilityRolls)
                          : baseType == kItemShield ? kTableShieldAbilityRolls
                                                    : kTableArmorAbilityRolls;
    const int valueTable = weapon ? kTableWeaponAbilities : kTableArmorAbilities;
    const auto roll = RollByClass(rollTable, treasureType);
    if (!roll)
        return false;
    const int type = roll->Int("Type");
    const auto ability = Tables().FindBy(valueTable, "Id", type);
    if (!ability)
        return false;
    // "Roll twice more": this roll gives no ability of its own.
    if (roll->Int("Special") == 2)
        count += 2;
    if (type <= 0)
        return false;
    const int bonus = ability->Int("Bonus");
    const int category = ability->Int("Category");
    // Weapons rank an ability by its bonus: a burst outranks the plain energy of its category.
    const int rank = weapon ? bonus : ability->Int("Rank");
    const int total = item->GetBonus() + item->GetSpecialAbilityBonus() + bonus;
    if (weapon && !IsWeaponAbilityLegal(*ability, item)) {
        ++count;
        return total > kMaxTotalBonus - 1;
    }
    DMagicSpecialAbility* same =
        category > 0 ? item->FindSpecialAbilityByCategory(category) : nullptr;
    if (category <= 0 && item->HasSpecialAbility(type)) {
        ++count; // the same ability twice: roll again
    } else if (same) {
        // A stronger ability of the category takes the place of the weaker one.
        if (same->GetRank() < rank &&
            item->GetBonus() - same->GetBonus() + item->GetSpecialAbilityBonus() + bonus <=
                kMaxTotalBonus) {
            item->RemoveSpecialAbility(same->GetType());
            item->AddSpecialAbility(type, category, rank, bonus);
        }
    } else if (total <= kMaxTotalBonus) {
        DMagicSpecialAbility* added = item->AddSpecialAbility(type, category, rank, bonus);
        if (weapon && type == 1) {
            FCRef<DTargetData> foe(PickTargetFoe());
            added->SetTargetData(foe.get());
        }
    }
    return total > kMaxTotalBonus - 1;
}

// The flat prices of abilities priced in coins rather than as a bonus (glamered, slick...).
int AbilityCoinPrice(const DCustomMagicItemInfo* item) {
    const int baseType = item->GetBaseItemInfo() ? item->GetBaseItemInfo()->GetItemType() : -1;
    const int table = baseType == kItemWeapon ? kTableWeaponAbilities : kTableArmorAbilities;
    int coins = 0;
    for (int i = 0; i < item->GetSpecialAbilityCount(); ++i) {
        const auto row = Tables().FindBy(table, "Id", item->GetSpecialAbility(i)->GetType());
        if (row && row->Int("Bonus") <= 0)
            coins += row->Int("CoinCount");
    }
    return coins;
}

DItem* CreateCustomMagicTreasureItem(DCustomMagicItemInfo* custom) {
    DCoinData price;
    DHandBook::ComputeCustomMagicItemCost(custom, -1, &price);
    price.SetCoinCount(price.GetCoinCount() + AbilityCoinPrice(custom));
    return NewItem(custom, price);
}

// A custom magic weapon, armor or shield over `base`. Random magic arms are masterwork; a
// specific item is priced in full by its own row.
DItem* CreateCustomMagicItem(DItemInfo* base, int treasureType, int magicType, int bonus,
                             bool specific, int abilities) {
    if (!base)
        return nullptr;
    FCRef<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
    custom->SetBaseItemInfo(base);
    custom->SetCustomFlags(specific ? quint32(DCustomMagicItemInfo::kCustomFlagSpecific) : 0x1u);
    custom->SetMagicType(magicType);
    custom->SetSubType(DMagicItemInfo::kDefaultSubType);
    custom->SetQualityType(DTreasureGenerator::GetMagicQuality(treasureType));
    custom->SetBonus(bonus);
    const auto* weapon = FCDynamicCast<DWeaponInfo>(base);
    // A double weapon's second head is as good, or one worse, even odds.
    if (weapon && weapon->GetUseType() == 3)
        custom->SetSecondBonus(Percentile() <= 50 ? bonus : bonus - 1);
    if (abilities > 0 && bonus > 0)
        DTreasureGenerator::AddSpecialAbilitiesFromTable(treasureType, custom.get(), abilities);
    if (weapon && std::find(std::begin(kFoeWeapons), std::end(kFoeWeapons), base->GetItemGuid()) !=
                      std::end(kFoeWeapons)) {
        FCRef<DTargetData> foe(PickTargetFoe());
        custom->SetTargetData(foe.get());
    }
    return CreateCustomMagicTreasureItem(custom.get());
}

DItem* PickMagicArmorOrShield(int treasureType, int abilities = 0) {
    const auto row = RollByClass(kTableArmorShieldBonus, treasureType);
    if (!row)
        return nullptr;
    const int itemType = row->Int("ItemType");
    if (itemType == 5)
        return PickMagicArmorOrShield(treasureType, abilities + 1);
    const bool shield = itemType == 2 || itemType == 4;
    QUuid guid;
    switch (itemType) {
    case 1:
        guid = RollGuid(kTableArmorType, "ItemId");
        break;
    case 2:
        guid = RollGuid(kTableShieldType, "ItemId");
        break;
    case 3:
    case 4:
        if (const auto specific =
                RollByClass(shield ? kTableSpecificShields : kTableSpecificArmors, treasureType))
            guid = specific->Guid("ItemId");
        break;
    default:
        return nullptr;
    }
    auto* base = static_cast<DItemInfo*>(shield ? DDatabase::GetShieldInfo(guid)
                                                : DDatabase::GetArmorInfo(guid));
    if (!base)
        return nullptr;
    const bool specific = itemType >= 3;
    const int bonus =
        specific ? static_cast<DArmorShieldBaseInfo*>(base)->GetMagicBonus() : row->Int("Bonus");
    return CreateCustomMagicItem(base, treasureType,
                                 shield ? kMagicCustomShield : kMagicCustomArmor, bonus, specific,
                                 abilities);
}

DItem* PickMagicWeapon(int treasureType, int abilities = 0) {
    const auto row = RollByClass(kTableWeaponBonus, treasureType);
    if (!row)
        return nullptr;
    const int itemType = row->Int("ItemType");
    if (itemType == 3)
        return PickMagicWeapon(treasureType, abilities + 1);
    QUuid guid;
    if (itemType == 1) {
        const auto kind = Roll(kTableWeaponType);
        bool masterwork = false;
        if (kind)
            guid = PickMundaneWeapon(kind->Int("ItemType"), masterwork);
    } else if (itemType == 2) {
        if (const auto specific = RollByClass(kTableSpecificWeapons, treasureType))
            guid = specific->Guid("ItemId");
    } else {
        return nullptr;
    }
    auto* base = static_cast<DWeaponInfo*>(DDatabase::GetWeaponInfo(guid));
    if (!base)
        return nullptr;
    const bool specific = itemType == 2;
    return CreateCustomMagicItem(base, treasureType, kMagicCustomWeapon,
                                 specific ? base->GetMagicBonus() : row->Int("Bonus"), specific,
                                 abilities);
}

// Spell level of a spell item: the row's override, else the spell's level on the caster's
// list, else 1.
int SpellLevelOf(const Row& row, const QUuid& spell, const QUuid& casterClass) {
    const int override = row.Int("OvrLevel");
    if (override > 0)
        return override;
    const int level = Tables().SpellLevel(spell, casterClass);
    return level >= 0 ? level : 1;
}

DItem* PickPotion(int treasureType) {
    const auto row = RollByClass(kTablePotions, treasureType);
    if (!row)
        return nullptr;
    FCRef<DPotionInfo> potion;
    if (row->Int("PotionType") == 1) {
        potion.reset(new DPotionInfo);
        const QUuid spell = row->Guid("SpellId");
        const QUuid casterClass = row->Guid("CasterClass");
        potion->SetSpellGuid(spell);
        potion->SetCasterClassGuid(casterClass);
        const int level = SpellLevelOf(*row, spell, casterClass);
        potion->SetSpellLevel(level);
        const int casterLevel = row->Int("CasterLevel");
        potion->SetCasterLevel(casterLevel >= 1 ? casterLevel
                                                : Tables().MinCasterLevel(casterClass, level));
    } else {
        potion.reset(static_cast<DPotionInfo*>(
            DHandBook::BuildItemInfo(kItemPotion, row->Guid("SpecificId"))));
        if (!potion)
            return nullptr;
    }
    potion->SetMagicType(kMagicPotion);
    potion->SetQualityType(DTreasureGenerator::GetMagicQuality(treasureType));
    DCoinData price;
    DHandBook::ComputeMagicItemCost(potion.get(), &price);
    return NewItem(potion.get(), price);
}

// A ring, rod or staff named by its table and priced by its own row (a staff by its charges).
DItem* PickRingRodStaff(int treasureType, int itemType, int table, const char* column) {
    const auto row = RollByClass(table, treasureType);
    const QUuid guid = row ? row->Guid(column) : QUuid();
    FCRef<DItemInfo> info(guid.isNull() ? nullptr : DHandBook::BuildItemInfo(itemType, guid));
    auto* magic = FCDynamicCast<DMagicItemInfo>(info.get());
    if (!magic)
        return nullptr;
    if (auto* staff = FCDynamicCast<DStaffInfo>(magic))
        staff->SetCharges(FC::GetRandom(1, kMaxCharges + 1));
    magic->SetQualityType(DTreasureGenerator::GetMagicQuality(treasureType));
    DCoinData price;
    DHandBook::ComputeMagicItemCost(magic, &price);
    return NewItem(magic, price);
}

// One spell of a scroll: a spell of that level from the arcane or divine scroll table, cast at
// the lowest caster level of the class that the table names.
DSpell* PickScrollSpell(int casterType, int level) {
    const auto row =
        Tables().Find(casterType == kCasterArcane ? kTableArcaneScrolls : kTableDivineScrolls,
                      Percentile(), "", "Level", level);
    if (!row)
        return nullptr;
    auto* spell = new DSpell;
    spell->SetSpellGuid(row->Guid("SpellId"));
    spell->SetSpellLevel(level);
    spell->SetCasterClassGuid(row->Guid("CasterClass"));
    spell->SetCasterLevel(Tables().MinCasterLevel(spell->GetCasterClassGuid(), level));
    return spell;
}

DItem* PickScroll(int treasureType) {
    const auto castRow = Roll(kTableScrollTypes);
    if (!castRow)
        return nullptr;
    const int casterType = castRow->Int("CastType");
    const int quality = DTreasureGenerator::GetMagicQuality(treasureType);
    const auto countRow = Tables().FindBy(kTableScrollSpellCount, "MagicType", quality);
    const int count = countRow ? RollDice(*countRow) : 0;
    if (count <= 0)
        return nullptr;
    FCRef<DScrollInfo> scroll(new DScrollInfo);
    scroll->SetMagicType(kMagicScroll);
    scroll->SetQualityType(quality);
    scroll->SetSpellCasterType(casterType);
    for (int i = 0; i < count; ++i) {
        const auto levelRow = RollByClass(kTableScrollSpellLevel, treasureType);
        if (!levelRow)
            continue;
        FCRef<DSpell> spell(PickScrollSpell(casterType, levelRow->Int("Level")));
        scroll->AddSpell(spell.get());
    }
    DCoinData price;
    DHandBook::ComputeMagicItemCost(scroll.get(), &price);
    return NewItem(scroll.get(), price);
}

DItem* PickWand(int treasureType) {
    const auto row = RollByClass(kTableWands, treasureType);
    if (!row)
        return nullptr;
    FCRef<DWandInfo> wand(new DWandInfo);
    const QUuid spell = row->Guid("SpellId");
    const QUuid casterClass = row->Guid("CasterClass");
    const int level = SpellLevelOf(*row, spell, casterClass);
    const int casterLevel = row->Int("OvrCasterLevel");
    wand->SetSpellGuid(spell);
    wand->SetCasterClassGuid(casterClass);
    wand->SetSpellLevel(level);
    wand->SetCasterLevel(casterLevel > 0 ? casterLevel
                                         : Tables().MinCasterLevel(casterClass, level));
    wand->SetCharges(FC::GetRandom(1, kMaxCharges + 1));
    wand->SetMagicType(kMagicWand);
    wand->SetQualityType(DTreasureGenerator::GetMagicQuality(treasureType));
    DCoinData price;
    DHandBook::ComputeMagicItemCost(wand.get(), &price);
    return NewItem(wand.get(), price);
}

DItem* PickWondrous(int treasureType) {
    const int quality = DTreasureGenerator::GetMagicQuality(treasureType);
    const auto row = Roll(kTableWondrous[std::clamp(quality - 1, 0, 2)]);
    const QUuid guid = row ? row->Guid("Id") : QUuid();
    FCRef<DItemInfo> info(guid.isNull() ? nullptr : DHandBook::BuildItemInfo(kItemWondrous, guid));
    auto* magic = FCDynamicCast<DMagicItemInfo>(info.get());
    if (!magic)
        return nullptr;
    magic->SetQualityType(quality);
    return NewItem(magic, DCoinData(magic->GetCost(), magic->GetCostCoinType()));
}

DItem* PickMagicItemOfKind(int treasureType, int kind) {
    switch (kind) {
    case DTreasureGenerator::kKindArmor:
        return PickMagicArmorOrShield(treasureType);
    case DTreasureGenerator::kKindWeapon:
        return PickMagicWeapon(treasureType);
    case DTreasureGenerator::kKindPotion:
        return PickPotion(treasureType);
    case DTreasureGenerator::kKindRing:
        return PickRingRodStaff(treasureType, kItemRing, kTableRings, "RingId");
    case DTreasureGenerator::kKindRod:
        return PickRingRodStaff(treasureType, kItemRod, kTableRods, "ItemId");
    case DTreasureGenerator::kKindScroll:
        return PickScroll(treasureType);
    case DTreasureGenerator::kKindStaff:
        return PickRingRodStaff(treasureType, kItemStaff, kTableStaffs, "ItemId");
    case DTreasureGenerator::kKindWand:
        return PickWand(treasureType);
    case DTreasureGenerator::kKindWondrous:
        return PickWondrous(treasureType);
    default:
        return nullptr;
    }
}

void GenerateFor(DTreasure* treasure, int level, int extra, int times) {
    for (int i = 0; i < times; ++i) {
        DTreasureGenerator::GenerateItems(treasure, level);
        if (extra > 0)
            DTreasureGenerator::GenerateExtraItems(treasure, extra);
    }
}

} // namespace

DTreasureTables& DTreasureGenerator::Tables() {
    odbc::Connection* connection = DDatabase::GetConnection();
    const QString path = DDatabase::GetPath();
    if (!mTables || !mTables->IsFor(connection, path))
        mTables = std::make_unique<DTreasureTables>(connection, path);
    return *mTables;
}

void DTreasureGenerator::ReleaseTables() {
    mTables.reset();
}

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

int DTreasureGenerator::GetMagicQuality(int treasureType) {
    return treasureType >= kTreasureMinor && treasureType <= kTreasureMajor
               ? treasureType - kTreasureMundane
               : 0;
}

int DTreasureGenerator::PickRandomId(int table) {
    const auto row = Roll(table);
    return row ? row->Int("Id") : -1;
}

void DTreasureGenerator::PickRandomIdAndSpecial(int table, int& id, int& special) {
    id = special = -1;
    if (const auto row = Roll(table)) {
        id = row->Int("Id");
        special = row->Int("Special");
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
    const auto row = RollAtLevel(kTableCoins, level);
    if (!row)
        return;
    const int count = row->Int("CoinCount");
    int amount = count > 0 ? RollDice(*row) * count : 0;
    if (amount <= 0)
        return;
    if (percent < 100)
        amount = int(amount * percent * 0.01);
    treasure->AdjustCurrencyAmount(row->Int("CoinType"), amount);
}

void DTreasureGenerator::GenerateGoods(DTreasure* treasure, int level) {
    if (const auto row = RollAtLevel(kTableTreasureGoods, level)) {
        const int count = RollDice(*row);
        PickGoods(treasure, count, row->Int("TreasureType"));
    }
}

void DTreasureGenerator::GenerateItems(DTreasure* treasure, int level) {
    if (const auto row = RollAtLevel(kTableItems, level)) {
        const int count = RollDice(*row);
        PickItems(treasure, count, row->Int("TreasureType"));
    }
}

void DTreasureGenerator::GenerateExtraItems(DTreasure* treasure, int level) {
    const auto row = Tables().FindBy(kTableExtraItems, "Level", level);
    PickItems(treasure, row ? row->Int("Count") : 0, kTreasureMajor);
}

void DTreasureGenerator::PickGoods(DTreasure* treasure, int count, int treasureType) {
    if (treasureType != kTreasureGems && treasureType != kTreasureArt)
        return;
    const bool gems = treasureType == kTreasureGems;
    const DTreasureTables::Table& goods = Tables().Get(gems ? kTableGemInfo : kTableArtInfo);
    for (int i = 0; i < count; ++i) {
        int value = 0, coinType = 2, category = -1;
        if (const auto row = Roll(gems ? kTableGems : kTableArt)) {
            value = RollDice(*row) * row->Int("CoinCount");
            coinType = row->Int("CoinType");
            category = row->Int("Category");
        }
        // Each good of the category is equally likely.
        QList<QUuid> picks;
        for (int index = 0; index < goods.RowCount(); ++index) {
            const Row good(&goods, index);
            if (good.Int("Category") == category)
                picks << good.Guid("Guid");
        }
        if (picks.isEmpty())
            continue;
        const QUuid guid = picks.at(FC::GetRandom(0, int(picks.size())));
        FCRef<DItemInfo> info(DHandBook::BuildItemInfo(gems ? kItemGem : kItemArtObject, guid));
        if (info) {
            FCRef<DItem> item(NewItem(info.get(), DCoinData(value, coinType)));
            treasure->AddItem(item.get());
        }
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
    const auto row = Roll(kTableMundane);
    if (!row)
        return;
    const int type = row->Int("MundaneType");
    bool masterwork = row->Bool("IsMasterwork");
    const int count = RollDice(*row);
    if (type >= 5 && type <= 9) {
        const QUuid guid = PickMundaneWeapon(type, masterwork);
        if (auto* info = static_cast<DItemInfo*>(DDatabase::GetWeaponInfo(guid)))
            AddListedItem(treasure, info, 1, masterwork);
        return;
    }
    static const char* const kColumns[] = {"WeaponId", "ArmorId", "ShieldId", "GoodsId"};
    if (type < 1 || type > 4)
        return;
    const QUuid guid = row->Guid(kColumns[type - 1]);
    if (guid.isNull())
        return;
    static constexpr int kItemTypes[] = {kItemWeapon, kItemArmor, kItemShield, kItemGoods};
    FCRef<DItemInfo> info(DHandBook::BuildItemInfo(kItemTypes[type - 1], guid));
    if (!info)
        return;
    const QString sizeTable = row->String("SizeTable");
    if (!sizeTable.isEmpty()) {
        int size = -1;
        const int roll = Percentile();
        DDatabase::FirstRow(QString::asprintf("SELECT SizeId FROM %s WHERE (Min<=%d) AND (Max>=%d)",
                                              qUtf8Printable(sizeTable), roll, roll),
                            [&size](odbc::ResultSet* sizeRow) { size = sizeRow->getInt(1); });
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
    FCRef<DItem> item(CreateMagicItem(treasureType));
    if (item)
        treasure->AddItem(item.get());
}

DItem* DTreasureGenerator::CreateMagicItem(int treasureType, int kind) {
    if (kind == kKindAny) {
        const auto row = RollByClass(kTableMagicKind, treasureType);
        kind = row ? row->Int("MagicItemType") : -1;
    }
    DItem* item = PickMagicItemOfKind(treasureType, kind);
    if (!item)
        return nullptr;
    // A mind and a curse never come together.
    if (DIntelligentItemGenerator::ShouldItemBeIntelligent(item)) {
        auto* magic = FCDynamicCast<DMagicItemInfo>(item->GetItemInfo());
        FCRef<DIntelligentData> data(DIntelligentItemGenerator::GenerateIntelligentData());
        if (magic && data)
            magic->SetIntelligentData(data.get());
    } else if (DCursedItemGenerator::ShouldItemBeCursed(item)) {
        DCursedItemGenerator::GenerateCursedItem(item);
    }
    return item;
}

void DTreasureGenerator::AddSpecialAbilitiesFromTable(int treasureType, DCustomMagicItemInfo* item,
                                                      int count) {
    if (!item)
        return;
    // Rerolls of abilities the item already has could run on when the class's table holds
    // few; a bound on the rounds keeps that finite.
    for (int round = 0; count > 0 && round < kMaxAbilityRounds; ++round) {
        --count;
        if (AddOneSpecialAbility(treasureType, item, count))
            count = 0;
    }
}
