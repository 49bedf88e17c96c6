#pragma once

#include "DMagicItemInfo.h"
#include "FCPointerArray.h"

#include <memory>

// A wondrous item of "[info Wondrous Items]". Some are made for chosen targets (a favoured foe,
// a skill): those are target records of the character layer, owned by reference count and held
// here untyped. The list exists only once a target was added.
class DWondrousInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DWondrousInfo)
public:
    DWondrousInfo();
    // Clones every target.
    DWondrousInfo(const DWondrousInfo& other);
    DWondrousInfo& operator=(const DWondrousInfo& other);
    ~DWondrousInfo() override;

    DWondrousInfo* Clone() const override { return new DWondrousInfo(*this); }
    // DMagicItemInfo; pick target type; 1 if there is a target list, else 0; if 1, the list as
    // ownership mode, count and objects.
    void Serialize(FCArchive& archive) override;
    // SetDataNoMasterwork with the weight, then "SubType", "QualityType", "PickTargetType".
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemWondrous; }

    qint32 GetPickTargetType() const { return mPickTargetType; }
    void SetPickTargetType(qint32 type) { mPickTargetType = type; }

    // The item retains the target; the list is made on first use.
    void AddTarget(FCObject* target);
    // Removes the first entry that is `target` and releases it; false if it is not there.
    bool RemoveTarget(FCObject* target);
    // Drops the list itself, not only its entries.
    void ClearTargets() { mTargets.reset(); }
    // Replaces the targets with clones of `targets`' entries; null leaves no list.
    void SetTargets(const FCPointerArray<FCObject>* targets);
    int GetTargetCount() const { return mTargets ? mTargets->GetCount() : 0; }
    // Null for an index out of range.
    FCObject* GetTarget(int index) const { return mTargets ? mTargets->At(index) : nullptr; }
    bool HasTargetList() const { return mTargets != nullptr; }

private:
    qint32 mPickTargetType = 0;
    std::unique_ptr<FCPointerArray<FCObject>> mTargets;
};
