#include "DHandBook.h"

#include "Connection.h"
#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DItemInfo.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "ResultSet.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {

constexpr DSkillUsabilityType kNotUsable = 0;
constexpr DSkillUsabilityType kClassSkill = 1;
constexpr DSkillUsabilityType kCrossClassSkill = 2;

bool isAbility(int id) {
    return id >= 0 && id < kAbilityCount;
}

// The skill's ability modifier with worn items, 0 for a skill tied to no ability.
int skillAbilityModifier(const DCharacter* character, const DSkillInfo* info) {
    const int ability = info->GetAbilityModId();
    return isAbility(ability) ? DHandBook::GetAbilityModifier(character->GetAbilityStat(ability))
                              : 0;
}

// Each class's earned points are what its history entries store.
void setClassSkillPoints(DCharacter* character) {
    for (DCharacterClass* characterClass : character->GetClassList()) {
        int points = 0;
        for (const DCharHistory* entry : character->GetHistoryArray()) {
            if (entry->GetClassGuid() == characterClass->GetClassGuid())
                points += entry->getSkillpoints();
        }
        characterClass->SetBaseSkillPoints(points);
    }
}

int extraHitDice(const DCharacter* character, int hitDice) {
    const DSizeInfo* size = character->GetSizeInfo();
    return std::max(0, hitDice - (size ? size->GetExtraHitDieMod() : 0));
}

// A null sub-skill is stored as NULL, which "=" never matches.
QByteArray subSkillTest(const char* column, const QUuid& subSkill) {
    if (subSkill.isNull())
        return QByteArray(column) + " IS NULL";
    return QByteArray(column) + "=" + DRulesQuery::Guid(subSkill);
}

// The carried goods of that kind: the best of masterwork, plain, none.
enum class Carried { None, Plain, Masterwork };

Carried carriedGoods(const DCharacter* character, const QUuid& goods) {
    Carried best = Carried::None;
    for (const auto& [id, item] : character->GetItemMap()) {
        const DItemInfo* info = item->GetItemInfo();
        if (!info || item->GetItemType() != kItemGoods || info->GetItemGuid() != goods ||
            !item->HasItemFlag(DItem::kItemFlagCarried))
            continue;
        if (item->HasItemFlag(DItem::kItemFlagMasterwork))
            return Carried::Masterwork;
        best = Carried::Plain;
    }
    return best;
}

} // namespace

// --- Points -----------------------------------------------------------------------------------

int DHandBook::ComputeSkillPoints(DCharacter* character, int level, int modChange) {
    if (!character)
        return 0;
    const DRace* race = character->GetRace();
    const int limit = level >= 0 ? level : int(character->GetPreviousCharacterLevel());
    const int intMod =
        GetAbilityModifier(character->GetAbilityStatNoEquipBonus(kAbilityIntelligence));
    const int extra = race ? race->GetExtraSkillPointsPerLevel() : 0;
    const int extraFirst = race ? race->GetExtraSkillPointsFirstLevel() : 0;
    int counter = 0;
    bool firstDone = false;
    int total = 0;
    for (DCharHistory* entry : character->GetHistoryArray()) {
        const bool isRace = entry->HasHistoryFlag(DCharHistory::kHistoryRaceClass);
        const DClassInfo* info = DDatabase::GetClassInfoA(entry->GetClassGuid());
        if ((isRace && entry->GetLevel() <= 1.0f) || !info)
            continue;
        const int perLevel = std::max(1, info->mSkillPointsPerLevel + intMod);
        int points = 0;
        for (float step = entry->GetLevel(); step > 0.0f; step -= 1.0f) {
            ++counter;
            if (counter > limit) {
                // Added racial dice add to what the race's dice hold; only a new race entry
                // (limit 0) counts its own dice afresh.
                if (isRace)
                    points = (limit == 0 ? ComputeRaceSkillPoints(character, limit)
                                         : entry->getSkillpoints()) +
                             ComputeAdvancedRaceSkillPoints(character) + modChange;
                else if (!firstDone && limit == 0)
                    points = extraFirst + (perLevel + modChange) * 4;
                else
                    points += perLevel + extra + modChange;
                points = std::max(points, 1);
            } else {
                points = entry->getSkillpoints();
            }
            if (!isRace)
                firstDone = true;
        }
        if (points != 0)
            entry->setSkillpoints(points);
        total += entry->getSkillpoints();
    }
    return total;
}

void DHandBook::ComputeAndSetSkillPoints(DCharacter* character) {
    if (!character)
        return;
    ComputeSkillPoints(character, -1, 0);
    setClassSkillPoints(character);
}

void DHandBook::RecomputeAndSetSkillPoints(DCharacter* character, int level, int scoreDelta) {
    if (!character)
        return;
    const int score = character->GetAbilityStatNoEquipBonus(kAbilityIntelligence);
    const int difference = GetAbilityModifierChange(score, score + scoreDelta);
    if (score < 0 || difference == 0)
        return;
    ComputeSkillPoints(character, level, difference);
    setClassSkillPoints(character);
}

void DHandBook::GetSkillPointValues(DRace* race, DSkillPointValues& values) {
    values = DSkillPointValues();
    if (!race)
        return;
    const QString sql = QString::asprintf(
        "SELECT BSPOperand1, BSPOperator, BSPOperand2, BSPAbilityId, BSPAbilityValueType, "
        "BSPMultiplyHD,  BSPBonusPerEHD, SPAdvanceType FROM %s WHERE (Guid=%s)",
        DRulesQuery::Table(kTableClass).constData(),
        DRulesQuery::Guid(race->GetClassGuid()).constData());
    bool first = true;
    DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        if (!first)
            return;
        first = false;
        values = {row->getInt(1), row->getInt(2), row->getInt(3), row->getInt(4),
                  row->getInt(5), row->getInt(6), row->getInt(7), row->getInt(8)};
    });
}

int DHandBook::ComputeRaceSkillPoints(DCharacter* character, const DSkillPointValues& values,
                                      int hitDice) {
    int part = 0;
    if (character && isAbility(values.abilityId)) {
        const int score = character->GetAbilityStatNoEquipBonus(values.abilityId);
        if (values.abilityValueType == 1)
            part = std::max(score, 0);
        else if (values.abilityValueType == 2)
            part = GetAbilityModifier(score);
    }
    int points = values.operand1;
    switch (values.op) {
    case kSkillPointOpAdd:
        points = values.operand1 + part;
        break;
    case kSkillPointOpSubtract:
        points = values.operand1 - part;
        break;
    case kSkillPointOpMultiply:
        points = values.operand1 * part;
        break;
    case kSkillPointOpMiddle:
        points = (values.operand2 - values.operand1) / 2 + values.operand1;
        break;
    default:
        break;
    }
    return values.multiplyHD != 0 ? points * hitDice : points;
}

int DHandBook::ComputeRaceSkillPoints(DCharacter* character, int level) {
    DRace* race = character ? character->GetRace() : nullptr;
    if (level != 0 || !race)
        return 0;
    const int hitDice = int(std::max(race->GetHitDieCount(), 1.0f));
    DSkillPointValues values;
    GetSkillPointValues(race, values);
    const int base = race->GetBaseSkillPoints() != 0
                         ? race->GetBaseSkillPoints()
                         : ComputeRaceSkillPoints(character, values, hitDice);
    return base + values.bonusPerEHD * extraHitDice(character, hitDice);
}

int DHandBook::ComputeAdvancedRaceSkillPoints(DCharacter* character) {
    if (!character || character->GetAdvancedHitDie() < 1 || !character->GetRaceClassPointer())
        return 0;
    DSkillPointValues values;
    GetSkillPointValues(character->GetRace(), values);
    if (values.advanceType == 1)
        return values.bonusPerEHD * character->GetAdvancedHitDie();
    // Each added die brings at least one point, as a creature's dice do by the rules; the
    // type's formula alone (2 - 5 for an animal's Int 1) would take points away.
    if (values.advanceType == 2)
        return std::max(ComputeRaceSkillPoints(character, values, character->GetAdvancedHitDie()),
                        character->GetAdvancedHitDie());
    return 0;
}

void DHandBook::GetSkillPointStrings(const DSkillPointValues& values, FCString& first,
                                     FCString& second) {
    QString text;
    switch (values.op) {
    case kSkillPointOpAdd:
        text = QString::asprintf("%d + ", values.operand1);
        break;
    case kSkillPointOpSubtract:
        text = QString::asprintf("%d - ", values.operand1);
        break;
    case kSkillPointOpMultiply:
        text = QString::asprintf("%d x ", values.operand1);
        break;
    case kSkillPointOpMiddle:
        text = QString::asprintf("%d - %d ", values.operand1, values.operand2);
        break;
    default:
        text = QStringLiteral("--");
        break;
    }
    if (isAbility(values.abilityId))
        text += QLatin1String(kAbilityShortNames[values.abilityId]);
    if (values.abilityValueType == 1)
        text += QStringLiteral(" score");
    else if (values.abilityValueType == 2)
        text += QStringLiteral(" mod");
    if (values.multiplyHD != 0)
        text = QStringLiteral("(") + text + QStringLiteral(") x HD");
    first = FCString(text);
    second = FCString(values.bonusPerEHD > 0 ? QString::asprintf("%+d / EHD", values.bonusPerEHD)
                                             : QStringLiteral("--"));
}

// --- Records and ranks ------------------------------------------------------------------------

DChosenSkill* DHandBook::AddSkill(DCharacter* character, const QUuid& skill, const QUuid& subSkill,
                                  DSkillUsabilityType usability, float ranks, bool notify) {
    if (!character || skill.isNull())
        return nullptr;
    DChosenSkill* record = character->GetSkillPointer(skill, subSkill);
    if (!record) {
        record = new DChosenSkill(skill, subSkill);
        character->AddSkill(record);
        record->Release();
        if (const DSkillInfo* info = DDatabase::GetSkillInfo(skill)) {
            const int ability = info->GetAbilityModId();
            if (isAbility(ability)) {
                record->SetAbilityMod(skillAbilityModifier(character, info));
                record->SetMagicMod(character->GetSkillBonus(ability));
            }
            record->SetMagicMod(record->GetMagicMod() +
                                character->GetCharacterStat(kStatMagicSkillBonus));
            AddSkillFeatMods(character, record);
            SetSkillMiscMods(character, record);
        }
        character->AddChangeFlag(kChangeSkillAbilityMagic);
    }
    const QUuid& active = character->GetActiveClassId();
    const float oldRanks = record->GetRanks(active);
    float newRanks = oldRanks;
    if (ranks > 0.0f) {
        newRanks = oldRanks + ranks;
        SetSkillRank(character, record, active, usability, newRanks, notify);
    }
    if (ranks != 0.0f && notify)
        ComputeAndSetSkillSkillMods(character, false, skill, subSkill, newRanks, oldRanks);
    return record;
}

DChosenSkill* DHandBook::RemoveSkill(DCharacter* character, const QUuid& skill,
                                     const QUuid& subSkill, DSkillUsabilityType usability,
                                     float ranks, bool notify) {
    DChosenSkill* record = character ? character->GetSkillPointer(skill, subSkill) : nullptr;
    if (!record)
        return nullptr;
    const QUuid active = character->GetActiveClassId();
    const float oldRanks = record->GetRanks(active);
    const float newRanks = std::max(0.0f, oldRanks - ranks);
    SetSkillRank(character, record, active, usability, newRanks, notify);
    // Run while the record still stands, so that a source taken down to 0 ranks also takes
    // its synergy back.
    if (notify && newRanks != oldRanks)
        ComputeAndSetSkillSkillMods(character, false, skill, subSkill, newRanks, oldRanks);
    if (!record->IsEmptySkill())
        return record;
    if (const DSkillRankInfo* info = record->GetSkillRankInfo(active)) {
        const DSkillRankInfo key = *info;
        record->RemoveRankInfo(key);
    }
    if (record->HasSkillFlag(DChosenSkill::kSkillFixed))
        return record;
    character->RemoveSkill(skill, subSkill);
    return nullptr;
}

void DHandBook::RemoveAllSkills(DCharacter* character) {
    if (!character)
        return;
    FCArray<QPair<QUuid, QUuid>> emptied;
    for (const auto& entry : character->GetSkillSet()) {
        DChosenSkill* record = entry.Get();
        if (record->GetSkillId() == DRuleGuids::kSpeakLanguageSkill) {
            character->AddChangeFlag(kChangeLanguages);
            character->HandleHasChanged();
        }
        record->RemoveAllRanks();
        if (record->IsEmptySkill() && !record->HasSkillFlag(DChosenSkill::kSkillFixed))
            emptied.Add({record->GetSkillId(), record->GetSubSkillId()});
    }
    for (const auto& [skill, subSkill] : emptied)
        character->RemoveSkill(skill, subSkill);
    for (DCharacterClass* characterClass : character->GetClassList())
        characterClass->SetSpentSkillPoints(0);
    ComputeAndSetSkillSkillMods(character, false, QUuid(), QUuid(), 0.0f, 0.0f);
}

void DHandBook::SetSkillRank(DCharacter* character, DChosenSkill* skill, const QUuid& classGuid,
                             DSkillUsabilityType usability, float ranks, bool /*notify*/) {
    if (!character || !skill)
        return;
    const int before = skill->GetTotalSkillPointValue();
    skill->SetRanks(classGuid, usability, ranks);
    const int after = skill->GetTotalSkillPointValue();
    if (DCharacterClass* characterClass = character->GetClassPointer(classGuid))
        characterClass->AdjustSpentSkillPoints(after - before);
    if (skill->GetSkillId() == DRuleGuids::kSpeakLanguageSkill)
        character->AddChangeFlag(kChangeLanguages);
}

DChosenSkill* DHandBook::GetChosenSkillForCharacter(DCharacter* character, const QUuid& skill,
                                                    const QUuid& subSkill, bool create) {
    if (!character)
        return nullptr;
    DChosenSkill* record = character->GetSkillPointer(skill, subSkill);
    if (!record && create)
        record = AddSkill(character, skill, subSkill, kClassSkill, 0.0f, true);
    return record;
}

void DHandBook::UpdateWithUntrainedSkills(DCharacter* character) {
    if (!character)
        return;
    for (const auto& [guid, base] : DDatabase::GetSkillInfoMap()) {
        auto* info = static_cast<DSkillInfo*>(base);
        if (guid.isNull() || !info->GetUseUntrained())
            continue;
        if (info->GetIsMultiType()) {
            UpdateWithUntrainedSubSkills(character, info);
            continue;
        }
        if (DChosenSkill* record = AddSkill(character, guid, QUuid(), kClassSkill, 0.0f, false))
            record->AddSkillFlag(DChosenSkill::kSkillFixed);
    }
}

void DHandBook::UpdateWithUntrainedSubSkills(DCharacter* character, DSkillInfo* skill) {
    if (!character || !skill)
        return;
    const QString sql = QString::asprintf("SELECT SubGuid FROM %s WHERE (Guid=%s)",
                                          DRulesQuery::Table(kTableSkillSub).constData(),
                                          DRulesQuery::Guid(skill->GetSkillGuid()).constData());
    FCArray<QUuid> subSkills;
    DDatabase::ForEachRow(
        sql, [&subSkills](odbc::ResultSet* row) { subSkills.Add(row->getGUID("SubGuid")); });
    for (const QUuid& subSkill : subSkills) {
        if (DChosenSkill* record =
                AddSkill(character, skill->GetSkillGuid(), subSkill, kClassSkill, 0.0f, false))
            record->AddSkillFlag(DChosenSkill::kSkillFixed);
    }
}

// --- Usability and limits ---------------------------------------------------------------------

DSkillUsabilityType DHandBook::ComputeSkillUsablility(DCharacter* character, const QUuid& classGuid,
                                                      const QUuid& skill) {
    if (!character)
        return kNotUsable;
    if (skill == DRuleGuids::kSingleRankSkill)
        return classGuid == DRuleGuids::kFastMovementClass && character->GetPlayerClassCount() <= 1
                   ? kClassSkill
                   : kNotUsable;
    const DRace* race = character->GetRace();
    if (race && classGuid == race->GetClassGuid())
        return race->HasAnySkill(skill) ? kClassSkill : kCrossClassSkill;

    DSkillUsabilityType usability = kCrossClassSkill;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Usability FROM %s WHERE (ClassId=%s) AND (SkillId=%s)",
                          DRulesQuery::Table(kTableClassSkillUsability).constData(),
                          DRulesQuery::Guid(classGuid).constData(),
                          DRulesQuery::Guid(skill).constData()),
        [&usability](odbc::ResultSet* row) { usability = row->getInt("Usability"); });
    if (classGuid == DRuleGuids::kClericClass && usability == kCrossClassSkill &&
        character->HasPickedDomain()) {
        const bool domainSkill = DRulesQuery::HasRow(QString::asprintf(
            "SELECT * FROM %s WHERE (SkillId=%s) AND ((DomainId=%s) OR (DomainId=%s))",
            DRulesQuery::Table(kTableDomainSkill).constData(), DRulesQuery::Guid(skill).constData(),
            DRulesQuery::Guid(character->GetDomain(0)).constData(),
            DRulesQuery::Guid(character->GetDomain(1)).constData()));
        if (domainSkill)
            usability = kClassSkill;
    }
    if (usability != kClassSkill) {
        const DSkillInfo* info = DDatabase::GetSkillInfo(skill);
        if (character->HasClassSkill(classGuid, skill))
            usability = kClassSkill;
        else if (info && info->GetIsExclusive())
            usability = kNotUsable;
    }
    return usability;
}

float DHandBook::ComputeMaxSkillRank(DCharacter* character, const QUuid& skill) {
    if (!character)
        return 0.0f;
    float levels = 0.0f;
    DSkillUsabilityType best = kNotUsable;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        levels += characterClass->GetLevel();
        const DSkillUsabilityType usability =
            ComputeSkillUsablility(character, characterClass->GetClassGuid(), skill);
        if (usability == kClassSkill)
            best = kClassSkill;
        else if (best != kClassSkill)
            best = kCrossClassSkill;
    }
    float maximum = 0.0f;
    if (best == kClassSkill)
        maximum = std::max(levels, 1.0f) + 3.0f;
    else if (best == kCrossClassSkill)
        maximum = (std::max(levels, 1.0f) + 3.0f) / 2.0f;
    if (skill == DRuleGuids::kSingleRankSkill && maximum >= 1.0f)
        maximum = 1.0f;
    return std::max(maximum, 0.0f);
}

int DHandBook::ComputeMaxClassSkillRanks(DCharacter*, const QUuid&, const QUuid&, const QUuid&) {
    return 0;
}

bool DHandBook::ConvertSkillsForUsabilitySwitch(DCharacter* character, const QUuid& classGuid,
                                                const QUuid& skill, bool toClassSkill) {
    if (!character)
        return false;
    bool changed = false;
    for (const auto& entry : character->GetSkillSet()) {
        DChosenSkill* record = entry.Get();
        DSkillRankInfo* info =
            record->GetSkillId() == skill ? record->GetSkillRankInfo(classGuid) : nullptr;
        if (!info || info->mRanks <= 0.0f)
            continue;
        if (toClassSkill && info->mUsability == kCrossClassSkill) {
            info->mUsability = kClassSkill;
            info->mRanks *= 2.0f;
            changed = true;
        } else if (!toClassSkill && info->mUsability == kClassSkill) {
            info->mUsability = kCrossClassSkill;
            info->mRanks /= 2.0f;
            changed = true;
        }
    }
    return changed;
}

void DHandBook::AddClassSkill(DCharacter* character, DCharacterClass* characterClass,
                              const QUuid& skill) {
    if (!character || !characterClass)
        return;
    character->AddClassSkill(characterClass->GetClassGuid(), skill);
    characterClass->AdjustSpentClassSkills(1);
    ConvertSkillsForUsabilitySwitch(character, characterClass->GetClassGuid(), skill, true);
}

void DHandBook::RemoveClassSkill(DCharacter* character, DCharacterClass* characterClass,
                                 const QUuid& skill) {
    if (!character || !characterClass)
        return;
    character->RemoveClassSkill(characterClass->GetClassGuid(), skill);
    characterClass->AdjustSpentClassSkills(-1);
    ConvertSkillsForUsabilitySwitch(character, characterClass->GetClassGuid(), skill, false);
}

bool DHandBook::IsKnowledgeSkill(const QUuid& skill) {
    return std::find(std::begin(DRuleGuids::kKnowledgeSkills),
                     std::end(DRuleGuids::kKnowledgeSkills),
                     skill) != std::end(DRuleGuids::kKnowledgeSkills);
}

int DHandBook::GetCountOfAllKnowledgeSkillsWithRanks(DCharacter* character, int minRanks) {
    if (!character)
        return 0;
    int count = 0;
    for (const auto& entry : character->GetSkillSet()) {
        if (IsKnowledgeSkill(entry->GetSkillId()) && entry->GetTotalRanks() >= float(minRanks))
            ++count;
    }
    return count;
}

// --- Modifiers --------------------------------------------------------------------------------

void DHandBook::SetSkillAbilityMod(DCharacter* character, DChosenSkill* skill) {
    const DSkillInfo* info = skill ? DDatabase::GetSkillInfo(skill->GetSkillId()) : nullptr;
    if (!character || !info)
        return;
    skill->SetAbilityMod(skillAbilityModifier(character, info));
    character->AddChangeFlag(kChangeSkillAbilityMagic);
}

void DHandBook::UpdateSkillAbilityMods(DCharacter* character, DAbilityStatType ability) {
    if (!character)
        return;
    for (const auto& entry : character->GetSkillSet()) {
        const DSkillInfo* info = DDatabase::GetSkillInfo(entry->GetSkillId());
        if (info && info->GetAbilityModId() == int(ability))
            entry->SetAbilityMod(skillAbilityModifier(character, info));
    }
}

void DHandBook::AdjustSkillMagicMods(DCharacter* character, int ability, int delta) {
    if (!character)
        return;
    for (const auto& entry : character->GetSkillSet()) {
        const DSkillInfo* info = DDatabase::GetSkillInfo(entry->GetSkillId());
        if (!info || (ability != -1 && ability != info->GetAbilityModId()))
            continue;
        entry->SetMagicMod(entry->GetMagicMod() + delta);
        character->AddChangeFlag(kChangeSkillAbilityMagic);
    }
}

void DHandBook::ClearSkillFeatMods(DCharacter* character) {
    if (!character)
        return;
    for (const auto& entry : character->GetSkillSet())
        entry->SetFeatMod(0);
}

void DHandBook::ClearSkillSkillMods(DCharacter* character) {
    if (!character)
        return;
    for (const auto& entry : character->GetSkillSet())
        entry->SetSkillMod(0);
}

void DHandBook::ComputeAndSetSkillMiscMods(DCharacter* character) {
    if (!character)
        return;
    for (const auto& entry : character->GetSkillSet())
        SetSkillMiscMods(character, entry.Get());
}

void DHandBook::SetSkillMiscMods(DCharacter* character, DChosenSkill* skill) {
    const DSkillInfo* info = skill ? DDatabase::GetSkillInfo(skill->GetSkillId()) : nullptr;
    if (!character || !info)
        return;
    int misc = 0;
    if (info->GetPenaltyPounds() > 0)
        misc = -int(character->GetCarriedWeight() / float(info->GetPenaltyPounds()));
    // Armor and load are read as the equipment pass left them.
    if (info->GetDoesACPenaltyApply())
        misc += character->GetCharacterStat(kStatArmorCheckPenalty);
    else if (info->GetDoesNonProfACPenaltyApply())
        misc += character->GetCharacterStat(kStatLoadCheckPenalty);
    misc += GetSkillSizeBonus(character, skill) + GetSkillGoodsBonus(character, skill);
    skill->SetMiscMod(misc);
    character->AddChangeFlag(kChangeSkillMiscSynergy);
}

int DHandBook::GetSkillSizeBonus(DCharacter* character, const DChosenSkill* skill) {
    const DSizeInfo* size = character ? character->GetSizeInfo() : nullptr;
    if (!size || !skill ||
        !DDatabase::ColumnHoldsGuid(kTableSkillBonusesSize, "SkillId", skill->GetSkillId()))
        return 0;
    int bonus = 0;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT Bonus FROM %s WHERE (SkillId=%s) AND (SizeId=%d)",
                          DRulesQuery::Table(kTableSkillBonusesSize).constData(),
                          DRulesQuery::Guid(skill->GetSkillId()).constData(), size->GetSizeId()),
        [&bonus](odbc::ResultSet* row) { bonus = row->getInt("Bonus"); });
    return bonus;
}

int DHandBook::GetSkillGoodsBonus(DCharacter* character, const DChosenSkill* skill) {
    if (!character || !skill ||
        !DDatabase::ColumnHoldsGuid(kTableSkillBonusesGoods, "TargetSkill", skill->GetSkillId()))
        return 0;
    const QString sql = QString::asprintf(
        "SELECT GoodsId, TargetSkill, TargetSubSkill, Penalty, Bonus, BonusMasterwork FROM %s "
        "WHERE (TargetSkill=%s) AND (%s)",
        DRulesQuery::Table(kTableSkillBonusesGoods).constData(),
        DRulesQuery::Guid(skill->GetSkillId()).constData(),
        subSkillTest("TargetSubSkill", skill->GetSubSkillId()).constData());
    int bonus = 0;
    DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        switch (carriedGoods(character, row->getGUID("GoodsId"))) {
        case Carried::Masterwork:
            bonus += row->getInt("BonusMasterwork");
            break;
        case Carried::Plain:
            bonus += row->getInt("Bonus");
            break;
        case Carried::None:
            bonus += row->getInt("Penalty");
            break;
        }
    });
    return bonus;
}

void DHandBook::ComputeAndSetSkillSkillMods(DCharacter* character, bool notify, const QUuid& skill,
                                            const QUuid& subSkill, float newRanks, float oldRanks) {
    if (!character)
        return;
    struct Synergy {
        QUuid sourceSkill, sourceSubSkill, targetSkill, targetSubSkill;
        float required = 0.0f;
        int bonus = 0;
    };
    FCArray<Synergy> rows;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT SourceSkill, SourceSubSkill, ReqRanks, TargetSkill, "
                          "TargetSubSkill, Bonus FROM %s ",
                          DRulesQuery::Table(kTableSkillBonusesSynergy).constData()),
        [&rows](odbc::ResultSet* row) {
            rows.Add({row->getGUID(1), row->getGUID(2), row->getGUID(4), row->getGUID(5),
                      float(row->getInt(3)), row->getInt(6)});
        });
    bool changed = false;
    for (const Synergy& row : rows) {
        if (!skill.isNull() && (row.sourceSkill != skill || row.sourceSubSkill != subSkill))
            continue;
        const DChosenSkill* source =
            character->GetSkillPointer(row.sourceSkill, row.sourceSubSkill);
        DChosenSkill* target = character->GetSkillPointer(row.targetSkill, row.targetSubSkill);
        const float req = row.required;
        if (!source || (oldRanks > 0.0f && req > oldRanks && req > newRanks) ||
            (req <= oldRanks && req <= newRanks))
            continue;
        if (target && oldRanks > 0.0f && req > newRanks && req <= oldRanks) {
            target->SetSkillMod(0);
            changed = true;
        } else if (target && source->GetTotalRanks() >= req) {
            target->SetSkillMod(row.bonus);
            changed = true;
        }
    }
    character->AddChangeFlag(kChangeSkillMiscSynergy);
    if (notify || changed)
        character->HandleHasChanged();
}
