#include "DHandBook.h"

#include "DAlignmentInfo.h"
#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenLanguage.h"
#include "DDatabase.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "ResultSet.h"

using DRuleGuids::kAnyGod;
using DRuleGuids::kClericClass;

namespace {

constexpr int kTableClassAlignmentRestrictions = 7;
constexpr int kTableGodDomain = 145;
constexpr int kTableGodDomainFeat = 146;
constexpr unsigned kLanguageSpeak = 0x1;
// The feature type that gives one language by name.
constexpr int kFeatureNamedLanguage = 16;

struct GodRow {
    bool found = false;
    int alignment = 0;
    int restricted = -1;
    bool byRace = false;
};

GodRow ReadGod(const QUuid& god) {
    GodRow row;
    DDatabase::FirstRow(
        QString::asprintf("SELECT AlignmentId, RestrictedAlignment, RestrictedByRace FROM %s "
                          "WHERE (Guid=%s)",
                          DRulesQuery::Table(kTableGod).constData(),
                          DRulesQuery::Guid(god).constData()),
        [&row](odbc::ResultSet* result) {
            row = {true, result->getInt(1), result->getInt(2), result->getInt(3) != 0};
        });
    return row;
}

int SchoolCategory(int school) {
    const DSchoolInfo* info = DDatabase::GetSchoolInfo(school);
    return info ? info->GetCategory() : 0;
}

bool IsProhibited(DCharacter* character, int school) {
    return character->GetProhibitedSchoolArray().Find(school) >= 0;
}

// Granted without a purchase: no feat point is spent on it.
void GrantGodFeat(DCharacter* character, const QUuid& feat, const QUuid& weapon) {
    auto* chosen = new DChosenFeat();
    chosen->SetFeatGuid(feat);
    chosen->SetTargetGuid(weapon);
    chosen->SetClassGuid(kClericClass);
    chosen->AddFeatFlag(DChosenFeat::kFeatGranted | DChosenFeat::kFeatLocked);
    character->AddFeat(chosen);
    DHandBook::HandleFeatBonuses(character, chosen, false);
    chosen->Release();
}

// One row of a god's domain feats; true if the feat changed.
bool ApplyGodFeat(DCharacter* character, const QUuid& feat, const QUuid& weapon, bool add) {
    DChosenFeat* held = character->GetFeat(feat, weapon);
    constexpr unsigned kBoth = DChosenFeat::kFeatGranted | DChosenFeat::kFeatLocked;
    if (!add) {
        if (!held || !held->HasFeatFlag(DChosenFeat::kFeatGranted))
            return false;
        if (held->HasFeatFlag(DChosenFeat::kFeatBoughtGranted)) {
            // Bought before it was granted: it stays, paid for again and open for sale.
            held->RemoveFeatFlag(kBoth | DChosenFeat::kFeatBoughtGranted);
            character->AdjustCharacterStat(kStatSpentFeatPoints, 1);
        } else {
            DHandBook::HandleFeatBonuses(character, held, true);
            character->RemoveFeat(held);
        }
        return true;
    }
    if (!held) {
        GrantGodFeat(character, feat, weapon);
        return true;
    }
    if (held->GetFeatFlags() & kBoth)
        return false;
    // The grant refunds the purchase and locks the feat.
    held->AddFeatFlag(kBoth | DChosenFeat::kFeatBoughtGranted);
    character->AdjustCharacterStat(kStatSpentFeatPoints, -1);
    return true;
}

} // namespace

bool DHandBook::GetIsValidAlignment(const QUuid& classGuid, int alignment) {
    return !DRulesQuery::HasRow(
        QString::asprintf("SELECT ClassId FROM %s WHERE (ClassId=%s) AND (AlignmentId=%d)",
                          DRulesQuery::Table(kTableClassAlignmentRestrictions).constData(),
                          DRulesQuery::Guid(classGuid).constData(), alignment));
}

bool DHandBook::CanWorshipGod(DCharacter* character, const QUuid& god) {
    const GodRow row = ReadGod(god);
    if (!row.found)
        return false;
    if (god == kAnyGod)
        return true;
    const DRace* race = character->GetRace();
    if (row.byRace && (!race || !race->HasAvailableGod(god)))
        return false;
    if (row.alignment > 0) {
        const DAlignmentInfo* own = DDatabase::GetAlignmentInfo(character->GetAlignmentId());
        if (!own || !own->GetIsOneOffAlignment(row.alignment))
            return false;
    }
    if (character->GetAlignmentId() == row.restricted)
        return false;
    for (int i = 0; i < 2; ++i) {
        if (!IsValidGodDomain(god, character->GetDomain(i)))
            return false;
    }
    return true;
}

bool DHandBook::CanWorshipDomain(DCharacter* character, const QUuid& domain) {
    bool found = false;
    int required = 0;
    QUuid opposing;
    DDatabase::FirstRow(
        QString::asprintf("SELECT RequiredAlignmentFlag, OpposingDomain FROM %s WHERE (Guid=%s)",
                          DRulesQuery::Table(kTableDomain).constData(),
                          DRulesQuery::Guid(domain).constData()),
        [&](odbc::ResultSet* row) {
            found = true;
            required = row->getInt(1);
            opposing = row->getGUID(2);
        });
    if (!found)
        return false;
    if (required > 0 && (character->GetAlignmentId() & required) == 0)
        return false;
    if (!IsValidGodDomain(character->GetGod(), domain))
        return false;
    return opposing.isNull() || character->GetDomainIndex(opposing) < 0;
}

bool DHandBook::IsValidGodDomain(const QUuid& god, const QUuid& domain) {
    if (god == kAnyGod || god.isNull() || domain.isNull())
        return true;
    return DRulesQuery::HasRow(QString::asprintf(
        "SELECT * FROM %s WHERE (GodId=%s) AND (DomainId=%s)",
        DRulesQuery::Table(kTableGodDomain).constData(), DRulesQuery::Guid(god).constData(),
        DRulesQuery::Guid(domain).constData()));
}

void DHandBook::SetCharacterGod(DCharacter* character, const QUuid& god) {
    const bool add = !god.isNull();
    const QUuid featGod = add ? god : character->GetGod();
    character->SetGod(god);
    if (HandleClericSpecialFeats(character, featGod, character->GetDomain(0),
                                 character->GetDomain(1), add)) {
        character->AddChangeFlag(kChangeGodDomainFeats);
        character->HandleHasChanged();
    }
}

void DHandBook::AddCharacterDomain(DCharacter* character, const QUuid& domain) {
    if (character->GetDomain(0).isNull())
        SetCharacterDomain(character, 0, domain);
    else if (character->GetDomain(1).isNull())
        SetCharacterDomain(character, 1, domain);
}

void DHandBook::RemoveCharacterDomain(DCharacter* character, const QUuid& domain) {
    const int index = character->GetDomainIndex(domain);
    if (index < 0 || domain.isNull())
        return;
    SetCharacterDomain(character, index, QUuid());
    if (index == 0) {
        character->SetDomain(0, character->GetDomain(1));
        character->SetDomain(1, QUuid());
    }
}

void DHandBook::SetCharacterDomain(DCharacter* character, int index, const QUuid& domain) {
    if (index < 0 || index > 1)
        return;
    const bool hadDomain = character->HasPickedDomain();
    QUuid pair[2] = {character->GetDomain(0), character->GetDomain(1)};
    const bool add = !domain.isNull();
    if (add)
        pair[index] = domain;
    character->SetDomain(index, domain);
    const QUuid god = character->GetGod();
    if (HandleClericSpecialFeats(character, god, pair[0], pair[1], add)) {
        character->AddChangeFlag(kChangeGodDomainFeats);
        character->HandleHasChanged();
    }
    if (HandleClericSpecialSkills(character, god, pair[0], pair[1], add)) {
        character->AddChangeFlag(kChangeDomainClassSkills);
        character->HandleHasChanged();
    }
    if (character->HasPickedDomain() != hadDomain) {
        character->AddChangeFlag(kChangeSpellsPerDay);
        ComputeAndSetSpellsPerDay(character);
        character->HandleHasChanged();
    }
}

bool DHandBook::HandleClericSpecialFeats(DCharacter* character, const QUuid& god,
                                         const QUuid& domain0, const QUuid& domain1, bool add) {
    struct Row {
        QUuid feat, weapon;
    };
    QList<Row> rows;
    DDatabase::ForEachRow(
        QString::asprintf(
            "SELECT FeatId, WeaponId FROM %s WHERE (GodId=%s) AND ((DomainId=%s) "
            "OR (DomainId=%s))",
            DRulesQuery::Table(kTableGodDomainFeat).constData(), DRulesQuery::Guid(god).constData(),
            DRulesQuery::Guid(domain0).constData(), DRulesQuery::Guid(domain1).constData()),
        [&rows](odbc::ResultSet* row) {
            rows.append({row->getGUID(1), row->getGUID(2)});
        });
    bool changed = false;
    for (const Row& row : rows)
        changed = ApplyGodFeat(character, row.feat, row.weapon, add) || changed;
    return changed;
}

bool DHandBook::HandleClericSpecialSkills(DCharacter* character, const QUuid&, const QUuid& domain0,
                                          const QUuid& domain1, bool add) {
    QList<QUuid> skills;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT SkillId FROM %s WHERE (DomainId=%s) OR (DomainId=%s)",
                          DRulesQuery::Table(kTableDomainSkill).constData(),
                          DRulesQuery::Guid(domain0).constData(),
                          DRulesQuery::Guid(domain1).constData()),
        [&skills](odbc::ResultSet* row) { skills.append(row->getGUID(1)); });
    bool result = false;
    for (const QUuid& skill : skills)
        result = ConvertSkillsForUsabilitySwitch(character, kClericClass, skill, add);
    return result;
}

bool DHandBook::CanChooseSchool(DCharacter* character, int school) {
    if (IsProhibited(character, school))
        return false;
    const int count = character->GetNumProhibitedSchools();
    const int category = SchoolCategory(school);
    if (count > category)
        return false;
    FCArray<int>& prohibited = character->GetProhibitedSchoolArray();
    if (prohibited.IsEmpty() || prohibited.At(0) <= 0)
        return true;
    const int first = SchoolCategory(prohibited.At(0));
    if (first != 1 && first != 2)
        return true;
    if (count == 1)
        return category <= first;
    if (count == 2)
        return category == first + 1;
    return true;
}

bool DHandBook::CanChooseProhibitedSchool(DCharacter* character, int school) {
    if (school == character->GetSchool() || IsProhibited(character, school) ||
        character->HasFeat(DRuleGuids::kSchoolTargetFeat, school, -1))
        return false;
    const int count = character->GetNumProhibitedSchools();
    const bool chosen = character->HasPickedSchool();
    const int own = chosen ? SchoolCategory(character->GetSchool()) : 0;
    const int category = SchoolCategory(school);
    if (count == 1)
        return !chosen || category >= own;
    if (count == 2)
        return chosen ? category == own - 1 : category < 3;
    return true;
}

void DHandBook::SetCharacterSchool(DCharacter* character, int school) {
    const bool had = character->HasPickedSchool();
    character->SetSchool(school);
    if (had != character->HasPickedSchool()) {
        character->AddChangeFlag(kChangeSpellsPerDay);
        ComputeAndSetSpellsPerDay(character);
        character->HandleHasChanged();
    }
}

void DHandBook::AddLanguage(DCharacter* character, DChosenLanguage* language, bool speak) {
    if (speak)
        language->AddLanguageFlag(kLanguageSpeak);
    character->AddLanguage(language);
    character->AdjustCharacterStat(speak ? kStatSpentSpeakLanguagePoints : kStatSpentLanguagePoints,
                                   1);
    character->AddChangeFlag(kChangeLanguages);
}

bool DHandBook::RemoveLanguage(DCharacter* character, const QUuid& language) {
    const DChosenLanguage* record = character->GetLanguagePointer(language);
    if (!record)
        return false;
    const bool speak = record->HasLanguageFlag(kLanguageSpeak);
    character->RemoveLanguage(language);
    character->AdjustCharacterStat(speak ? kStatSpentSpeakLanguagePoints : kStatSpentLanguagePoints,
                                   -1);
    character->AddChangeFlag(kChangeLanguages);
    return speak;
}

int DHandBook::GetRemainingLanguagePoints(const DCharacter* character) {
    // A feature that names its language (a druid's Druidic) counts a point and uses it.
    auto& features = const_cast<DCharacter&>(*character);
    int named = 0;
    for (int array = 0; array < DCharacter::kFeatureArrayCount; ++array) {
        for (const DChosenFeature* feature : features.GetFeatureArray(array))
            named += feature->GetFeatureType() == kFeatureNamedLanguage &&
                     !feature->GetFeatureDataGuid().isNull();
    }
    return character->GetCharacterStat(kStatFeatureLanguagePoints) - named +
           character->GetCharacterStat(kStatIntelligenceLanguagePoints) -
           character->GetCharacterStat(kStatSpentLanguagePoints);
}
