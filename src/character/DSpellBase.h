#pragma once

#include <QUuid>

class FCArchive;

// What every spell record names: the spell, its level and who casts it.
class DSpellBase {
public:
    QUuid GetSpellGuid() const { return mSpellGuid; }
    void SetSpellGuid(const QUuid& guid) { mSpellGuid = guid; }
    int GetSpellLevel() const { return mSpellLevel; }
    void SetSpellLevel(int level) { mSpellLevel = level; }
    QUuid GetCasterClassGuid() const { return mCasterClassGuid; }
    void SetCasterClassGuid(const QUuid& guid) { mCasterClassGuid = guid; }
    int GetCasterLevel() const { return mCasterLevel; }
    void SetCasterLevel(int level) { mCasterLevel = level; }

    // The base's part of a derived record; the record calls it where its layout says.
    void SerializeSpellBase(FCArchive& archive);

protected:
    QUuid mSpellGuid;
    qint32 mSpellLevel = 0;
    QUuid mCasterClassGuid;
    qint32 mCasterLevel = 0;
};
