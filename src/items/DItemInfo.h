#pragma once

#include "DInfo.h"
#include "DItemType.h"
#include "FCString.h"

#include <QUuid>

class FCArchive;

// The rule record of an item: what the thing is. Records read from the rules database are
// shared by every item that uses them; a record that must differ is cloned and flagged.
class DItemInfo : public DInfo {
    FC_DECLARE_CLASS(DItemInfo)
public:
    enum : quint32 {
        // Changed at run time: stored in full, never by its GUID alone.
        kInfoFlagChanged = 0x1,
    };

    DItemInfo() = default;
    DItemInfo(const DItemInfo&) = default;
    DItemInfo& operator=(const DItemInfo&) = default;

    DItemInfo* Clone() const override { return new DItemInfo(*this); }
    // GUID, name, cost, coin type, weight, info flags; the masterwork type is not stored.
    void Serialize(FCArchive& archive) override;
    // SetDataNoMasterwork with the weight, then "Masterwork".
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mItemGuid; }

    virtual int AdjustMasterWorkCost(int cost) const { return cost; }
    virtual bool CanBeResized() const { return false; }
    virtual int GetSizeType() const { return -1; }
    virtual void SetSizeType(int) {}
    virtual int GetItemType() const { return kItemGeneric; }

    // "Guid", "Name", "CoinCount", "CoinType" and, with `withWeight`, "Weight".
    void SetDataNoMasterwork(odbc::ResultSet* resultSet, bool withWeight);
    // Empty name, every number zero.
    void Initialize();

    // The list price with the masterwork price of mMasterWorkType added (or put in its place,
    // for a masterwork row that overrides); `cost` itself when there is no such row.
    int ComputeMasterWorkCost(int cost) const;

    bool IsCoreItem() const { return DIsCoreItemType(GetItemType()); }
    // A database record in its original state: items share it and files name it by GUID.
    bool IsSharedRecord() const { return IsCoreItem() && !HasInfoFlag(kInfoFlagChanged); }

    const QUuid& GetItemGuid() const { return mItemGuid; }
    void SetItemGuid(const QUuid& guid) { mItemGuid = guid; }
    const FCString& GetItemName() const { return mItemName; }
    void SetItemName(const FCString& name) { mItemName = name; }
    qint32 GetCost() const { return mCost; }
    void SetCost(qint32 cost) { mCost = cost; }
    qint32 GetCostCoinType() const { return mCostCoinType; }
    void SetCostCoinType(qint32 coinType) { mCostCoinType = coinType; }
    float GetWeight() const { return mWeight; }
    void SetWeight(float weight) { mWeight = weight; }
    qint32 GetMasterWorkType() const { return mMasterWorkType; }
    void SetMasterWorkType(qint32 type) { mMasterWorkType = type; }

    quint32 GetInfoFlags() const { return mInfoFlags; }
    void SetInfoFlags(quint32 flags) { mInfoFlags = flags; }
    bool HasInfoFlag(quint32 mask) const { return (mInfoFlags & mask) != 0; }
    void AddInfoFlag(quint32 mask) { mInfoFlags |= mask; }
    void RemoveInfoFlag(quint32 mask) { mInfoFlags &= ~mask; }

    // A shared record as its GUID and item type; anything else (null included) as 16 zero
    // bytes and the whole object.
    static void SmartWriteInfo(FCArchive& archive, const DItemInfo* info);
    // The counterpart of SmartWriteInfo. The result carries one reference for the caller; it
    // is null for a stored null, for a shared record the database does not have, or on failure.
    static DItemInfo* SmartReadInfo(FCArchive& archive);

    // A new, empty info of the class for an item type that has rule rows (0 to 3, 5 to 11,
    // 14 and 15), or null.
    static DItemInfo* CreateForType(int itemType);
    // CreateForType filled from the type's table by GUID. A missing row leaves the defaults.
    static DItemInfo* CreateFromDatabase(int itemType, const QUuid& guid);
    // What an owner that copies `info` holds: the record itself, retained, if it is shared;
    // otherwise a clone. One reference for the caller; null stays null.
    static DItemInfo* ShareOrClone(DItemInfo* info);

private:
    QUuid mItemGuid;
    FCString mItemName;
    qint32 mCost = 0;
    qint32 mCostCoinType = 0;
    float mWeight = 0.0f;
    qint32 mMasterWorkType = 0;
    quint32 mInfoFlags = 0;
};
