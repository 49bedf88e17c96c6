#pragma once

#include "FCObject.h"

#include <QtGlobal>

// One special ability of a custom magic weapon, armor or shield (flaming, ghost touch, bane...):
// a row of the special ability tables and what it counts as for the price.
class DMagicSpecialAbility : public FCObject {
    FC_DECLARE_CLASS(DMagicSpecialAbility)
public:
    DMagicSpecialAbility() = default;
    DMagicSpecialAbility(qint32 type, qint32 category, qint32 rank, qint32 bonus)
        : mType(type), mCategory(category), mRank(rank), mBonus(bonus) {}
    // Clones the target.
    DMagicSpecialAbility(const DMagicSpecialAbility& other);
    DMagicSpecialAbility& operator=(const DMagicSpecialAbility& other);
    ~DMagicSpecialAbility() override;

    DMagicSpecialAbility* Clone() const override { return new DMagicSpecialAbility(*this); }
    // Type; category; rank; bonus; target as an object.
    void Serialize(FCArchive& archive) override;
    // Abilities are the same when they are the same row.
    bool operator==(const DMagicSpecialAbility& other) const { return mType == other.mType; }

    // The row's id in the special ability table.
    qint32 GetType() const { return mType; }
    void SetType(qint32 type) { mType = type; }
    qint32 GetCategory() const { return mCategory; }
    void SetCategory(qint32 category) { mCategory = category; }
    qint32 GetRank() const { return mRank; }
    void SetRank(qint32 rank) { mRank = rank; }
    // The enhancement bonus the ability counts as for the price.
    qint32 GetBonus() const { return mBonus; }
    void SetBonus(qint32 bonus) { mBonus = bonus; }
    // A target record (a bane's creature type, for instance) or null; retained when set.
    FCObject* GetTargetData() const { return mTargetData; }
    void SetTargetData(FCObject* target);

private:
    qint32 mType = -1;
    qint32 mCategory = -1;
    qint32 mRank = -1;
    qint32 mBonus = 0;
    FCObject* mTargetData = nullptr;
};
