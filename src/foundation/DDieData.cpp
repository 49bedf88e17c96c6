#include "DDieData.h"

#include "FCArchive.h"

void DDieData::Serialize(FCArchive& archive) {
    archive.Transfer(mDieCount);
    archive.Transfer(mDieId);
}
