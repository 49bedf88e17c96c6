#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

class CliContext;
class DCharacter;
class DFeatInfo;
class QJsonObject;

// The skills and feats of "hoard character": buying ranks, taking feats, and showing both.
class CharacterSkills {
public:
    CharacterSkills() = delete;

    // "add-skill FILE.chr SKILL RANKS": ranks bought with the points of the last class taken.
    static int RunAddSkill(CliContext& context, QStringList args);
    // "add-feat FILE.chr FEAT [--target T]".
    static int RunAddFeat(CliContext& context, QStringList args);

    // Adds "skills" and "feats" to a character's description.
    static void Describe(const DCharacter& character, QJsonObject& description);
    static void Print(const DCharacter& character);

    // A skill as the user names it: "Climb", or "Knowledge (Arcana)" for a sub-skill.
    struct SkillName {
        QString name;
        QUuid skill;
        QUuid subSkill;
    };
    static QList<SkillName> SkillNames();
    static QString SkillText(const QUuid& skill, const QUuid& subSkill);
    // The skill of that name (any case); false if there is none.
    static bool FindSkill(const QString& name, SkillName& found);
    // The feat of that name (any case); null if there is none.
    static QUuid FindFeat(const QString& name);
    static QStringList FeatNames();
    // "Weapon Focus (Longsword)", "Toughness x2".
    static QString FeatText(const QUuid& feat, const QUuid& target, const QUuid& subTarget,
                            int count);
    // The name of a feat's target: a weapon, a skill or a school; empty for none.
    static QString FeatTarget(const DFeatInfo& info, const QUuid& target, const QUuid& subTarget);
    // Why the character cannot take the feat with that target, or empty if it can.
    static QString FeatRefusal(DCharacter& character, const QUuid& feat, const QUuid& target,
                               const QUuid& subTarget);
};
