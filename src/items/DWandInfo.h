#pragma once

#include "DItemSpellData.h"
#include "DMagicItemInfo.h"

// A wand of one spell, with its charges. Wands have no table: the spell says it all.
class DWandInfo : public DMagicItemInfo, public DItemSpellData {
    FC_DECLARE_CLASS(DWandInfo)
public:
    static constexpr qint32 kFullCharges = 50;

    DWandInfo();
    DWandInfo(const DWandInfo&) = default;
    DWandInfo& operator=(const DWandInfo&) = default;

    DWandInfo* Clone() const override { return new DWandInfo(*this); }
    // DMagicItemInfo; the spell; charges.
    void Serialize(FCArchive& archive) override;
    int GetItemType() const override { return kItemWand; }

    qint32 GetCharges() const { return mCharges; }
    void SetCharges(qint32 charges) { mCharges = charges; }

private:
    qint32 mCharges = kFullCharges;
};
