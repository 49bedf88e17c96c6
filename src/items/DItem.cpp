#include "DItem.h"

#include "DArmorShieldBaseInfo.h"
#include "DCoinData.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DItemArchive.h"
#include "DItemInfo.h"
#include "DMagicSpecialAbility.h"
#include "DPotionInfo.h"
#include "DScrollInfo.h"
#include "DSizeInfo.h"
#include "DStaffInfo.h"
#include "DWandInfo.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "FCArchive.h"
#include "Guid.h"
#include "ResultSet.h"

#include <QStringList>

FC_IMPLEMENT_CLASS(DItem, "FCObject", nullptr)

DItem::DItem(const DItem& other)
    : FCObject(other), mItemInfo(DItemInfo::ShareOrClone(other.mItemInfo)),
      mItemFlags(other.mItemFlags), mCount(other.mCount), mMarketCost(other.mMarketCost) {}

DItem& DItem::operator=(const DItem& other) {
    if (this == &other)
        return *this;
    DItemInfo* info = DItemInfo::ShareOrClone(other.mItemInfo);
    if (mItemInfo)
        mItemInfo->Release();
    mItemInfo = info;
    mItemFlags = other.mItemFlags;
    mCount = other.mCount;
    mMarketCost = other.mMarketCost;
    return *this;
}

DItem::~DItem() {
    if (mItemInfo)
        mItemInfo->Release();
}

void DItem::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mItemFlags);
    archive.Transfer(mCount);
    mMarketCost.Serialize(archive);
    if (archive.IsStoring()) {
        DItemInfo::SmartWriteInfo(archive, mItemInfo);
        return;
    }
    DItemInfo* info = DItemInfo::SmartReadInfo(archive);
    SetItemInfo(info);
    if (info)
        info->Release();
}

void DItem::SetItemInfo(DItemInfo* info) {
    DAssignRetained(mItemInfo, info);
}

void DItem::Initialize() {
    mItemFlags = 0;
    mCount = 1;
    SetItemInfo(nullptr);
}

void DItem::ClearAll() {
    Initialize();
    mMarketCost.ClearAll();
}

int DItem::GetItemType() const {
    return mItemInfo ? mItemInfo->GetItemType() : kItemGeneric;
}

DItemInfo* DItem::GetBaseItemInfo() const {
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
        return custom->GetBaseItemInfo();
    return mItemInfo;
}

int DItem::GetBaseItemType() const {
    const DItemInfo* base = GetBaseItemInfo();
    return base ? base->GetItemType() : kItemGeneric;
}

bool DItem::GetIsBaseArmorOrShield() const {
    const int type = GetBaseItemType();
    return type == kItemArmor || type == kItemShield;
}

bool DItem::GetIsBaseMagic() const {
    const int type = GetItemType();
    return type >= kItemMagic && type <= kItemWondrous;
}

bool DItem::GetIsMagicItem() const {
    return DIsMagicItemType(GetItemType());
}

int DItem::GetMagicItemType(bool asGroup) const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    if (!magic || !GetIsMagicItem())
        return kMagicNone;
    const int type = magic->GetMagicType();
    if (asGroup && type >= kMagicCustomWeapon && type <= kMagicCustomShield)
        return type + (kMagicWeaponGroup - kMagicCustomWeapon);
    return type;
}

bool DItem::GetIsIntelligentItem() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    return magic && GetIsMagicItem() && magic->GetIntelligentData();
}

bool DItem::GetIsCursedItem() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    return magic && GetIsMagicItem() && magic->GetCursedData();
}

bool DItem::GetIsCursedItemWithNoCost() const {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo);
    if (!magic || !magic->GetCursedData())
        return false;
    if (GetIsBaseMagic())
        return true;
    const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo);
    return custom && GetItemType() == kItemCustomMagic && custom->GetBonus() >= 0;
}

int DItem::GetMagicBonus() const {
    switch (GetItemType()) {
    case kItemWeapon:
        if (const auto* weapon = FCDynamicCast<DWeaponInfo>(mItemInfo))
            return weapon->GetMagicBonus();
        break;
    case kItemArmor:
    case kItemShield:
        if (const auto* armor = FCDynamicCast<DArmorShieldBaseInfo>(mItemInfo))
            return armor->GetMagicBonus();
        break;
    case kItemCustomMagic:
        if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
            return custom->GetBonus();
        break;
    default:
        break;
    }
    return 0;
}

int DItem::GetInventoryGroupType() const {
    switch (GetBaseItemType()) {
    case kItemWeapon:
        return 1;
    case kItemArmor:
    case kItemShield:
        return 2;
    case kItemGoods:
        return 3;
    case kItemArtObject:
        return 5;
    case kItemGem:
        return 6;
    default:
        return 4;
    }
}

int DItem::GetTreasureGroupType() const {
    if (!mItemInfo)
        return 0;
    const int type = GetItemType();
    if (DIsCoreItemType(type))
        return 4;
    if (DIsMagicItemType(type))
        return 5;
    switch (type) {
    case kItemCoins:
        return 2;
    case kItemArtObject:
        return 1;
    case kItemGem:
        return 3;
    default:
        return 0;
    }
}

void DItem::GetMarketCost(DCurrency& cost) const {
    if (GetIsCursedItemWithNoCost())
        cost.ClearAll();
    else
        cost = mMarketCost;
}

void DItem::SetMarketCost(qint32 amount, int coinType) {
    mMarketCost.ClearAll();
    mMarketCost.SetAmount(coinType, amount);
}

void DItem::AddMarketCost(const DCoinData* coins) {
    if (coins)
        mMarketCost.AdjustAmount(coins->GetCoinType(), coins->GetCoinCount());
}

QString DItem::GetWeightDescription() const {
    const DItemInfo* base = GetBaseItemInfo();
    if (!base)
        return {};
    return QString::number(base->GetWeight(), 'g', 6) + QStringLiteral(" lb.");
}

int DItem::GetSubItemCount() const {
    if (const auto* scroll = FCDynamicCast<DScrollInfo>(mItemInfo))
        return scroll->GetSpellCount();
    if (const auto* wondrous = FCDynamicCast<DWondrousInfo>(mItemInfo))
        return wondrous->GetTargetCount();
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo))
        return custom->GetSpecialAbilityCount();
    return 0;
}

namespace {

constexpr int kTableSpell = 37;
constexpr int kTableArmorAbilities = 61;
constexpr int kTableWeaponAbilities = 71;

QString NameById(int table, int id) {
    QString name;
    DDatabase::FirstRow(QString::asprintf("SELECT Name FROM %s WHERE (Id=%d)",
                                          DDatabase::GetTableName(table).toLatin1().constData(),
                                          id),
                        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QString SpellName(const QUuid& spell) {
    QString name;
    if (spell.isNull())
        return name;
    DDatabase::FirstRow(
        QString::asprintf("SELECT Name FROM %s WHERE (Guid=%s)",
                          DDatabase::GetTableName(kTableSpell).toLatin1().constData(),
                          odbc::toStringODBC(spell).toLatin1().constData()),
        [&name](odbc::ResultSet* row) { name = row->getString(1); });
    return name;
}

QString SignedText(int value) {
    return value < 0 ? QString::number(value) : QStringLiteral("+%1").arg(value);
}

QString CustomText(const DCustomMagicItemInfo& custom, const QString& cursedPrefix) {
    QString text;
    if (!custom.HasCustomFlag(DCustomMagicItemInfo::kCustomFlagSpecific)) {
        text = SignedText(custom.GetBonus());
        if (custom.GetSecondBonus() > 0)
            text += QLatin1Char('/') + SignedText(custom.GetSecondBonus());
        text += QLatin1Char(' ');
    }
    if (custom.GetBonus() < 0 && !custom.GetCursedData())
        text += QStringLiteral("Cursed ");
    text += cursedPrefix;
    if (const DItemInfo* base = custom.GetBaseItemInfo())
        text += QString(base->GetItemName());
    return text;
}

// The text of a magic item: its intelligence and curse, its kind when asked, and its name.
QString MagicText(const DMagicItemInfo& magic, bool withPrefix) {
    QString flags;
    if (magic.GetIntelligentData())
        flags += QStringLiteral("Intelligent ");
    if (magic.GetCursedData())
        flags += QStringLiteral("Cursed ");
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(&magic))
        return CustomText(*custom, flags);
    const QString name = magic.GetItemName();
    auto prefixed = [&](const char* prefix) {
        return flags + (withPrefix ? QLatin1String(prefix) : QLatin1String()) + name;
    };
    switch (magic.GetItemType()) {
    case kItemPotion: {
        const auto& potion = static_cast<const DPotionInfo&>(magic);
        QString text = flags + (withPrefix ? QStringLiteral("Potion: ") : QString()) +
                       (potion.GetItemGuid().isNull() ? SpellName(potion.GetSpellGuid()) : name);
        if (potion.GetCasterLevel() > 0)
            text += QStringLiteral(" (%1)").arg(potion.GetCasterLevel());
        return text;
    }
    case kItemRing:
        return prefixed("Ring: ");
    case kItemRod:
        return prefixed("Rod: ");
    case kItemScroll:
        return flags + (withPrefix ? QStringLiteral("Scroll: ") : QString());
    case kItemStaff: {
        QString text = prefixed("Staff: ");
        if (const qint32 charges = static_cast<const DStaffInfo&>(magic).GetCharges(); charges > 0)
            text += QStringLiteral(" (Charges: %1)").arg(charges);
        return text;
    }
    case kItemWand: {
        const auto& wand = static_cast<const DWandInfo&>(magic);
        const QString spell = SpellName(wand.GetSpellGuid());
        QString text = flags + (withPrefix ? QStringLiteral("Wand of ") : QString()) + spell;
        if (!spell.isEmpty() && wand.GetCasterLevel() > 0)
            text += QStringLiteral(" (%1)").arg(wand.GetCasterLevel());
        if (!spell.isEmpty() && wand.GetCharges() > 0)
            text += QStringLiteral(" (Charges: %1)").arg(wand.GetCharges());
        return text;
    }
    case kItemWondrous:
        return prefixed("Wondrous: ");
    default:
        return flags + name;
    }
}

} // namespace

QString DItem::GetSubItemDescription(int index) const {
    const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(mItemInfo);
    const DMagicSpecialAbility* ability = custom ? custom->GetSpecialAbility(index) : nullptr;
    if (!ability)
        return QString();
    const int base = GetBaseItemType();
    if (base == kItemWeapon)
        return NameById(kTableWeaponAbilities, ability->GetType());
    if (base == kItemArmor || base == kItemShield)
        return NameById(kTableArmorAbilities, ability->GetType());
    return QString();
}

QString DItem::GetItemPrintName(bool withPrefix) const {
    if (!mItemInfo)
        return QString();
    QString text;
    bool plain = false;
    if (const auto* magic = FCDynamicCast<DMagicItemInfo>(mItemInfo)) {
        text = MagicText(*magic, withPrefix);
    } else if (mItemInfo->GetItemType() == kItemCoins) {
        text = DCurrency::BuildCoinString(mItemInfo->GetCost(), mItemInfo->GetCostCoinType());
    } else {
        text = mItemInfo->GetItemName();
        plain = true;
    }
    if (HasItemFlag(kItemFlagShowSize)) {
        if (const DSizeInfo* size = DDatabase::GetSizeInfo(mItemInfo->GetSizeType()))
            text += QStringLiteral(" (%1)").arg(QString(size->GetSizeName()));
    }
    if (plain && HasItemFlag(kItemFlagMasterwork))
        text += QStringLiteral(", Masterwork");
    if (mCount > 1)
        text += QStringLiteral(" (%1)").arg(mCount);
    return text;
}

QString DItem::GetItemPrintDescription(bool withPrefix) const {
    QString text = GetItemPrintName(withPrefix);
    QStringList subItems;
    for (int i = 0; i < GetSubItemCount(); ++i) {
        const QString sub = GetSubItemDescription(i);
        if (!sub.isEmpty())
            subItems << sub;
    }
    if (!subItems.isEmpty())
        text += QStringLiteral(": ") + subItems.join(QStringLiteral(", "));
    return text;
}

QString DItem::GetCostDescription() const {
    if (GetIsCursedItemWithNoCost())
        return QStringLiteral("---");
    DCurrency cost;
    GetMarketCost(cost);
    return cost.GetCostDescription();
}
