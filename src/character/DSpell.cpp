#include "DSpell.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DSpell, "FCObject", "DSpellBase")

FCObject* DSpell::Clone() const {
    return new DSpell(*this);
}

void DSpell::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    SerializeSpellBase(archive);
    archive.Transfer(mTimesPerDay);
}
