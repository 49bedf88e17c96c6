#include "DRaceAdvance.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DRaceAdvance, "FCObject", nullptr)

FCObject* DRaceAdvance::Clone() const {
    return new DRaceAdvance(*this);
}

void DRaceAdvance::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mMinHitDie);
    archive.Transfer(mMaxHitDie);
    archive.Transfer(mSizeId);
}
