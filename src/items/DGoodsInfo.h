#pragma once

#include "DItemInfo.h"

// A good of "[info Goods]": gear, tools, containers, clothing.
class DGoodsInfo : public DItemInfo {
    FC_DECLARE_CLASS(DGoodsInfo)
public:
    DGoodsInfo() = default;
    DGoodsInfo(const DGoodsInfo&) = default;
    DGoodsInfo& operator=(const DGoodsInfo&) = default;

    DGoodsInfo* Clone() const override { return new DGoodsInfo(*this); }
    // DItemInfo; goods type; capacity; capacity unit; can equip; made for small; superior.
    void Serialize(FCArchive& archive) override;
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemGoods; }

    qint32 GetGoodsType() const { return mGoodsType; }
    void SetGoodsType(qint32 type) { mGoodsType = type; }
    float GetCapacity() const { return mCapacity; }
    void SetCapacity(float capacity) { mCapacity = capacity; }
    qint32 GetCapacityId() const { return mCapacityId; }
    void SetCapacityId(qint32 id) { mCapacityId = id; }
    bool GetCanEquip() const { return mCanEquip; }
    void SetCanEquip(bool canEquip) { mCanEquip = canEquip; }
    bool GetCanBeMadeForSmall() const { return mCanBeMadeForSmall; }
    void SetCanBeMadeForSmall(bool small) { mCanBeMadeForSmall = small; }
    bool GetIsSuperior() const { return mIsSuperior; }
    void SetIsSuperior(bool superior) { mIsSuperior = superior; }

private:
    qint32 mGoodsType = 0;
    float mCapacity = 0.0f;
    qint32 mCapacityId = 0;
    bool mCanEquip = false;
    bool mCanBeMadeForSmall = false;
    bool mIsSuperior = false;
};
