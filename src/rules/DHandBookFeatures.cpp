#include "DHandBook.h"

#include "DAdjChosenSpeed.h"
#include "DAlignmentInfo.h"
#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenFeature.h"
#include "DChosenLanguage.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DFeatureInfo.h"
#include "DRace.h"
#include "DRuleGuids.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "DSkillInfo.h"
#include "DSpellCaster.h"
#include "ResultSet.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

using namespace DRuleGuids;

// Row tables of this area, by their registry index.
constexpr int kTableClassFeatures = 175;
constexpr int kTableClassRequirements = 176;
constexpr int kTableMonkUnarmoredSpeed = 180;
constexpr int kTableLoremasterSecrets = 181;
constexpr int kTableFallenPaladinFeatures = 182;
constexpr int kTableRangerFavoredEnemy = 183;
constexpr int kTableBardWeaponProficiency = 184;
constexpr int kTableRaceFamily = 186;

constexpr int kAutoArray = 0;
constexpr int kChosenArray = 1;

// Groups 0 and 25 let every feature stand by itself; group 1 is the barbarian's rage.
constexpr DFeatureGroupType kOpenGroup = 0;
constexpr DFeatureGroupType kOpenGroup2 = 25;
constexpr DFeatureGroupType kRageGroup = 1;
constexpr DFeatureGroupType kRogueGroup = 13;
constexpr DFeatureGroupType kRangerGroup = 14;
constexpr DFeatureGroupType kBardGroup = 15;
constexpr DFeatureGroupType kLoremasterGroup = 24;

enum : DFeatureType {
    kTypeFeat = 1,
    kTypeBonusFeat = 2,
    kTypeNumbered = 3,
    kTypeWeapon = 4,
    kTypeFavoredEnemy = 5,
    kTypeCharismaToSaves = 7,
    kTypeLanguagePoint = 8,
    kTypeHitPoints = 9,
    kTypeFortitude = 10,
    kTypeReflex = 11,
    kTypeWill = 12,
    kTypeAttack = 13,
    kTypeArmorClass = 14,
    kTypeLanguage = 16,
};

enum : int {
    kRequireRace = 0,
    kRequireBaseAttack = 1,
    kRequireFeat = 2,
    kRequireSkill = 3,
    kRequireAlignment = 4,
    kRequireSpells = 5,
    kRequireClassLevel = 6,
    kRequireProficiency = 7,
    kRequireLanguage = 8,
};

// "[types Spell Caster]" rows, and the row table of their names.
constexpr int kAnyCasterType = 0;
constexpr int kTableSpellCasterTypes = 41;

constexpr unsigned kLanguageFromFeature = 0x8;
constexpr unsigned kFeatFromFeature = 0x8;
constexpr int kArcaneCaster = 1;
constexpr int kBowFamily = 1;
constexpr int kMonkSpeedCap = 60;

bool IsOpenGroup(DFeatureGroupType group) {
    return group == kOpenGroup || group == kOpenGroup2;
}

struct FeatureRow {
    QUuid feature;
    int data = -1;
    QUuid dataGuid;
    int level = 0;
};

// The rows first, the changes after: adjusting a feature may run queries of its own.
std::vector<FeatureRow> ReadFeatureRows(const QString& sql, bool hasDataGuid, bool hasLevel) {
    std::vector<FeatureRow> rows;
    DDatabase::ForEachRow(sql, [&](odbc::ResultSet* row) {
        FeatureRow read;
        read.feature = row->getGUID(QStringLiteral("FeatureId"));
        read.data = row->getInt(QStringLiteral("Data"));
        if (hasDataGuid)
            read.dataGuid = row->getGUID(QStringLiteral("DataGuid"));
        if (hasLevel)
            read.level = row->getInt(QStringLiteral("Level"));
        rows.push_back(read);
    });
    return rows;
}

bool ReadFeatureInfo(const QUuid& feature, DFeatureInfo& info) {
    return !feature.isNull() && DDatabase::GetInfo(kTableFeatures, feature, &info);
}

int TruncatedLevel(const DCharacterClass* characterClass) {
    return int(characterClass->GetLevel());
}

// Features of the class in one array, optionally of one group only.
std::vector<DChosenFeature*> ClassFeatures(DCharacter* character, const QUuid& classGuid,
                                           bool anyGroup, DFeatureGroupType group) {
    std::vector<DChosenFeature*> found;
    for (DChosenFeature* feature : character->GetFeatureArray(kAutoArray)) {
        if (feature->GetClassGuid() == classGuid &&
            (anyGroup || feature->GetFeatureGroup() == group))
            found.push_back(feature);
    }
    return found;
}

void RemoveAutoFeatures(DCharacter* character, const std::vector<DChosenFeature*>& features) {
    for (DChosenFeature* feature : features) {
        feature->Retain();
        character->RemoveFeature(feature, kAutoArray);
        DHandBook::AdjustCharacterForFeature(character, feature, true);
        feature->Release();
    }
}

void AdjustSave(DCharacter* character, DFeatureType type, int delta) {
    const int save = type - kTypeFortitude;
    character->AdjustCharacterStat(SaveStat(kStatFeatureFortitude, save), delta);
    DHandBook::ComputeAndSetSavingThrows(character, DSaveType(save));
}

void AdjustLanguage(DCharacter* character, const QUuid& language, bool remove) {
    character->AdjustCharacterStat(kStatFeatureLanguagePoints, remove ? -1 : 1);
    character->AddChangeFlag(kChangeLanguages);
    if (language.isNull())
        return;
    if (remove) {
        character->RemoveLanguage(language);
        return;
    }
    if (character->GetLanguagePointer(language))
        return;
    auto* chosen = new DChosenLanguage(language);
    chosen->AddLanguageFlag(kLanguageFromFeature);
    character->AddLanguage(chosen);
    chosen->Release();
}

void GrantFeat(DCharacter* character, const QUuid& feat) {
    if (feat.isNull() || character->HasFeat(feat, QUuid(), QUuid()))
        return;
    // Granted, not bought: no feat point is spent on it.
    auto* chosen = new DChosenFeat();
    chosen->SetFeatGuid(feat);
    chosen->AddFeatFlag(kFeatFromFeature);
    character->AddFeat(chosen);
    DHandBook::HandleFeatBonuses(character, chosen, false);
    chosen->Release();
}

// A level-down takes back the feat its feature granted.
void TakeBackFeat(DCharacter* character, const QUuid& feat) {
    DChosenFeat* granted = character->GetFeat(feat, QUuid(), QUuid());
    if (!granted || !granted->HasFeatFlag(kFeatFromFeature))
        return;
    DHandBook::HandleFeatBonuses(character, granted, true);
    character->RemoveFeat(granted);
}

QString NameById(int table, int id) {
    QString name = QString::number(id);
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Id=%d)",
                                          DRulesQuery::Table(table).constData(), id),
                        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QString FeatName(const QUuid& feat) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    return info ? QString(info->GetFeatName()) : feat.toString();
}

QString SkillName(const QUuid& skill) {
    const DSkillInfo* info = DDatabase::GetSkillInfo(skill);
    return info ? QString(info->GetSkillName()) : skill.toString();
}

QString AlignmentName(int id) {
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(id);
    return info ? QString(info->GetAlignmentName()) : QString::number(id);
}

int RaceFamily(const DCharacter* character) {
    const DRace* race = character->GetRace();
    return race ? race->GetRaceFamilyId() : -1;
}

float SkillRanks(const DCharacter* character, const QUuid& skill, const QUuid& subSkill) {
    const DChosenSkill* chosen = character->GetSkillPointer(skill, subSkill);
    return chosen ? chosen->GetTotalRanks() : 0.0f;
}

struct Requirement {
    int type = -1;
    int raceId = -1;
    int data = 0;
    QUuid feat;
    QUuid skill;
    int alignment = -1;
    QUuid subSkill;
    int school = -1;
    QUuid spell;
    int castType = kAnyCasterType;
    QUuid classGuid;
    int anyOf = 0;
    QUuid language;
};

std::vector<Requirement> ReadRequirements(const QUuid& classGuid) {
    std::vector<Requirement> rows;
    DDatabase::ForEachRow(QString::asprintf("SELECT * FROM %s WHERE (ID=%s)",
                                            DRulesQuery::Table(kTableClassRequirements).constData(),
                                            DRulesQuery::Guid(classGuid).constData()),
                          [&rows](odbc::ResultSet* row) {
                              Requirement read;
                              read.type = row->getInt(QStringLiteral("RequireType"));
                              read.raceId = row->getInt(QStringLiteral("RaceId"));
                              read.data = row->getInt(QStringLiteral("Data"));
                              read.feat = row->getGUID(QStringLiteral("FeatId"));
                              read.skill = row->getGUID(QStringLiteral("SkillId"));
                              read.alignment = row->getInt(QStringLiteral("AlignmentId"));
                              read.subSkill = row->getGUID(QStringLiteral("SubSkillId"));
                              read.school = row->getInt(QStringLiteral("SchoolId"));
                              read.spell = row->getGUID(QStringLiteral("SpellId"));
                              read.castType = row->getInt(QStringLiteral("CastType"));
                              read.classGuid = row->getGUID(QStringLiteral("ClassId"));
                              read.anyOf = row->getInt(QStringLiteral("AnyOf"));
                              read.language = row->getGUID(QStringLiteral("LanguageId"));
                              rows.push_back(read);
                          });
    return rows;
}

// The highest spell level that the casting classes of the type reach; any type for 0.
int MaxSpellLevelOfType(DCharacter* character, int castType) {
    if (castType != kAnyCasterType)
        return DHandBook::GetMaxSpellLevelForCasterType(character, castType);
    int best = -1;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        if (characterClass->HasCasterFlag(DSpellCaster::kCasterCasts))
            best = std::max(best, DHandBook::GetMaxSpellLevelBasedOnPerDay(characterClass));
    }
    return best;
}

// Whether a casting class has the spell on its list at a level it casts.
bool CanCastSpell(DCharacter* character, const QUuid& spell, int castType) {
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
        if (!info || !characterClass->HasCasterFlag(DSpellCaster::kCasterCasts) ||
            (castType != kAnyCasterType && info->mCastType != castType))
            continue;
        // The wizard casts from the sorcerer's list.
        const QUuid list = characterClass->GetClassGuid() == kWizardClass
                               ? kSharedListCasterClass
                               : characterClass->GetClassGuid();
        int level = -1;
        DDatabase::FirstRow(
            QString::asprintf("SELECT Min([Level]) FROM %s WHERE (Id=%s) AND (ClassId=%s)",
                              DRulesQuery::Table(kTableSpellLevel).constData(),
                              DRulesQuery::Guid(spell).constData(),
                              DRulesQuery::Guid(list).constData()),
            [&level](odbc::ResultSet* row) {
                const int value = row->getInt(1);
                if (!row->wasNull())
                    level = value;
            });
        if (level >= 0 && level <= DHandBook::GetMaxSpellLevelBasedOnPerDay(characterClass))
            return true;
    }
    return false;
}

bool MeetsRow(DCharacter* character, const Requirement& row) {
    switch (row.type) {
    case kRequireBaseAttack:
        return character->GetCharacterStat(kStatBaseAttack) >= row.data;
    case kRequireFeat:
        return row.school >= 0 ? character->HasFeat(row.feat, row.school, -1)
                               : character->HasFeat(row.feat, QUuid(), QUuid());
    case kRequireSkill:
        return SkillRanks(character, row.skill, row.subSkill) >= float(row.data);
    case kRequireSpells:
        return row.spell.isNull() ? MaxSpellLevelOfType(character, row.castType) >= row.data
                                  : CanCastSpell(character, row.spell, row.castType);
    case kRequireClassLevel:
        return character->GetClassLevel(row.classGuid) >= row.data;
    case kRequireProficiency:
        return (character->GetProfFlags() & unsigned(row.data)) == unsigned(row.data);
    case kRequireLanguage:
        return character->GetLanguagePointer(row.language) != nullptr;
    default:
        return true;
    }
}

QString SubSkillName(const QUuid& subSkill) {
    QString name = subSkill.toString();
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (SubGuid=%s)",
                                          DRulesQuery::Table(kTableSkillSub).constData(),
                                          DRulesQuery::Guid(subSkill).constData()),
                        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QString ProficiencyText(int flags) {
    static constexpr std::pair<int, const char*> kNames[] = {
        {1, "simple weapons"}, {2, "martial weapons"}, {8, "light armor"},
        {16, "medium armor"},  {32, "heavy armor"},    {64, "shields"}};
    QStringList names;
    for (const auto& [flag, name] : kNames) {
        if (flags & flag)
            names << QString::fromLatin1(name);
    }
    return QStringLiteral("proficiency with all %1").arg(names.join(QStringLiteral(", ")));
}

QString DescribeRow(const Requirement& row) {
    switch (row.type) {
    case kRequireBaseAttack:
        return QStringLiteral("base attack +%1").arg(row.data);
    case kRequireFeat: {
        const DSchoolInfo* school =
            row.school >= 0 ? DDatabase::GetSchoolInfo(row.school) : nullptr;
        return school ? QStringLiteral("%1 (%2)").arg(FeatName(row.feat), school->GetSchoolName())
                      : FeatName(row.feat);
    }
    case kRequireSkill:
        return QStringLiteral("%1 %2 ranks")
            .arg(row.subSkill.isNull() ? SkillName(row.skill)
                                       : QStringLiteral("%1 (%2)").arg(SkillName(row.skill),
                                                                       SubSkillName(row.subSkill)))
            .arg(row.data);
    case kRequireSpells:
        if (!row.spell.isNull())
            return QStringLiteral("able to cast %1")
                .arg(DRulesQuery::NameByGuid(kTableSpell, row.spell));
        return row.castType == kAnyCasterType
                   ? QStringLiteral("spells of level %1").arg(row.data)
                   : QStringLiteral("%1 spells of level %2")
                         .arg(NameById(kTableSpellCasterTypes, row.castType).toLower())
                         .arg(row.data);
    case kRequireClassLevel: {
        const DClassInfo* info = DDatabase::GetClassInfoA(row.classGuid);
        return QStringLiteral("%1 level %2")
            .arg(info ? QString(info->mName) : row.classGuid.toString())
            .arg(row.data);
    }
    case kRequireProficiency:
        return ProficiencyText(row.data);
    case kRequireLanguage:
        return QStringLiteral("speaks %1")
            .arg(DRulesQuery::NameByGuid(kTableLanguage, row.language));
    default:
        return {};
    }
}

// Whether each any-of group of the rows has a row the character meets, by group number.
std::map<int, bool> AnyOfGroupsMet(DCharacter* character, const std::vector<Requirement>& rows) {
    std::map<int, bool> met;
    for (const Requirement& row : rows) {
        if (row.anyOf > 0)
            met[row.anyOf] = met[row.anyOf] || MeetsRow(character, row);
    }
    return met;
}

// The hard-wired requirements of the Arcane Archer and the Loremaster that fail.
QStringList FailingHardWired(DCharacter* character, const QUuid& classGuid) {
    QStringList failing;
    if (classGuid == kArcaneBowClass) {
        if (!DHandBook::HasWeaponTargetFeatInFamily(character, kWeaponTargetFeat, kBowFamily))
            failing << QStringLiteral("Weapon Focus (longbow or shortbow)");
        if (DHandBook::GetMaxSpellLevelForCasterType(character, kArcaneCaster) < 1)
            failing << QStringLiteral("arcane spells of level 1");
    } else if (classGuid == kLoremasterClass) {
        if (DHandBook::GetCountOfAllKnowledgeSkillsWithRanks(character, 10) < 2)
            failing << QStringLiteral("two Knowledge skills at 10 ranks");
        if (character->GetFeatTypeCount(1) + character->GetFeatTypeCount(2) < 3)
            failing << QStringLiteral("three metamagic or item creation feats");
        if (!DHandBook::HasFeatTargetingAnyKnowledge(character, kSkillTargetFeat))
            failing << QStringLiteral("Skill Focus (a Knowledge skill)");
        int maxLevel = -1;
        if (DHandBook::GetSpellSchoolCount(character, maxLevel) < 7 || maxLevel < 3)
            failing << QStringLiteral("spells of seven schools, one of level 3");
    }
    return failing;
}

} // namespace

// --- Automatic features -------------------------------------------------------------------------

void DHandBook::AddAutoFeatures(DCharacter* character, bool /*isNew*/) {
    if (!character)
        return;
    for (DCharacterClass* characterClass : character->GetClassList()) {
        ComputeAndSetClassBonusFeatures(character, characterClass);
        const QUuid guid = characterClass->GetClassGuid();
        if (characterClass->GetIsExClass()) {
            if (guid == kDevoutClass || guid == kPaladinClass)
                RemoveAutoFeaturesForClass(character, characterClass);
            else if (guid == kFastMovementClass)
                RemoveAutoFeaturesInGroup(character, characterClass, kRageGroup);
        }
        AddAutoFeaturesForClass(character, characterClass);
        if (guid == kBlackguardClass && characterClass->GetPreviousLevel() == 0.0f) {
            DCharacterClass* paladin = character->GetClassPointer(kPaladinClass);
            if (paladin && paladin->GetIsExClass())
                AddBlackguardFallenPaladinFeatures(character, paladin, TruncatedLevel(paladin));
        }
    }
}

void DHandBook::AddAutoFeaturesForClass(DCharacter* character, DCharacterClass* characterClass) {
    if (!character || !characterClass)
        return;
    int from = int(characterClass->GetPreviousLevel());
    const int to = TruncatedLevel(characterClass);
    // The history replay marks a class atoned whenever a plain entry precedes a fallen one; a
    // class that is still fallen has not atoned and gets nothing back.
    if (characterClass->hasAtoned()) {
        if (!characterClass->GetIsExClass())
            from = 0;
        characterClass->SetHasAtoned(false);
    }
    if (from >= to)
        return;
    const QString sql = QString::asprintf(
        "SELECT FeatureId, Data, DataGuid FROM %s WHERE (ClassId=%s) AND ([Level]>%d) AND "
        "([Level]<=%d)ORDER BY [Level]",
        DRulesQuery::Table(kTableClassFeatures).constData(),
        DRulesQuery::Guid(characterClass->GetClassGuid()).constData(), from, to);
    AddAutoFeatures(character, sql, characterClass, kAutoArray, true);
}

void DHandBook::AddBlackguardFallenPaladinFeatures(DCharacter* character, DCharacterClass* paladin,
                                                   int level) {
    if (!character)
        return;
    const QString sql =
        QString::asprintf("SELECT FeatureId, 0 as Data FROM %s WHERE ([Level]<=%d)",
                          DRulesQuery::Table(kTableFallenPaladinFeatures).constData(), level);
    // They belong to the blackguard: the fallen paladin's own features go at every pass.
    DCharacterClass* blackguard = character->GetClassPointer(kBlackguardClass);
    AddAutoFeatures(character, sql, blackguard ? blackguard : paladin, kAutoArray, false);
}

void DHandBook::AddAutoFeatures(DCharacter* character, const QString& sql,
                                DCharacterClass* characterClass, int arrayType, bool hasDataGuid) {
    if (!character)
        return;
    const bool exRage = characterClass && characterClass->GetIsExClass() &&
                        characterClass->GetClassGuid() == kFastMovementClass;
    for (const FeatureRow& row : ReadFeatureRows(sql, hasDataGuid, false)) {
        DFeatureInfo info;
        if (!ReadFeatureInfo(row.feature, info))
            continue;
        const DFeatureGroupType group = info.GetFeatureGroup();
        if (exRage && group == kRageGroup)
            continue;
        DChosenFeature* feature =
            IsOpenGroup(group) ? nullptr : character->GetFeatureInGroup(group, arrayType);
        const bool isNew = feature == nullptr;
        if (isNew) {
            feature = new DChosenFeature();
            feature->SetFeatureType(info.GetFeatureType());
            feature->SetFeatureGroup(group);
            feature->AddFeatureFlag(DChosenFeature::kFeatureAutomatic);
            if (characterClass)
                feature->SetClassGuid(characterClass->GetClassGuid());
        }
        feature->SetFeatureGuid(row.feature);
        if (row.dataGuid.isNull())
            feature->SetFeatureData(row.data);
        else
            feature->SetFeatureDataGuid(row.dataGuid);
        if (isNew) {
            character->AddFeature(feature, arrayType);
            feature->Release();
        }
        if (feature->GetFeatureType() != 0)
            AdjustCharacterForFeature(character, feature, false);
    }
}

void DHandBook::RemoveAutoFeaturesForClass(DCharacter* character, DCharacterClass* characterClass) {
    if (!character || !characterClass)
        return;
    RemoveAutoFeatures(character,
                       ClassFeatures(character, characterClass->GetClassGuid(), true, 0));
}

void DHandBook::RemoveAutoFeaturesInGroup(DCharacter* character, DCharacterClass* characterClass,
                                          DFeatureGroupType group) {
    if (!character || !characterClass)
        return;
    RemoveAutoFeatures(character,
                       ClassFeatures(character, characterClass->GetClassGuid(), false, group));
}

void DHandBook::RemoveAutoFeaturesAboveLevel(DCharacter* character, const QUuid& classGuid,
                                             int oldLevel, int newLevel) {
    if (!character || newLevel >= oldLevel)
        return;
    // Every row of the class up to the old level: the later ones go, newest first, and a
    // group falls back to its latest earlier row.
    const QString sql = QString::asprintf(
        "SELECT FeatureId, Data, DataGuid, [Level] FROM %s WHERE (ClassId=%s) AND ([Level]<=%d) "
        "ORDER BY [Level]",
        DRulesQuery::Table(kTableClassFeatures).constData(),
        DRulesQuery::Guid(classGuid).constData(), oldLevel);
    const std::vector<FeatureRow> rows = ReadFeatureRows(sql, true, true);
    for (auto it = rows.rbegin(); it != rows.rend() && it->level > newLevel; ++it) {
        DChosenFeature* feature = nullptr;
        for (DChosenFeature* held : ClassFeatures(character, classGuid, true, 0)) {
            if (held->GetFeatureGuid() == it->feature)
                feature = held;
        }
        if (!feature)
            continue;
        AdjustCharacterForFeature(character, feature, true);
        const DFeatureGroupType group = feature->GetFeatureGroup();
        const FeatureRow* earlier = nullptr;
        for (auto back = std::next(it); back != rows.rend() && !IsOpenGroup(group); ++back) {
            DFeatureInfo info;
            if (back->level < it->level && ReadFeatureInfo(back->feature, info) &&
                info.GetFeatureGroup() == group) {
                earlier = &*back;
                break;
            }
        }
        if (!earlier) {
            if (feature->GetFeatureType() == kTypeFeat)
                TakeBackFeat(character, feature->GetFeatureDataGuid());
            character->RemoveFeature(feature, kAutoArray);
            continue;
        }
        // The earlier row's change was never taken back, so only its name and data return.
        feature->SetFeatureGuid(earlier->feature);
        if (earlier->dataGuid.isNull())
            feature->SetFeatureData(earlier->data);
        else
            feature->SetFeatureDataGuid(earlier->dataGuid);
    }
    // A class given up entirely takes along what came with it from elsewhere (a blackguard's
    // fallen paladin features).
    if (newLevel <= 0)
        RemoveAutoFeatures(character, ClassFeatures(character, classGuid, true, 0));
}

void DHandBook::ComputeAndSetClassBonusFeatures(DCharacter* character,
                                                DCharacterClass* characterClass) {
    if (!character || !characterClass)
        return;
    const int level = TruncatedLevel(characterClass);
    const QUuid guid = characterClass->GetClassGuid();
    int picks = 0;
    if (guid == kBardClass && level >= 1)
        picks = 1;
    else if (guid == kRogueClass && level >= 10)
        picks = (level - 10) / 3 + 1;
    else if (guid == kRangerClass && level >= 1)
        picks = level / 5 + 1;
    else if (guid == kLoremasterClass && level >= 1)
        picks = (level - 1) / 2 + 1;
    characterClass->SetBonusFeatures(picks);
}

// --- Chosen features ----------------------------------------------------------------------------

void DHandBook::AddChosenFeature(DCharacter* character, DCharacterClass* characterClass,
                                 DChosenFeature* feature) {
    if (!character || !characterClass || !feature)
        return;
    character->AddFeature(feature, kChosenArray);
    AdjustCharacterForFeature(character, feature, false);
    characterClass->AdjustSpentBonusFeatures(1);
}

void DHandBook::RemoveChosenFeature(DCharacter* character, DCharacterClass* characterClass,
                                    DChosenFeature* feature) {
    if (!character || !characterClass || !feature)
        return;
    feature->Retain();
    if (character->RemoveFeature(feature, kChosenArray)) {
        AdjustCharacterForFeature(character, feature, true);
        characterClass->AdjustSpentBonusFeatures(-1);
    }
    feature->Release();
}

void DHandBook::AdjustCharacterForFeature(DCharacter* character, DChosenFeature* feature,
                                          bool remove) {
    if (!character || !feature)
        return;
    const int sign = remove ? -1 : 1;
    const DFeatureType type = feature->GetFeatureType();
    const int data = feature->GetFeatureData();
    switch (type) {
    case kTypeFeat:
        if (!remove)
            GrantFeat(character, feature->GetFeatureDataGuid());
        break;
    case kTypeBonusFeat:
        character->AdjustCharacterStat(kStatFeatureFeatPoints, sign);
        character->AdjustCharacterStat(kStatFeatPoints, sign);
        break;
    case kTypeLanguagePoint:
        AdjustLanguage(character, QUuid(), remove);
        break;
    case kTypeHitPoints:
        AdjustHitPointsForBonus(character, kStatFeatureHitPoints, sign * data);
        break;
    case kTypeFortitude:
    case kTypeReflex:
    case kTypeWill:
        AdjustSave(character, type, sign * std::max(data, 0));
        break;
    case kTypeAttack:
        character->AdjustCharacterStat(kStatMagicAttackBonus, sign * data);
        break;
    case kTypeArmorClass:
        character->AdjustCharacterStat(kStatFeatureArmorBonus, sign * data);
        ComputeAndSetArmorClass(character);
        break;
    case kTypeLanguage:
        AdjustLanguage(character, feature->GetFeatureDataGuid(), remove);
        break;
    case kTypeCharismaToSaves:
        // The saves read the feature; the pass may have worked them out before it came or went.
        ComputeAndSetAllSavingThrows(character);
        break;
    default:
        // Numbered abilities, weapons, favored enemies and Charisma to saves are read where
        // they matter; the others only describe.
        break;
    }
    character->HandleHasChanged();
}

QString DHandBook::BuildFeatureName(const DChosenFeature* feature) {
    if (!feature)
        return {};
    DFeatureInfo info;
    if (ReadFeatureInfo(feature->GetFeatureGuid(), info))
        return info.GetDescription(feature->GetFeatureType() == kTypeFavoredEnemy ||
                                           feature->GetFeatureType() == kTypeNumbered
                                       ? feature->GetFeatureData()
                                       : -1);
    // Picks of a list without feature rows: the list's row names them.
    if (feature->GetFeatureType() == kTypeFavoredEnemy)
        return QStringLiteral("Favored enemy (%1)")
            .arg(NameById(kTableRangerFavoredEnemy, feature->GetFeatureData()));
    if (feature->GetFeatureType() == kTypeWeapon) {
        QString weapon = feature->GetFeatureDataGuid().toString();
        DDatabase::FirstRow(
            QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                              DRulesQuery::Table(kTableWeapons).constData(),
                              DRulesQuery::Guid(feature->GetFeatureDataGuid()).constData()),
            [&weapon](odbc::ResultSet* row) { weapon = row->getString(1); });
        return QStringLiteral("Weapon proficiency (%1)").arg(weapon);
    }
    return feature->GetFeatureGuid().toString();
}

DFeatureGroupType DHandBook::GetPickedFeatureGroup(const QUuid& classGuid) {
    if (classGuid == kRogueClass)
        return kRogueGroup;
    if (classGuid == kRangerClass)
        return kRangerGroup;
    if (classGuid == kBardClass)
        return kBardGroup;
    if (classGuid == kLoremasterClass)
        return kLoremasterGroup;
    return -1;
}

void DHandBook::GetFeatureOffers(DCharacter* character, DCharacterClass* characterClass,
                                 std::vector<DFeatureOffer>& offers) {
    offers.clear();
    if (!character || !characterClass)
        return;
    const QUuid guid = characterClass->GetClassGuid();
    const DFeatureGroupType group = GetPickedFeatureGroup(guid);
    if (group == kRangerGroup) {
        DDatabase::ForEachRow(
            QString::asprintf("SELECT Id, Name FROM %s",
                              DRulesQuery::Table(kTableRangerFavoredEnemy).constData()),
            [&](odbc::ResultSet* row) {
                DFeatureOffer offer;
                offer.data = row->getInt(1);
                offer.name = row->getString(2);
                offer.group = kRangerGroup;
                offer.type = kTypeFavoredEnemy;
                offer.enabled = !character->HasFeature(kTypeFavoredEnemy, offer.data, 1);
                offers.push_back(offer);
            });
    } else if (group == kRogueGroup) {
        DDatabase::ForEachRow(
            QString::asprintf("SELECT Guid, Name, [Group], Type FROM %s WHERE ([Group]=%d)",
                              DRulesQuery::Table(kTableFeatures).constData(), kRogueGroup),
            [&](odbc::ResultSet* row) {
                DFeatureOffer offer;
                offer.feature = row->getGUID(1);
                offer.name = row->getString(2);
                offer.group = row->getInt(3);
                offer.type = row->getInt(4);
                const bool repeatable = offer.type == kTypeBonusFeat || offer.type == kTypeNumbered;
                offer.enabled = repeatable || !character->HasFeatureWithId(offer.feature, 1);
                offers.push_back(offer);
            });
    } else if (group == kBardGroup) {
        DDatabase::ForEachRow(
            QString::asprintf("SELECT Id FROM %s",
                              DRulesQuery::Table(kTableBardWeaponProficiency).constData()),
            [&](odbc::ResultSet* row) {
                DFeatureOffer offer;
                offer.dataGuid = row->getGUID(1);
                offer.group = kBardGroup;
                offer.type = kTypeWeapon;
                offer.enabled = !character->HasFeatureWithType(kTypeWeapon, offer.dataGuid, 1);
                offers.push_back(offer);
            });
        // The weapon's name belongs to the items layer's record; its row names it here.
        for (DFeatureOffer& offer : offers) {
            DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                                                  DRulesQuery::Table(kTableWeapons).constData(),
                                                  DRulesQuery::Guid(offer.dataGuid).constData()),
                                [&offer](odbc::ResultSet* row) { offer.name = row->getString(1); });
        }
    } else if (group == kLoremasterGroup) {
        const QByteArray secrets = DRulesQuery::Table(kTableLoremasterSecrets);
        const QByteArray features = DRulesQuery::Table(kTableFeatures);
        const int reach = TruncatedLevel(characterClass) +
                          GetAbilityModifier(character->GetAbilityStat(kAbilityIntelligence));
        DDatabase::ForEachRow(
            QString::asprintf("SELECT [Level], Data, Guid, Name, [Group], Type FROM %s INNER JOIN "
                              "%s ON %s.FeatureId = %s.Id",
                              secrets.constData(), features.constData(), secrets.constData(),
                              features.constData()),
            [&](odbc::ResultSet* row) {
                DFeatureOffer offer;
                offer.level = row->getInt(1);
                offer.data = row->getInt(2);
                offer.feature = row->getGUID(3);
                offer.name = row->getString(4);
                offer.group = row->getInt(5);
                offer.type = row->getInt(6);
                offer.enabled =
                    !character->HasFeatureWithId(offer.feature, 1) && offer.level <= reach;
                offers.push_back(offer);
            });
    }
}

// --- Prestige class requirements ---------------------------------------------------------------

bool DHandBook::DoesCharacterMeetClassPrereqs(DCharacter* character, const QUuid& classGuid) {
    if (!character)
        return false;
    bool ok = true;
    bool raceAsked = false, raceMet = false, alignmentAsked = false, alignmentMet = false;
    const std::vector<Requirement> rows = ReadRequirements(classGuid);
    for (const Requirement& row : rows) {
        if (!ok)
            break;
        if (row.anyOf > 0)
            continue;
        if (row.type == kRequireRace) {
            if (!raceMet) {
                raceAsked = true;
                raceMet = RaceFamily(character) == row.raceId;
            }
        } else if (row.type == kRequireAlignment) {
            if (!alignmentMet) {
                alignmentAsked = true;
                alignmentMet = character->GetAlignmentId() == row.alignment;
            }
        } else {
            ok = MeetsRow(character, row);
        }
    }
    if ((raceAsked && !raceMet) || (alignmentAsked && !alignmentMet))
        ok = false;
    for (const auto& [group, met] : AnyOfGroupsMet(character, rows))
        ok = ok && met;
    return ok && FailingHardWired(character, classGuid).isEmpty();
}

QStringList DHandBook::GetFailingClassPrereqs(DCharacter* character, const QUuid& classGuid) {
    QStringList failing;
    if (!character)
        return failing;
    QStringList races, alignments;
    bool raceMet = false, alignmentMet = false;
    const std::vector<Requirement> rows = ReadRequirements(classGuid);
    const std::map<int, bool> groupsMet = AnyOfGroupsMet(character, rows);
    std::map<int, QStringList> groupTexts;
    for (const Requirement& row : rows) {
        if (row.anyOf > 0)
            groupTexts[row.anyOf] << DescribeRow(row);
    }
    for (const Requirement& row : rows) {
        if (row.anyOf > 0) {
            // A failing group is named once, where its first row stands.
            QStringList& texts = groupTexts[row.anyOf];
            if (!groupsMet.at(row.anyOf) && !texts.isEmpty())
                failing << QStringLiteral("one of: %1").arg(texts.join(QStringLiteral(", ")));
            texts.clear();
        } else if (row.type == kRequireRace) {
            races << NameById(kTableRaceFamily, row.raceId);
            raceMet = raceMet || RaceFamily(character) == row.raceId;
        } else if (row.type == kRequireAlignment) {
            alignments << AlignmentName(row.alignment);
            alignmentMet = alignmentMet || character->GetAlignmentId() == row.alignment;
        } else if (!MeetsRow(character, row)) {
            failing << DescribeRow(row);
        }
    }
    if (!races.isEmpty() && !raceMet)
        failing.prepend(QStringLiteral("race: %1").arg(races.join(QStringLiteral(" or "))));
    if (!alignments.isEmpty() && !alignmentMet)
        failing << QStringLiteral("alignment: %1").arg(alignments.join(QStringLiteral(" or ")));
    failing << FailingHardWired(character, classGuid);
    return failing;
}

bool DHandBook::HasClassPrereqData(const QUuid& classGuid) {
    if (classGuid == kArcaneBowClass || classGuid == kLoremasterClass)
        return true;
    return DRulesQuery::HasRow(QString::asprintf(
        "SELECT Id FROM %s WHERE (Id=%s)", DRulesQuery::Table(kTableClassRequirements).constData(),
        DRulesQuery::Guid(classGuid).constData()));
}

// --- Spell levels by school and caster type -----------------------------------------------------

int DHandBook::GetMaxSpellLevelForClassAndSchool(const QUuid& classGuid, int school) {
    const QByteArray level = DRulesQuery::Table(kTableSpellLevel);
    const QByteArray spell = DRulesQuery::Table(kTableSpell);
    const QString sql = QString::asprintf(
        "SELECT Max(%s.[Level]) AS MaxLevel FROM %s INNER JOIN %s ON %s.[Guid] = %s.[Id] WHERE "
        "(%s.ClassId = %s) AND (SchoolId = %d)",
        level.constData(), spell.constData(), level.constData(), spell.constData(),
        level.constData(), level.constData(), DRulesQuery::Guid(classGuid).constData(), school);
    int maxLevel = -1;
    DDatabase::FirstRow(sql, [&maxLevel](odbc::ResultSet* row) {
        const int value = row->getInt(1);
        if (!row->wasNull())
            maxLevel = value;
    });
    return maxLevel;
}

int DHandBook::GetMaxSpellLevelForSchool(DCharacter* character, int school) {
    if (!character)
        return -1;
    int best = -1;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        if (!characterClass->HasCasterFlag(DSpellCaster::kCasterCasts))
            continue;
        const int perDay = GetMaxSpellLevelBasedOnPerDay(characterClass);
        if (perDay < 0)
            continue;
        const QUuid guid = characterClass->GetClassGuid();
        // A specialist wizard casts nothing of the schools it gave up.
        if (guid == DDatabase::kWizardClassGuid &&
            character->GetProhibitedSchoolArray().Find(school) >= 0)
            continue;
        int level = GetMaxSpellLevelForClassAndSchool(guid, school);
        if (guid == DDatabase::kWizardClassGuid)
            level = std::max(level, GetMaxSpellLevelForClassAndSchool(
                                        DDatabase::kSharedWizardListClassGuid, school));
        best = std::max(best, std::min(level, perDay));
    }
    return best;
}

int DHandBook::GetSpellSchoolCount(DCharacter* character, int& maxLevel) {
    maxLevel = -1;
    std::vector<int> schools;
    DDatabase::ForEachRow(QString::asprintf("SELECT Id FROM %s WHERE (Id > 0)",
                                            DRulesQuery::Table(kTableSpellSchools).constData()),
                          [&schools](odbc::ResultSet* row) { schools.push_back(row->getInt(1)); });
    int count = 0;
    for (const int school : schools) {
        const int level = GetMaxSpellLevelForSchool(character, school);
        if (level < 0)
            continue;
        ++count;
        maxLevel = std::max(maxLevel, level);
    }
    return count;
}

int DHandBook::GetMaxSpellLevelForCasterType(DCharacter* character, int casterType) {
    if (!character)
        return -1;
    int best = -1;
    for (const DCharacterClass* characterClass : character->GetClassList()) {
        const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
        if (info && info->mCastType == casterType &&
            characterClass->HasCasterFlag(DSpellCaster::kCasterCasts))
            best = std::max(best, GetMaxSpellLevelBasedOnPerDay(characterClass));
    }
    return best;
}

// --- Monk ---------------------------------------------------------------------------------------

int DHandBook::ComputeMonkUnarmoredSpeed(DCharacter* character, DAdjChosenSpeed* speed) {
    if (!speed)
        return 0;
    const int base = speed->GetSpeedValue();
    if (!character || (speed->GetSpeedId() != 1 && speed->GetSpeedId() != 3))
        return base;
    const int monkLevel = character->GetClassLevel(kMonkClass);
    for (int key = std::min(base, kMonkSpeedCap) / 5 * 5; key > 0; key -= 5) {
        int found = -1;
        DDatabase::FirstRow(
            QString::asprintf("SELECT Speed FROM %s WHERE (%d<=[Level]) AND (BaseSpeed=%d) ORDER "
                              "BY [Level]",
                              DRulesQuery::Table(kTableMonkUnarmoredSpeed).constData(), monkLevel,
                              key),
            [&found](odbc::ResultSet* row) { found = row->getInt(1); });
        if (found < 0)
            continue;
        return base > kMonkSpeedCap ? found + (base / 10 - 6) * 10 : found;
    }
    return base;
}
