#pragma once

#include <QHash>
#include <QString>
#include <QUuid>

class DChosenFeat;
class DChosenSkill;

// Names of the rule rows a document refers to by key. One instance serves one document, so
// each row is read once while the document is written and nothing outlives it.
class DRuleNames {
public:
    // The "Name" of the row `id` of a table by index; empty when there is no such row.
    QString ById(int table, int id);
    QString ByGuid(int table, const QUuid& guid);
    // The same for tables that have no index constant: the bracketed name as it stands.
    QString ById(const char* table, int id);
    QString ByGuid(const char* table, const QUuid& guid);

    // "Craft (Alchemy)", "Climb".
    QString SkillDescription(const QUuid& skill, const QUuid& subSkill);
    QString SkillDescription(const DChosenSkill& skill);
    // "Weapon Focus (Greatclub)", "Toughness"; a feat taken twice says "x2".
    QString FeatDescription(const DChosenFeat& feat);

private:
    QString Lookup(const QString& sql);

    QHash<QString, QString> mCache;
};
