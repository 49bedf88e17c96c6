#pragma once

#include "DItemSpellData.h"
#include "DMagicItemInfo.h"

// A potion or oil: bound either to a spell or to a row of "[info Potions]", never both.
class DPotionInfo : public DMagicItemInfo, public DItemSpellData {
    FC_DECLARE_CLASS(DPotionInfo)
public:
    DPotionInfo() = default;
    // A copy is always a potion of quality 0, whatever the copied record says.
    DPotionInfo(const DPotionInfo& other);
    DPotionInfo& operator=(const DPotionInfo&) = default;

    DPotionInfo* Clone() const override { return new DPotionInfo(*this); }
    // DMagicItemInfo; the spell.
    void Serialize(FCArchive& archive) override;
    // SetDataNoMasterwork without the weight.
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemPotion; }

    // Binds the potion to a spell and drops its potion row.
    void SetSpellGuid(const QUuid& spell);
    // Binds the potion to a potion row and drops its spell: levels -1, spell null.
    void SetItemGuid(const QUuid& potion);
};
