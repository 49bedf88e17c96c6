#include "DHandBook.h"

#include "Connection.h"
#include "DCharFlags.h"
#include "DCharacter.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFailureReporter.h"
#include "DFeatInfo.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "DWeaponInfo.h"
#include "PreparedStatement.h"
#include "ResultSet.h"

#include <algorithm>
#include <exception>
#include <memory>

namespace {

// "Type" values of "[info Feat Bonuses]".
enum FeatBonusType : int {
    kBonusFortitude = 2,
    kBonusReflex = 3,
    kBonusWill = 4,
    kBonusInitiative = 5,
    kBonusSkill = 6,
    kBonusHitPoints = 7,
};

constexpr int kItemCreationFeat = 1; // row of "[types Feat]"
constexpr int kStackable = 1;        // row of "[types Feat Stacking]"
constexpr int kWeaponTarget = 1;     // row of "[types Feat Target]"

struct FeatBonus {
    int type = 0;
    int data = 0;
    QUuid skill;
};

DCharacter* asCharacter(DCharRaceBase* owner, bool isCharacter) {
    return isCharacter ? FCDynamicCast<DCharacter>(owner) : nullptr;
}

FCArray<FeatBonus> featBonuses(const QUuid& feat) {
    FCArray<FeatBonus> rows;
    DDatabase::ForEachRow(QString::asprintf("SELECT Type, Data, SkillId FROM %s WHERE (Id=%s)",
                                            DRulesQuery::Table(kTableFeatBonuses).constData(),
                                            DRulesQuery::Guid(feat).constData()),
                          [&rows](odbc::ResultSet* row) {
                              rows.Add({row->getInt(1), row->getInt(2), row->getGUID(3)});
                          });
    return rows;
}

// A bonus row naming no skill is for the skill the feat was taken for.
bool bonusReachesSkill(const FeatBonus& bonus, const DChosenFeat& feat, const QUuid& skill,
                       const QUuid& subSkill) {
    if (!bonus.skill.isNull())
        return bonus.skill == skill && subSkill.isNull();
    return feat.GetTargetGuid() == skill && feat.GetTargetSubGuid() == subSkill;
}

int extraHitDice(const DCharacter* character, int hitDice) {
    const DSizeInfo* size = character->GetSizeInfo();
    return std::max(0, hitDice - (size ? size->GetExtraHitDieMod() : 0));
}

// The feats the race lists are those its stat block bought with its hit dice' feat points: they
// are paid from those points, as far as they reach; any beyond them come free.
int openRaceFeatPoints(DCharacter* character) {
    const int points = DHandBook::ComputeRaceFeatPoints(character);
    const DRace* race = character->GetRace();
    int listed = 0;
    if (race) {
        for (const auto& feat : race->GetFeatSet())
            listed += feat->GetCount();
    }
    return points - std::min(std::max(points, 0), listed);
}

// The prerequisite statement, made once per connection and kept.
std::unique_ptr<odbc::PreparedStatement>& prereqSlot() {
    static std::unique_ptr<odbc::PreparedStatement> statement;
    return statement;
}

odbc::PreparedStatement* prereqStatement() {
    static odbc::Connection* madeOn = nullptr;
    std::unique_ptr<odbc::PreparedStatement>& statement = prereqSlot();
    odbc::Connection* connection = DDatabase::GetConnection();
    if (connection != madeOn) {
        statement.reset();
        madeOn = connection;
    }
    if (statement || !connection)
        return statement.get();
    try {
        statement.reset(connection->prepareStatement(
            QString::asprintf("SELECT * FROM %s WHERE (Id=?)",
                              DRulesQuery::Table(kTableFeatPrerequisites).constData())));
    } catch (const std::exception& error) {
        DRulesQuery::ReportFailure(error.what());
    }
    return statement.get();
}

DFeatPrereq readPrereq(odbc::ResultSet* row) {
    DFeatPrereq prereq;
    prereq.featGuid = row->getGUID("Id");
    prereq.type = row->getInt("Type");
    prereq.data = row->getInt("Data");
    prereq.requiredFeat = row->getGUID("FeatId");
    prereq.requiredSkill = row->getGUID("SkillId");
    prereq.ability = row->getInt("AbStat");
    return prereq;
}

// The rows of the feat; a statement that cannot be made or run gives none, so all hold.
FCArray<DFeatPrereq> featPrereqs(const QUuid& feat) {
    FCArray<DFeatPrereq> rows;
    odbc::PreparedStatement* statement = prereqStatement();
    if (!statement)
        return rows;
    try {
        statement->setGUID(1, feat);
        odbc::ResultSet* result = statement->executeQuery();
        while (result && result->next())
            rows.Add(readPrereq(result));
    } catch (const std::exception& error) {
        DRulesQuery::ReportFailure(error.what());
        rows.RemoveAll();
        // A connection opened again at the same address leaves a dead statement: make anew.
        prereqSlot().reset();
    }
    return rows;
}

QString featName(const QUuid& feat) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    return info ? QString(info->GetFeatName()) : feat.toString(QUuid::WithBraces).toUpper();
}

QString skillName(const QUuid& skill) {
    const DSkillInfo* info = DDatabase::GetSkillInfo(skill);
    return info ? QString(info->GetSkillName()) : skill.toString(QUuid::WithBraces).toUpper();
}

QString classLevelsText(const QUuid& feat) {
    QStringList levels;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT * FROM %s WHERE (ID=%s)",
                          DRulesQuery::Table(kTableFeatClassPrerequisites).constData(),
                          DRulesQuery::Guid(feat).constData()),
        [&levels](odbc::ResultSet* row) {
            const DClassInfo* info = DDatabase::GetClassInfoA(row->getGUID("ClassId"));
            levels << QStringLiteral("%1 level %2")
                          .arg(info ? QString(info->mName) : QStringLiteral("class"))
                          .arg(row->getInt("Level"));
        });
    return levels.isEmpty() ? QStringLiteral("a class level") : levels.join(QStringLiteral(" or "));
}

} // namespace

// --- Points -----------------------------------------------------------------------------------

void DHandBook::GetFeatPointValues(DRace* race, DFeatPointValues& values) {
    values = DFeatPointValues();
    if (!race)
        return;
    bool first = true;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT BFPBase, BFPIntBonus, BFPPerHD, BFPIsTotalHD FROM %s WHERE "
                          "(Guid=%s)",
                          DRulesQuery::Table(kTableClass).constData(),
                          DRulesQuery::Guid(race->GetClassGuid()).constData()),
        [&](odbc::ResultSet* row) {
            if (!first)
                return;
            first = false;
            values = {row->getInt(1), row->getBoolean(2), row->getInt(3), row->getBoolean(4)};
        });
}

int DHandBook::ComputeRaceFeatPoints(DCharacter* character) {
    if (!character || !character->GetRaceClassPointer() || !character->GetRace())
        return 0;
    const DRace* race = character->GetRace();
    DFeatPointValues values;
    GetFeatPointValues(character->GetRace(), values);
    int points = values.base;
    if (values.intBonus) {
        const int mod =
            GetAbilityModifier(character->GetAbilityStatNoEquipBonus(kAbilityIntelligence));
        points += std::max(mod, 0);
    }
    if (values.perHD <= 0)
        return points;
    if (values.isTotalHD)
        return int(race->GetHitDieCount() / float(values.perHD) + float(points));
    const int hitDice = int(std::max(race->GetHitDieCount(), 1.0f));
    return points + extraHitDice(character, hitDice) / values.perHD;
}

int DHandBook::ComputeRaceAdvancedFeatPoints(DCharacter* character) {
    const DCharacterClass* raceClass = character ? character->GetRaceClassPointer() : nullptr;
    if (!raceClass || !character->GetRace())
        return 0;
    DFeatPointValues values;
    GetFeatPointValues(character->GetRace(), values);
    if (values.perHD <= 0)
        return 0;
    const float level = raceClass->GetLevel();
    const int base = int(character->GetRace()->GetHitDieCount());
    // What the dice now held give beyond what the race's own dice gave, so that dice the race
    // left over toward its next feat count with the added ones; lowering gives none.
    int added = 0;
    if (values.isTotalHD) {
        added = int(level / float(values.perHD) - float(base / values.perHD));
    } else {
        const int raceDice = std::max(base, 1);
        added = extraHitDice(character, int(level)) / values.perHD -
                extraHitDice(character, raceDice) / values.perHD;
    }
    return std::max(added, 0);
}

void DHandBook::ComputeAndSetRaceFeatPoints(DCharacter* character) {
    if (!character)
        return;
    character->SetCharacterStat(kStatRaceFeatPoints, openRaceFeatPoints(character));
    UpdateTotalFeatPoints(character);
}

void DHandBook::ComputeAndSetAdvancedFeatPoints(DCharacter* character) {
    if (!character)
        return;
    character->SetCharacterStat(kStatAdvancedFeatPoints, ComputeRaceAdvancedFeatPoints(character));
    UpdateTotalFeatPoints(character);
}

int DHandBook::ComputeBaseFeatsPoints(DCharacter* character) {
    const int level = character ? character->GetNonRaceCharacterLevel() : 0;
    if (level < 1)
        return 0;
    const DRace* race = character->GetRace();
    const int firstLevel = race ? race->GetExtraFeatPointsFirstLevel() : 0;
    const int perLevel = race ? race->GetExtraFeatPointsPerLevel() : 0;
    return 1 + level / 3 + firstLevel + perLevel * level;
}

int DHandBook::ComputeBonusFeats(DCharacter* character, DCharacterClass* characterClass) {
    if (!character || !characterClass)
        return 0;
    const int level = int(characterClass->GetLevel());
    const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
    if (level < 1 || !info)
        return 0;
    int points = info->mBonusFeats;
    if (info->mLevelsForBonusFeat >= 1)
        points += level / info->mLevelsForBonusFeat;
    return points;
}

void DHandBook::ComputeAndSetFeatPoints(DCharacter* character, bool isNew) {
    if (!character)
        return;
    character->SetCharacterStat(kStatBaseFeatPoints, ComputeBaseFeatsPoints(character));
    if (isNew)
        character->SetCharacterStat(kStatRaceFeatPoints, openRaceFeatPoints(character));
    character->SetCharacterStat(kStatAdvancedFeatPoints, ComputeRaceAdvancedFeatPoints(character));
    UpdateTotalFeatPoints(character);
    for (DCharacterClass* characterClass : character->GetClassList()) {
        if (characterClass->GetClassGuid() != character->GetRaceClassGuid())
            characterClass->SetBonusFeatPoints(ComputeBonusFeats(character, characterClass));
    }
}

void DHandBook::UpdateTotalFeatPoints(DCharacter* character) {
    if (!character)
        return;
    character->SetCharacterStat(kStatFeatPoints,
                                character->GetCharacterStat(kStatBaseFeatPoints) +
                                    character->GetCharacterStat(kStatRaceFeatPoints) +
                                    character->GetCharacterStat(kStatAdvancedFeatPoints) +
                                    character->GetCharacterStat(kStatFeatureFeatPoints));
}

// --- Bonuses ----------------------------------------------------------------------------------

void DHandBook::HandleFeatBonuses(DCharacter* character, DChosenFeat* feat, bool remove) {
    if (!character || !feat)
        return;
    bool saveTouched[kSaveCount] = {};
    bool initiativeTouched = false;
    for (const FeatBonus& bonus : featBonuses(feat->GetFeatGuid())) {
        if (bonus.type <= 1)
            continue;
        const int value = bonus.data * feat->GetCount() * (remove ? -1 : 1);
        switch (bonus.type) {
        case kBonusFortitude:
        case kBonusReflex:
        case kBonusWill: {
            const int save = bonus.type - kBonusFortitude;
            character->AdjustCharacterStat(SaveStat(kStatFeatFortitude, save), value);
            saveTouched[save] = true;
            break;
        }
        case kBonusInitiative:
            character->AdjustCharacterStat(kStatFeatInitiative, value);
            initiativeTouched = true;
            break;
        case kBonusSkill: {
            const QUuid skill = bonus.skill.isNull() ? feat->GetTargetGuid() : bonus.skill;
            const QUuid subSkill = bonus.skill.isNull() ? feat->GetTargetSubGuid() : QUuid();
            if (DChosenSkill* record = character->GetSkillPointer(skill, subSkill))
                record->SetFeatMod(record->GetFeatMod() + value);
            break;
        }
        case kBonusHitPoints:
            AdjustHitPointsForBonus(character, kStatFeatHitPoints, value);
            break;
        default:
            break;
        }
    }
    for (int save = 0; save < kSaveCount; ++save) {
        if (saveTouched[save])
            ComputeAndSetSavingThrows(character, DSaveType(save));
    }
    if (initiativeTouched)
        ComputeAndSetInitiative(character);
}

void DHandBook::ClearFeatBonuses(DCharacter* character) {
    if (!character)
        return;
    for (int save = 0; save < kSaveCount; ++save)
        character->SetCharacterStat(SaveStat(kStatFeatFortitude, save), 0);
    ComputeAndSetAllSavingThrows(character);
    character->SetCharacterStat(kStatFeatInitiative, 0);
    ComputeAndSetInitiative(character);
    ClearHitPointsFeatBonus(character);
    ClearSkillFeatMods(character);
}

void DHandBook::ComputeAndSetFeatBonuses(DCharacter* character) {
    if (!character)
        return;
    ClearFeatBonuses(character);
    for (const auto& feat : character->GetFeatSet())
        HandleFeatBonuses(character, feat.Get(), false);
}

void DHandBook::AddSkillFeatMods(DCharacter* character, DChosenSkill* skill) {
    if (!character || !skill)
        return;
    for (const auto& feat : character->GetFeatSet()) {
        for (const FeatBonus& bonus : featBonuses(feat->GetFeatGuid())) {
            if (bonus.type == kBonusSkill &&
                bonusReachesSkill(bonus, *feat, skill->GetSkillId(), skill->GetSubSkillId()))
                skill->SetFeatMod(skill->GetFeatMod() + bonus.data * feat->GetCount());
        }
    }
}

bool DHandBook::IsFeatBonusForClass(const QUuid& classGuid, const QUuid& feat) {
    return DRulesQuery::HasRow(QString::asprintf(
        "SELECT * FROM %s WHERE (ClassId=%s) AND (FeatId=%s)",
        DRulesQuery::Table(kTableClassBonusFeats).constData(),
        DRulesQuery::Guid(classGuid).constData(), DRulesQuery::Guid(feat).constData()));
}

// --- Taking and dropping ----------------------------------------------------------------------

DChosenFeat* DHandBook::AddFeat(DCharRaceBase* owner, bool isCharacter, DChosenFeat* feat) {
    if (!owner || !feat)
        return nullptr;
    DChosenFeat* like = owner->GetFeatPointer(*feat);
    if (like)
        like->SetCount(like->GetCount() + 1);
    else
        owner->AddFeat(feat);
    if (DCharacter* character = asCharacter(owner, isCharacter)) {
        DCharacterClass* payer = feat->HasFeatFlag(DChosenFeat::kFeatClassBonus)
                                     ? character->GetClassPointer(feat->GetClassGuid())
                                     : nullptr;
        if (payer)
            payer->SetSpentBonusFeatPoints(payer->GetSpentBonusFeatPoints() + 1);
        else if (!feat->HasFeatFlag(DChosenFeat::kFeatClassBonus))
            character->AdjustCharacterStat(kStatSpentFeatPoints, 1);
        HandleFeatBonuses(character, feat, false);
        character->AddChangeFlag(kChangeAbilityOrFeats);
        character->HandleHasChanged();
    }
    return like;
}

void DHandBook::RemoveFeat(DCharRaceBase* owner, bool isCharacter, DChosenFeat* feat) {
    if (!owner || !feat)
        return;
    DCharacter* character = asCharacter(owner, isCharacter);
    if (character) {
        if (feat->HasFeatFlag(DChosenFeat::kFeatClassBonus)) {
            if (DCharacterClass* payer = character->GetClassPointer(feat->GetClassGuid()))
                payer->SetSpentBonusFeatPoints(payer->GetSpentBonusFeatPoints() - feat->GetCount());
        } else {
            character->AdjustCharacterStat(kStatSpentFeatPoints, -feat->GetCount());
        }
        HandleFeatBonuses(character, feat, true);
    }
    // The set may hold the last reference: `feat` is not touched after this.
    owner->RemoveFeat(feat);
    if (character) {
        character->AddChangeFlag(kChangeAbilityOrFeats);
        character->HandleHasChanged();
    }
}

void DHandBook::RemoveAllFeats(DCharRaceBase* owner, bool isCharacter) {
    if (!owner)
        return;
    DCharacter* character = asCharacter(owner, isCharacter);
    if (!character) {
        owner->RemoveAllFeats();
        return;
    }
    character->SetCharacterStat(kStatSpentFeatPoints, 0);
    for (DCharacterClass* characterClass : character->GetClassList())
        characterClass->SetSpentBonusFeatPoints(0);
    FCArray<DChosenFeat*> unlocked;
    for (const auto& feat : character->GetFeatSet()) {
        if (!feat->HasFeatFlag(DChosenFeat::kFeatLocked))
            unlocked.Add(feat.Get());
    }
    for (DChosenFeat* feat : unlocked)
        character->RemoveFeat(feat);
    character->AddChangeFlag(kChangeAbilityOrFeats);
    ClearFeatBonuses(character);
    character->HandleHasChanged();
}

// --- Prerequisites ----------------------------------------------------------------------------

bool DHandBook::ComputeCanFeatBePurchased(DCharRaceBase* owner, bool isCharacter,
                                          const DFeatInfo* info, const QUuid& target,
                                          const QUuid& subTarget, bool checkPrereqs) {
    if (!owner || !info)
        return false;
    if (info->GetFeatStackType() != kStackable &&
        owner->HasFeat(info->GetFeatGuid(), target, subTarget))
        return false;
    if (DCharacter* character = asCharacter(owner, isCharacter);
        character && info->GetFeatType() == kItemCreationFeat &&
        character->GetCharacterStat(kStatCasterLevel) < 1)
        return false;
    return !checkPrereqs || ComputeDoesFeatMeetPrereqs(owner, isCharacter, info->GetFeatGuid());
}

bool DHandBook::ComputeDoesFeatMeetPrereqs(DCharRaceBase* owner, bool isCharacter,
                                           const QUuid& feat) {
    DFeatPrereq failing;
    return !FindFailingFeatPrereq(owner, isCharacter, feat, failing);
}

bool DHandBook::FindFailingFeatPrereq(DCharRaceBase* owner, bool isCharacter, const QUuid& feat,
                                      DFeatPrereq& failing) {
    for (const DFeatPrereq& prereq : featPrereqs(feat)) {
        if (!DoesFeatMeetPrereq(owner, isCharacter, prereq)) {
            failing = prereq;
            return true;
        }
    }
    return false;
}

bool DHandBook::DoesFeatMeetPrereq(DCharRaceBase* owner, bool isCharacter, odbc::ResultSet* row) {
    return !row || DoesFeatMeetPrereq(owner, isCharacter, readPrereq(row));
}

bool DHandBook::DoesFeatMeetPrereq(DCharRaceBase* owner, bool isCharacter,
                                   const DFeatPrereq& prereq) {
    if (!owner)
        return false;
    DCharacter* character = asCharacter(owner, isCharacter);
    // Rangers get their combat style's feats without the feat and ability rows, but not
    // before their base attack allows.
    if (character && character->IsClass(DRuleGuids::kRangerClass) &&
        prereq.featGuid == DRuleGuids::kRangerWaivedFeat && prereq.type != DFeatPrereq::kBaseAttack)
        return true;
    switch (prereq.type) {
    case DFeatPrereq::kFeat:
        if (owner->HasFeat(prereq.requiredFeat))
            return true;
        if (character && prereq.requiredFeat == DRuleGuids::kLightArmorFeat)
            return character->HasProfFlag(DCharacter::kProfLightArmor);
        if (character && prereq.requiredFeat == DRuleGuids::kMediumArmorFeat)
            return character->HasProfFlag(DCharacter::kProfMediumArmor);
        return false;
    case DFeatPrereq::kSkillRanks: {
        // A skill the owner has never touched has no ranks.
        const DChosenSkill* skill = owner->GetSkillPointer(prereq.requiredSkill, QUuid());
        return (skill ? skill->GetTotalRanks() : 0.0f) >= float(prereq.data);
    }
    case DFeatPrereq::kBaseAttack:
        return character && character->GetCharacterStat(kStatBaseAttack) >= prereq.data;
    case DFeatPrereq::kAbility:
        return character && prereq.ability >= 0 && prereq.ability < kAbilityCount &&
               character->GetAbilityStat(prereq.ability) >= prereq.data;
    case DFeatPrereq::kCasterLevel:
        return character && character->GetCharacterStat(kStatCasterLevel) >= prereq.data;
    case DFeatPrereq::kClassLevel:
        return character && DoesFeatMeetClassPrereq(character, prereq.featGuid);
    case DFeatPrereq::kCharacterLevel:
        return character && character->GetCharacterLevel() >= float(prereq.data);
    case DFeatPrereq::kSpeed: {
        const DCharRaceBase* speeds = character ? character->GetRace() : owner;
        return speeds && speeds->GetSpeedPointer(prereq.data) != nullptr;
    }
    default:
        return true;
    }
}

bool DHandBook::DoesFeatMeetClassPrereq(DCharacter* character, const QUuid& feat) {
    if (!character)
        return false;
    bool met = false;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT * FROM %s WHERE (ID=%s)",
                          DRulesQuery::Table(kTableFeatClassPrerequisites).constData(),
                          DRulesQuery::Guid(feat).constData()),
        [&](odbc::ResultSet* row) {
            met = met || character->IsClassLevel(row->getGUID("ClassId"), row->getInt("Level"));
        });
    return met;
}

QString DHandBook::BuildFeatPrereqString(const DFeatPrereq& prereq) {
    static constexpr const char* kAbilityNames[kAbilityCount] = {"Str", "Dex", "Con",
                                                                 "Int", "Wis", "Cha"};
    switch (prereq.type) {
    case DFeatPrereq::kFeat:
        return featName(prereq.requiredFeat);
    case DFeatPrereq::kSkillRanks:
        return QStringLiteral("%1 %2 ranks").arg(skillName(prereq.requiredSkill)).arg(prereq.data);
    case DFeatPrereq::kBaseAttack:
        return QStringLiteral("base attack +%1").arg(prereq.data);
    case DFeatPrereq::kAbility:
        if (prereq.ability < 0 || prereq.ability >= kAbilityCount)
            return QStringLiteral("an ability of %1").arg(prereq.data);
        return QStringLiteral("%1 %2")
            .arg(QLatin1String(kAbilityNames[prereq.ability]))
            .arg(prereq.data);
    case DFeatPrereq::kCasterLevel:
        return QStringLiteral("caster level %1").arg(prereq.data);
    case DFeatPrereq::kClassLevel:
        return classLevelsText(prereq.featGuid);
    case DFeatPrereq::kCharacterLevel:
        return QStringLiteral("character level %1").arg(prereq.data);
    case DFeatPrereq::kSpeed:
        return QStringLiteral("a speed of type %1").arg(prereq.data);
    default:
        return QStringLiteral("requirement of type %1").arg(prereq.type);
    }
}

bool DHandBook::HasWeaponTargetFeatInFamily(DCharacter* character, const QUuid& feat, int family) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    if (!character || !info || info->GetFeatTargetType() != kWeaponTarget)
        return false;
    for (const auto& chosen : character->GetFeatSet()) {
        if (chosen->GetFeatGuid() != feat || chosen->GetTargetSubLong() != 1)
            continue;
        const auto* weapon =
            dynamic_cast<const DWeaponInfo*>(DDatabase::GetWeaponInfo(chosen->GetTargetGuid()));
        if (weapon && weapon->GetFamilyId() == family)
            return true;
    }
    return false;
}

bool DHandBook::HasFeatTargetingAnyKnowledge(DCharacter* character, const QUuid& feat) {
    if (!character)
        return false;
    for (const auto& chosen : character->GetFeatSet()) {
        if (chosen->GetFeatGuid() == feat && IsKnowledgeSkill(chosen->GetTargetGuid()))
            return true;
    }
    return false;
}
