#pragma once

#include "NameIndex.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUuid>

class DChosenFeat;
class DChosenSkill;
class DRace;

// Reads one race source ("key: value" lines) into a race record, resolving every name
// through the rules database. Throws CoreDataError, naming file and line, on the first fault.
class RaceSourceReader {
public:
    explicit RaceSourceReader(const NameIndex& names) : mNames(names) {}

    // Fills `race`, which must be new.
    void Read(const QString& path, DRace& race);

    // Every key a source may use.
    static QStringList Keys();

private:
    void Apply(const QString& key, const QString& value, DRace& race);
    [[noreturn]] void Fail(const QString& message) const;

    int Id(const QString& table, const QString& name) const;
    QUuid GuidOf(const QString& table, const QString& name) const;
    int Integer(const QString& text) const;
    float Number(const QString& text) const;
    QStringList List(const QString& value) const;
    // "Str 10, Con +2": one value per ability, the abilities named by their short names.
    QHash<int, QString> AbilityPairs(const QString& value) const;

    void SetAbilities(const QString& value, DRace& race, bool adjustments);
    void SetSaves(const QString& value, DRace& race);
    void SetGoodSaves(const QString& value, DRace& race);
    void SetSpeeds(const QString& value, DRace& race);
    void SetAdvancement(const QString& value, DRace& race);
    void SetBodyStat(const QString& value, DRace& race, bool height);
    void SetTreasure(const QString& value, DRace& race);
    void SetFlags(const QString& value, DRace& race);
    void SetFamiliarBonuses(const QString& value, DRace& race);
    // "Listen +2, Craft (Alchemy) +2": racial skill bonuses.
    void SetSkills(const QString& value, DRace& race);
    void SetSkillRanks(const QString& value, DRace& race);
    void AddAttackGroup(const QString& value, DRace& race);
    void SetGear(const QString& value, DRace& race);
    const NameIndex::Skill& SkillNamed(const QString& name) const;
    static DChosenSkill& RaceSkill(const NameIndex::Skill& skill, DRace& race);
    // "Alertness, Weapon Focus (Longsword)": racial feats, with a weapon, skill or school
    // as target in parentheses.
    void SetFeats(const QString& value, DRace& race);
    void SetFeatTarget(DChosenFeat& feat, const QString& featName, const QString& target) const;

    const NameIndex& mNames;
    QString mFile;
    int mLine = 0;
    float mMaxHitDice = -1.0f;
    bool mTypeRead = false;
};
