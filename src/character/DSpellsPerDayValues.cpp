#include "DSpellsPerDayValues.h"

#include "FCArchive.h"

void DSpellsPerDayValues::Serialize(FCArchive& archive) {
    archive.Transfer(mMaxSpellLevel);
    for (qint32& count : mSpellsPerDay)
        archive.Transfer(count);
    for (qint32& count : mBonusSpellsPerDay)
        archive.Transfer(count);
}
