#include "DItemSpellData.h"

#include "FCArchive.h"

void DItemSpellData::Serialize(FCArchive& archive) {
    archive.Transfer(mSpellGuid);
    archive.Transfer(mSpellLevel);
    archive.Transfer(mCasterClassGuid);
    archive.Transfer(mCasterLevel);
}
