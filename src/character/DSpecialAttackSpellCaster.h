#pragma once

#include "DSpecialAttack.h"

#include <QUuid>

// A special attack that casts spells as a class of a given level does.
class DSpecialAttackSpellCaster : public DSpecialAttack {
    FC_DECLARE_CLASS(DSpecialAttackSpellCaster)
public:
    DSpecialAttackSpellCaster() = default;
    DSpecialAttackSpellCaster(int attackId, const QUuid& casterClass, int casterLevel)
        : DSpecialAttack(attackId), mCasterClassGuid(casterClass), mCasterLevel(casterLevel) {}
    DSpecialAttackSpellCaster(const DSpecialAttackSpellCaster& other) = default;
    DSpecialAttackSpellCaster& operator=(const DSpecialAttackSpellCaster& other) = default;
    ~DSpecialAttackSpellCaster() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;
    DSpecialAttackType GetAttackType() const override { return kSpecialAttackSpellCaster; }

    // Row of "[info Class]".
    QUuid GetCasterClassGuid() const { return mCasterClassGuid; }
    void SetCasterClassGuid(const QUuid& guid) { mCasterClassGuid = guid; }
    int GetCasterLevel() const { return mCasterLevel; }
    void SetCasterLevel(int level) { mCasterLevel = level; }

private:
    QUuid mCasterClassGuid;
    qint32 mCasterLevel = 0;
};
