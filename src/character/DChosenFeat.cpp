#include "DChosenFeat.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenFeat, "FCObject", nullptr)

DCharRaceBase* DChosenFeat::mActiveSortEntity = nullptr;

FCObject* DChosenFeat::Clone() const {
    return new DChosenFeat(*this);
}

bool DChosenFeat::operator<(const FCObject& other) const {
    const auto* feat = FCDynamicCast<DChosenFeat>(&other);
    if (!feat)
        return FCObject::operator<(other);
    int order = DGuid::Compare(mFeatGuid, feat->mFeatGuid);
    if (order == 0)
        order = DGuid::Compare(mClassGuid, feat->mClassGuid);
    if (order == 0)
        order = DGuid::Compare(mTarget, feat->mTarget);
    if (order == 0)
        order = DGuid::Compare(mTargetSub, feat->mTargetSub);
    if (order != 0)
        return order < 0;
    return mFeatFlags < feat->mFeatFlags;
}

void DChosenFeat::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mFeatGuid);
    archive.Transfer(mCount);
    archive.Transfer(mTarget);
    archive.Transfer(mTargetSub);
    archive.Transfer(mClassGuid);
    archive.Transfer(mFeatFlags);
}
