#include "DHandBook.h"

#include "DCharFlags.h"
#include "DCharacter.h"
#include "DDieRoller.h"
#include "DRace.h"

#include <algorithm>
#include <map>
#include <vector>

#include <QStringList>

namespace {

constexpr unsigned kAbilityChangeFlags[kAbilityCount] = {kChangeStrength,     kChangeDexterity,
                                                         kChangeConstitution, kChangeIntelligence,
                                                         kChangeWisdom,       kChangeCharisma};
// A class feature of this type and data adds Charisma to every save (the paladin's grace).
constexpr DFeatureType kCharismaToSavesFeature = 7;
constexpr int kCharismaToSavesData = -1;
// Earned and inherent slots are shown for these character levels.
constexpr int kHighestShownLevel = 20;

// The adjustment that stays when the user later replaces the base: odd race scores keep the
// odd point in the base.
int RaceAdjustment(int raceScore) {
    return raceScore % 2 == 0 ? raceScore - 10 : raceScore - 11;
}

int DroppedLowestSum(const std::vector<int>& dice, int dropCount) {
    std::vector<int> sorted = dice;
    std::sort(sorted.begin(), sorted.end());
    int sum = 0;
    for (size_t i = size_t(dropCount); i < sorted.size(); ++i)
        sum += sorted[i];
    return sum;
}

// The spells-per-day step of a changed casting ability.
void HandleSpellAbilityChange(DCharacter* character) {
    if (!character->HasCharacterFlag(kCharFlagAbilityCaster))
        return;
    character->AddChangeFlag(kChangeSpellsPerDay);
    DHandBook::ComputeAndSetSpellsPerDay(character);
    DHandBook::ComputeAndSetSpellsCanKnow(character);
}

// "Earned: STR: +1 (4th), +1 (8th).<br>" for the slots that `raw` reads.
template <typename RawOf>
QString SlotsText(const DCharacter* character, const QString& heading, RawOf rawOf) {
    QString text;
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        const int raw = rawOf(character, ability);
        std::map<int, int> countByLevel;
        for (int slot = 0; slot < DCharacter::kAbilitySlotCount; ++slot) {
            const int level = DCharacter::GetPackedSlot(raw, slot);
            if (level >= 1 && level <= kHighestShownLevel)
                ++countByLevel[level];
        }
        if (countByLevel.empty())
            continue;
        if (text.isEmpty())
            text += heading;
        text += QString::fromLatin1(kAbilityShortNames[ability]) + QStringLiteral(": ");
        QStringList parts;
        for (const auto& [level, count] : countByLevel)
            parts << QStringLiteral("+%1 (%2)").arg(count).arg(DHandBook::BuildLevelString(level));
        text += parts.join(QStringLiteral(", ")) + QStringLiteral(".<br>");
    }
    return text;
}

} // namespace

int DHandBook::RollAbilityStat(DRollMethodType method, FCArray<int>* dice) {
    if (dice)
        dice->RemoveAll();
    int count = 0;
    int dropped = 0;
    switch (method) {
    case kRoll4d6DropLowest:
    case kRoll4d6InOrderRerollOne:
    case kRoll4d6ReplaceLowest:
        count = 4;
        dropped = 1;
        break;
    case kRoll3d6:
    case kRoll3d6InOrder:
        count = 3;
        break;
    case kRoll5d6DropTwoLowest:
        count = 5;
        dropped = 2;
        break;
    default:
        return 0;
    }
    std::vector<int> rolled;
    for (int i = 0; i < count; ++i) {
        rolled.push_back(DDieRoller::RollDie(6));
        if (dice)
            dice->Add(rolled.back());
    }
    return DroppedLowestSum(rolled, dropped);
}

void DHandBook::RollAbilityStats(DRollMethodType method, FCArray<int>& out) {
    out.RemoveAll();
    if (method < kRoll4d6DropLowest || method > kRoll4d6ReplaceLowest)
        return;
    for (int i = 0; i < kAbilityCount; ++i)
        out.Add(RollAbilityStat(method, nullptr));
}

void DHandBook::AssignAbilityStats(DCharacter* character) {
    const DRace* race = character ? character->GetRace() : nullptr;
    if (!race)
        return;
    for (int ability = 0; ability < kAbilityCount; ++ability) {
        if (race->GetNoAbility(ability)) {
            character->SetAbilityStatBase(ability, -1);
            character->SetAbilityStatBonus(ability, 0);
            continue;
        }
        int score = race->GetAbility(ability);
        const int bonus = RaceAdjustment(score);
        // A thinking character needs Intelligence 3; a monster may have less.
        if (ability == kAbilityIntelligence) {
            if (!character->IsMonsterClassOnly() && score <= 3)
                score = 3;
        } else if (score < 2) {
            score = 1;
        }
        character->SetAbilityStatBonus(ability, bonus);
        character->SetAbilityStatBase(ability, score - bonus);
    }
}

void DHandBook::ApplyRaceAbilityAdjustments(DCharacter* character) {
    const DRace* race = character ? character->GetRace() : nullptr;
    if (!race)
        return;
    for (int ability = 0; ability < kAbilityCount; ++ability)
        SetCharacterAbilityStatBonus(character, DAbilityStatType(ability),
                                     RaceAdjustment(race->GetAbility(ability)), false);
}

int DHandBook::ComputeStatPointValue(int score) {
    if (score < 9)
        return 0;
    if (score <= 14)
        return score - 8;
    if (score <= 16)
        return 2 * score - 22;
    return 3 * score - 38;
}

void DHandBook::SetCharacterAbilityStatBase(DCharacter* character, DAbilityStatType ability,
                                            int value, bool notify) {
    const int before = character->GetAbilityStat(ability);
    character->SetAbilityStatBase(ability, value);
    HandleAbilityStatChange(character, ability, before, character->GetAbilityStat(ability), notify);
}

void DHandBook::SetCharacterAbilityStatBonus(DCharacter* character, DAbilityStatType ability,
                                             int value, bool notify) {
    if (character->IsNullAbility(ability))
        return;
    const int before = character->GetAbilityStat(ability);
    character->SetAbilityStatBonus(ability, value);
    HandleAbilityStatChange(character, ability, before, character->GetAbilityStat(ability), notify);
}

void DHandBook::AdjustCharacterAbilityStatBonus(DCharacter* character, DAbilityStatType ability,
                                                int delta, bool notify) {
    if (character->IsNullAbility(ability))
        return;
    SetCharacterAbilityStatBonus(character, ability,
                                 character->GetAbilityStatBonus(ability) + delta, notify);
}

void DHandBook::AdjustCharacterAbilityStatEquipBonus(DCharacter* character,
                                                     DAbilityStatType ability, int delta,
                                                     bool notify) {
    if (character->IsNullAbility(ability))
        return;
    const int before = character->GetAbilityStat(ability);
    character->SetAbilityStatEquipBonus(ability,
                                        character->GetAbilityStatEquipBonus(ability) + delta);
    HandleAbilityStatChange(character, ability, before, character->GetAbilityStat(ability), notify);
}

void DHandBook::ChangeAbilityStatBase(DCharacter* character, DAbilityStatType ability, int value,
                                      bool notify) {
    const int delta = value - character->GetAbilityStatBase(ability);
    if (ability == kAbilityConstitution)
        RecomputeAndSetHitPoints(character, 0, delta);
    else if (ability == kAbilityIntelligence)
        RecomputeAndSetSkillPoints(character, 0, delta);
    SetCharacterAbilityStatBase(character, ability, value, notify);
}

void DHandBook::ComputeAndSetEarnedAbilityPoints(DCharacter* character) {
    // One increase every fourth class level; racial hit dice earn none.
    character->SetCharacterStat(kStatEarnedAbilityPoints,
                                character->GetNonRaceCharacterLevel() / 4);
}

FCString DHandBook::BuildLevelString(int level) {
    QString suffix;
    switch (level) {
    case 0:
        break;
    case 1:
        suffix = QStringLiteral("st");
        break;
    case 2:
        suffix = QStringLiteral("nd");
        break;
    case 3:
        suffix = QStringLiteral("rd");
        break;
    default:
        suffix = QStringLiteral("th");
        break;
    }
    return FCString(QString::number(level) + suffix);
}

FCString DHandBook::BuildAbilityBonusesString(DCharacter* character) {
    QString text = SlotsText(character, QStringLiteral("Earned: "), [](const DCharacter* c, int a) {
        return c->GetEarnedAbilityStatRaw(a);
    });
    if (!text.isEmpty())
        text += QStringLiteral("<br>");
    text += SlotsText(character, QStringLiteral("Inherent: "),
                      [](const DCharacter* c, int a) { return c->GetInherentAbilityStatRaw(a); });
    return FCString(text);
}

void DHandBook::ComputeAndSetLanguagePoints(DCharacter* character) {
    const int modifier =
        GetAbilityModifier(character->GetAbilityStatNoEquipBonus(kAbilityIntelligence));
    character->SetCharacterStat(kStatIntelligenceLanguagePoints, std::max(modifier, 0));
}

void DHandBook::HandleAbilityStatChange(DCharacter* character, DAbilityStatType ability,
                                        int oldValue, int newValue, bool notify) {
    if (ability < 0 || ability >= kAbilityCount)
        return;
    const int change = GetAbilityModifierChange(oldValue, newValue);
    character->AddChangeFlag(kAbilityChangeFlags[ability]);
    switch (ability) {
    case kAbilityStrength:
        // Load and speed (ComputeAndSetCharacterEncumberance) follow Strength once the
        // equipment work lands.
        break;
    case kAbilityDexterity:
        AdjustSavingThrowForAbilityModChange(character, kStatReflex, change);
        ComputeAndSetInitiative(character);
        ComputeAndSetArmorClass(character);
        break;
    case kAbilityConstitution:
        // Hit points are the caller's: it runs RecomputeAndSetHitPoints first when they follow.
        AdjustSavingThrowForAbilityModChange(character, kStatFortitude, change);
        break;
    case kAbilityIntelligence:
        // Initiative falls back on Intelligence for a creature without Dexterity.
        if (character->IsNullAbility(kAbilityDexterity))
            ComputeAndSetInitiative(character);
        ComputeAndSetLanguagePoints(character);
        character->AddChangeFlag(kChangeLanguages);
        if (!character->HasCharacterFlag(kCharFlagRaceFeatPointsFixed)) {
            ComputeAndSetRaceFeatPoints(character);
            character->AddChangeFlag(kChangeRaceFeatPoints);
        }
        HandleSpellAbilityChange(character);
        break;
    case kAbilityWisdom:
        AdjustSavingThrowForAbilityModChange(character, kStatWill, change);
        HandleSpellAbilityChange(character);
        break;
    case kAbilityCharisma:
        if (character->HasFeature(kCharismaToSavesFeature, kCharismaToSavesData, 0)) {
            AdjustSavingThrowForAbilityModChange(character, kStatFortitude, change);
            AdjustSavingThrowForAbilityModChange(character, kStatReflex, change);
            AdjustSavingThrowForAbilityModChange(character, kStatWill, change);
        }
        HandleSpellAbilityChange(character);
        // Charisma feeds armor class through some races' deflection.
        ComputeAndSetArmorClass(character);
        break;
    default:
        break;
    }
    character->AddChangeFlag(kChangeAbilityOrFeats);
    if ((GetAbilityModifier(oldValue) == 0) != (GetAbilityModifier(newValue) == 0))
        character->AddChangeFlag(kChangeAbilityModifierZero);
    UpdateSkillAbilityMods(character, ability);
    if (notify)
        character->HandleHasChanged();
}
