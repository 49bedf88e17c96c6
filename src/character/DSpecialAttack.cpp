#include "DSpecialAttack.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DSpecialAttack, "FCObject", nullptr)

FCObject* DSpecialAttack::Clone() const {
    return new DSpecialAttack(*this);
}

void DSpecialAttack::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mAttackId);
}
