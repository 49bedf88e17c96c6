#include "DTargetData.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DTargetData, "FCObject", nullptr)

FCObject* DTargetData::Clone() const {
    return new DTargetData(*this);
}

void DTargetData::Serialize(FCArchive& archive) {
    // The layout has no FCObject part for this record.
    archive.Transfer(mTargetGuid);
    archive.Transfer(mTargetSubGuid);
    archive.Transfer(mExtraData);
}
