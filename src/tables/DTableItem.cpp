#include "DTableItem.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DTableItem, "FCObject", nullptr)

namespace {

bool sameRace(const DFileObject* a, const DFileObject* b) {
    if (!a || !b)
        return a == b;
    return *a == *b;
}

} // namespace

DTableItem::DTableItem() = default;

DTableItem::DTableItem(const DTableItem& other) : FCObject(other) {
    copyFrom(other);
}

DTableItem& DTableItem::operator=(const DTableItem& other) {
    if (this != &other)
        copyFrom(other);
    return *this;
}

DTableItem::~DTableItem() {
    clearMiscRace();
}

void DTableItem::copyFrom(const DTableItem& other) {
    mCondition = other.mCondition;
    mResult = other.mResult;
    mResultFrom = other.mResultFrom;
    mResultTo = other.mResultTo;
    mCount = other.mCount;
    mCountNumber = other.mCountNumber;
    mCountDie = other.mCountDie;
    mCountModifier = other.mCountModifier;
    mGenerate = other.mGenerate;
    mFileObject = other.mFileObject;
    mGenerateString = other.mGenerateString;
    mMiscLevel = other.mMiscLevel;
    clearMiscRace();
    if (other.mMiscRace)
        mMiscRace = new DFileObject(*other.mMiscRace);
    mMiscAlignment = other.mMiscAlignment;
    mMiscAlignmentText = other.mMiscAlignmentText;
}

bool DTableItem::operator==(const DTableItem& other) const {
    return mCondition == other.mCondition && mResult == other.mResult &&
           mResultFrom == other.mResultFrom && mResultTo == other.mResultTo &&
           mCount == other.mCount && mCountNumber == other.mCountNumber &&
           mCountDie == other.mCountDie && mCountModifier == other.mCountModifier &&
           mGenerate == other.mGenerate && mFileObject == other.mFileObject &&
           mGenerateString == other.mGenerateString && mMiscLevel == other.mMiscLevel &&
           sameRace(mMiscRace, other.mMiscRace) && mMiscAlignment == other.mMiscAlignment;
}

void DTableItem::setResultData(int from, int to) {
    mResultFrom = from;
    mResultTo = to;
}

bool DTableItem::Matches(int roll) const {
    if (mResult == kResultValue)
        return roll == mResultFrom;
    if (mResult == kResultRange)
        return mResultFrom <= roll && roll <= mResultTo;
    return false;
}

void DTableItem::setCountData(int number, int die, int modifier) {
    mCountNumber = number;
    mCountDie = die;
    mCountModifier = modifier;
}

void DTableItem::setGenerateData(const DFileObject* fileObject, const FCString& text) {
    if (fileObject)
        mFileObject = *fileObject;
    mGenerateString = text;
}

void DTableItem::setMiscData(int level, const DFileObject* race, int alignment,
                             const FCString& alignmentText) {
    mMiscLevel = level;
    if (race && race != mMiscRace) {
        clearMiscRace();
        mMiscRace = new DFileObject(*race);
    }
    mMiscAlignment = alignment;
    mMiscAlignmentText = alignmentText;
}

void DTableItem::clearMiscRace() {
    if (mMiscRace)
        mMiscRace->Release();
    mMiscRace = nullptr;
}

void DTableItem::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mCondition);
    archive.Transfer(mResult);
    archive.Transfer(mResultFrom);
    // Only the kinds that use a number keep it in the file.
    if (mResult == kResultRange)
        archive.Transfer(mResultTo);
    archive.Transfer(mCount);
    archive.Transfer(mCountNumber);
    if (mCount == kCountDice) {
        archive.Transfer(mCountDie);
        archive.Transfer(mCountModifier);
    } else if (mCount == kCountRange) {
        archive.Transfer(mCountDie);
    }
    archive.Transfer(mGenerate);
    if (mGenerate == kElementText)
        archive.Transfer(mGenerateString);
    else
        mFileObject.Serialize(archive);
    archive.Transfer(mMiscLevel);

    qint32 hasRace = mMiscRace ? 1 : 0;
    archive.Transfer(hasRace);
    if (archive.IsLoading()) {
        clearMiscRace();
        if (hasRace != 0 && hasRace != 1) {
            archive.SetFailed();
            return;
        }
        if (hasRace == 1 && archive.IsOk())
            mMiscRace = new DFileObject();
    }
    if (mMiscRace)
        mMiscRace->Serialize(archive);
    archive.Transfer(mMiscAlignment);
}
