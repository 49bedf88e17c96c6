#include "DHandBook.h"

#include "DAdjChosenSpeed.h"
#include "DArmorInfo.h"
#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DCoinData.h"
#include "DCurrency.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DItemType.h"
#include "DLoadInfo.h"
#include "DMagicBonus.h"
#include "DMagicItemInfo.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DShieldInfo.h"
#include "DSizeInfo.h"
#include "DSpeedTypeInfo.h"
#include "DWeaponInfo.h"
#include "ResultSet.h"

#include <algorithm>

namespace {

using namespace DRuleGuids;

constexpr int kTableSpeed = 23;
constexpr int kTableMagicItemSub = 128;
constexpr int kTableArmorBonuses = 161;
constexpr int kTableArmorShieldSpecialBonuses = 162;
constexpr int kTableRingBonuses = 166;
constexpr int kTableRodBonuses = 167;
constexpr int kTableStaffBonuses = 168;
constexpr int kTableWondrousBonuses = 169;
constexpr int kTableLoad = 172;
constexpr int kTableLoadCapacity = 173;

// Bonuses of this class always stack; armor and shield enhancement uses class 6.
constexpr int kBonusAlwaysStacks = 2;
constexpr int kBonusArmorEnhancement = 6;

constexpr unsigned kRaceProfLightArmor = 1u << 23;
constexpr unsigned kRaceProfShield = 1u << 26;

bool SameKind(const DMagicBonus& a, const DMagicBonus& b) {
    // Armor and shield enhancements never compete with each other.
    const int pair = a.GetSourceItemType() + b.GetSourceItemType();
    if (pair == kItemArmor + kItemShield && a.GetSourceItemType() != b.GetSourceItemType())
        return false;
    return a.GetBonusType() == b.GetBonusType() && a.GetModifyType() == b.GetModifyType() &&
           a.GetTargetData() == b.GetTargetData();
}

DMagicBonus* GetBestBonusSameAs(DCharacter* character, const DMagicBonus& bonus) {
    DMagicBonus* best = nullptr;
    for (DMagicBonus* stored : character->GetMagicBonusArray()) {
        if (stored != &bonus && SameKind(*stored, bonus) &&
            (!best || stored->GetBonus() > best->GetBonus()))
            best = stored;
    }
    return best;
}

void HandleBonusRows(DCharacter* character, DChosenItem* item, const QString& sql, bool apply) {
    const int source = item->GetBaseItemType();
    DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        auto* bonus = new DMagicBonus;
        bonus->SetData(row);
        bonus->SetSourceItemType(source);
        DHandBook::HandleMagicBonus(character, bonus, apply);
        bonus->Release();
    });
}

void HandleBonusesFromTable(DCharacter* character, DChosenItem* item, int table, const QUuid& id,
                            bool apply) {
    HandleBonusRows(character, item,
                    QString::asprintf("SELECT * FROM %s WHERE ([Id]=%s)",
                                      DRulesQuery::Table(table).constData(),
                                      DRulesQuery::Guid(id).constData()),
                    apply);
}

void HandleBonusesFromTable(DCharacter* character, DChosenItem* item, int table, int id,
                            bool apply) {
    HandleBonusRows(character, item,
                    QString::asprintf("SELECT * FROM %s WHERE (Id=%d)",
                                      DRulesQuery::Table(table).constData(), id),
                    apply);
}

void HandleStandardBonuses(DCharacter* character, DChosenItem* item, int table, bool apply) {
    const DItemInfo* base = item->GetBaseItemInfo();
    if (base && !base->GetItemGuid().isNull())
        HandleBonusesFromTable(character, item, table, base->GetItemGuid(), apply);
}

void HandleArmorShieldBonuses(DCharacter* character, DChosenItem* item, bool apply) {
    const int magic = item->GetMagicBonus();
    if (magic <= 0)
        return;
    auto* bonus = new DMagicBonus(kBonusArmorEnhancement, magic, 1);
    bonus->SetSourceItemType(item->GetBaseItemType());
    DHandBook::HandleMagicBonus(character, bonus, apply);
    bonus->Release();
}

void HandleArmorShieldSABonuses(DCharacter* character, DChosenItem* item, bool apply) {
    const auto* custom = static_cast<const DCustomMagicItemInfo*>(item->GetItemInfo());
    for (int i = 0; i < custom->GetSpecialAbilityCount(); ++i)
        HandleBonusesFromTable(character, item, kTableArmorShieldSpecialBonuses,
                               custom->GetSpecialAbility(i)->GetType(), apply);
}

int CountEquipped(const DCharacter* character, const std::function<bool(const DItem*)>& match) {
    int count = 0;
    for (const auto& [id, item] : character->GetItemMap()) {
        if (item->GetItemLocation() != DChosenItem::kLocationNone && match(item))
            ++count;
    }
    return count;
}

const DArmorInfo* WornArmor(const DCharacter* character) {
    const DChosenItem* armor = character->GetEquipment(0);
    return armor ? FCDynamicCast<DArmorInfo>(armor->GetBaseItemInfo()) : nullptr;
}

bool ReadLoadInfo(int load, DLoadInfo& out) {
    return DDatabase::GetInfo(kTableLoad, load, &out);
}

void ComputeAndSetCharacterArmorStats(DCharacter* character, const DLoadInfo* load) {
    int armorBonus = 0;
    int shieldBonus = 0;
    int penalty = 0;
    int nonProficient = 0;
    if (DChosenItem* armor = character->GetEquipment(0)) {
        DArmorShieldValues values;
        DHandBook::GetArmorShieldValues(armor, values);
        armorBonus = values.armorBonus;
        penalty = values.checkPenalty;
        const DItemInfo* base = armor->GetBaseItemInfo();
        if (!DHandBook::IsCharacterProfWithArmor(character, base ? base->GetItemGuid() : QUuid()))
            nonProficient += values.checkPenalty;
    }
    for (int slot = 1; slot < DCharacter::kEquipSlotCount; ++slot) {
        DChosenItem* shield = character->GetEquipment(slot);
        if (!shield)
            continue;
        DArmorShieldValues values;
        DHandBook::GetArmorShieldValues(shield, values);
        shieldBonus += values.armorBonus;
        penalty += values.checkPenalty;
        if (!DHandBook::IsCharacterProfWithShield(character, QUuid()))
            nonProficient += values.checkPenalty;
    }
    const int loadPenalty = load ? load->GetCheckPenalty() : 0;
    character->SetCharacterStat(kStatArmorCheckPenalty, std::min(loadPenalty, penalty));
    character->SetCharacterStat(kStatLoadCheckPenalty, loadPenalty);
    character->SetCharacterStat(kStatArmorBonus, armorBonus);
    character->SetCharacterStat(kStatShieldBonus, shieldBonus);
    character->SetCharacterStat(kStatNonProficientPenalty, nonProficient);
    DHandBook::ComputeAndSetArmorClass(character);
}

void ComputeAdjustedSpeed(DCharacter* character, DAdjChosenSpeed* speed, int load,
                          const DArmorInfo* armor) {
    DSpeedTypeInfo type;
    const bool hasType = DDatabase::GetInfo(kTableSpeed, speed->GetSpeedId(), &type);
    const float loadMult = hasType ? type.GetLoadMult(load) : 1.0f;
    const float armorMult =
        hasType && armor ? type.GetArmorWeightMult(armor->GetWeightType()) : 1.0f;
    const int base = speed->GetSpeedValue();
    int value = std::min(DHandBook::ComputeLoadSpeed(base, loadMult),
                         DHandBook::ComputeArmorSpeed(base, armorMult));
    const DRace* race = character->GetRace();
    if (speed->GetSpeedId() == 1 && load < 3 && race && race->HasRaceFlag(DRace::kFlagSteadySpeed))
        value = base;
    if (speed->GetSpeedId() == 1) {
        const int monk = character->IsClass(kMonkClass) && !armor && load == 0
                             ? DHandBook::ComputeMonkUnarmoredSpeed(character, speed)
                             : 0;
        const bool fast = character->IsClass(kFastMovementClass);
        if (fast && (!armor || armor->GetWeightType() < 2) && load < 2)
            value += 10;
        if (monk > 0)
            value = fast ? std::max(value, monk) : monk;
    }
    speed->SetAdjSpeedValue(value);
}

} // namespace

DItemInfo* DHandBook::CreateSizeAdjustedItem(DCharacter* character, DItemInfo* info, int size) {
    if (!info || size == -1 || info->GetSizeType() == size || !info->CanBeResized())
        return nullptr;
    auto* clone = static_cast<DItemInfo*>(info->Clone());
    clone->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    AdjustItemInfoSize(character, clone, size);
    return clone;
}

void DHandBook::AdjustItemInfoSize(DCharacter* character, DItemInfo* info, int size) {
    if (!info)
        return;
    info->SetWeight(float(int(ComputeItemWeight(info, character, size))));
    const int oldSize = info->GetSizeType();
    info->SetSizeType(size);
    if (auto* weapon = FCDynamicCast<DWeaponInfo>(info)) {
        DWeaponDamageValues values = weapon->GetDamageValues();
        GetDamageChange(values, oldSize, size);
        weapon->SetDamageValues(values);
    } else if (auto* armor = FCDynamicCast<DArmorShieldBaseInfo>(info)) {
        armor->SetArmorBonus(GetSizeAdjustedArmorBonus(armor->GetArmorBonus(), size));
    }
}

DChosenItem* DHandBook::AddItemWithInfoToCharacter(DCharacter* character, DItemInfo* info,
                                                   unsigned flags, int size, bool isFree) {
    if (!character || !info)
        return nullptr;
    DItemInfo* sized = CreateSizeAdjustedItem(character, info, size);
    DChosenItem* item = character->AddItemWithInfo(sized ? sized : info);
    if (sized)
        sized->Release();
    item->SetItemFlags(flags);
    DCoinData cost;
    ComputeItemCost(info, character, flags, size, cost);
    item->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
    DCurrency price;
    item->GetMarketCost(price);
    character->GetInventoryValue() += price;
    if (!isFree)
        RemoveCharacterMoney(character, price);
    return item;
}

DChosenItem* DHandBook::AddCopyOfItemToCharacter(DCharacter* character, DItem* source, int size,
                                                 bool isFree) {
    if (!character || !source)
        return nullptr;
    DChosenItem* copy = character->AddCopyOfItem(*source);
    DItemInfo* info = source->GetItemInfo();
    DItemInfo* base = source->GetBaseItemInfo();
    if (info && base && size != -1 && base->GetSizeType() != size && base->CanBeResized()) {
        DItemInfo* sized = CreateSizeAdjustedItem(character, base, size);
        if (auto* custom = FCDynamicCast<DCustomMagicItemInfo>(copy->GetItemInfo())) {
            custom->SetBaseItemInfo(sized);
            DCoinData cost;
            ComputeCustomMagicItemCost(static_cast<DCustomMagicItemInfo*>(info), size, &cost);
            copy->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
        } else {
            copy->SetItemInfo(sized);
        }
        if (sized)
            sized->Release();
    }
    DCurrency price;
    copy->GetMarketCost(price);
    character->GetInventoryValue() += price;
    if (!isFree)
        RemoveCharacterMoney(character, price);
    return copy;
}

void DHandBook::AddChosenItemToCharacter(DCharacter* character, DChosenItem* item, bool isFree) {
    if (!character || !item)
        return;
    character->AddChosenItem(item);
    DCurrency price;
    item->GetMarketCost(price);
    character->GetInventoryValue() += price;
    if (!isFree)
        RemoveCharacterMoney(character, price);
}

void DHandBook::RemoveItem(DCharacter* character, DChosenItem* item, bool isFree,
                           bool updateCharacter) {
    if (!character || !item)
        return;
    DCurrency price;
    item->GetMarketCost(price);
    character->GetInventoryValue() -= price;
    if (!isFree)
        AddCharacterMoney(character, price);
    if (item->HasItemFlag(DItem::kItemFlagCarried))
        ToggleItemCarryingStatus(character, item, updateCharacter);
    if (item->GetBaseItemType() == kItemWeapon)
        character->RemoveWeaponFromAllGroups(item->GetItemId());
    else if (item->GetItemLocation() != DChosenItem::kLocationNone)
        UnEquipItem(character, item, updateCharacter);
    if (updateCharacter)
        character->RemoveItem(item->GetItemId());
}

void DHandBook::RemoveAllItems(DCharacter* character, bool isFree) {
    if (!character)
        return;
    QList<DChosenItem*> items;
    for (const auto& [id, item] : character->GetItemMap())
        items << item;
    for (DChosenItem* item : items)
        RemoveItem(character, item, isFree, false);
    character->RemoveAllItems();
    ComputeAndSetCharacterEncumberance(character);
    character->HandleHasChanged();
}

void DHandBook::AddCharacterMoney(DCharacter* character, const DCurrency& amount) {
    character->GetCurrency() += amount;
}

void DHandBook::RemoveCharacterMoney(DCharacter* character, const DCurrency& amount) {
    character->GetCurrency() -= amount;
    character->GetCurrency().MakePositive();
}

void DHandBook::ToggleItemCarryingStatus(DCharacter* character, DChosenItem* item, bool update) {
    if (!character || !item)
        return;
    const DItemInfo* base = item->GetBaseItemInfo();
    // A bundle of several (ten torches, say) weighs as many times its row.
    const float weight = base ? base->GetWeight() * float(std::max(item->GetCount(), 1)) : 0.0f;
    if (item->HasItemFlag(DItem::kItemFlagCarried)) {
        item->RemoveItemFlag(DItem::kItemFlagCarried);
        character->SetCarriedWeight(character->GetCarriedWeight() - weight);
    } else {
        item->AddItemFlag(DItem::kItemFlagCarried);
        character->SetCarriedWeight(character->GetCarriedWeight() + weight);
    }
    if (update) {
        ComputeAndSetCharacterEncumberance(character);
        character->HandleHasChanged();
    }
}

void DHandBook::EquipItem(DCharacter* character, DChosenItem* item, bool update) {
    if (!character || !item)
        return;
    character->EquipItem(item);
    HandleEquipBonuses(character, item, true);
    if (update) {
        const int base = item->GetBaseItemType();
        if (base == kItemArmor || base == kItemShield)
            ComputeAndSetCharacterEncumberance(character);
        character->HandleHasChanged();
    }
}

void DHandBook::UnEquipItem(DCharacter* character, DChosenItem* item, bool update) {
    if (!character || !item)
        return;
    character->UnEquipItem(item);
    HandleEquipBonuses(character, item, false);
    if (update) {
        const int base = item->GetBaseItemType();
        if (base == kItemArmor || base == kItemShield)
            ComputeAndSetCharacterEncumberance(character);
        character->HandleHasChanged();
    }
}

bool DHandBook::CanCharacterEquipMagicItem(DCharacter* character, DChosenItem* item) {
    if (!character || !item)
        return false;
    if (item->GetBaseItemType() == kItemRing)
        return CountEquipped(character, [](const DItem* other) {
                   return other->GetBaseItemType() == kItemRing;
               }) < 2;
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item->GetItemInfo());
    if (item->GetItemType() != kItemWondrous || !magic)
        return true;
    const int limit = GetMagicItemSubTypeLimit(magic->GetSubType());
    if (limit <= 0)
        return true;
    const int subType = magic->GetSubType();
    return CountEquipped(character, [subType](const DItem* other) {
               const auto* info = FCDynamicCast<DMagicItemInfo>(other->GetItemInfo());
               return other->GetItemType() == kItemWondrous && info &&
                      info->GetSubType() == subType;
           }) < limit;
}

int DHandBook::GetMagicItemSubTypeLimit(int subType) {
    int limit = 0;
    DDatabase::FirstRow(QString::asprintf("SELECT [Limit] FROM %s WHERE (Id=%d)",
                                          DRulesQuery::Table(kTableMagicItemSub).constData(),
                                          subType),
                        [&limit](odbc::ResultSet* row) { limit = row->getInt("Limit"); });
    return limit;
}

void DHandBook::HandleEquipBonuses(DCharacter* character, DChosenItem* item, bool apply) {
    if (!character || !item)
        return;
    const int base = item->GetBaseItemType();
    if (item->GetItemType() == kItemCustomMagic) {
        if (base == kItemArmor || base == kItemShield) {
            HandleArmorShieldSABonuses(character, item, apply);
            if (base == kItemArmor)
                HandleStandardBonuses(character, item, kTableArmorBonuses, apply);
            HandleArmorShieldBonuses(character, item, apply);
        }
        return;
    }
    switch (base) {
    case kItemArmor:
        HandleArmorShieldBonuses(character, item, apply);
        HandleStandardBonuses(character, item, kTableArmorBonuses, apply);
        break;
    case kItemRing:
        HandleStandardBonuses(character, item, kTableRingBonuses, apply);
        break;
    case kItemRod:
        HandleStandardBonuses(character, item, kTableRodBonuses, apply);
        break;
    case kItemStaff:
        HandleStandardBonuses(character, item, kTableStaffBonuses, apply);
        break;
    case kItemWondrous:
        HandleStandardBonuses(character, item, kTableWondrousBonuses, apply);
        break;
    default:
        break;
    }
}

void DHandBook::HandleMagicBonus(DCharacter* character, DMagicBonus* bonus, bool apply) {
    if (!character || !bonus)
        return;
    FCPointerArray<DMagicBonus>& bonuses = character->GetMagicBonusArray();
    if (apply) {
        auto* stored = static_cast<DMagicBonus*>(bonus->Clone());
        if (stored->GetBonusType() != kBonusAlwaysStacks) {
            DMagicBonus* best = GetBestBonusSameAs(character, *stored);
            if (best && best->GetBonus() >= stored->GetBonus()) {
                stored->SetIsApplied(false);
                bonuses.Add(stored);
                stored->Release();
                return;
            }
            if (best && best->GetIsApplied()) {
                ApplyMagicBonus(character, best, false);
                best->SetIsApplied(false);
            }
        }
        bonuses.Add(stored);
        stored->Release();
        ApplyMagicBonus(character, stored, true);
        stored->SetIsApplied(true);
        return;
    }
    DMagicBonus* twin = character->FindMagicBonus(*bonus);
    if (!twin)
        return;
    twin->Retain();
    bonuses.Remove(twin);
    if (twin->GetIsApplied()) {
        ApplyMagicBonus(character, twin, false);
        if (twin->GetBonusType() != kBonusAlwaysStacks) {
            if (DMagicBonus* next = GetBestBonusSameAs(character, *twin)) {
                ApplyMagicBonus(character, next, true);
                next->SetIsApplied(true);
            }
        }
    }
    twin->Release();
}

void DHandBook::ApplyMagicBonus(DCharacter* character, DMagicBonus* bonus, bool apply) {
    const int amount = apply ? bonus->GetBonus() : -bonus->GetBonus();
    switch (bonus->GetModifyType()) {
    case 0:
        if (DChosenSkill* skill =
                GetChosenSkillForCharacter(character, bonus->GetTargetGuid(), QUuid(), apply)) {
            skill->SetMagicMod(skill->GetMagicMod() + amount);
            character->AddChangeFlag(kChangeSkillAbilityMagic);
        }
        break;
    case 1:
        character->AdjustCharacterStat(kStatMagicArmorBonus, amount);
        ComputeAndSetArmorClass(character);
        break;
    case 2:
        if (bonus->GetTargetData() >= 0 && bonus->GetTargetData() < DCharacter::kAbilityCount)
            AdjustCharacterAbilityStatEquipBonus(
                character, DAbilityStatType(bonus->GetTargetData()), amount, false);
        break;
    case 4:
        character->AdjustCharacterStat(kStatMagicSaveBonus, amount);
        ComputeAndSetAllSavingThrows(character);
        break;
    case 5:
        character->AdjustCharacterStat(kStatMagicInitiative, amount);
        ComputeAndSetInitiative(character);
        break;
    case 6:
        if (bonus->GetTargetData() >= 0 && bonus->GetTargetData() < DCharacter::kAbilityCount) {
            character->AdjustSkillBonus(bonus->GetTargetData(), amount);
            AdjustSkillMagicMods(character, bonus->GetTargetData(), amount);
        }
        break;
    case 7:
        character->AdjustCharacterStat(kStatMagicSkillBonus, amount);
        AdjustSkillMagicMods(character, -1, amount);
        break;
    case 8:
        character->AdjustCharacterStat(kStatMagicAttackBonus, amount);
        break;
    default:
        break;
    }
}

void DHandBook::ComputeCarryingCapcity(int strength, int size, DCarryInfo& out) {
    out = DCarryInfo();
    const int row = strength >= 30 ? strength % 10 + 20 : strength;
    DDatabase::FirstRow(QString::asprintf("SELECT * FROM %s WHERE (Strength=%d)",
                                          DRulesQuery::Table(kTableLoadCapacity).constData(), row),
                        [&out](odbc::ResultSet* result) {
                            out.light = result->getFloat("LightLoad");
                            out.medium = result->getFloat("MediumLoad");
                            out.heavy = result->getFloat("HeavyLoad");
                        });
    float factor = 1.0f;
    if (strength >= 30)
        factor = float(((strength - 20) / 10) * 4);
    if (const DSizeInfo* sizeInfo = DDatabase::GetSizeInfo(size))
        factor *= sizeInfo->GetSizeCapacityMod();
    out.light *= factor;
    out.medium *= factor;
    out.heavy *= factor;
}

int DHandBook::ComputeCharacterLoad(DCharacter* character) {
    if (!character)
        return 3;
    // A creature without Strength (an incorporeal undead, a shrieker) can carry nothing; as long
    // as it carries nothing it is not burdened, and keeps its speed and Dexterity.
    if (character->IsNullAbility(kAbilityStrength))
        return character->GetCarriedWeight() > 0.0f ? 3 : 0;
    DCarryInfo carry;
    const DSizeInfo* size = character->GetSizeInfo();
    ComputeCarryingCapcity(character->GetAbilityStat(kAbilityStrength),
                           size ? size->GetSizeId() : 4, carry);
    const float weight = character->GetCarriedWeight();
    if (weight <= carry.light)
        return 0;
    if (weight <= carry.medium)
        return 1;
    if (weight <= carry.heavy)
        return 2;
    return 3;
}

void DHandBook::ComputeAndSetCharacterEncumberance(DCharacter* character) {
    if (!character)
        return;
    const int load = ComputeCharacterLoad(character);
    const DArmorInfo* armor = WornArmor(character);
    ComputeAndSetAdjustedSpeed(character, load, const_cast<DArmorInfo*>(armor));
    int maxDexterity = 100;
    int run = 4;
    DLoadInfo loadInfo;
    const bool hasLoad = ReadLoadInfo(load, loadInfo);
    if (hasLoad) {
        maxDexterity = std::min(maxDexterity, loadInfo.GetMaxDex());
        run = std::min(run, loadInfo.GetRunMultiplier());
    }
    if (armor) {
        maxDexterity = std::min(maxDexterity, int(armor->GetMaxDex()));
        if (armor->GetWeightType() >= 2)
            run = std::min(run, 3);
    }
    character->SetCharacterStat(kStatLoadType, load);
    character->SetCharacterStat(kStatMaxDexterityBonus, maxDexterity);
    character->SetCharacterStat(kStatRunMultiple, run);
    character->AddChangeFlag(kChangeEncumbrance);
    ComputeAndSetCharacterArmorStats(character, hasLoad ? &loadInfo : nullptr);
    ComputeAndSetSkillMiscMods(character);
}

bool DHandBook::IsCharacterProfWithArmor(DCharacter* character, const QUuid& armorGuid) {
    const auto* armor = static_cast<const DArmorInfo*>(DDatabase::GetArmorInfo(armorGuid));
    if (!character || !armor)
        return false;
    const int weight = std::clamp(int(armor->GetWeightType()), 0, 2);
    static constexpr unsigned kCharacterFlags[] = {
        DCharacter::kProfLightArmor, DCharacter::kProfMediumArmor, DCharacter::kProfHeavyArmor};
    static constexpr QUuid kFeats[] = {kLightArmorFeat, kMediumArmorFeat, kHeavyArmorFeat};
    const DRace* race = character->GetRace();
    return character->HasProfFlag(kCharacterFlags[weight]) ||
           (race && race->HasRaceFlag(kRaceProfLightArmor << weight)) ||
           character->HasFeat(kFeats[weight]);
}

bool DHandBook::IsCharacterProfWithShield(DCharacter* character, const QUuid&) {
    if (!character)
        return false;
    const DRace* race = character->GetRace();
    return character->HasProfFlag(DCharacter::kProfShield) ||
           (race && race->HasRaceFlag(kRaceProfShield)) || character->HasFeat(kShieldFeat);
}

bool DHandBook::IsCharacterWearingArmor(DCharacter* character) {
    return character && character->GetEquipment(0);
}

bool DHandBook::IsCharacterWearingProfArmor(DCharacter* character) {
    const DChosenItem* armor = character ? character->GetEquipment(0) : nullptr;
    const DItemInfo* base = armor ? armor->GetBaseItemInfo() : nullptr;
    return base && IsCharacterProfWithArmor(character, base->GetItemGuid());
}

int DHandBook::GetArmorWeightType(DCharacter* character) {
    const DArmorInfo* armor = character ? WornArmor(character) : nullptr;
    return armor ? armor->GetWeightType() : 0;
}

int DHandBook::ComputeArmorSpeed(int speed, float multiplier) {
    const int product = int(float(speed) * multiplier);
    if (multiplier == 1.0f)
        return product;
    // To the nearest multiple of 5 feet.
    return ((product + 2) / 5) * 5;
}

void DHandBook::ComputeAndSetAdjustedSpeed(DCharacter* character, int load, DItemInfo* armor) {
    const auto* armorInfo = FCDynamicCast<DArmorInfo>(armor);
    for (DChosenSpeed* speed : character->GetSpeedArray()) {
        if (auto* adjusted = FCDynamicCast<DAdjChosenSpeed>(speed))
            ComputeAdjustedSpeed(character, adjusted, load, armorInfo);
    }
}

int DHandBook::GetArcaneSpellFailure(DCharacter* character) {
    int failure = 0;
    for (int slot = 0; slot < DCharacter::kEquipSlotCount && character; ++slot) {
        DArmorShieldValues values;
        if (DChosenItem* item = character->GetEquipment(slot)) {
            GetArmorShieldValues(item, values);
            failure += values.spellFailure;
        }
    }
    return failure;
}

void DHandBook::GetArmorShieldValues(DItem* item, DArmorShieldValues& out) {
    out = DArmorShieldValues();
    const auto* info =
        item ? FCDynamicCast<DArmorShieldBaseInfo>(item->GetBaseItemInfo()) : nullptr;
    if (!info)
        return;
    out.armorBonus = info->GetArmorBonus();
    if (const auto* armor = FCDynamicCast<DArmorInfo>(info))
        out.maxDexterity = armor->GetMaxDex();
    out.checkPenalty = info->GetArmorCheckPenalty();
    // Masterwork armor is one step easier to move in, never better than no penalty.
    if (item->HasItemFlag(DItem::kItemFlagMasterwork) && out.checkPenalty < 0)
        out.checkPenalty += 1;
    out.spellFailure = info->GetArcaneSpellFailure();
    out.magicBonus = item->GetMagicBonus();
    out.size = info->GetSizeType();
}
