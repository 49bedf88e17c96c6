#pragma once

#include "DSpellBase.h"
#include "FCObject.h"
#include "FCPointer.h"

// A spell that a character knows or has prepared.
class DChosenSpell : public FCObject, public DSpellBase {
    FC_DECLARE_CLASS(DChosenSpell)
public:
    // Spell flags.
    enum : unsigned {
        kSpellRaceCaster = 0x1, // the caster class is one of the race's casters
        kSpellDomain = 0x2,
        kSpellSchool = 0x4,
    };

    DChosenSpell() = default;
    DChosenSpell(const DChosenSpell& other) = default;
    DChosenSpell& operator=(const DChosenSpell& other) = default;
    ~DChosenSpell() override = default;

    FCObject* Clone() const override;
    // By spell, caster class (each as its stored bytes), then flags.
    bool operator<(const FCObject& other) const override;
    void Serialize(FCArchive& archive) override;

    // 0 to 9 count against the spells known of that level; 10 bought with gold; 11 free.
    int GetPurchaseType() const { return mPurchaseType; }
    void SetPurchaseType(int type) { mPurchaseType = type; }

    unsigned GetSpellFlags() const { return mSpellFlags; }
    void AddSpellFlag(unsigned flag) { mSpellFlags |= flag; }
    bool HasSpellFlag(unsigned flag) const { return (mSpellFlags & flag) != 0; }

    int GetPreparedCount() const { return mPreparedCount; }
    void SetPreparedCount(int count) { mPreparedCount = count; }
    void AdjustPreparedCount(int delta) { mPreparedCount += delta; }

private:
    qint32 mPurchaseType = 0;
    quint32 mSpellFlags = 0;
    qint32 mPreparedCount = 0;
};

// Sorts spell records by spell GUID as stored bytes; for sorting arrays of pointers.
bool CompareDChosenSpellById(FCPointer<FCObject> first, FCPointer<FCObject> second);
