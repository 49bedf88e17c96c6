#include "DMagicItemInfo.h"

#include "DItemArchive.h"
#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DMagicItemInfo, "DItemInfo", nullptr)

DMagicItemInfo::DMagicItemInfo(const DMagicItemInfo& other)
    : DItemInfo(other), mMagicType(other.mMagicType), mSubType(other.mSubType),
      mQualityType(other.mQualityType), mIntelligentData(DCloneOrNull(other.mIntelligentData)),
      mCursedData(DCloneOrNull(other.mCursedData)) {}

DMagicItemInfo& DMagicItemInfo::operator=(const DMagicItemInfo& other) {
    if (this == &other)
        return *this;
    DItemInfo::operator=(other);
    mMagicType = other.mMagicType;
    mSubType = other.mSubType;
    mQualityType = other.mQualityType;
    FCObject* intelligent = DCloneOrNull(other.mIntelligentData);
    FCObject* cursed = DCloneOrNull(other.mCursedData);
    if (mIntelligentData)
        mIntelligentData->Release();
    if (mCursedData)
        mCursedData->Release();
    mIntelligentData = intelligent;
    mCursedData = cursed;
    return *this;
}

DMagicItemInfo::~DMagicItemInfo() {
    if (mIntelligentData)
        mIntelligentData->Release();
    if (mCursedData)
        mCursedData->Release();
}

void DMagicItemInfo::Serialize(FCArchive& archive) {
    DItemInfo::Serialize(archive);
    archive.Transfer(mMagicType);
    archive.Transfer(mSubType);
    archive.Transfer(mQualityType);
    DTransferOwnedObject(archive, mIntelligentData);
    DTransferOwnedObject(archive, mCursedData);
}

void DMagicItemInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, true);
    mMagicType = resultSet->getInt(QStringLiteral("MagicType"));
    mSubType = resultSet->getInt(QStringLiteral("SubType"));
    mQualityType = resultSet->getInt(QStringLiteral("QualityType"));
}

void DMagicItemInfo::SetIntelligentData(FCObject* data) {
    DAssignRetained(mIntelligentData, data);
}

void DMagicItemInfo::SetCursedData(FCObject* data) {
    DAssignRetained(mCursedData, data);
}
