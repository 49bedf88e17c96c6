#pragma once

#include "DMagicItemInfo.h"
#include "FCPointerArray.h"

// A scroll of one or more spells. The spells are spell records of the character layer, owned by
// reference count and held here untyped.
class DScrollInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DScrollInfo)
public:
    DScrollInfo();
    // Clones every spell.
    DScrollInfo(const DScrollInfo& other);
    DScrollInfo& operator=(const DScrollInfo& other);

    DScrollInfo* Clone() const override { return new DScrollInfo(*this); }
    // DMagicItemInfo; caster type; the spells as ownership mode, count and objects.
    void Serialize(FCArchive& archive) override;
    int GetItemType() const override { return kItemScroll; }

    // 1 arcane, as a scroll is unless it says otherwise.
    qint32 GetSpellCasterType() const { return mSpellCasterType; }
    void SetSpellCasterType(qint32 type) { mSpellCasterType = type; }

    // The scroll retains the spell.
    void AddSpell(FCObject* spell);
    // Removes the first entry that is `spell` and releases it; false if it is not there.
    bool RemoveSpell(FCObject* spell);
    void RemoveAllSpells() { mSpells.RemoveAll(); }
    int GetSpellCount() const { return mSpells.GetCount(); }
    // Null for an index out of range.
    FCObject* GetSpell(int index) const { return mSpells.At(index); }
    const FCPointerArray<FCObject>& GetSpellArray() const { return mSpells; }

private:
    qint32 mSpellCasterType = 1;
    FCPointerArray<FCObject> mSpells;
};
