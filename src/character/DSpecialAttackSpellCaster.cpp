#include "DSpecialAttackSpellCaster.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DSpecialAttackSpellCaster, "DSpecialAttack", nullptr)

FCObject* DSpecialAttackSpellCaster::Clone() const {
    return new DSpecialAttackSpellCaster(*this);
}

void DSpecialAttackSpellCaster::Serialize(FCArchive& archive) {
    DSpecialAttack::Serialize(archive);
    archive.Transfer(mCasterClassGuid);
    archive.Transfer(mCasterLevel);
}
