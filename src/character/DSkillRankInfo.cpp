#include "DSkillRankInfo.h"

#include "FCArchive.h"

void DSkillRankInfo::Serialize(FCArchive& archive) {
    archive.Transfer(mClassGuid);
    archive.Transfer(mRanks);
    archive.Transfer(mLockedRanks);
    archive.Transfer(mUsability);
}
