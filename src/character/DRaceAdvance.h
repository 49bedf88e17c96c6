#pragma once

#include "FCObject.h"

#include <QtGlobal>

// One row of a race's advancement table: from the lowest to the highest hit dice, both
// included, the creature has the given size.
class DRaceAdvance : public FCObject {
    FC_DECLARE_CLASS(DRaceAdvance)
public:
    DRaceAdvance() = default;
    DRaceAdvance(int minHitDie, int maxHitDie, int sizeId)
        : mMinHitDie(minHitDie), mMaxHitDie(maxHitDie), mSizeId(sizeId) {}
    DRaceAdvance(const DRaceAdvance& other) = default;
    DRaceAdvance& operator=(const DRaceAdvance& other) = default;
    ~DRaceAdvance() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    int GetMinHitDie() const { return mMinHitDie; }
    void SetMinHitDie(int hitDie) { mMinHitDie = hitDie; }
    int GetMaxHitDie() const { return mMaxHitDie; }
    void SetMaxHitDie(int hitDie) { mMaxHitDie = hitDie; }
    // Row of "[info Size]"; -1 is none.
    int GetSizeId() const { return mSizeId; }
    void SetSizeId(int sizeId) { mSizeId = sizeId; }

    // Fractional hit dice count as they are, so 0.5 lies in a row that starts at 0.
    bool Covers(float hitDice) const {
        return float(mMinHitDie) <= hitDice && float(mMaxHitDie) >= hitDice;
    }

private:
    qint32 mMinHitDie = 0;
    qint32 mMaxHitDie = 0;
    qint32 mSizeId = -1;
};
