#include "DAdjChosenSpeed.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DAdjChosenSpeed, "DChosenSpeed", nullptr)

FCObject* DAdjChosenSpeed::Clone() const {
    return new DAdjChosenSpeed(*this);
}

void DAdjChosenSpeed::Serialize(FCArchive& archive) {
    DChosenSpeed::Serialize(archive);
    archive.Transfer(mAdjSpeedValue);
}
