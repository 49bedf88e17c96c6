#pragma once

#include "FCObject.h"

#include <QtGlobal>

// What a special attack carries beyond its row name; the values are fixed by the files.
enum DSpecialAttackType : int {
    kSpecialAttackPlain = 0,
    kSpecialAttackSpells = 1,
    kSpecialAttackSpellCaster = 3,
};

// A special attack of a race, named by its row of "[types Race Special Attacks]".
class DSpecialAttack : public FCObject {
    FC_DECLARE_CLASS(DSpecialAttack)
public:
    DSpecialAttack() = default;
    explicit DSpecialAttack(int attackId) : mAttackId(attackId) {}
    DSpecialAttack(const DSpecialAttack& other) = default;
    DSpecialAttack& operator=(const DSpecialAttack& other) = default;
    ~DSpecialAttack() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;
    virtual DSpecialAttackType GetAttackType() const { return kSpecialAttackPlain; }

    // Row of "[types Race Special Attacks]"; -1 is none.
    int GetAttackId() const { return mAttackId; }
    void SetAttackId(int attackId) { mAttackId = attackId; }

private:
    qint32 mAttackId = -1;
};
