#pragma once

#include "FCObject.h"

// A bonus that a familiar gives its master, kept in race files.
//
// The target is a DTargetData, a class of the character layer above this one, so it is held
// through its FCObject base and recognised by its registered class name.
class DFamiliarBonus : public FCObject {
    FC_DECLARE_CLASS(DFamiliarBonus)
public:
    DFamiliarBonus() = default;
    DFamiliarBonus(const DFamiliarBonus& other);
    DFamiliarBonus& operator=(const DFamiliarBonus& other);
    ~DFamiliarBonus() override;

    FCObject* Clone() const override { return new DFamiliarBonus(*this); }
    // Type, value, then the target object (null allowed). A stored target of any class but
    // DTargetData fails the archive.
    void Serialize(FCArchive& archive) override;

    // A row of "[types Familiar Bonus]".
    int GetBonusType() const { return mBonusType; }
    void SetBonusType(int type) { mBonusType = type; }
    int GetBonus() const { return mBonusValue; }
    void SetBonus(int value) { mBonusValue = value; }
    // The target, owned by this bonus, or null.
    FCObject* GetTargetData() const { return mTargetData; }
    // Keeps a copy of `target`; null, or an object that is not a DTargetData, clears it.
    void SetTargetData(const FCObject* target);

    static bool IsTargetData(const FCObject* object);

private:
    void ReplaceTargetData(FCObject* target);

    int mBonusType = 0;
    int mBonusValue = 0;
    FCObject* mTargetData = nullptr;
};
