#include "ItemsCompare.h"

#include "DArmorInfo.h"
#include "DAttackInfo.h"
#include "DChosenItem.h"
#include "DCustomMagicItemInfo.h"
#include "DGoodsInfo.h"
#include "DMagicBonus.h"
#include "DPotionInfo.h"
#include "DScrollInfo.h"
#include "DShieldInfo.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "ItemsTestSupport.h"

#include <gtest/gtest.h>

namespace itemstest {

namespace {

template <typename T>
bool bothAre(const DItemInfo* a, const DItemInfo* b, const T** left, const T** right) {
    *left = FCDynamicCast<T>(a);
    *right = FCDynamicCast<T>(b);
    EXPECT_EQ(*left == nullptr, *right == nullptr) << "class differs";
    return *left && *right;
}

void expectSameSlot(const FCObject* expected, const FCObject* actual, const char* what) {
    if (!expected) {
        EXPECT_EQ(actual, nullptr) << what;
        return;
    }
    EXPECT_TRUE(sameRecord(expected, actual)) << what;
}

void expectSameSpell(const DItemSpellData& expected, const DItemSpellData& actual) {
    EXPECT_EQ(expected.GetSpellGuid(), actual.GetSpellGuid());
    EXPECT_EQ(expected.GetSpellLevel(), actual.GetSpellLevel());
    EXPECT_EQ(expected.GetCasterClassGuid(), actual.GetCasterClassGuid());
    EXPECT_EQ(expected.GetCasterLevel(), actual.GetCasterLevel());
}

} // namespace

void expectSameInfo(const DItemInfo* expected, const DItemInfo* actual, bool withMasterwork) {
    ASSERT_EQ(expected == nullptr, actual == nullptr);
    if (!expected)
        return;
    ASSERT_EQ(expected->GetClassInfoA(), actual->GetClassInfoA());
    EXPECT_EQ(expected->GetItemGuid(), actual->GetItemGuid());
    EXPECT_EQ(expected->GetItemName(), actual->GetItemName());
    EXPECT_EQ(expected->GetCost(), actual->GetCost());
    EXPECT_EQ(expected->GetCostCoinType(), actual->GetCostCoinType());
    EXPECT_EQ(expected->GetWeight(), actual->GetWeight());
    EXPECT_EQ(expected->GetInfoFlags(), actual->GetInfoFlags());
    EXPECT_EQ(expected->GetItemType(), actual->GetItemType());
    if (withMasterwork) {
        EXPECT_EQ(expected->GetMasterWorkType(), actual->GetMasterWorkType());
    }

    const DGoodsInfo *goodsA, *goodsB;
    if (bothAre(expected, actual, &goodsA, &goodsB)) {
        EXPECT_EQ(goodsA->GetGoodsType(), goodsB->GetGoodsType());
        EXPECT_EQ(goodsA->GetCapacity(), goodsB->GetCapacity());
        EXPECT_EQ(goodsA->GetCapacityId(), goodsB->GetCapacityId());
        EXPECT_EQ(goodsA->GetCanEquip(), goodsB->GetCanEquip());
        EXPECT_EQ(goodsA->GetCanBeMadeForSmall(), goodsB->GetCanBeMadeForSmall());
        EXPECT_EQ(goodsA->GetIsSuperior(), goodsB->GetIsSuperior());
    }
    const DArmorShieldBaseInfo *armorA, *armorB;
    if (bothAre(expected, actual, &armorA, &armorB)) {
        EXPECT_EQ(armorA->GetSizeType(), armorB->GetSizeType());
        EXPECT_EQ(armorA->GetArmorBonus(), armorB->GetArmorBonus());
        EXPECT_EQ(armorA->GetArmorCheckPenalty(), armorB->GetArmorCheckPenalty());
        EXPECT_EQ(armorA->GetArcaneSpellFailure(), armorB->GetArcaneSpellFailure());
        EXPECT_EQ(armorA->GetIsMagic(), armorB->GetIsMagic());
        EXPECT_EQ(armorA->GetMagicBonus(), armorB->GetMagicBonus());
    }
    const DArmorInfo *suitA, *suitB;
    if (bothAre(expected, actual, &suitA, &suitB)) {
        EXPECT_EQ(suitA->GetWeightType(), suitB->GetWeightType());
        EXPECT_EQ(suitA->GetMaxDex(), suitB->GetMaxDex());
    }
    const DShieldInfo *shieldA, *shieldB;
    if (bothAre(expected, actual, &shieldA, &shieldB)) {
        EXPECT_EQ(shieldA->GetCanBash(), shieldB->GetCanBash());
        EXPECT_EQ(shieldA->GetCanHaveSpikes(), shieldB->GetCanHaveSpikes());
    }
    const DOffenseInfo *offenseA, *offenseB;
    if (bothAre(expected, actual, &offenseA, &offenseB)) {
        EXPECT_EQ(offenseA->GetOffenseCount(), offenseB->GetOffenseCount());
        EXPECT_EQ(offenseA->GetRangeType(), offenseB->GetRangeType());
    }
    const DWeaponInfo *weaponA, *weaponB;
    if (bothAre(expected, actual, &weaponA, &weaponB)) {
        EXPECT_EQ(weaponA->GetSizeType(), weaponB->GetSizeType());
        EXPECT_EQ(weaponA->GetSkillType(), weaponB->GetSkillType());
        EXPECT_EQ(weaponA->GetDamageValues(), weaponB->GetDamageValues());
        EXPECT_EQ(weaponA->GetCriticalValues(), weaponB->GetCriticalValues());
        EXPECT_EQ(weaponA->GetRangeIncrement(), weaponB->GetRangeIncrement());
        EXPECT_EQ(weaponA->GetDamageType(), weaponB->GetDamageType());
        EXPECT_EQ(weaponA->GetUseType(), weaponB->GetUseType());
        EXPECT_EQ(weaponA->GetApplyStrModType(), weaponB->GetApplyStrModType());
        EXPECT_EQ(weaponA->GetMaxStrBonus(), weaponB->GetMaxStrBonus());
        EXPECT_EQ(weaponA->GetMagicBonus(), weaponB->GetMagicBonus());
        EXPECT_EQ(weaponA->GetActsAsWeaponId(), weaponB->GetActsAsWeaponId());
        EXPECT_EQ(weaponA->GetFamilyId(), weaponB->GetFamilyId());
        EXPECT_EQ(weaponA->GetWeaponFlags(), weaponB->GetWeaponFlags());
    }
    const DAttackInfo *attackA, *attackB;
    if (bothAre(expected, actual, &attackA, &attackB)) {
        EXPECT_EQ(attackA->GetItemId(), attackB->GetItemId());
        EXPECT_EQ(attackA->GetAttackTypeId(), attackB->GetAttackTypeId());
        EXPECT_EQ(attackA->GetAttackRangeIsTouch(), attackB->GetAttackRangeIsTouch());
        EXPECT_EQ(attackA->GetAttackTotalBonus(), attackB->GetAttackTotalBonus());
        EXPECT_EQ(attackA->GetAttackUserMod(), attackB->GetAttackUserMod());
        EXPECT_EQ(attackA->GetDamageDieCount(), attackB->GetDamageDieCount());
        EXPECT_EQ(attackA->GetDamageDieId(), attackB->GetDamageDieId());
        EXPECT_EQ(attackA->GetDamageBonus(), attackB->GetDamageBonus());
    }
    const DMagicItemInfo *magicA, *magicB;
    if (bothAre(expected, actual, &magicA, &magicB)) {
        EXPECT_EQ(magicA->GetMagicType(), magicB->GetMagicType());
        EXPECT_EQ(magicA->GetSubType(), magicB->GetSubType());
        EXPECT_EQ(magicA->GetQualityType(), magicB->GetQualityType());
        expectSameSlot(magicA->GetIntelligentData(), magicB->GetIntelligentData(), "intelligent");
        expectSameSlot(magicA->GetCursedData(), magicB->GetCursedData(), "cursed");
    }
    const DPotionInfo *potionA, *potionB;
    if (bothAre(expected, actual, &potionA, &potionB))
        expectSameSpell(*potionA, *potionB);
    const DWandInfo *wandA, *wandB;
    if (bothAre(expected, actual, &wandA, &wandB)) {
        expectSameSpell(*wandA, *wandB);
        EXPECT_EQ(wandA->GetCharges(), wandB->GetCharges());
    }
    const DStaffInfo *staffA, *staffB;
    if (bothAre(expected, actual, &staffA, &staffB)) {
        EXPECT_EQ(staffA->GetCharges(), staffB->GetCharges());
    }
    const DScrollInfo *scrollA, *scrollB;
    if (bothAre(expected, actual, &scrollA, &scrollB)) {
        EXPECT_EQ(scrollA->GetSpellCasterType(), scrollB->GetSpellCasterType());
        ASSERT_EQ(scrollA->GetSpellCount(), scrollB->GetSpellCount());
        for (int i = 0; i < scrollA->GetSpellCount(); ++i)
            EXPECT_TRUE(sameRecord(scrollA->GetSpell(i), scrollB->GetSpell(i))) << "spell " << i;
        EXPECT_EQ(scrollB->GetSpellArray().GetOwnership(), kFCRetained);
    }
    const DWondrousInfo *wondrousA, *wondrousB;
    if (bothAre(expected, actual, &wondrousA, &wondrousB)) {
        EXPECT_EQ(wondrousA->GetPickTargetType(), wondrousB->GetPickTargetType());
        EXPECT_EQ(wondrousA->HasTargetList(), wondrousB->HasTargetList());
        ASSERT_EQ(wondrousA->GetTargetCount(), wondrousB->GetTargetCount());
        for (int i = 0; i < wondrousA->GetTargetCount(); ++i)
            EXPECT_TRUE(sameRecord(wondrousA->GetTarget(i), wondrousB->GetTarget(i)))
                << "target " << i;
    }
    const DCustomMagicItemInfo *customA, *customB;
    if (bothAre(expected, actual, &customA, &customB)) {
        expectSameInfo(customA->GetBaseItemInfo(), customB->GetBaseItemInfo(), false);
        EXPECT_EQ(customA->GetCustomFlags(), customB->GetCustomFlags());
        expectSameSlot(customA->GetTargetData(), customB->GetTargetData(), "custom target");
        EXPECT_EQ(customA->GetBonus(), customB->GetBonus());
        EXPECT_EQ(customA->GetSecondBonus(), customB->GetSecondBonus());
        EXPECT_EQ(customA->GetSpecialAbilityBonus(), customB->GetSpecialAbilityBonus());
        ASSERT_EQ(customA->GetSpecialAbilityCount(), customB->GetSpecialAbilityCount());
        for (int i = 0; i < customA->GetSpecialAbilityCount(); ++i)
            expectSameAbility(customA->GetSpecialAbility(i), customB->GetSpecialAbility(i));
    }
}

void expectSameAbility(const DMagicSpecialAbility* expected, const DMagicSpecialAbility* actual) {
    ASSERT_TRUE(expected && actual);
    EXPECT_EQ(expected->GetType(), actual->GetType());
    EXPECT_EQ(expected->GetCategory(), actual->GetCategory());
    EXPECT_EQ(expected->GetRank(), actual->GetRank());
    EXPECT_EQ(expected->GetBonus(), actual->GetBonus());
    expectSameSlot(expected->GetTargetData(), actual->GetTargetData(), "ability target");
}

void expectSameBonus(const DMagicBonus& expected, const DMagicBonus& actual) {
    EXPECT_EQ(expected.GetBonusType(), actual.GetBonusType());
    EXPECT_EQ(expected.GetBonus(), actual.GetBonus());
    EXPECT_EQ(expected.GetModifyType(), actual.GetModifyType());
    EXPECT_EQ(expected.GetTargetGuid(), actual.GetTargetGuid());
    EXPECT_EQ(expected.GetSourceItemType(), actual.GetSourceItemType());
    EXPECT_EQ(expected.GetIsApplied(), actual.GetIsApplied());
}

void expectSameItem(const DItem* expected, const DItem* actual) {
    ASSERT_TRUE(expected && actual);
    ASSERT_EQ(expected->GetClassInfoA(), actual->GetClassInfoA());
    EXPECT_EQ(expected->GetItemFlags(), actual->GetItemFlags());
    EXPECT_EQ(expected->GetCount(), actual->GetCount());
    EXPECT_EQ(expected->GetStoredMarketCost(), actual->GetStoredMarketCost());
    const auto* chosenA = FCDynamicCast<DChosenItem>(expected);
    const auto* chosenB = FCDynamicCast<DChosenItem>(actual);
    if (chosenA && chosenB) {
        EXPECT_EQ(chosenA->GetItemId(), chosenB->GetItemId());
        EXPECT_EQ(chosenA->GetItemLocation(), chosenB->GetItemLocation());
    }
    expectSameInfo(expected->GetItemInfo(), actual->GetItemInfo(), false);
}

} // namespace itemstest
