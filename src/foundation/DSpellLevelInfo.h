#pragma once

#include "DInfo.h"

// One row of "[info Spell Level]": the level of a spell on one class's or domain's list.
class DSpellLevelInfo : public DInfo {
public:
    FCObject* Clone() const override { return new DSpellLevelInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    // By spell, then by class where this record has one, otherwise by domain. GUIDs compare as
    // their 16 bytes in RFC 4122 order.
    bool operator<(const FCObject& other) const override;

    const QUuid& GetSpellId() const { return mSpellId; }
    const QUuid& GetClassId() const { return mClassId; }
    const QUuid& GetDomainId() const { return mDomainId; }
    int GetLevel() const { return mLevel; }

private:
    QUuid mSpellId;
    QUuid mClassId;
    QUuid mDomainId;
    int mLevel = 0;
};
