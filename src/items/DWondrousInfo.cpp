#include "DWondrousInfo.h"

#include "DItemArchive.h"
#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DWondrousInfo, "DMagicItemInfo", nullptr)

namespace {

std::unique_ptr<FCPointerArray<FCObject>> makeTargetList() {
    auto list = std::make_unique<FCPointerArray<FCObject>>();
    list->SetOwnership(kFCRetained);
    return list;
}

std::unique_ptr<FCPointerArray<FCObject>> cloneTargetList(const FCPointerArray<FCObject>* from) {
    if (!from)
        return nullptr;
    auto list = makeTargetList();
    DCloneList(*list, *from);
    return list;
}

} // namespace

DWondrousInfo::DWondrousInfo() {
    SetMagicType(kMagicWondrous);
}

DWondrousInfo::DWondrousInfo(const DWondrousInfo& other)
    : DMagicItemInfo(other), mPickTargetType(other.mPickTargetType),
      mTargets(cloneTargetList(other.mTargets.get())) {}

DWondrousInfo& DWondrousInfo::operator=(const DWondrousInfo& other) {
    if (this == &other)
        return *this;
    DMagicItemInfo::operator=(other);
    mPickTargetType = other.mPickTargetType;
    mTargets = cloneTargetList(other.mTargets.get());
    return *this;
}

DWondrousInfo::~DWondrousInfo() = default;

void DWondrousInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    archive.Transfer(mPickTargetType);
    qint32 hasList = mTargets ? 1 : 0;
    archive.Transfer(hasList);
    if (archive.IsStoring()) {
        if (mTargets)
            DTransferOwnedList(archive, *mTargets);
        return;
    }
    mTargets.reset();
    if (!archive.IsOk() || hasList == 0)
        return;
    if (hasList != 1) {
        archive.SetFailed();
        return;
    }
    mTargets = makeTargetList();
    DTransferOwnedList(archive, *mTargets);
}

void DWondrousInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, true);
    SetSubType(resultSet->getInt(QStringLiteral("SubType")));
    SetQualityType(resultSet->getInt(QStringLiteral("QualityType")));
    mPickTargetType = resultSet->getInt(QStringLiteral("PickTargetType"));
}

void DWondrousInfo::AddTarget(FCObject* target) {
    if (!target)
        return;
    if (!mTargets)
        mTargets = makeTargetList();
    mTargets->Add(target);
}

bool DWondrousInfo::RemoveTarget(FCObject* target) {
    return mTargets ? mTargets->Remove(target) : false;
}

void DWondrousInfo::SetTargets(const FCPointerArray<FCObject>* targets) {
    mTargets = cloneTargetList(targets);
}
