#include "DChosenSpeed.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenSpeed, "FCObject", nullptr)

FCObject* DChosenSpeed::Clone() const {
    return new DChosenSpeed(*this);
}

void DChosenSpeed::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mSpeedId);
    archive.Transfer(mSpeedValue);
    archive.Transfer(mSpeedModId);
}
