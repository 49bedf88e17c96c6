#include "DTargetDataBase.h"

bool DTargetDataBase::operator==(const DTargetDataBase& other) const {
    return mTargetGuid == other.mTargetGuid && mTargetSubGuid == other.mTargetSubGuid &&
           mExtraData == other.mExtraData;
}
