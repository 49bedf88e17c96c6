#include "DSpellBase.h"

#include "FCArchive.h"

void DSpellBase::SerializeSpellBase(FCArchive& archive) {
    archive.Transfer(mSpellGuid);
    archive.Transfer(mSpellLevel);
    archive.Transfer(mCasterClassGuid);
    archive.Transfer(mCasterLevel);
}
