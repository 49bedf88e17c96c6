#include "DRuleNames.h"

#include "DChosenFeat.h"
#include "DChosenSkill.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DGuid.h"
#include "DItemInfo.h"
#include "DRulesQuery.h"
#include "DSchoolInfo.h"
#include "DSkillInfo.h"
#include "ResultSet.h"

namespace {

// Rows of "[types Feat Target]" that name a target.
constexpr int kTargetWeapon = 1;
constexpr int kTargetSkill = 2;
constexpr int kTargetSchool = 3;

} // namespace

QString DRuleNames::Lookup(const QString& sql) {
    const auto cached = mCache.constFind(sql);
    if (cached != mCache.constEnd())
        return *cached;
    QString name;
    DDatabase::FirstRow(sql, [&](odbc::ResultSet* row) { name = row->getString("Name"); });
    mCache.insert(sql, name);
    return name;
}

QString DRuleNames::ById(int table, int id) {
    return ById(DRulesQuery::Table(table).constData(), id);
}

QString DRuleNames::ByGuid(int table, const QUuid& guid) {
    return ByGuid(DRulesQuery::Table(table).constData(), guid);
}

QString DRuleNames::ById(const char* table, int id) {
    return Lookup(QString::asprintf("SELECT Name FROM %s WHERE (Id=%d)", table, id));
}

QString DRuleNames::ByGuid(const char* table, const QUuid& guid) {
    if (guid.isNull())
        return QString();
    return Lookup(QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)", table,
                                    DRulesQuery::Guid(guid).constData()));
}

QString DRuleNames::SkillDescription(const QUuid& skill, const QUuid& subSkill) {
    const DSkillInfo* info = DDatabase::GetSkillInfo(skill);
    if (!info)
        return QString();
    QString text = info->GetSkillName();
    if (info->GetIsMultiType() && !subSkill.isNull()) {
        const QString sub = Lookup(QString::asprintf(
            "SELECT Name FROM %s WHERE (Guid=%s) AND (SubGuid=%s)",
            DRulesQuery::Table(kTableSkillSub).constData(), DRulesQuery::Guid(skill).constData(),
            DRulesQuery::Guid(subSkill).constData()));
        if (!sub.isEmpty())
            text += QStringLiteral(" (%1)").arg(sub);
    }
    return text;
}

QString DRuleNames::SkillDescription(const DChosenSkill& skill) {
    return SkillDescription(skill.GetSkillId(), skill.GetSubSkillId());
}

QString DRuleNames::FeatDescription(const DChosenFeat& feat) {
    const DFeatInfo* info = DDatabase::GetFeatInfo(feat.GetFeatGuid());
    if (!info)
        return QString();
    QString target;
    if (!feat.GetTargetGuid().isNull()) {
        switch (info->GetFeatTargetType()) {
        case kTargetWeapon:
            if (const auto* weapon =
                    static_cast<const DItemInfo*>(DDatabase::GetWeaponInfo(feat.GetTargetGuid())))
                target = weapon->GetItemName();
            else
                target =
                    DRulesQuery::NaturalAttackTarget(feat.GetTargetGuid(), feat.GetTargetSubGuid());
            break;
        case kTargetSkill:
            target = SkillDescription(feat.GetTargetGuid(), feat.GetTargetSubGuid());
            break;
        case kTargetSchool:
            if (const DSchoolInfo* school = DDatabase::GetSchoolInfo(feat.GetTargetLong()))
                target = school->GetSchoolName();
            break;
        default:
            break;
        }
    }
    QString text = info->GetFeatName();
    if (!target.isEmpty())
        text += QStringLiteral(" (%1)").arg(target);
    if (feat.GetCount() > 1)
        text += QStringLiteral(" x%1").arg(feat.GetCount());
    return text;
}
