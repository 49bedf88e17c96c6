#include "DScrollInfo.h"

#include "DItemArchive.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DScrollInfo, "DMagicItemInfo", nullptr)

DScrollInfo::DScrollInfo() {
    SetMagicType(kMagicScroll);
    SetQualityType(0);
    mSpells.SetOwnership(kFCRetained);
}

DScrollInfo::DScrollInfo(const DScrollInfo& other)
    : DMagicItemInfo(other), mSpellCasterType(other.mSpellCasterType) {
    DCloneList(mSpells, other.mSpells);
}

DScrollInfo& DScrollInfo::operator=(const DScrollInfo& other) {
    if (this == &other)
        return *this;
    DMagicItemInfo::operator=(other);
    mSpellCasterType = other.mSpellCasterType;
    DCloneList(mSpells, other.mSpells);
    return *this;
}

void DScrollInfo::Serialize(FCArchive& archive) {
    DMagicItemInfo::Serialize(archive);
    archive.Transfer(mSpellCasterType);
    DTransferOwnedList(archive, mSpells);
}

void DScrollInfo::AddSpell(FCObject* spell) {
    if (spell)
        mSpells.Add(spell);
}

bool DScrollInfo::RemoveSpell(FCObject* spell) {
    return mSpells.Remove(spell);
}
