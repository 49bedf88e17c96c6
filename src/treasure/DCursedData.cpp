#include "DCursedData.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCursedData, "FCObject", nullptr)

void DCursedData::Serialize(FCArchive& archive) {
    archive.Transfer(mCurseType);
    archive.Transfer(mCurseSubType);
    archive.Transfer(mCurseData);
    archive.Transfer(mCurseDescription);
}
