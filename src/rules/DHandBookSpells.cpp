#include "DHandBook.h"

#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenSpell.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DItemType.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSpellCaster.h"
#include "DSpellsPerInfo.h"
#include "ResultSet.h"

namespace {

using namespace DRuleGuids;

constexpr int kLevels = DSpellCaster::kSpellLevelCount;
constexpr unsigned kAllCasterFlags =
    DSpellCaster::kCasterCasts | DSpellCaster::kCasterKnowsList | DSpellCaster::kCasterPrepares;
constexpr unsigned kExtraSlotFlags = DChosenSpell::kSpellDomain | DChosenSpell::kSpellSchool;
constexpr unsigned kChangeKnownSpells = 0x20000000;
constexpr unsigned kChangePreparedSpells = 0x40000000;

// The class level a caster's table row is read at: prestige levels add to its own.
int TableLevel(const DSpellCaster* caster) {
    return int(float(caster->GetBonusSpellLevels()) + caster->GetLevel());
}

// The row of "[info Spells Per Day]" or "[info Spells Can Know]"; false without one.
bool ReadSpellsPer(int table, const QUuid& classGuid, int classLevel, DSpellsPerInfo& out) {
    const QString sql = QString::asprintf("SELECT * FROM %s WHERE (Id=%s) AND (SubId=%d)",
                                          DRulesQuery::Table(table).constData(),
                                          DRulesQuery::Guid(classGuid).constData(), classLevel);
    return DDatabase::FirstRow(sql, [&out](odbc::ResultSet* row) { out.SetData(row); });
}

int CastingScore(const DCharacter* character, const QUuid& classGuid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
    return info ? character->GetAbilityStat(info->mCastingAbility) : -1;
}

DSpellCaster* CasterOf(const DCharacter* character, const DChosenSpell* spell) {
    if (spell->GetSpellFlags() & DChosenSpell::kSpellRaceCaster)
        return character->GetRaceSpellCaster(spell->GetCasterClassGuid());
    return character->GetClassPointer(spell->GetCasterClassGuid());
}

void SetCanKnowWizard(DSpellCaster* caster, int score) {
    caster->SetSpellsCanKnow(1, DHandBook::GetAbilityModifier(score) + 3);
    // Two spells a level; a level past 18 would add to spell level 10, which does not exist.
    for (int wizardLevel = 2; wizardLevel <= TableLevel(caster); ++wizardLevel) {
        const int spellLevel = (wizardLevel + 1) / 2;
        caster->SetSpellsCanKnow(spellLevel, caster->GetSpellsCanKnow(spellLevel) + 2);
    }
}

void SetCanKnowFromTable(DSpellCaster* caster, int score) {
    DSpellsPerInfo row;
    const bool hasRow =
        ReadSpellsPer(kTableSpellsCanKnow, caster->GetClassGuid(), TableLevel(caster), row);
    for (int n = 0; n < kLevels; ++n) {
        int v = 0;
        if (hasRow && score >= n + 10) {
            v = row.GetSpellsPer(n);
            if (v >= 0 && n == row.GetLevelNeedingBonus() &&
                DHandBook::GetBonusSpells(n, score) < 1)
                v = -1;
        }
        caster->SetSpellsCanKnow(n, v < 0 ? 0 : v);
    }
}

} // namespace

int DHandBook::GetBonusSpells(int spellLevel, int score) {
    if (spellLevel < 1 || score < 0)
        return 0;
    return (score / 2 - spellLevel - 1) / 4;
}

int DHandBook::GetSpellCasterLevel(const DSpellCaster* caster) {
    const DClassInfo* info = caster ? DDatabase::GetClassInfoA(caster->GetClassGuid()) : nullptr;
    if (!info || info->mCastType == 0)
        return -1;
    const int level = TableLevel(caster);
    if (level < info->mFirstCasterLevel)
        return 0;
    if (info->mCasterLevelMultiplier != 0.0f)
        return int(float(level) * info->mCasterLevelMultiplier);
    return level;
}

unsigned DHandBook::GetCasterFlags(const QUuid& classGuid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(classGuid);
    if (!info || info->mCastType == 0)
        return 0;
    unsigned flags = DSpellCaster::kCasterCasts;
    if (info->mCasterFlags & DClassInfo::kCasterKnows)
        flags |= DSpellCaster::kCasterKnowsList;
    if (info->mCasterFlags & DClassInfo::kCasterPrepares)
        flags |= DSpellCaster::kCasterPrepares;
    return flags;
}

void DHandBook::ComputeAndSetSpellData(DCharacter* character) {
    if (!character)
        return;
    character->RemoveCharacterFlag(kCharFlagAbilityCaster | kCharFlagKnowsSpellList |
                                   kCharFlagPreparesSpells);
    for (DCharacterClass* characterClass : character->GetClassList()) {
        characterClass->RemoveCasterFlag(kAllCasterFlags);
        const QUuid guid = characterClass->GetClassGuid();
        const unsigned flags = GetSpellCasterLevel(characterClass) < 0 ? 0 : GetCasterFlags(guid);
        characterClass->AddCasterFlag(flags);
        // A fallen devout class keeps its flags but no longer casts for the character.
        const bool fallen =
            characterClass->GetIsExClass() && (guid == kDevoutClass || guid == kPaladinClass);
        if ((flags & DSpellCaster::kCasterCasts) && !fallen)
            character->AddCharacterFlag(kCharFlagAbilityCaster);
        if (flags & DSpellCaster::kCasterKnowsList)
            character->AddCharacterFlag(kCharFlagKnowsSpellList);
        if (flags & DSpellCaster::kCasterPrepares)
            character->AddCharacterFlag(kCharFlagPreparesSpells);
    }
    for (const DSpellCaster* caster : character->GetRaceSpellCasterArray()) {
        if (caster->HasCasterFlag(DSpellCaster::kCasterKnowsList))
            character->AddCharacterFlag(kCharFlagAbilityCaster | kCharFlagKnowsSpellList);
        if (caster->HasCasterFlag(DSpellCaster::kCasterPrepares))
            character->AddCharacterFlag(kCharFlagPreparesSpells);
    }
    ComputeAndSetSpellCasterLevel(character);
    ComputeAndSetSpellsPerDay(character);
    ComputeAndSetSpellsCanKnow(character);
}

void DHandBook::ComputeAndSetSpellCasterLevel(DCharacter* character) {
    int level = -1;
    for (const DCharacterClass* characterClass : character->GetClassList())
        level = std::max(level, GetSpellCasterLevel(characterClass));
    character->SetCharacterStat(kStatCasterLevel, level);
}

void DHandBook::ComputeAndSetSpellsPerDay(DCharacter* character) {
    for (DCharacterClass* characterClass : character->GetClassList())
        ComputeAndSetSpellsPerDayForCaster(character, characterClass, true);
    for (DSpellCaster* caster : character->GetRaceSpellCasterArray())
        ComputeAndSetSpellsPerDayForCaster(character, caster, false);
}

void DHandBook::ComputeAndSetSpellsPerDayForCaster(DCharacter* character, DSpellCaster* caster,
                                                   bool isClass) {
    caster->ClearSpellsPerDay();
    if (!caster->HasCasterFlag(DSpellCaster::kCasterCasts))
        return;
    DSpellsPerInfo row;
    if (!ReadSpellsPer(kTableSpellsPerDay, caster->GetClassGuid(), TableLevel(caster), row))
        return;
    const int score = CastingScore(character, caster->GetClassGuid());
    const QUuid guid = caster->GetClassGuid();
    int maxLevel = -1;
    for (int n = 0; n < kLevels; ++n) {
        int v = row.GetSpellsPer(n);
        if (score < n + 10) {
            v = -1;
        } else if (v >= 0) {
            const int bonus = GetBonusSpells(n, score);
            if (n == row.GetLevelNeedingBonus() && bonus < 1) {
                v = -1;
            } else {
                v += bonus;
                if (v > 0)
                    maxLevel = n;
            }
        }
        caster->SetSpellsPerDay(n, v);
        if (!isClass)
            continue;
        // The domain or school slot comes only with a level the caster can cast.
        if (v < 0)
            continue;
        if ((guid == kClericClass && n > 0 && character->HasPickedDomain()) ||
            (guid == kWizardClass && character->HasPickedSchool()))
            caster->SetExtraClassSpellsPerDay(n, 1);
    }
    caster->SetMaxSpellLevel(maxLevel);
}

void DHandBook::ComputeAndSetSpellsCanKnow(DCharacter* character) {
    for (DCharacterClass* characterClass : character->GetClassList())
        ComputeAndSetSpellsCanKnowForCaster(character, characterClass, true);
    for (DSpellCaster* caster : character->GetRaceSpellCasterArray())
        ComputeAndSetSpellsCanKnowForCaster(character, caster, false);
}

void DHandBook::ComputeAndSetSpellsCanKnowForCaster(DCharacter* character, DSpellCaster* caster,
                                                    bool /*isClass*/) {
    caster->ClearSpellsCanKnow();
    if (!caster->HasCasterFlag(DSpellCaster::kCasterKnowsList))
        return;
    const int score = CastingScore(character, caster->GetClassGuid());
    if (caster->GetClassGuid() == kWizardClass)
        SetCanKnowWizard(caster, score);
    else
        SetCanKnowFromTable(caster, score);
}

int DHandBook::ComputeMaxSpellLevelCanCast(const QUuid& classGuid, int classLevel) {
    DSpellsPerInfo row;
    if (!ReadSpellsPer(kTableSpellsPerDay, classGuid, classLevel, row))
        return -1;
    int maxLevel = -1;
    for (int n = 0; n < kLevels; ++n) {
        if (row.GetSpellsPer(n) > 0)
            maxLevel = n;
    }
    return maxLevel;
}

int DHandBook::GetMaxSpellLevelBasedOnPerDay(const DSpellCaster* caster) {
    int maxLevel = -1;
    for (int n = 0; caster && n < kLevels; ++n) {
        if (caster->GetSpellsPerDay(n) > 0)
            maxLevel = n;
    }
    return maxLevel;
}

int DHandBook::ComputeBuySpellGoldCost(int spellLevel) {
    return spellLevel * 200;
}

void DHandBook::AddSpellKnown(DCharacter* character, DChosenSpell* spell) {
    DSpellCaster* caster = CasterOf(character, spell);
    if (!character->GetKnownSpellSet().Add(spell))
        return;
    const int purchase = spell->GetPurchaseType();
    if (purchase >= 0 && purchase < kLevels && caster)
        caster->AdjustSpellsKnown(purchase, 1);
    else if (purchase == 10)
        character->GetCurrency().AdjustAmount(kCoinGold,
                                              -ComputeBuySpellGoldCost(spell->GetSpellLevel()));
    character->AddChangeFlag(kChangeKnownSpells);
}

void DHandBook::RemoveSpellCostKnown(DCharacter* character, DChosenSpell* spell) {
    DSpellCaster* caster = CasterOf(character, spell);
    const int purchase = spell->GetPurchaseType();
    if (purchase < 10 && caster)
        caster->AdjustSpellsKnown(purchase, -1);
    else if (purchase == 10)
        character->GetCurrency().AdjustAmount(kCoinGold,
                                              ComputeBuySpellGoldCost(spell->GetSpellLevel()));
}

void DHandBook::RemoveSpellKnown(DCharacter* character, DChosenSpell* spell) {
    spell->Retain(); // the set may hold the only reference
    RemoveSpellCostKnown(character, spell);
    RemoveSpellIfPrepared(character, spell);
    character->GetKnownSpellSet().Remove(*spell);
    spell->Release();
    character->AddChangeFlag(kChangeKnownSpells);
}

void DHandBook::RemoveAllSpellsKnown(DCharacter* character) {
    FCArray<DChosenSpell*> known;
    for (const FCPointer<DChosenSpell>& spell : character->GetKnownSpellSet())
        known.Add(spell.Get());
    for (DChosenSpell* spell : known) {
        RemoveSpellCostKnown(character, spell);
        RemoveSpellIfPrepared(character, spell);
    }
    character->GetKnownSpellSet().RemoveAll();
    character->AddChangeFlag(kChangeKnownSpells);
}

void DHandBook::RemoveSpellIfPrepared(DCharacter* character, DChosenSpell* spell) {
    const DSpellCaster* caster = CasterOf(character, spell);
    if (!caster || !caster->HasCasterFlag(DSpellCaster::kCasterPrepares))
        return;
    FCArray<DChosenSpell*> prepared;
    for (const FCPointer<DChosenSpell>& record : character->GetPreparedSpellSet()) {
        if (record->GetSpellGuid() == spell->GetSpellGuid() &&
            record->GetCasterClassGuid() == spell->GetCasterClassGuid())
            prepared.Add(record.Get());
    }
    for (DChosenSpell* record : prepared)
        RemoveSpellPrepared(character, record);
}

DChosenSpell* DHandBook::AddSpellPrepared(DCharacter* character, const QUuid& spell,
                                          const QUuid& classGuid, int level, unsigned flags) {
    DChosenSpell* key = new DChosenSpell();
    key->SetSpellGuid(spell);
    key->SetCasterClassGuid(classGuid);
    key->AddSpellFlag(flags);
    DChosenSpell* record = character->GetPreparedSpellSet().Find(*key);
    if (!record) {
        key->SetSpellLevel(level);
        character->GetPreparedSpellSet().Add(key);
        record = key;
    }
    key->Release(); // the set holds the record now, or an equal one was there
    record->AdjustPreparedCount(1);
    if (DSpellCaster* caster = CasterOf(character, record)) {
        if (flags & kExtraSlotFlags)
            caster->AdjustExtraClassSpellsPrepared(level, 1);
        else
            caster->AdjustSpellsPrepared(level, 1);
    }
    character->AddChangeFlag(kChangePreparedSpells);
    return record;
}

void DHandBook::RemoveSpellCostPrepared(DCharacter* character, DChosenSpell* spell) {
    DSpellCaster* caster = CasterOf(character, spell);
    if (!caster)
        return;
    if (spell->GetSpellFlags() & kExtraSlotFlags)
        caster->AdjustExtraClassSpellsPrepared(spell->GetSpellLevel(), -spell->GetPreparedCount());
    else
        caster->AdjustSpellsPrepared(spell->GetSpellLevel(), -spell->GetPreparedCount());
}

void DHandBook::RemoveSpellPrepared(DCharacter* character, DChosenSpell* spell) {
    spell->Retain(); // the set may hold the only reference
    RemoveSpellCostPrepared(character, spell);
    character->GetPreparedSpellSet().Remove(*spell);
    spell->Release();
    character->AddChangeFlag(kChangePreparedSpells);
}

void DHandBook::RemoveAllSpellsPrepared(DCharacter* character) {
    for (const FCPointer<DChosenSpell>& spell : character->GetPreparedSpellSet())
        RemoveSpellCostPrepared(character, spell.Get());
    character->GetPreparedSpellSet().RemoveAll();
    character->AddChangeFlag(kChangePreparedSpells);
}

QString DHandBook::BuildSpellsPerDayString(const DSpellCaster* caster, int level) {
    if (!caster)
        return QString();
    QString text = QString::number(caster->GetSpellsPerDay(level));
    if (caster->GetExtraClassSpellsPerDay(level) > 0)
        text += QLatin1Char('+') + QString::number(caster->GetExtraClassSpellsPerDay(level));
    return text;
}

QString DHandBook::BuildRemainingSpellsPerDayString(const DSpellCaster* caster, int level) {
    if (!caster)
        return QString();
    QString text = QString::number(caster->GetRemainingSpellsPerDay(level));
    if (caster->GetExtraClassSpellsPerDay(level) > 0)
        text +=
            QLatin1Char('+') + QString::number(caster->GetRemainingExtraClassSpellsPerDay(level));
    return text;
}

QString DHandBook::BuildSpellsCanKnowString(const DSpellCaster* caster, int level) {
    return caster ? QString::number(caster->GetSpellsCanKnow(level)) : QString();
}

QString DHandBook::BuildRemainingSpellsCanKnowString(const DSpellCaster* caster, int level) {
    return caster ? QString::number(caster->GetRemainingSpellsCanKnow(level)) : QString();
}
