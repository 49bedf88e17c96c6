#include "DHandBook.h"

#include "DCharFlags.h"
#include "DCharHistory.h"
#include "DCharacter.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "Guid.h"
#include "ResultSet.h"

#include <algorithm>
#include <cmath>

namespace {

int ConstitutionModifier(const DCharacter* character) {
    return DHandBook::GetAbilityModifier(
        character->GetAbilityStatNoEquipBonus(kAbilityConstitution));
}

float AverageDie(int sides) {
    return float(sides + 1) * 0.5f;
}

// A creature that is its race alone takes the average of every die; the Constitution modifier
// scales with a fraction of a die like the die itself.
int MonsterHitPoints(DCharacter* character, int con, int modChange) {
    DCharHistory* entry = character->GetHistoryAtPosition(0);
    const DClassInfo* info = entry ? DDatabase::GetClassInfoA(entry->GetClassGuid()) : nullptr;
    if (!info)
        return 0;
    float perDie = AverageDie(info->mDieId) + float(con + modChange);
    if (perDie <= 0.0f)
        perDie = 1.0f;
    const int hitPoints = int(perDie * entry->GetLevel());
    entry->setHitpoints(hitPoints);
    return hitPoints;
}

struct HitDieWalk {
    int limit = 0;     // levels up to here keep what they have
    int con = 0;       // Constitution modifier without worn items
    int modChange = 0; // a modifier step to add to every level past the limit
    bool average = false;
    int counter = 0;
    bool firstDone = false;
};

// The hit points that one history entry holds after the walk has passed it.
int EntryHitPoints(DCharHistory* entry, int sides, HitDieWalk& walk) {
    const bool isRace = entry->HasHistoryFlag(DCharHistory::kHistoryRaceClass);
    float remaining = entry->GetLevel();
    float entryHP = 0.0f;
    while (remaining > 0.0f) {
        ++walk.counter;
        if (walk.counter > walk.limit) {
            if (walk.modChange != 0) {
                entryHP += float(walk.modChange);
            } else if (!isRace && !walk.firstDone && walk.limit == 0) {
                // The first class level has the full die.
                entryHP = float(std::max(sides + walk.con, 1));
                walk.firstDone = true;
            } else {
                float value = walk.average ? AverageDie(sides) : float(DDieRoller::RollDie(sides));
                value += entryHP;
                if (entry->GetLevel() < 1.0f)
                    value *= remaining;
                // The floor holds for the running sum, so a poor die may lean on earlier ones.
                entryHP = std::max(value + float(walk.con), 1.0f);
            }
        }
        if (!isRace)
            walk.firstDone = true;
        remaining -= 1.0f;
    }
    // What the entry stores is what it adds: the base is the sum of the entries, whether they
    // were worked out now or at an earlier level-up.
    if (walk.modChange != 0)
        entry->setHitpoints(int(std::max(entryHP + float(entry->getHitpoints()), 1.0f)));
    else if (entryHP != 0.0f)
        entry->setHitpoints(int(entryHP));
    return entry->getHitpoints();
}

} // namespace

int DHandBook::RollForBaseHitPoints(DCharacter* character, bool average, int level, int modChange) {
    if (!character)
        return 0;
    HitDieWalk walk;
    walk.limit = level >= 0 ? level : int(character->GetPreviousCharacterLevel());
    walk.con = ConstitutionModifier(character);
    walk.modChange = modChange;
    walk.average = average;
    if (character->IsMonsterClassOnly())
        return MonsterHitPoints(character, walk.con, modChange);

    int total = 0;
    for (DCharHistory* entry : character->GetHistoryArray()) {
        // A race of one hit die or less gives a classed character no die of its own.
        if (entry->HasHistoryFlag(DCharHistory::kHistoryRaceClass) && entry->GetLevel() <= 1.0f)
            continue;
        const DClassInfo* info = DDatabase::GetClassInfoA(entry->GetClassGuid());
        if (!info)
            continue;
        total += EntryHitPoints(entry, info->mDieId, walk);
    }
    return total;
}

void DHandBook::ComputeAndSetHitPoints(DCharacter* character, bool resetUser, bool notify) {
    if (!character)
        return;
    character->SetCharacterStat(
        kStatBaseHitPoints,
        RollForBaseHitPoints(character, character->HasCharacterFlag(kCharFlagAverageHitDice), -1,
                             0));
    if (resetUser)
        character->SetCharacterStat(kStatUserHitPoints, 0);
    SetCharacterHitPoints(character, ComputeTotalHitPoints(character), notify);
}

void DHandBook::RecomputeAndSetHitPoints(DCharacter* character, int level, int scoreDelta) {
    // A null Constitution has no score to move.
    if (!character || character->IsNullAbility(kAbilityConstitution))
        return;
    const int score = character->GetAbilityStatNoEquipBonus(kAbilityConstitution);
    const int difference = GetAbilityModifier(score + scoreDelta) - GetAbilityModifier(score);
    if (difference == 0)
        return;
    character->SetCharacterStat(kStatBaseHitPoints,
                                RollForBaseHitPoints(character, false, level, difference));
    SetCharacterHitPoints(character, ComputeTotalHitPoints(character), true);
}

int DHandBook::ComputeTotalHitPoints(DCharacter* character) {
    if (!character)
        return 0;
    int total = GetRaceSizeBonusHitPoints(character);
    for (const DCharStatType stat : {kStatBaseHitPoints, kStatFeatHitPoints, kStatFamiliarHitPoints,
                                     kStatFeatureHitPoints, kStatUserHitPoints})
        total += character->GetCharacterStat(stat);
    return total;
}

int DHandBook::GetRaceSizeBonusHitPoints(DCharacter* character) {
    const DRace* race = character ? character->GetRace() : nullptr;
    const DSizeInfo* size = character ? character->GetSizeInfo() : nullptr;
    if (!race || !size)
        return 0;
    const QString sql = QString::asprintf(
        "SELECT BonusHPs FROM %s WHERE (ClassId=%s) AND (SizeId=%d)",
        DRulesQuery::Table(kTableRaceSizeBonusHitPoints).constData(),
        odbc::toStringODBC(race->GetClassGuid()).toLatin1().constData(), size->GetSizeId());
    int bonus = 0;
    DDatabase::FirstRow(
        sql, [&bonus](odbc::ResultSet* row) { bonus = row->getInt(QStringLiteral("BonusHPs")); });
    return bonus;
}

void DHandBook::SetCharacterHitPoints(DCharacter* character, int value, bool notify) {
    if (!character)
        return;
    character->SetCharacterStat(kStatHitPoints, value);
    character->AddChangeFlag(kChangeHitPoints);
    // A familiar has half its master's hit points, whatever moved them.
    DCompanionRules::UpdateAnimalHitPoints(character);
    if (notify)
        character->HandleHasChanged();
}

void DHandBook::ClearHitPointsFeatBonus(DCharacter* character) {
    if (!character)
        return;
    AdjustHitPointsForBonus(character, kStatFeatHitPoints,
                            -character->GetCharacterStat(kStatFeatHitPoints));
}

void DHandBook::AdjustHitPointsForBonus(DCharacter* character, DCharStatType stat, int delta) {
    if (!character)
        return;
    character->AdjustCharacterStat(stat, delta);
    const int total =
        std::max(character->GetCharacterStat(kStatHitPoints) + delta, GetMinHitPoints(character));
    SetCharacterHitPoints(character, total, false);
}

int DHandBook::GetMinHitPoints(DCharacter* character) {
    return character ? int(std::ceil(character->GetCharacterLevel())) : 0;
}
