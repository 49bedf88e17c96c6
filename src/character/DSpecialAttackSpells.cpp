#include "DSpecialAttackSpells.h"

#include "DSpell.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DSpecialAttackSpells, "DSpecialAttack", nullptr)

DSpecialAttackSpells::DSpecialAttackSpells() {
    mSpells.SetOwnership(kFCRetained);
}

DSpecialAttackSpells::DSpecialAttackSpells(int attackId) : DSpecialAttack(attackId) {
    mSpells.SetOwnership(kFCRetained);
}

DSpecialAttackSpells::DSpecialAttackSpells(const DSpecialAttackSpells& other)
    : DSpecialAttack(other) {
    mSpells.CloneFrom(other.mSpells);
}

DSpecialAttackSpells& DSpecialAttackSpells::operator=(const DSpecialAttackSpells& other) {
    if (this != &other) {
        DSpecialAttack::operator=(other);
        mSpells.CloneFrom(other.mSpells);
    }
    return *this;
}

DSpecialAttackSpells::~DSpecialAttackSpells() = default;

FCObject* DSpecialAttackSpells::Clone() const {
    return new DSpecialAttackSpells(*this);
}

void DSpecialAttackSpells::Serialize(FCArchive& archive) {
    DSpecialAttack::Serialize(archive);
    mSpells.Serialize(archive);
}

void DSpecialAttackSpells::AddSpell(DSpell* spell) {
    if (spell)
        mSpells.Add(spell);
}

bool DSpecialAttackSpells::RemoveSpell(DSpell* spell) {
    return mSpells.Remove(spell);
}

void DSpecialAttackSpells::RemoveAllSpells() {
    mSpells.RemoveAll();
}
