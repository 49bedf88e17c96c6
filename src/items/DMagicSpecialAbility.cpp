#include "DMagicSpecialAbility.h"

#include "DItemArchive.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DMagicSpecialAbility, "FCObject", nullptr)

DMagicSpecialAbility::DMagicSpecialAbility(const DMagicSpecialAbility& other)
    : FCObject(other), mType(other.mType), mCategory(other.mCategory), mRank(other.mRank),
      mBonus(other.mBonus), mTargetData(DCloneOrNull(other.mTargetData)) {}

DMagicSpecialAbility& DMagicSpecialAbility::operator=(const DMagicSpecialAbility& other) {
    if (this == &other)
        return *this;
    mType = other.mType;
    mCategory = other.mCategory;
    mRank = other.mRank;
    mBonus = other.mBonus;
    FCObject* target = DCloneOrNull(other.mTargetData);
    if (mTargetData)
        mTargetData->Release();
    mTargetData = target;
    return *this;
}

DMagicSpecialAbility::~DMagicSpecialAbility() {
    if (mTargetData)
        mTargetData->Release();
}

void DMagicSpecialAbility::Serialize(FCArchive& archive) {
    archive.Transfer(mType);
    archive.Transfer(mCategory);
    archive.Transfer(mRank);
    archive.Transfer(mBonus);
    DTransferOwnedObject(archive, mTargetData);
}

void DMagicSpecialAbility::SetTargetData(FCObject* target) {
    DAssignRetained(mTargetData, target);
}
