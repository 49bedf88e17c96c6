#include "ItemsSamples.h"

#include "DArmorInfo.h"
#include "DAttackInfo.h"
#include "DChosenItem.h"
#include "DCoinItemInfo.h"
#include "DCustomMagicItemInfo.h"
#include "DGoodsInfo.h"
#include "DItemCollection.h"
#include "DPotionInfo.h"
#include "DRingInfo.h"
#include "DRodInfo.h"
#include "DScrollInfo.h"
#include "DShieldInfo.h"
#include "DSimpleItemInfo.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"

namespace itemstest {

namespace {

// Base fields that differ from record to record through `n`.
template <typename T> Ref<T> withBase(T* info, int n, const char* name) {
    info->SetItemGuid(guid(100 + n));
    info->SetItemName(QString::fromLatin1(name));
    info->SetCost(10 * n + 1);
    info->SetCostCoinType(n % 4);
    info->SetWeight(0.5f * float(n));
    info->SetMasterWorkType(n);
    info->SetInfoFlags(DItemInfo::kInfoFlagChanged | (quint32(n) << 8));
    return Ref<T>(info);
}

void setMagic(DMagicItemInfo* info, int n) {
    info->SetMagicType(n);
    info->SetSubType(n + 20);
    info->SetQualityType(n + 30);
}

} // namespace

Ref<DWeaponInfo> sampleWeapon() {
    Ref<DWeaponInfo> weapon(new DWeaponInfo);
    weapon->SetItemGuid(guid(1));
    weapon->SetItemName(QStringLiteral("Longsword"));
    weapon->SetCost(15);
    weapon->SetCostCoinType(2);
    weapon->SetWeight(4.0f);
    weapon->SetMasterWorkType(1);
    weapon->SetOffenseCount(1);
    weapon->SetRangeType(0);
    weapon->SetSkillType(2);
    weapon->SetSizeType(4);
    weapon->SetDamageValues(DWeaponDamageValues{{1, 0}, {6, 0}});
    weapon->SetCriticalValues(DWeaponCritValues{19, {2, 0}});
    weapon->SetDamageType(4);
    weapon->SetUseType(1);
    weapon->SetFamilyId(3);
    weapon->AddWeaponFlag(DWeaponInfo::kWeaponFlagTwoHandedMultiplier);
    return weapon;
}

std::vector<Ref<DItemInfo>> sampleInfos() {
    std::vector<Ref<DItemInfo>> infos;
    infos.emplace_back(withBase(new DItemInfo, 1, "Generic").release());

    auto gem = withBase(new DSimpleItemInfo(kItemGem), 2, "Bloodstone");
    infos.emplace_back(gem.release());

    infos.emplace_back(withBase(new DCoinItemInfo, 3, "Coins").release());

    auto goods = withBase(new DGoodsInfo, 4, "Backpack");
    goods->SetGoodsType(7);
    goods->SetCapacity(1.5f);
    goods->SetCapacityId(2);
    goods->SetCanEquip(true);
    goods->SetCanBeMadeForSmall(true);
    goods->SetIsSuperior(true);
    infos.emplace_back(goods.release());

    auto armor = withBase(new DArmorInfo, 5, "Chainmail");
    armor->SetSizeType(3);
    armor->SetArmorBonus(5);
    armor->SetArmorCheckPenalty(-5);
    armor->SetArcaneSpellFailure(30);
    armor->SetIsMagic(true);
    armor->SetMagicBonus(2);
    armor->SetWeightType(1);
    armor->SetMaxDex(2);
    infos.emplace_back(armor.release());

    auto shield = withBase(new DShieldInfo, 6, "Heavy steel shield");
    shield->SetSizeType(5);
    shield->SetArmorBonus(2);
    shield->SetArmorCheckPenalty(-2);
    shield->SetArcaneSpellFailure(15);
    shield->SetMagicBonus(1);
    shield->SetCanBash(true);
    shield->SetCanHaveSpikes(true);
    infos.emplace_back(shield.release());

    auto offense = withBase(new DOffenseInfo, 7, "Offense");
    offense->SetOffenseCount(3);
    offense->SetRangeType(2);
    infos.emplace_back(offense.release());

    auto weapon = withBase(new DWeaponInfo, 8, "Dire flail");
    weapon->SetOffenseCount(2);
    weapon->SetRangeType(1);
    weapon->SetSkillType(3);
    weapon->SetSizeType(5);
    weapon->SetDamageValues(DWeaponDamageValues{{1, 2}, {6, 4}});
    weapon->SetCriticalValues(DWeaponCritValues{19, {2, 3}});
    weapon->SetRangeIncrement(10);
    weapon->SetDamageType(1);
    weapon->SetUseType(3);
    weapon->SetApplyStrModType(2);
    weapon->SetMaxStrBonus(4);
    weapon->SetMagicBonus(1);
    weapon->SetActsAsWeaponId(guid(9));
    weapon->SetFamilyId(11);
    weapon->SetWeaponFlags(0x7E);
    infos.emplace_back(weapon.release());

    auto attack = withBase(new DAttackInfo, 9, "Bite");
    attack->SetOffenseCount(2);
    attack->SetRangeType(1);
    attack->SetItemId(4);
    attack->SetAttackTypeId(6);
    attack->SetAttackRangeIsTouch(true);
    attack->SetAttackTotalBonus(7);
    attack->SetAttackUserMod(-1);
    attack->SetDamageDieCount(2);
    attack->SetDamageDieId(5);
    attack->SetDamageBonus(3);
    infos.emplace_back(attack.release());

    auto magic = withBase(new DMagicItemInfo, 10, "Magic");
    setMagic(magic.get(), 4);
    magic->SetIntelligentData(makeRecord(1).get());
    magic->SetCursedData(makeRecord(2).get());
    infos.emplace_back(magic.release());

    auto potion = withBase(new DPotionInfo, 11, "Potion");
    setMagic(potion.get(), 1);
    // Copies of a potion have quality 0; the sample has it already, so copies compare equal.
    potion->SetQualityType(0);
    potion->DItemSpellData::SetSpellGuid(guid(12));
    potion->SetSpellLevel(2);
    potion->SetCasterClassGuid(guid(13));
    potion->SetCasterLevel(3);
    infos.emplace_back(potion.release());

    auto ring = withBase(new DRingInfo, 12, "Ring");
    setMagic(ring.get(), 2);
    infos.emplace_back(ring.release());

    auto rod = withBase(new DRodInfo, 13, "Rod");
    setMagic(rod.get(), 3);
    rod->SetCursedData(makeRecord(3).get());
    infos.emplace_back(rod.release());

    auto staff = withBase(new DStaffInfo, 14, "Staff");
    setMagic(staff.get(), 5);
    staff->SetCharges(17);
    infos.emplace_back(staff.release());

    auto scroll = withBase(new DScrollInfo, 15, "Scroll");
    setMagic(scroll.get(), 4);
    scroll->SetSpellCasterType(2);
    scroll->AddSpell(makeRecord(4).get());
    scroll->AddSpell(makeRecord(5).get());
    infos.emplace_back(scroll.release());

    auto wand = withBase(new DWandInfo, 16, "Wand");
    setMagic(wand.get(), 6);
    wand->SetSpellGuid(guid(17));
    wand->SetSpellLevel(1);
    wand->SetCasterClassGuid(guid(18));
    wand->SetCasterLevel(5);
    wand->SetCharges(23);
    infos.emplace_back(wand.release());

    auto wondrous = withBase(new DWondrousInfo, 17, "Lamp");
    setMagic(wondrous.get(), 7);
    wondrous->SetPickTargetType(3);
    wondrous->AddTarget(makeRecord(6).get());
    wondrous->AddTarget(makeRecord(7).get());
    infos.emplace_back(wondrous.release());

    auto emptyListWondrous = withBase(new DWondrousInfo, 18, "Stone");
    emptyListWondrous->AddTarget(makeRecord(8).get());
    emptyListWondrous->RemoveTarget(emptyListWondrous->GetTarget(0));
    infos.emplace_back(emptyListWondrous.release());

    infos.emplace_back(withBase(new DWondrousInfo, 19, "Cloak").release());
    return infos;
}

Ref<DCustomMagicItemInfo> sampleCustom() {
    auto custom = withBase(new DCustomMagicItemInfo, 20, "");
    setMagic(custom.get(), kMagicCustomWeapon);
    Ref<DWeaponInfo> base(sampleWeapon()->Clone());
    base->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    base->SetSizeType(3);
    custom->SetBaseItemInfo(base.get());
    custom->SetCustomFlags(0x41);
    custom->SetTargetData(makeRecord(9).get());
    custom->SetBonus(2);
    custom->SetSecondBonus(1);
    custom->AddSpecialAbility(1, 2, 3, 1);
    custom->AddSpecialAbility(4, 5, 6, 2)->SetTargetData(makeRecord(10).get());
    custom->SetIntelligentData(makeRecord(11).get());
    custom->SetCursedData(makeRecord(12).get());
    return custom;
}

Ref<DItemCollection> sampleCollection() {
    Ref<DItemCollection> collection(new DItemCollection);
    auto add = [&collection](DItem* item, DItemInfo* info, quint32 flags, qint32 count) {
        item->SetItemInfo(info);
        item->SetItemFlags(flags);
        item->SetCount(count);
        item->SetMarketCost(count * 7, kCoinSilver);
        item->AddMarketCost(1, kCoinPlatinum);
        collection->AddItem(item);
        item->Release();
    };
    Ref<DWeaponInfo> shared = sampleWeapon();
    add(new DItem, shared.get(), DItem::kItemFlagCarried, 1);
    Ref<DWeaponInfo> flagged(shared->Clone());
    flagged->AddInfoFlag(DItemInfo::kInfoFlagChanged);
    add(new DItem, flagged.get(), DItem::kItemFlagMasterwork, 2);
    add(new DChosenItem(9, nullptr), sampleCustom().get(), DItem::kItemFlagShowSize, 1);
    std::vector<Ref<DItemInfo>> infos = sampleInfos();
    for (const Ref<DItemInfo>& info : infos) {
        if (info->GetItemType() == kItemScroll || info->GetItemType() == kItemWondrous ||
            info->GetItemType() == kItemPotion)
            add(new DItem, info.get(), 0, 3);
    }
    // A chosen item in a second place, with no info.
    auto* shield = new DChosenItem(12, nullptr);
    shield->SetItemLocation(DChosenItem::kLocationSecondShield);
    add(shield, nullptr, DItem::kItemFlagUnarmed, 4);
    return collection;
}

} // namespace itemstest
