#include "DPotionInfo.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DPotionInfo, "DMagicItemInfo", nullptr)

DPotionInfo::DPotionInfo(const DPotionInfo& other) : DMagicItemInfo(other), DItemSpellData(other) {
    SetMagicType(kMagicPotion);
    SetQualityType(0);
}

void DPotionInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    DItemSpellData::Serialize(archive);
}

void DPotionInfo::SetData(odbc::ResultSet* resultSet) {
    SetDataNoMasterwork(resultSet, false);
}

void DPotionInfo::SetSpellGuid(const QUuid& spell) {
    DItemSpellData::SetSpellGuid(spell);
    DMagicItemInfo::SetItemGuid(QUuid());
}

void DPotionInfo::SetItemGuid(const QUuid& potion) {
    DMagicItemInfo::SetItemGuid(potion);
    SetSpellLevel(-1);
    SetCasterLevel(-1);
    DItemSpellData::SetSpellGuid(QUuid());
}
