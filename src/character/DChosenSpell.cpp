#include "DChosenSpell.h"

#include "DGuid.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenSpell, "FCObject", "DSpellBase")

FCObject* DChosenSpell::Clone() const {
    return new DChosenSpell(*this);
}

bool DChosenSpell::operator<(const FCObject& other) const {
    const auto* spell = FCDynamicCast<DChosenSpell>(&other);
    if (!spell)
        return FCObject::operator<(other);
    int order = DGuid::Compare(mSpellGuid, spell->mSpellGuid);
    if (order == 0)
        order = DGuid::Compare(mCasterClassGuid, spell->mCasterClassGuid);
    if (order != 0)
        return order < 0;
    return mSpellFlags < spell->mSpellFlags;
}

void DChosenSpell::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    SerializeSpellBase(archive);
    archive.Transfer(mPurchaseType);
    archive.Transfer(mSpellFlags);
    archive.Transfer(mPreparedCount);
}

bool CompareDChosenSpellById(FCPointer<FCObject> first, FCPointer<FCObject> second) {
    // DSpellBase is no registered class, so only the language's cast reaches it from
    // FCObject; an object without one sorts as a null GUID.
    const auto* a = dynamic_cast<const DSpellBase*>(first.Get());
    const auto* b = dynamic_cast<const DSpellBase*>(second.Get());
    return DGuid::Less(a ? a->GetSpellGuid() : QUuid(), b ? b->GetSpellGuid() : QUuid());
}
