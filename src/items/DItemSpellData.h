#pragma once

#include <QUuid>

class FCArchive;

// The spell a potion or wand holds: which spell, at which spell level, from which caster class,
// at which caster level. Stored with the same fields, in the same order, as a spell record.
class DItemSpellData {
public:
    const QUuid& GetSpellGuid() const { return mSpellGuid; }
    void SetSpellGuid(const QUuid& spell) { mSpellGuid = spell; }
    qint32 GetSpellLevel() const { return mSpellLevel; }
    void SetSpellLevel(qint32 level) { mSpellLevel = level; }
    const QUuid& GetCasterClassGuid() const { return mCasterClassGuid; }
    void SetCasterClassGuid(const QUuid& casterClass) { mCasterClassGuid = casterClass; }
    qint32 GetCasterLevel() const { return mCasterLevel; }
    void SetCasterLevel(qint32 level) { mCasterLevel = level; }

    bool operator==(const DItemSpellData& other) const = default;

    // Spell GUID; spell level; caster class GUID; caster level.
    void Serialize(FCArchive& archive);

private:
    QUuid mSpellGuid;
    qint32 mSpellLevel = 0;
    QUuid mCasterClassGuid;
    qint32 mCasterLevel = 0;
};
