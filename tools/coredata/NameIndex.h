#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUuid>

// The rows of the rules database that sources may name, looked up by name without regard to
// case. Sources never carry keys, so renumbering a code table only needs a rebuild.
class NameIndex {
public:
    // Reads every table the sources name from the started DDatabase connection; false with
    // `error` set when one cannot be read.
    bool Load(QString& error);

    // Row id of `name` in the code table `table` ("[types Climate]"), -1 if none.
    int FindId(const QString& table, const QString& name) const;
    // GUID of `name` in `table` ("[info Language]"), null if none.
    QUuid FindGuid(const QString& table, const QString& name) const;
    // The name as `table` spells it, empty if none.
    QString FindName(const QString& table, const QString& name) const;
    // The names a table holds, for a message that says what would have been accepted.
    QStringList Names(const QString& table) const;

    // A skill of "[info Skill]", or one sub-skill of it from "[info Skill Sub]" named
    // "Craft (Alchemy)". A skill with sub-skills is listed with `hasSubSkills` set.
    struct Skill {
        QString name;
        QUuid skill;
        QUuid subSkill;
        bool hasSubSkills = false;
    };
    // Null if the name matches no skill and no sub-skill.
    const Skill* FindSkill(const QString& name) const;

    // The "[types Feat Target]" row of a feat of "[info Feat]"; 0 (none) for an unknown feat.
    int FeatTargetType(const QUuid& feat) const;
    // Whether a feat of "[info Feat]" may be taken more than once (StackType 1).
    bool FeatStacks(const QUuid& feat) const;

private:
    bool LoadTable(const QString& table, bool byGuid, QString& error);
    bool LoadSkills(QString& error);

    struct Row {
        int id = -1;
        QUuid guid;
        QString name;
        int extra = 0;       // the feat target type for "[info Feat]"
        bool stacks = false; // "[info Feat]": may be taken again
    };
    const Row* FindRow(const QString& table, const QString& name) const;

    QHash<QString, QList<Row>> mTables;
    QList<Skill> mSkills;
};
