#pragma once

#include "DSpecialAttack.h"
#include "FCPointerArray.h"

class DSpell;

// A special attack that consists of spell-like abilities.
class DSpecialAttackSpells : public DSpecialAttack {
    FC_DECLARE_CLASS(DSpecialAttackSpells)
public:
    DSpecialAttackSpells();
    explicit DSpecialAttackSpells(int attackId);
    DSpecialAttackSpells(const DSpecialAttackSpells& other);
    DSpecialAttackSpells& operator=(const DSpecialAttackSpells& other);
    ~DSpecialAttackSpells() override;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;
    DSpecialAttackType GetAttackType() const override { return kSpecialAttackSpells; }

    FCPointerArray<DSpell>& GetSpellArray() { return mSpells; }
    const FCPointerArray<DSpell>& GetSpellArray() const { return mSpells; }
    // The list takes its own reference; null is ignored.
    void AddSpell(DSpell* spell);
    bool RemoveSpell(DSpell* spell);
    void RemoveAllSpells();

private:
    FCPointerArray<DSpell> mSpells;
};
