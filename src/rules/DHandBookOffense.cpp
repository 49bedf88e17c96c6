#include "DHandBook.h"

#include "DAttackInfo.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DCustomMagicItemInfo.h"
#include "DDamageChangeInfo.h"
#include "DDatabase.h"
#include "DGuid.h"
#include "DItemType.h"
#include "DOffenseGroup.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "DWeaponInfo.h"
#include "FCString.h"
#include "ResultSet.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace DRuleGuids;

// A feat taken for a weapon names the weapon table as its sub-target (1), as the editors and
// ready races store it; one stored without a sub-target counts as well.
bool hasWeaponFeat(const DCharacter& character, const QUuid& feat, const QUuid& weapon) {
    QUuid weaponTable;
    DGuid::SetLong(weaponTable, 1);
    return character.HasFeat(feat, weapon, weaponTable) || character.HasFeat(feat, weapon);
}

constexpr QUuid kUnarmedWeapon = Guid("{C1A1E4F7-8D20-4CF7-A9A9-4D9DA567A6AF}");
constexpr QUuid kLightFinesseWeapon = Guid("{D68A9C21-C5C1-4620-B2B0-9CD33AD415CA}");
constexpr QUuid kReachFinesseWeapon = Guid("{0EF77A23-387A-428F-82BE-80D6AF96BAA2}");
constexpr QUuid kImprovedCriticalFeat = Guid("{AB454B65-2A0E-492A-9794-DD168A22CDBE}");
constexpr QUuid kFarShotFeat = Guid("{FAB50AE8-84BA-42D3-8048-D08144845E55}");
constexpr QUuid kWeaponFinesseFeat = Guid("{CAADBD12-FF01-48E1-A1D4-217D58312AD3}");
constexpr QUuid kMultiattackFeat = Guid("{FB29E4DF-9EB7-4925-ACBC-E70931232E27}");
constexpr QUuid kOffHandFeats[] = {Guid("{F7340B7E-99FB-43F5-B179-F4F24A6AC1C3}"),
                                   Guid("{F7545877-A413-42EF-951B-7B828E460A9F}")};
constexpr QUuid kTwoWeaponFeats[] = {Guid("{D14EB75C-9E8F-4D88-8075-390D47BDF6B0}"),
                                     Guid("{47D95450-2E41-477D-88C3-B49CB60568F4}")};
constexpr QUuid kWeaponSpecializationFeat = Guid("{0AEE3129-CDC2-493D-A184-1E58DCC7C490}");

constexpr int kTableWeaponBonusesDamage = 164;
constexpr int kTableWeaponBonusesSpecial = 165;
constexpr int kTableClassWeaponProficiency = 174;
constexpr int kTableMonkUnarmedDamage = 179;
constexpr int kMediumSize = 4;

// Weapon categories of the "SkillId" column.
constexpr int kSimpleWeapon = 0;
constexpr int kMartialWeapon = 1;
constexpr int kExoticWeapon = 2;
constexpr int kNaturalWeapon = 3;

int CharacterSize(const DCharacter* character) {
    const DSizeInfo* size = character->GetSizeInfo();
    return size ? size->GetSizeId() : kMediumSize;
}

int AbilityModifier(const DCharacter* character, int ability) {
    return DHandBook::GetAbilityModifier(character->GetAbilityStat(ability));
}

const DWeaponInfo* WeaponOf(const DItem* item) {
    return item ? FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo()) : nullptr;
}

bool IsWeapon(const DWeaponInfo* weapon, const QUuid& guid) {
    return weapon->GetItemGuid() == guid || weapon->GetActsAsWeaponId() == guid;
}

bool HasAnyFeat(const DCharacter* character, const QUuid* feats, int count) {
    return std::any_of(feats, feats + count,
                       [character](const QUuid& feat) { return character->HasFeat(feat); });
}

bool DoesCharacterGetAutoProfWithWeapon(DCharacter* character, const DWeaponInfo* weapon) {
    bool proficient = false;
    const int size = CharacterSize(character);
    DDatabase::ForEachRow(
        QString::asprintf("SELECT * FROM %s WHERE (WeaponId=%s)",
                          DRulesQuery::Table(kTableClassWeaponProficiency).constData(),
                          DRulesQuery::Guid(weapon->GetItemGuid()).constData()),
        [&](odbc::ResultSet* row) {
            if (proficient || !character->IsClass(row->getGUID("ClassId")))
                return;
            const int sizeId = row->getInt("SizeId");
            proficient = sizeId < 0 || sizeId <= size;
        });
    return proficient;
}

// The die of head `head` stepped one size up or down; a die without a row stays.
void StepHead(DWeaponDamageValues& values, int head, bool up) {
    int count = 0;
    int die = 0;
    if (DHandBook::GetDamageChange(values.mDieCount[head], values.mDieId[head], count, die, up)) {
        values.mDieCount[head] = count;
        values.mDieId[head] = die;
    }
}

QString HeadText(int count, int die) {
    return die == 1 ? QString::number(count)
                    : QString(DHandBook::BuildDieString(float(count), die));
}

QString SignedNumber(int value) {
    return value < 0 ? QString::number(value) : QStringLiteral("+%1").arg(value);
}

} // namespace

// --- Unarmed attack ------------------------------------------------------------------------------

void DHandBook::SetupUnarmedAttack(DCharacter* character) {
    if (!character)
        return;
    // The rows list weapons as a Medium wielder holds them: a smaller or larger body shifts the
    // weapon by the same number of sizes.
    const int shift = CharacterSize(character) - kMediumSize;
    DChosenItem* item = character->GetItemWithTypeAndInfoId(kItemWeapon, kUnarmedWeapon);
    if (!item) {
        auto* row = static_cast<DWeaponInfo*>(DDatabase::GetWeaponInfo(kUnarmedWeapon));
        if (!row)
            return;
        auto* clone = static_cast<DWeaponInfo*>(row->Clone());
        clone->AddInfoFlag(DItemInfo::kInfoFlagChanged);
        AdjustItemInfoSize(character, clone, row->GetSizeType() + shift);
        item = AddItemWithInfoToCharacter(character, clone, DItem::kItemFlagUnarmed, -1, true);
        clone->Release();
    }
    auto* info = FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo());
    if (!info || !info->HasInfoFlag(DItemInfo::kInfoFlagChanged))
        return;
    if (character->IsClass(kMonkClass)) {
        DWeaponDamageValues values = info->GetDamageValues();
        SetDamageValuesForUnarmedMonk(character, values);
        info->SetDamageValues(values);
        return;
    }
    const auto* row = static_cast<DWeaponInfo*>(DDatabase::GetWeaponInfo(kUnarmedWeapon));
    if (row && info->GetSizeType() != row->GetSizeType() + shift) {
        info->SetDamageValues(row->GetDamageValues());
        info->SetSizeType(row->GetSizeType());
        AdjustItemInfoSize(character, info, row->GetSizeType() + shift);
    }
}

void DHandBook::SetDamageValuesForUnarmedMonk(DCharacter* character, DWeaponDamageValues& values) {
    const QString sql = QString::asprintf(
        "SELECT DieCount, DieId FROM %s WHERE (SizeId=%d) AND (%d<=[Level]) ORDER BY [Level]",
        DRulesQuery::Table(kTableMonkUnarmedDamage).constData(), CharacterSize(character),
        character->GetClassLevel(kMonkClass));
    DDatabase::FirstRow(sql, [&values](odbc::ResultSet* row) {
        values.mDieCount[0] = row->getInt("DieCount");
        values.mDieId[0] = row->getInt("DieId");
    });
}

// --- Texts ---------------------------------------------------------------------------------------

QString DHandBook::BuildWeaponDamageString(const DWeaponDamageValues& values, bool bothHeads,
                                           int bonus) {
    QString text;
    for (int head = 0; head < (bothHeads ? 2 : 1); ++head) {
        if (head == 1) {
            if (values.mDieCount[1] < 1)
                break;
            text += QLatin1Char('/');
        }
        text += HeadText(values.mDieCount[head], values.mDieId[head]);
        if (bonus != 0)
            text += SignedNumber(bonus);
    }
    return text;
}

QString DHandBook::BuildSimpleWeaponDamageString(int count1, int die1, int count2, int die2) {
    QString text = HeadText(count1, die1);
    if (count2 != 0)
        text += QLatin1Char('/') + HeadText(count2, die2);
    return text;
}

QString DHandBook::BuildBonusDamageString(DCharacter*, DItem* item) {
    if (!item)
        return QString();
    int counters[13] = {};
    auto addRows = [&counters](const QString& sql) {
        DDatabase::ForEachRow(sql, [&counters](odbc::ResultSet* row) {
            const int die = row->getInt("DieType");
            if (die >= 0 && die <= 12)
                counters[die] += row->getInt("Bonus");
        });
    };
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(item->GetItemInfo())) {
        for (int i = 0; i < custom->GetSpecialAbilityCount(); ++i)
            addRows(QString::asprintf("SELECT * FROM %s WHERE (Id=%d)",
                                      DRulesQuery::Table(kTableWeaponBonusesSpecial).constData(),
                                      custom->GetSpecialAbility(i)->GetType()));
    }
    if (const DItemInfo* base = item->GetBaseItemInfo(); base && !base->GetItemGuid().isNull())
        addRows(QString::asprintf("SELECT * FROM %s WHERE (Id=%s)",
                                  DRulesQuery::Table(kTableWeaponBonusesDamage).constData(),
                                  DRulesQuery::Guid(base->GetItemGuid()).constData()));
    QString text;
    for (int die = 0; die <= 12; ++die) {
        if (counters[die] > 0)
            text += QLatin1Char('+') + QString(BuildDieString(float(counters[die]), die));
    }
    return text;
}

QString DHandBook::BuildOffenseDamageString(DCharacter* character, const DOffenseItem& offense) {
    if (!character)
        return QString();
    DWeaponDamageValues values;
    int magic = 0;
    DChosenItem* item = nullptr;
    if (offense.GetOffenseType() == DOffenseItem::kOffenseWeapon) {
        item = character->GetItem(offense.GetOffenseId());
        if (const DWeaponInfo* weapon = WeaponOf(item))
            values = weapon->GetDamageValues();
        magic = item ? item->GetMagicBonus() : 0;
    } else if (const DAttackInfo* attack = character->GetAttack(offense.GetOffenseId())) {
        values.mDieCount[0] = attack->GetDamageDieCount();
        values.mDieId[0] = attack->GetDamageDieId();
    }
    QString text =
        BuildWeaponDamageString(values, offense.HasOffenseFlag(DOffenseItem::kOffenseDouble),
                                magic + GetWeaponDamageModifier(character, offense));
    if (item)
        text += BuildBonusDamageString(character, item);
    return text;
}

QString DHandBook::BuildWeaponCriticalString(DCharacter* character, const QUuid& weapon,
                                             const DWeaponCritValues& values, bool bothHeads) {
    int min = values.mCriticalMin;
    if (character && hasWeaponFeat(*character, kImprovedCriticalFeat, weapon)) {
        // The threat range doubles: 20 becomes 19-20, 19-20 becomes 17-20.
        min = 2 * (min == 0 ? 20 : min) - 21;
    }
    return BuildSimpleWeaponCriticalString(min == 20 ? 0 : min, values.mMultiplier[0],
                                           values.mMultiplier[1], bothHeads);
}

QString DHandBook::BuildSimpleWeaponCriticalString(int min, int mult1, int mult2, bool bothHeads) {
    QString text;
    if (min != 0)
        text += QStringLiteral("%1-20/").arg(min);
    if (mult1 != 0)
        text += QStringLiteral("x%1").arg(mult1);
    if (bothHeads && mult2 != 0)
        text += QStringLiteral("/x%1").arg(mult2);
    return text;
}

QString DHandBook::BuildWeaponRangeString(DCharacter* character, int range) {
    if (range == 0)
        return QStringLiteral("-");
    if (character && character->HasFeat(kFarShotFeat))
        range = int(range * 1.5);
    return QStringLiteral("%1 ft").arg(range);
}

// --- Size ----------------------------------------------------------------------------------------

void DHandBook::GetDamageChange(DWeaponDamageValues& values, int fromSize, int toSize) {
    const bool up = toSize > fromSize;
    for (int step = std::abs(toSize - fromSize); step > 0; --step) {
        StepHead(values, 0, up);
        if (values.mDieCount[1] > 0)
            StepHead(values, 1, up);
    }
}

bool DHandBook::GetDamageChange(int count, int die, int& newCount, int& newDie, bool up) {
    const DDamageChangeInfo* change = DDatabase::GetDamageChangeInfo(die);
    if (!change)
        return false;
    const DDieData& step = up ? change->GetUpDieData() : change->GetDownDieData();
    newCount = int(step.GetDieCount()) * count;
    newDie = step.GetDieType();
    return true;
}

int DHandBook::GetSizeAdjustedArmorBonus(int bonus, int size) {
    const DSizeInfo* info = DDatabase::GetSizeInfo(size);
    return info ? int(std::ceil(info->GetArmorBonusMod() * float(bonus))) : bonus;
}

// --- Weapon use ----------------------------------------------------------------------------------

int DHandBook::GetCharacterWeaponUses(DCharacter* character, const DWeaponInfo* weapon) {
    if (!character || !weapon)
        return 0;
    const int cs = CharacterSize(character);
    const int ws = weapon->GetSizeType();
    const int use = weapon->GetUseType();
    if (ws < cs)
        return use == 2 ? 2 : use == 3 ? 7 : use == 6 ? 3 : 1;
    if (ws > cs + 1)
        return 0;
    if (ws == cs + 1)
        return use == 5 ? 0 : use == 3 ? 6 : 2;
    return use == 1 || use == 5 ? 1 : use == 2 ? 2 : use == 3 ? 7 : 3;
}

bool DHandBook::IsWeaponLight(DCharacter* character, const DWeaponInfo* weapon) {
    return character && weapon && weapon->GetSizeType() < CharacterSize(character);
}

bool DHandBook::CanFinesseWeapon(DCharacter* character, const DWeaponInfo* weapon) {
    if (!character || !weapon)
        return false;
    const int cs = CharacterSize(character);
    if (weapon->GetSizeType() < cs)
        return true;
    if (IsWeapon(weapon, kLightFinesseWeapon))
        return weapon->GetSizeType() <= cs;
    if (IsWeapon(weapon, kReachFinesseWeapon))
        return weapon->GetSizeType() <= cs + 1;
    return false;
}

bool DHandBook::IsCharacterProfWithWeapon(DCharacter* character, const DWeaponInfo* weapon) {
    if (!character || !weapon)
        return false;
    if (!weapon->GetActsAsWeaponId().isNull()) {
        const auto* actsAs =
            static_cast<const DWeaponInfo*>(DDatabase::GetWeaponInfo(weapon->GetActsAsWeaponId()));
        return actsAs && actsAs != weapon && IsCharacterProfWithWeapon(character, actsAs);
    }
    const int category = weapon->GetSkillType();
    if (category == kNaturalWeapon)
        return true;
    if ((category == kSimpleWeapon && character->HasProfFlag(DCharacter::kProfSimple)) ||
        (category == kMartialWeapon && character->HasProfFlag(DCharacter::kProfMartial)))
        return true;
    const QUuid guid = weapon->GetItemGuid();
    if (const DRace* race = character->GetRace(); race && race->HasWeaponProf(guid))
        return true;
    if (DoesCharacterGetAutoProfWithWeapon(character, weapon))
        return true;
    switch (category) {
    case kSimpleWeapon:
        return character->HasFeat(kSimpleWeaponFeat);
    case kMartialWeapon:
        return hasWeaponFeat(*character, kMartialWeaponFeat, guid);
    case kExoticWeapon:
        return hasWeaponFeat(*character, kExoticWeaponFeat, guid);
    default:
        return false;
    }
}

bool DHandBook::DoesCharacterHaveFeatForOffense(DCharacter* character, const QUuid& feat,
                                                const DOffenseItem& offense) {
    if (!character)
        return false;
    if (offense.GetOffenseType() == DOffenseItem::kOffenseWeapon) {
        const DWeaponInfo* weapon = WeaponOf(character->GetItem(offense.GetOffenseId()));
        if (!weapon)
            return false;
        const QUuid guid = weapon->GetActsAsWeaponId().isNull() ? weapon->GetItemGuid()
                                                                : weapon->GetActsAsWeaponId();
        return !guid.isNull() && hasWeaponFeat(*character, feat, guid);
    }
    const DAttackInfo* attack = character->GetAttack(offense.GetOffenseId());
    const int id = attack ? attack->GetItemId() : offense.GetOffenseId();
    return id != -1 && character->HasFeat(feat, id, offense.GetOffenseType());
}

// --- Attack bonus --------------------------------------------------------------------------------

void DHandBook::GetAttackValues(DCharacter* character, int rangeType, DAttackValues& values) {
    values = DAttackValues();
    if (!character)
        return;
    values[kOffenseBase] = character->GetCharacterStat(kStatBaseAttack);
    const bool dexterity = rangeType != 0 || character->IsNullAbility(kAbilityStrength);
    values[kOffenseAbilityUsed] = dexterity ? 1 : 0;
    values[kOffenseAbility] =
        AbilityModifier(character, dexterity ? kAbilityDexterity : kAbilityStrength);
    if (const DSizeInfo* size = character->GetSizeInfo())
        values[kOffenseSize] = size->GetAttackArmorMod();
    values[kOffensePool] = character->GetCharacterStat(kStatMagicAttackBonus);
    values[kOffenseArmorPenalty] = character->GetCharacterStat(kStatNonProficientPenalty);
}

void DHandBook::GetAttackValues(DCharacter* character, int type, int id, int rangeType,
                                DAttackValues& values) {
    GetAttackValues(character, rangeType, values);
    if (!character || rangeType != 0)
        return;
    const DOffenseItem offense(type, id);
    // The feat table gives Weapon Finesse no target: taken so, it serves every natural attack
    // and every weapon that can be finessed, as the rules have it.
    const bool finesse = DoesCharacterHaveFeatForOffense(character, kWeaponFinesseFeat, offense) ||
                         (character->HasFeat(kWeaponFinesseFeat) &&
                          (type != DOffenseItem::kOffenseWeapon ||
                           CanFinesseWeapon(character, WeaponOf(character->GetItem(id)))));
    if (finesse && character->GetAbilityStat(kAbilityDexterity) >
                       character->GetAbilityStat(kAbilityStrength)) {
        values[kOffenseAbilityUsed] = 1;
        values[kOffenseAbility] = AbilityModifier(character, kAbilityDexterity);
    }
}

int DHandBook::GetOffenseBonus(DCharacter* character, const DOffenseItem& offense,
                               DOffenseBonusValues& values, bool secondHead) {
    values = DOffenseBonusValues();
    if (!character)
        return 0;
    if (offense.GetOffenseType() != DOffenseItem::kOffenseWeapon) {
        const DAttackInfo* attack = character->GetAttack(offense.GetOffenseId());
        if (!attack)
            return 0;
        GetAttackValues(character, offense.GetOffenseType(), attack->GetItemId(),
                        attack->GetRangeType(), values);
        if (!offense.HasOffenseFlag(DOffenseItem::kOffensePrimary)) {
            values[kOffenseHandOrder] = -5;
            if (character->HasFeat(kMultiattackFeat))
                values[kOffenseFeat] += 3;
        }
        // Weapon Focus in a kind of natural attack (bite, claw) serves it as it serves a weapon.
        if (DoesCharacterHaveFeatForOffense(character, kWeaponTargetFeat, offense))
            values[kOffenseFeat] += 1;
        return values.Total();
    }
    DChosenItem* item = character->GetItem(offense.GetOffenseId());
    const DWeaponInfo* weapon = WeaponOf(item);
    if (!weapon)
        return 0;
    GetAttackValues(character, offense.GetOffenseType(), offense.GetOffenseId(),
                    weapon->GetRangeType(), values);
    quint32 flags = offense.GetOffenseFlags();
    if (secondHead) {
        flags &= ~quint32(DOffenseItem::kOffenseMainHand);
        flags |= DOffenseItem::kOffenseLight;
    }
    const bool several = flags & DOffenseItem::kOffenseMultiple;
    const bool oneHand = flags & DOffenseItem::kOffenseOneHand;
    const bool mainHand = flags & DOffenseItem::kOffenseMainHand;
    bool offHand = false;
    if (!several) {
        offHand = oneHand && !mainHand;
        values[kOffenseHandOrder] = offHand ? -4 : 0;
    } else if (!mainHand) {
        offHand = true;
        values[kOffenseHandOrder] = -10 + ((flags & DOffenseItem::kOffenseLight) ? 2 : 0);
    } else {
        values[kOffenseHandOrder] = -6 + ((flags & DOffenseItem::kOffenseLightOffHand) ? 2 : 0);
    }
    const int armorWeight = GetArmorWeightType(character);
    const bool fastHands = character->IsClass(kRangerClass) &&
                           character->GetCharacterStat(kStatLoadType) == 0 &&
                           (!IsCharacterWearingArmor(character) || armorWeight == 0);
    // Two-Weapon Fighting lightens the off hand as well as the main hand.
    const bool twoWeaponFeat = HasAnyFeat(character, kTwoWeaponFeats, 2);
    if (offHand && (fastHands || HasAnyFeat(character, kOffHandFeats, 2) || twoWeaponFeat))
        values[kOffenseFeat] += 4;
    if (offense.HasOffenseFlag(DOffenseItem::kOffenseMultiple) && (fastHands || twoWeaponFeat))
        values[kOffenseFeat] += 2;
    if (DoesCharacterHaveFeatForOffense(character, kWeaponTargetFeat, offense))
        values[kOffenseFeat] += 1;
    if (!IsCharacterProfWithWeapon(character, weapon))
        values[kOffenseMisc] -= 4;
    values[kOffenseMagic] = item->GetMagicBonus();
    if (item->HasItemFlag(DItem::kItemFlagMasterwork) && values[kOffenseMagic] == 0)
        values[kOffenseMisc] += 1;
    return values.Total();
}

QString DHandBook::BuildOffenseBonusString(DCharacter* character, const DOffenseItem& offense) {
    DOffenseBonusValues values;
    QString text = SignedNumber(GetOffenseBonus(character, offense, values, false));
    if (offense.HasOffenseFlag(DOffenseItem::kOffenseDouble))
        text += QLatin1Char('/') + SignedNumber(GetOffenseBonus(character, offense, values, true));
    return text;
}

int DHandBook::GetWeaponDamageModifier(DCharacter* character, const DOffenseItem& offense) {
    if (!character)
        return 0;
    const int s = AbilityModifier(character, kAbilityStrength);
    int m = 0;
    if (offense.GetOffenseType() == DOffenseItem::kOffenseWeapon) {
        const DWeaponInfo* weapon = WeaponOf(character->GetItem(offense.GetOffenseId()));
        const int apply = weapon ? weapon->GetApplyStrModType() : -1;
        if (apply == 0) {
            m = s;
            if (s > 0) {
                if (offense.HasOffenseFlag(DOffenseItem::kOffenseTwoHands) &&
                    weapon->GetApply2HandedMultiplier())
                    m = int(s * 1.5);
                else if (!offense.HasOffenseFlag(DOffenseItem::kOffenseTwoHands) &&
                         !offense.HasOffenseFlag(DOffenseItem::kOffenseMainHand))
                    m = int(s * 0.5);
            }
            if (weapon->GetMaxStrBonus() >= 1)
                m = std::min(s, int(weapon->GetMaxStrBonus()));
        } else if (apply == 2) {
            m = std::min(s, 0);
        }
    } else if (const DAttackInfo* attack = character->GetAttack(offense.GetOffenseId());
               attack && attack->GetRangeType() == 0) {
        m = s;
        if (s >= 1) {
            const bool primary = offense.HasOffenseFlag(DOffenseItem::kOffensePrimary);
            if (primary && attack->GetOffenseCount() == 1 &&
                !offense.HasOffenseFlag(DOffenseItem::kOffenseMultiple))
                m = int(s * 1.5);
            else if (!primary)
                m = int(s * 0.5);
        }
    }
    if (DoesCharacterHaveFeatForOffense(character, kWeaponSpecializationFeat, offense))
        m += 2;
    return m;
}

QList<int> DHandBook::BuildIterativeBonuses(int total, int baseAttack, bool shortSteps) {
    const int step = shortSteps ? 3 : 5;
    QList<int> bonuses{total};
    for (int b = baseAttack, t = total; b > step;) {
        b -= step;
        t -= step;
        if (t > 0)
            bonuses << t;
    }
    return bonuses;
}

QString DHandBook::BuildAttackString(DCharacter* character, int rangeType, bool shortSteps) {
    DAttackValues values;
    GetAttackValues(character, rangeType, values);
    QStringList parts;
    for (const int bonus : BuildIterativeBonuses(values.Total(), values[kOffenseBase], shortSteps))
        parts << SignedNumber(bonus);
    return parts.join(QLatin1Char('/'));
}

// --- Sheet lines ---------------------------------------------------------------------------------

QString DOffenseLine::Text() const {
    QStringList parts;
    for (const int bonus : bonuses)
        parts << SignedNumber(bonus);
    // A sheet leaves out the common x2 multiplier.
    QString threat = critical;
    if (threat == QLatin1String("x2"))
        threat.clear();
    else if (threat.endsWith(QLatin1String("/x2")))
        threat.chop(3);
    QString text = QStringLiteral("%1 %2 (%3%4)")
                       .arg(name, parts.join(QLatin1Char('/')), damage,
                            threat.isEmpty() ? QString() : QLatin1Char('/') + threat);
    if (range != QLatin1String("-"))
        text += QStringLiteral(", range %1").arg(range);
    return text;
}

DOffenseLine DHandBook::BuildOffenseLine(DCharacter* character, const DOffenseItem& offense) {
    DOffenseLine line;
    line.range = QStringLiteral("-");
    if (!character)
        return line;
    DOffenseBonusValues values;
    const int total = GetOffenseBonus(character, offense, values, false);
    line.damage = BuildOffenseDamageString(character, offense);
    if (offense.GetOffenseType() != DOffenseItem::kOffenseWeapon) {
        if (const DAttackInfo* attack = character->GetAttack(offense.GetOffenseId())) {
            line.name = attack->GetAttackDescription();
            if (attack->GetRangeType() != 0)
                line.range = attack->GetAttackRangeDescription();
        }
        line.bonuses << total;
        return line;
    }
    const DChosenItem* item = character->GetItem(offense.GetOffenseId());
    const DWeaponInfo* weapon = WeaponOf(item);
    line.name = item ? item->GetItemPrintDescription(false) : QString();
    // The off hand strikes once; the weapon in the main hand, or held alone, strikes as often
    // as the base attack allows.
    const bool offHand = offense.HasOffenseFlag(DOffenseItem::kOffenseMultiple) &&
                         !offense.HasOffenseFlag(DOffenseItem::kOffenseMainHand);
    line.bonuses =
        offHand ? QList<int>{total}
                : BuildIterativeBonuses(total, character->GetCharacterStat(kStatBaseAttack), false);
    const bool both = offense.HasOffenseFlag(DOffenseItem::kOffenseDouble);
    if (both)
        line.bonuses << GetOffenseBonus(character, offense, values, true);
    if (weapon) {
        line.critical = BuildWeaponCriticalString(character, weapon->GetItemGuid(),
                                                  weapon->GetCriticalValues(), both);
        if (weapon->GetRangeType() != 0)
            line.range = BuildWeaponRangeString(character, weapon->GetRangeIncrement());
    }
    return line;
}

QList<DOffenseLine> DHandBook::BuildOffenseLines(DCharacter* character) {
    QList<DOffenseLine> lines;
    if (!character)
        return lines;
    int routine = 0;
    for (const DOffenseGroup* group : character->GetOffenseGroupArray()) {
        for (const DOffenseItem& offense : group->GetOffenseItemArray()) {
            lines << BuildOffenseLine(character, offense);
            lines.last().group = routine;
        }
        routine += !group->GetOffenseItemArray().IsEmpty();
    }
    // A creature of its race alone fights with the race's natural weapons; only a character
    // with class levels falls back on its fists.
    if (!lines.isEmpty() || character->IsMonsterClassOnly())
        return lines;
    if (const DChosenItem* fists = character->GetItemWithTypeAndInfoId(kItemWeapon, kUnarmedWeapon))
        lines << BuildOffenseLine(
            character, DOffenseItem(DOffenseItem::kOffenseWeapon, fists->GetItemId(),
                                    DOffenseItem::kOffenseOneHand | DOffenseItem::kOffenseMainHand |
                                        DOffenseItem::kOffenseLight));
    return lines;
}
