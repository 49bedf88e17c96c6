#include "DCharHistory.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCharHistory, "FCObject", nullptr)

FCObject* DCharHistory::Clone() const {
    return new DCharHistory(*this);
}

void DCharHistory::SetIsExClass(bool isExClass) {
    if (isExClass)
        AddHistoryFlag(kHistoryExClass);
    else
        RemoveHistoryFlag(kHistoryExClass);
}

void DCharHistory::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mClassGuid);
    archive.Transfer(mLevel);
    archive.Transfer(mHistoryFlags);
    archive.Transfer(mSpecialClassGuid);
    archive.Transfer(mCustomData);
    archive.Transfer(mHitpoints);
    archive.Transfer(mSkillpoints);
}
