#include "DClassSkillType.h"

#include "DGuid.h"
#include "FCArchive.h"

bool DClassSkillType::operator<(const DClassSkillType& other) const {
    const int byClass = DGuid::Compare(mClassGuid, other.mClassGuid);
    if (byClass != 0)
        return byClass < 0;
    return DGuid::Less(mSkillGuid, other.mSkillGuid);
}

void DClassSkillType::Serialize(FCArchive& archive) {
    archive.Transfer(mClassGuid);
    archive.Transfer(mSkillGuid);
}
