#pragma once

#include "DGuid.h"
#include "FCObject.h"

#include <QUuid>

class DCharRaceBase;

// A feat that a character or race has, with the target it was taken for.
class DChosenFeat : public FCObject {
    FC_DECLARE_CLASS(DChosenFeat)
public:
    // Feat flags.
    enum : unsigned {
        kFeatLocked = 0x8,         // no longer for sale
        kFeatClassBonus = 0x20,    // paid from the bonus feat points of mClassGuid
        kFeatGranted = 0x400,      // granted by a god or domain
        kFeatBoughtGranted = 0x800 // bought by the user, then also granted
    };

    DChosenFeat() = default;
    DChosenFeat(const DChosenFeat& other) = default;
    DChosenFeat& operator=(const DChosenFeat& other) = default;
    ~DChosenFeat() override = default;

    FCObject* Clone() const override;
    // By feat, class, target, sub-target (each as its stored bytes), then flags.
    bool operator<(const FCObject& other) const override;
    void Serialize(FCArchive& archive) override;

    QUuid GetFeatGuid() const { return mFeatGuid; }
    void SetFeatGuid(const QUuid& guid) { mFeatGuid = guid; }
    int GetCount() const { return mCount; }
    void SetCount(int count) { mCount = count; }

    // The target is a GUID or, for some feats, a whole number in its first four bytes.
    QUuid GetTargetGuid() const { return mTarget; }
    void SetTargetGuid(const QUuid& guid) { mTarget = guid; }
    int GetTargetLong() const { return DGuid::GetLong(mTarget); }
    void SetTargetLong(int value) { DGuid::SetLong(mTarget, value); }
    QUuid GetTargetSubGuid() const { return mTargetSub; }
    void SetTargetSubGuid(const QUuid& guid) { mTargetSub = guid; }
    int GetTargetSubLong() const { return DGuid::GetLong(mTargetSub); }
    void SetTargetSubLong(int value) { DGuid::SetLong(mTargetSub, value); }

    // The class that paid for the feat.
    QUuid GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }

    unsigned GetFeatFlags() const { return mFeatFlags; }
    void AddFeatFlag(unsigned flag) { mFeatFlags |= flag; }
    void RemoveFeatFlag(unsigned flag) { mFeatFlags &= ~flag; }
    bool HasFeatFlag(unsigned flag) const { return (mFeatFlags & flag) != 0; }

    // The owner whose data a sort by name needs; set before sorting.
    static DCharRaceBase* mActiveSortEntity;

private:
    QUuid mFeatGuid;
    qint32 mCount = 1;
    QUuid mTarget;
    QUuid mTargetSub;
    QUuid mClassGuid;
    quint32 mFeatFlags = 0;
};
