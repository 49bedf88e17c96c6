#include "DSpellCaster.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DSpellCaster, "FCObject", nullptr)

FCObject* DSpellCaster::Clone() const {
    return new DSpellCaster(*this);
}

void DSpellCaster::ClearSpellsPerDay() {
    mSpellsPerDay.fill(0);
    mExtraClassSpellsPerDay.fill(0);
}

void DSpellCaster::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mClassGuid);
    archive.Transfer(mLevel);
    SerializeSpellData(archive);
}

void DSpellCaster::SerializeSpellData(FCArchive& archive) {
    for (size_t level = 0; level < size_t(kSpellLevelCount); ++level) {
        archive.Transfer(mSpellsPerDay[level]);
        archive.Transfer(mBonusSpellsPerDay[level]);
        archive.Transfer(mExtraClassSpellsPerDay[level]);
        archive.Transfer(mSpellsPrepared[level]);
        archive.Transfer(mExtraClassSpellsPrepared[level]);
        archive.Transfer(mSpellsKnown[level]);
        archive.Transfer(mSpellsCanKnow[level]);
    }
    archive.Transfer(mMaxSpellLevel);
    archive.Transfer(mBonusSpellLevels);
    archive.Transfer(mCasterFlags);
}
