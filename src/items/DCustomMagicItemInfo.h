#pragma once

#include "DMagicItemInfo.h"
#include "DMagicSpecialAbility.h"
#include "FCPointerArray.h"

// A magic weapon, armor or shield made from a mundane one: an enhancement bonus and special
// abilities on top of a base item.
class DCustomMagicItemInfo : public DMagicItemInfo {
    FC_DECLARE_CLASS(DCustomMagicItemInfo)
public:
    enum : quint32 {
        // A specific item: the bonus is neither in its name nor in its price.
        kCustomFlagSpecific = 0x40,
    };

    DCustomMagicItemInfo();
    // Shares a database base item, clones any other; clones the target and the abilities.
    DCustomMagicItemInfo(const DCustomMagicItemInfo& other);
    DCustomMagicItemInfo& operator=(const DCustomMagicItemInfo& other);
    ~DCustomMagicItemInfo() override;

    DCustomMagicItemInfo* Clone() const override { return new DCustomMagicItemInfo(*this); }
    // DMagicItemInfo; base info by SmartWriteInfo; custom flags; target as an object; bonus;
    // second bonus; special ability bonus; abilities as ownership mode, count and objects.
    void Serialize(FCArchive& archive) override;
    int GetItemType() const override { return kItemCustomMagic; }
    // The size belongs to the base item.
    bool CanBeResized() const override;
    int GetSizeType() const override;
    void SetSizeType(int sizeType) override;

    // The mundane weapon, armor or shield; retained when set.
    DItemInfo* GetBaseItemInfo() const { return mBaseItemInfo; }
    void SetBaseItemInfo(DItemInfo* info);

    quint32 GetCustomFlags() const { return mCustomFlags; }
    void SetCustomFlags(quint32 flags) { mCustomFlags = flags; }
    bool HasCustomFlag(quint32 mask) const { return (mCustomFlags & mask) != 0; }
    void AddCustomFlag(quint32 mask) { mCustomFlags |= mask; }
    void RemoveCustomFlag(quint32 mask) { mCustomFlags &= ~mask; }

    // A chosen target (a designated foe, for instance) or null; retained when set.
    FCObject* GetTargetData() const { return mTargetData; }
    void SetTargetData(FCObject* target);

    // Enhancement bonus; negative for a cursed item.
    qint32 GetBonus() const { return mBonus; }
    void SetBonus(qint32 bonus) { mBonus = bonus; }
    // Enhancement bonus of a double weapon's second head; 0 when unused.
    qint32 GetSecondBonus() const { return mSecondBonus; }
    void SetSecondBonus(qint32 bonus) { mSecondBonus = bonus; }
    // The sum of the abilities' bonuses, kept by adding and removing them.
    qint32 GetSpecialAbilityBonus() const { return mSpecialAbilityBonus; }

    // Appends a new ability and counts its bonus; the item owns it.
    DMagicSpecialAbility* AddSpecialAbility(qint32 type, qint32 category, qint32 rank,
                                            qint32 bonus);
    // Removes the first ability of that type and takes its bonus off; false if there is none.
    bool RemoveSpecialAbility(qint32 type);
    void RemoveAllSpecialAbilities();
    DMagicSpecialAbility* FindSpecialAbility(qint32 type) const;
    DMagicSpecialAbility* FindSpecialAbilityByCategory(qint32 category) const;
    bool HasSpecialAbility(qint32 type) const { return FindSpecialAbility(type) != nullptr; }
    int GetSpecialAbilityCount() const { return mSpecialAbilities.GetCount(); }
    // Null for an index out of range.
    DMagicSpecialAbility* GetSpecialAbility(int index) const { return mSpecialAbilities.At(index); }

private:
    DItemInfo* mBaseItemInfo = nullptr;
    quint32 mCustomFlags = 0;
    FCObject* mTargetData = nullptr;
    qint32 mBonus = 0;
    qint32 mSecondBonus = 0;
    qint32 mSpecialAbilityBonus = 0;
    FCPointerArray<DMagicSpecialAbility> mSpecialAbilities;
};
