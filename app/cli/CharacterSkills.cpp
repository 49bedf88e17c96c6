#include "CharacterSkills.h"

#include "CharacterCommand.h"
#include "CliCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DGuid.h"
#include "DHandBook.h"
#include "DItemInfo.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "DSkillInfo.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Rows of "[types Feat Target]" that name a target.
constexpr int kTargetWeapon = 1;
constexpr int kTargetSkill = 2;
constexpr int kTargetSchool = 3;

// Removes "--name VALUE"; false when the option is there without a value.
QString className(const QUuid& guid) {
    const DClassInfo* info = DDatabase::GetClassInfoA(guid);
    return info ? QString(info->mName) : QStringLiteral("the race");
}

// The class that pays for what is bought now: the class of the last level taken.
DCharacterClass* payingClass(const DCharacter& character) {
    DCharacterClass* last = character.GetClassPointer(character.GetLastHistoryClassGuid());
    return last ? last : character.GetClassList().GetLast();
}

QString number(float value) {
    return QString::number(double(value), 'g', 6);
}

QStringList skillNameList() {
    QStringList names;
    for (const CharacterSkills::SkillName& skill : CharacterSkills::SkillNames())
        names << skill.name;
    return names;
}

// Reads --target for a feat of that target type into the two target GUIDs.
bool readTarget(const DFeatInfo& info, const QString& text, QUuid& target, QUuid& subTarget,
                QString& error) {
    const QString feat = info.GetFeatName();
    const int type = info.GetFeatTargetType();
    if (type != kTargetWeapon && type != kTargetSkill && type != kTargetSchool) {
        if (!text.isEmpty())
            error = QStringLiteral("%1 takes no --target").arg(feat);
        return text.isEmpty();
    }
    const QString kind = type == kTargetWeapon  ? QStringLiteral("weapon")
                         : type == kTargetSkill ? QStringLiteral("skill")
                                                : QStringLiteral("school");
    if (text.isEmpty()) {
        error = QStringLiteral("%1 needs --target %2").arg(feat, kind.toUpper());
        return false;
    }
    QStringList names;
    if (type == kTargetSkill) {
        CharacterSkills::SkillName skill;
        if (CharacterSkills::FindSkill(text, skill)) {
            target = skill.skill;
            subTarget = skill.subSkill;
            return true;
        }
        names = skillNameList();
    } else if (type == kTargetWeapon) {
        for (const auto& [guid, base] : DDatabase::GetWeaponInfoMap()) {
            const QString name = static_cast<const DItemInfo*>(base)->GetItemName();
            if (name.compare(text, Qt::CaseInsensitive) == 0) {
                target = guid;
                // Sub-target 1: the target is a weapon of the weapon table.
                DGuid::SetLong(subTarget, 1);
                return true;
            }
            names << name;
        }
    } else {
        for (const auto& [id, base] : DDatabase::GetSchoolInfoMap()) {
            const QString name = static_cast<const DSchoolInfo*>(base)->GetSchoolName();
            if (name.compare(text, Qt::CaseInsensitive) == 0) {
                DGuid::SetLong(target, id);
                return true;
            }
            names << name;
        }
    }
    error = CliLookup::UnknownName(kind, text, CliLookup::ClosestNames(text, names, 3));
    return false;
}

// The class whose bonus feat points can pay for the feat, or null.
DCharacterClass* bonusFeatPayer(const DCharacter& character, const QUuid& feat) {
    for (DCharacterClass* characterClass : character.GetClassList()) {
        if (characterClass->GetBonusFeatPoints() > characterClass->GetSpentBonusFeatPoints() &&
            DHandBook::IsFeatBonusForClass(characterClass->GetClassGuid(), feat))
            return characterClass;
    }
    return nullptr;
}

// Half ranks count for nothing in a check.
int skillTotal(const DChosenSkill& skill) {
    return int(std::floor(skill.GetTotalBonus()));
}

QList<const DChosenSkill*> sortedSkills(const DCharacter& character) {
    QList<QPair<QString, const DChosenSkill*>> named;
    for (const auto& skill : character.GetSkillSet())
        named.append(
            {CharacterSkills::SkillText(skill->GetSkillId(), skill->GetSubSkillId()), skill.Get()});
    std::sort(named.begin(), named.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<const DChosenSkill*> skills;
    for (const auto& [name, skill] : named)
        skills.append(skill);
    return skills;
}

QList<const DChosenFeat*> sortedFeats(const DCharacter& character) {
    QList<QPair<QString, const DChosenFeat*>> named;
    for (const auto& feat : character.GetFeatSet())
        named.append({CharacterSkills::FeatText(feat->GetFeatGuid(), feat->GetTargetGuid(),
                                                feat->GetTargetSubGuid(), 1),
                      feat.Get()});
    std::sort(named.begin(), named.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<const DChosenFeat*> feats;
    for (const auto& [name, feat] : named)
        feats.append(feat);
    return feats;
}

} // namespace

QList<CharacterSkills::SkillName> CharacterSkills::SkillNames() {
    static QList<SkillName> names;
    if (!names.isEmpty())
        return names;
    for (const auto& [guid, base] : DDatabase::GetSkillInfoMap()) {
        const auto* info = static_cast<const DSkillInfo*>(base);
        if (!info->GetIsMultiType()) {
            names.append({info->GetSkillName(), guid, QUuid()});
            continue;
        }
        DDatabase::ForEachRow(QString::asprintf("SELECT SubGuid, Name FROM %s WHERE (Guid=%s)",
                                                DRulesQuery::Table(kTableSkillSub).constData(),
                                                DRulesQuery::Guid(guid).constData()),
                              [&](odbc::ResultSet* row) {
                                  names.append({QStringLiteral("%1 (%2)").arg(
                                                    info->GetSkillName(), row->getString("Name")),
                                                guid, row->getGUID("SubGuid")});
                              });
    }
    std::sort(names.begin(), names.end(),
              [](const SkillName& a, const SkillName& b) { return a.name < b.name; });
    return names;
}

QString CharacterSkills::SkillText(const QUuid& skill, const QUuid& subSkill) {
    const DSkillInfo* info = DDatabase::GetSkillInfo(skill);
    if (!info)
        return skill.toString(QUuid::WithBraces).toUpper();
    QString text = info->GetSkillName();
    // Only a sub-skill needs the database; a sheet names many skills, most without one.
    if (info->GetIsMultiType() && !subSkill.isNull())
        DDatabase::FirstRow(
            QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s) AND (SubGuid=%s)",
                              DRulesQuery::Table(kTableSkillSub).constData(),
                              DRulesQuery::Guid(skill).constData(),
                              DRulesQuery::Guid(subSkill).constData()),
            [&](odbc::ResultSet* row) {
                text = QStringLiteral("%1 (%2)").arg(text, row->getString("Name"));
            });
    return text;
}

bool CharacterSkills::FindSkill(const QString& name, SkillName& found) {
    for (const SkillName& skill : SkillNames()) {
        if (skill.name.compare(name, Qt::CaseInsensitive) == 0) {
            found = skill;
            return true;
        }
    }
    return false;
}

QUuid CharacterSkills::FindFeat(const QString& name) {
    for (const auto& [guid, base] : DDatabase::GetFeatInfoMap()) {
        if (static_cast<const DFeatInfo*>(base)->GetFeatName().compare(name, Qt::CaseInsensitive) ==
            0)
            return guid;
    }
    return QUuid();
}

QStringList CharacterSkills::FeatNames() {
    QStringList names;
    for (const auto& [guid, base] : DDatabase::GetFeatInfoMap())
        names << static_cast<const DFeatInfo*>(base)->GetFeatName();
    names.sort(Qt::CaseInsensitive);
    return names;
}

QString CharacterSkills::FeatText(const QUuid& feat, const QUuid& target, const QUuid& subTarget,
                                  int count) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    QString text = info ? QString(info->GetFeatName()) : feat.toString(QUuid::WithBraces);
    const QString targetText = info ? FeatTarget(*info, target, subTarget) : QString();
    if (!targetText.isEmpty())
        text += QStringLiteral(" (%1)").arg(targetText);
    if (count > 1)
        text += QStringLiteral(" x%1").arg(count);
    return text;
}

QString CharacterSkills::FeatTarget(const DFeatInfo& info, const QUuid& target,
                                    const QUuid& subTarget) {
    if (target.isNull())
        return QString();
    switch (info.GetFeatTargetType()) {
    case kTargetWeapon: {
        const auto* weapon = static_cast<const DItemInfo*>(DDatabase::GetWeaponInfo(target));
        return weapon ? QString(weapon->GetItemName())
                      : DRulesQuery::NaturalAttackTarget(target, subTarget);
    }
    case kTargetSkill:
        return SkillText(target, subTarget);
    case kTargetSchool: {
        const DSchoolInfo* school = DDatabase::GetSchoolInfo(DGuid::GetLong(target));
        return school ? QString(school->GetSchoolName()) : QString();
    }
    default:
        return QString();
    }
}

QString CharacterSkills::FeatRefusal(DCharacter& character, const QUuid& feat, const QUuid& target,
                                     const QUuid& subTarget) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    if (!info)
        return QStringLiteral("no such feat");
    if (!DHandBook::ComputeCanFeatBePurchased(&character, true, info, target, subTarget, false)) {
        if (character.HasFeat(feat, target, subTarget))
            return QStringLiteral("already taken");
        return QStringLiteral("needs a caster level");
    }
    DFeatPrereq failing;
    if (DHandBook::FindFailingFeatPrereq(&character, true, feat, failing))
        return QStringLiteral("needs %1").arg(DHandBook::BuildFeatPrereqString(failing));
    return QString();
}

int CharacterSkills::RunAddSkill(CliContext& context, QStringList args) {
    QString error;
    if (args.size() != 3)
        return CliContext::Fail(QStringLiteral("give FILE.chr SKILL RANKS (see --help)"));
    bool ok = false;
    const float ranks = args[2].toFloat(&ok);
    // Ranks come in halves: a cross-class point buys half a rank.
    if (!ok || ranks <= 0.0f || ranks > 100.0f || std::floor(ranks * 2.0f) != ranks * 2.0f)
        return CliContext::Fail(
            QStringLiteral("RANKS takes a number of whole or half ranks above 0, not '%1'")
                .arg(args[2]));
    QString path;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    SkillName skill;
    if (!FindSkill(args[1], skill))
        return CliContext::Fail(
            CliLookup::UnknownName(QStringLiteral("skill"), args[1],
                                   CliLookup::ClosestNames(args[1], skillNameList(), 3)));
    DCharacterClass* payer = payingClass(*character);
    if (!payer)
        return CliContext::Fail(QStringLiteral("%1 has no class to buy ranks with").arg(path));
    const QUuid classGuid = payer->GetClassGuid();
    const DSkillUsabilityType usability =
        DHandBook::ComputeSkillUsablility(character.get(), classGuid, skill.skill);
    if (usability == 0)
        return CliContext::Fail(
            QStringLiteral("%1 cannot take %2").arg(className(classGuid), skill.name));
    if (usability == 1 && std::floor(ranks) != ranks)
        return CliContext::Fail(
            QStringLiteral("%1 is a class skill of %2: ranks come whole, not %3")
                .arg(skill.name, className(classGuid), number(ranks)));
    const DChosenSkill* held = character->GetSkillPointer(skill.skill, skill.subSkill);
    const float total = (held ? held->GetTotalRanks() : 0.0f) + ranks;
    const float limit = DHandBook::ComputeMaxSkillRank(character.get(), skill.skill);
    if (total > limit)
        return CliContext::Fail(QStringLiteral("%1 would have %2 ranks; the limit is %3")
                                    .arg(skill.name, number(total), number(limit)));
    const int cost = int(usability == 1 ? ranks : ranks * 2.0f);
    if (cost > payer->GetRemainingSkillPoints())
        return CliContext::Fail(
            QStringLiteral("%1 ranks of %2 cost %3 skill points; %4 has %5 left")
                .arg(number(ranks), skill.name)
                .arg(cost)
                .arg(className(classGuid))
                .arg(payer->GetRemainingSkillPoints()));
    character->SetActiveClassId(classGuid);
    DHandBook::AddSkill(character.get(), skill.skill, skill.subSkill, usability, ranks, true);
    // AddSkill passes on the synergies of the skill bought; a skill new to the character may
    // also be the target of one whose source it already has, which the full pass gives it.
    DHandBook::ComputeAndSetSkillSkillMods(character.get(), false, QUuid(), QUuid(), 0.0f, 0.0f);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

int CharacterSkills::RunAddFeat(CliContext& context, QStringList args) {
    QString targetText;
    if (!CliCommand::TakeOption(args, "--target", targetText))
        return CliContext::Fail(QStringLiteral("--target is missing its value"));
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr FEAT (see --help)"));
    QString path;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    const QUuid feat = FindFeat(args[1]);
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
    if (!info)
        return CliContext::Fail(CliLookup::UnknownName(
            QStringLiteral("feat"), args[1], CliLookup::ClosestNames(args[1], FeatNames(), 3)));
    QUuid target, subTarget;
    QString error;
    if (!readTarget(*info, targetText, target, subTarget, error))
        return CliContext::Fail(error);
    const QString refusal = FeatRefusal(*character, feat, target, subTarget);
    if (!refusal.isEmpty())
        return CliContext::Fail(QStringLiteral("cannot take %1: %2")
                                    .arg(FeatText(feat, target, subTarget, 1), refusal));
    DCharacterClass* payer = bonusFeatPayer(*character, feat);
    const int general = character->GetCharacterStat(kStatFeatPoints) -
                        character->GetCharacterStat(kStatSpentFeatPoints);
    if (!payer && general < 1)
        return CliContext::Fail(
            QStringLiteral("cannot take %1: no feat points left").arg(info->GetFeatName()));
    FCRef<DChosenFeat> chosen(new DChosenFeat());
    chosen->SetFeatGuid(feat);
    chosen->SetTargetGuid(target);
    chosen->SetTargetSubGuid(subTarget);
    if (payer) {
        chosen->AddFeatFlag(DChosenFeat::kFeatClassBonus);
        chosen->SetClassGuid(payer->GetClassGuid());
    }
    DHandBook::AddFeat(character.get(), true, chosen.get());
    return CharacterCommand::SaveAndShow(context, *character, path);
}

void CharacterSkills::Describe(const DCharacter& character, QJsonObject& description) {
    QJsonArray skills;
    for (const DChosenSkill* skill : sortedSkills(character))
        skills.append(QJsonObject{
            {"name", SkillText(skill->GetSkillId(), skill->GetSubSkillId())},
            {"ranks", double(skill->GetTotalRanks())},
            {"total", skillTotal(*skill)},
        });
    QJsonArray feats;
    for (const DChosenFeat* feat : sortedFeats(character)) {
        const DFeatInfo* info = DDatabase::GetFeatInfo(feat->GetFeatGuid());
        const QString target =
            info ? FeatTarget(*info, feat->GetTargetGuid(), feat->GetTargetSubGuid()) : QString();
        QJsonObject entry{
            {"name", info ? QString(info->GetFeatName()) : feat->GetFeatGuid().toString()},
            {"target", target.isEmpty() ? QJsonValue() : QJsonValue(target)}};
        if (feat->GetCount() > 1)
            entry.insert("count", feat->GetCount());
        feats.append(entry);
    }
    description.insert("skills", skills);
    description.insert("feats", feats);
}

void CharacterSkills::Print(const DCharacter& character) {
    int bonusLeft = 0;
    for (const DCharacterClass* characterClass : character.GetClassList())
        bonusLeft +=
            characterClass->GetBonusFeatPoints() - characterClass->GetSpentBonusFeatPoints();
    CliContext::PrintLine(QStringLiteral("Points left: %1 skill, %2 feat, %3 bonus feat")
                              .arg(character.GetRemainingSkillPoints())
                              .arg(character.GetCharacterStat(kStatFeatPoints) -
                                   character.GetCharacterStat(kStatSpentFeatPoints))
                              .arg(bonusLeft));
    QStringList feats;
    for (const DChosenFeat* feat : sortedFeats(character))
        feats << FeatText(feat->GetFeatGuid(), feat->GetTargetGuid(), feat->GetTargetSubGuid(),
                          feat->GetCount());
    CliContext::PrintLine(QStringLiteral("Feats:      %1")
                              .arg(feats.isEmpty() ? QStringLiteral("none") : feats.join(", ")));
    // Skills with nothing but their ability behind them are left to --json.
    QStringList skills;
    for (const DChosenSkill* skill : sortedSkills(character)) {
        if (skill->GetTotalRanks() > 0.0f || skill->GetTotalMods() != skill->GetAbilityMod())
            skills << QStringLiteral("%1 %2 (%3)")
                          .arg(SkillText(skill->GetSkillId(), skill->GetSubSkillId()),
                               number(skill->GetTotalRanks()),
                               QString::asprintf("%+d", skillTotal(*skill)));
    }
    CliContext::PrintLine(QStringLiteral("Skills:     %1")
                              .arg(skills.isEmpty() ? QStringLiteral("none") : skills.join(", ")));
}
