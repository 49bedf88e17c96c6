#include "CharacterItems.h"

#include "CharacterCommand.h"
#include "CliCommand.h"
#include "CliContext.h"
#include "CliLookup.h"
#include "DAdjChosenSpeed.h"
#include "DAttackInfo.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DChosenItem.h"
#include "DCoinData.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DItemType.h"
#include "DMagicItemInfo.h"
#include "DMagicSpecialAbility.h"
#include "DObjectManager.h"
#include "DOffenseGroup.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "DTreasure.h"
#include "DWeaponInfo.h"
#include "DWielding.h"
#include "FCReleaser.h"
#include "ItemCatalogue.h"
#include "ResultSet.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

constexpr int kMaxCount = 9999;
constexpr int kMaxEnhancement = 5;
constexpr int kMaxTotalBonus = 10;
constexpr int kMediumSize = 4;
constexpr int kTableArmorAbilities = 61;
constexpr int kTableWeaponAbilities = 71;
constexpr const char* kLoadNames[] = {"light", "medium", "heavy", "overloaded"};

bool takeFlag(QStringList& args, const QString& name) {
    return args.removeAll(name) > 0;
}

QString gold(qint64 copper) {
    // Prices below a gold piece keep their silver and copper.
    if (copper % 100 == 0)
        return QStringLiteral("%1 gp").arg(copper / 100);
    return QStringLiteral("%1 gp").arg(double(copper) / 100.0, 0, 'f', 2);
}

int characterSize(const DCharacter& character) {
    const DSizeInfo* size = character.GetSizeInfo();
    return size ? size->GetSizeId() : kMediumSize;
}

// Rows list arms and armor as made for a Medium body; a smaller or larger buyer gets them made
// to fit, the same number of sizes away.
int fittedSize(const DCharacter& character, const DItemInfo* info) {
    if (!info->CanBeResized() || characterSize(character) == kMediumSize)
        return -1;
    return info->GetSizeType() + characterSize(character) - kMediumSize;
}

QString itemName(const DItem& item) {
    return item.GetItemPrintDescription(true);
}

bool isBuiltIn(const DItem& item) {
    return item.HasItemFlag(DItem::kItemFlagUnarmed);
}

// The inventory item named `text`: "#ID", or a name (any case) as the equipment list shows it
// or as its rule row names it. `preferEquipped` picks among several alike.
DChosenItem* findOwnedItem(DCharacter& character, const QString& text, bool preferEquipped,
                           QString& error) {
    if (text.startsWith(QLatin1Char('#'))) {
        bool ok = false;
        const int id = text.mid(1).toInt(&ok);
        DChosenItem* item = ok ? character.GetItem(id) : nullptr;
        if (!item || isBuiltIn(*item))
            error = QStringLiteral("the character has no item %1").arg(text);
        return item && !isBuiltIn(*item) ? item : nullptr;
    }
    DChosenItem* best = nullptr;
    QStringList names;
    for (const auto& [id, item] : character.GetItemMap()) {
        if (isBuiltIn(*item))
            continue;
        const DItemInfo* base = item->GetBaseItemInfo();
        const QString name = itemName(*item);
        names << name;
        const bool match =
            name.compare(text, Qt::CaseInsensitive) == 0 ||
            (base && QString(base->GetItemName()).compare(text, Qt::CaseInsensitive) == 0);
        if (!match)
            continue;
        const bool equipped = item->GetItemLocation() != DChosenItem::kLocationNone;
        if (!best || (equipped == preferEquipped &&
                      (best->GetItemLocation() != DChosenItem::kLocationNone) != preferEquipped))
            best = item;
    }
    if (!best)
        error = names.isEmpty()
                    ? QStringLiteral("the character carries no items")
                    : CliLookup::UnknownName(QStringLiteral("item of the character"), text,
                                             CliLookup::ClosestNames(text, names, 3));
    return best;
}

// Hands taken by the weapons of the first group and by shields.
int handsInUse(const DCharacter& character) {
    int hands = 0;
    if (const DOffenseGroup* group = character.GetOffenseGroup(0)) {
        for (const DOffenseItem& offense : group->GetOffenseItemArray()) {
            if (offense.GetOffenseType() != DOffenseItem::kOffenseWeapon)
                continue;
            const DChosenItem* item = character.GetItem(offense.GetOffenseId());
            if (item && isBuiltIn(*item))
                continue;
            hands += offense.HasOffenseFlag(DOffenseItem::kOffenseOneHand) ? 1 : 2;
        }
    }
    for (int slot = 1; slot < DCharacter::kEquipSlotCount; ++slot)
        hands += character.GetEquipment(slot) ? 1 : 0;
    return hands;
}

QString wieldWeapon(DCharacter& character, DChosenItem* item, bool twoHands) {
    const auto* weapon = FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo());
    const int uses = DHandBook::GetCharacterWeaponUses(&character, weapon);
    if (uses == 0)
        return QStringLiteral("%1 is too large for the character to wield").arg(itemName(*item));
    quint32 grip = DOffenseItem::kOffenseOneHand;
    if (!(uses & 1) || (twoHands && (uses & 2)))
        grip = (uses & 2) ? DOffenseItem::kOffenseTwoHands : DOffenseItem::kOffenseDouble;
    const int needed = grip == DOffenseItem::kOffenseOneHand ? 1 : 2;
    if (handsInUse(character) + needed > 2)
        return QStringLiteral("no free hand for %1: unequip a weapon or shield first")
            .arg(itemName(*item));
    if (DHandBook::IsWeaponLight(&character, weapon))
        grip |= DOffenseItem::kOffenseLight;
    character.AddOffenseToGroup(
        0, DOffenseItem(DOffenseItem::kOffenseWeapon, item->GetItemId(), grip));
    DHandBook::EquipItem(&character, item, true);
    return QString();
}

// Equips `item`, or says why it cannot be.
QString equip(DCharacter& character, DChosenItem* item, bool twoHands) {
    if (item->GetItemLocation() != DChosenItem::kLocationNone ||
        DWielding::IsWielded(character, item->GetItemId()))
        return QStringLiteral("%1 is already equipped").arg(itemName(*item));
    switch (item->GetBaseItemType()) {
    case kItemWeapon:
        return wieldWeapon(character, item, twoHands);
    case kItemArmor:
        if (const DChosenItem* worn = character.GetEquipment(0))
            return QStringLiteral("the character already wears %1: unequip it first")
                .arg(itemName(*worn));
        break;
    case kItemShield:
        if (character.GetEquipment(1) && character.GetEquipment(2))
            return QStringLiteral("both shield slots are taken");
        if (handsInUse(character) >= 2)
            return QStringLiteral("no free hand for %1: unequip a weapon or shield first")
                .arg(itemName(*item));
        break;
    case kItemRing:
    case kItemWondrous:
    case kItemRod:
    case kItemStaff:
        if (!DHandBook::CanCharacterEquipMagicItem(&character, item))
            return QStringLiteral("no free slot for %1: too many of its kind are worn")
                .arg(itemName(*item));
        break;
    default:
        return QStringLiteral("%1 cannot be equipped").arg(itemName(*item));
    }
    DHandBook::EquipItem(&character, item, true);
    return QString();
}

void unequip(DCharacter& character, DChosenItem* item) {
    character.RemoveWeaponFromAllGroups(item->GetItemId());
    DHandBook::UnEquipItem(&character, item, true);
    DHandBook::ComputeAndSetCharacterEncumberance(&character);
}

struct Ability {
    int id = -1;
    int bonus = 0;
    int category = -1;
    QString name;
};

bool findAbility(const QString& name, int itemType, Ability& found, QString& error) {
    const int table = itemType == kItemWeapon ? kTableWeaponAbilities : kTableArmorAbilities;
    QStringList names;
    DDatabase::ForEachRow(
        QString::asprintf("SELECT * FROM %s", DRulesQuery::Table(table).constData()),
        [&](odbc::ResultSet* row) {
            const QString rowName = row->getString("Name");
            names << rowName;
            if (found.id < 0 && rowName.compare(name, Qt::CaseInsensitive) == 0)
                found = {row->getInt("Id"), row->getInt("Bonus"), row->getInt("Category"), rowName};
        });
    if (found.id >= 0 && found.bonus <= 0) {
        error = QStringLiteral("%1 is priced in gold, not as a bonus; it cannot be added here yet")
                    .arg(found.name);
        return false;
    }
    if (found.id < 0)
        error = CliLookup::UnknownName(itemType == kItemWeapon ? QStringLiteral("weapon ability")
                                                               : QStringLiteral("armor ability"),
                                       name, CliLookup::ClosestNames(name, names, 3));
    return found.id >= 0;
}

struct AddRequest {
    ItemCatalogue::Entry entry;
    int count = 1;
    bool masterwork = false;
    int enhancement = 0;
    QStringList abilities;
    bool buy = false;
    bool equip = false;
    bool twoHands = false;
};

// A magic weapon, armor or shield made from the row; the character owns nothing yet.
DChosenItem* makeCustomItem(DCharacter& character, const AddRequest& request, QString& error) {
    FCRef<DItemInfo> base(DHandBook::BuildItemInfo(request.entry.itemType, request.entry.guid));
    FCRef<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
    const int size = fittedSize(character, base.get());
    FCRef<DItemInfo> sized(DHandBook::CreateSizeAdjustedItem(&character, base.get(), size));
    custom->SetBaseItemInfo(sized ? sized.get() : base.get());
    custom->SetBonus(request.enhancement);
    // Magic arms and armor are always of masterwork make.
    custom->SetCustomFlags(0x1);
    custom->SetMagicType(request.entry.itemType == kItemWeapon  ? 9
                         : request.entry.itemType == kItemArmor ? 10
                                                                : 11);
    for (const QString& name : request.abilities) {
        Ability ability;
        if (!findAbility(name, request.entry.itemType, ability, error))
            return nullptr;
        if (custom->HasSpecialAbility(ability.id)) {
            error = QStringLiteral("%1 is named twice").arg(ability.name);
            return nullptr;
        }
        custom->AddSpecialAbility(ability.id, ability.category, -1, ability.bonus);
    }
    if (request.enhancement + custom->GetSpecialAbilityBonus() > kMaxTotalBonus) {
        error = QStringLiteral("a total bonus of +%1 is above the +%2 that magic arms and armor "
                               "may have")
                    .arg(request.enhancement + custom->GetSpecialAbilityBonus())
                    .arg(kMaxTotalBonus);
        return nullptr;
    }
    DCoinData cost;
    // The price of the fitted item: the custom item's base already has the buyer's size.
    DHandBook::ComputeCustomMagicItemCost(custom.get(), -1, &cost);
    auto* item = new DChosenItem;
    item->SetItemInfo(custom.get());
    item->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
    return item;
}

DChosenItem* makeMagicItem(const AddRequest& request) {
    FCRef<DItemInfo> info(DHandBook::BuildItemInfo(request.entry.itemType, request.entry.guid));
    auto* magic = FCDynamicCast<DMagicItemInfo>(info.get());
    if (!magic)
        return nullptr;
    DCoinData cost;
    DHandBook::ComputeMagicItemCost(magic, &cost);
    auto* item = new DChosenItem;
    item->SetItemInfo(magic);
    item->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
    return item;
}

qint64 priceOf(const DItem& item) {
    DCurrency price;
    item.GetMarketCost(price);
    return price.GetCopperCost();
}

DChosenItem* fileItem(DCharacter& character, FCRef<DChosenItem> made, bool buy, QString& error);

// Files the item at `count` and checks and takes the price; the character is unchanged on
// failure.
DChosenItem* addToCharacter(DCharacter& character, const AddRequest& request, QString& error) {
    const bool magicArms = request.enhancement > 0 || !request.abilities.isEmpty();
    FCRef<DChosenItem> made;
    if (magicArms)
        made.reset(makeCustomItem(character, request, error));
    else if (!DIsCoreItemType(request.entry.itemType))
        made.reset(makeMagicItem(request));
    else {
        FCRef<DItemInfo> info(DHandBook::BuildItemInfo(request.entry.itemType, request.entry.guid));
        const int size = fittedSize(character, info.get());
        FCRef<DItemInfo> sized(DHandBook::CreateSizeAdjustedItem(&character, info.get(), size));
        DCoinData cost;
        DHandBook::ComputeItemCost(info.get(), &character, request.masterwork ? 1 : 0, size, cost);
        made.reset(new DChosenItem);
        made->SetItemInfo(sized ? sized.get() : info.get());
        made->SetItemFlags(request.masterwork ? quint32(DItem::kItemFlagMasterwork) : 0u);
        made->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
    }
    if (!made)
        return nullptr;
    made->SetCount(request.count);
    DCurrency one;
    made->GetMarketCost(one);
    DCurrency total;
    for (int coin = 0; coin < DCurrency::kCoinTypeCount; ++coin)
        total.SetAmount(coin, one.GetAmount(coin) * request.count);
    made->SetMarketCost(0, 2);
    for (int coin = 0; coin < DCurrency::kCoinTypeCount; ++coin)
        made->AddMarketCost(total.GetAmount(coin), coin);
    return fileItem(character, std::move(made), request.buy, error);
}

// Gives the character the item, paid from its money with `buy`; the character is unchanged
// when it cannot afford it.
DChosenItem* fileItem(DCharacter& character, FCRef<DChosenItem> made, bool buy, QString& error) {
    const qint64 price = priceOf(*made);
    const qint64 purse = character.GetCurrency().GetCopperCost();
    if (buy && price > purse) {
        error = QStringLiteral("cannot afford %1: it costs %2, the character has %3 (%4 missing)")
                    .arg(itemName(*made), gold(price), gold(purse), gold(price - purse));
        return nullptr;
    }
    DChosenItem* item = made.get();
    DHandBook::AddChosenItemToCharacter(&character, item, !buy);
    DHandBook::ToggleItemCarryingStatus(&character, item, true);
    return item;
}

bool parseAddRequest(QStringList& args, AddRequest& request, QString& error) {
    QString count, enhancement, ability;
    if (!CliCommand::TakeOption(args, "--count", count) ||
        !CliCommand::TakeOption(args, "--enhancement", enhancement)) {
        error = QStringLiteral("--count and --enhancement need a value");
        return false;
    }
    while (args.contains("--ability")) {
        if (!CliCommand::TakeOption(args, "--ability", ability)) {
            error = QStringLiteral("--ability is missing its value");
            return false;
        }
        request.abilities << ability;
    }
    request.masterwork = takeFlag(args, "--masterwork");
    request.buy = takeFlag(args, "--buy");
    request.equip = takeFlag(args, "--equip");
    request.twoHands = takeFlag(args, "--two-hands");
    bool ok = true;
    if (!count.isEmpty()) {
        request.count = count.toInt(&ok);
        if (!ok || request.count < 1 || request.count > kMaxCount) {
            error = QStringLiteral("--count must be a whole number from 1 to %1").arg(kMaxCount);
            return false;
        }
    }
    if (!enhancement.isEmpty()) {
        request.enhancement = enhancement.toInt(&ok);
        if (!ok || request.enhancement < 1 || request.enhancement > kMaxEnhancement) {
            error = QStringLiteral("--enhancement must be from +1 to +%1").arg(kMaxEnhancement);
            return false;
        }
    }
    return true;
}

bool checkMagicRequest(const AddRequest& request, QString& error) {
    const bool arms = request.entry.itemType == kItemWeapon ||
                      request.entry.itemType == kItemArmor || request.entry.itemType == kItemShield;
    if ((request.enhancement > 0 || !request.abilities.isEmpty()) && !arms) {
        error = QStringLiteral("only weapons, armor and shields take --enhancement or --ability");
        return false;
    }
    if (!request.abilities.isEmpty() && request.enhancement < 1) {
        error = QStringLiteral("a special ability needs an enhancement of at least +1");
        return false;
    }
    if (request.masterwork && !arms) {
        error = QStringLiteral("only weapons, armor and shields have a masterwork form");
        return false;
    }
    return true;
}

// A copy of the item of the treasure file named `name` (its description, any case) or "#N"
// (the Nth item); null with the reason when there is none.
DChosenItem* takeFromTreasure(const QString& path, const QString& name, QString& error) {
    // A relative name is the user's, from where the command runs, not one of the data folder.
    FCRef<DTreasure> treasure(DTreasure::CreateFromFile(QFileInfo(path).absoluteFilePath()));
    if (!treasure) {
        error = QStringLiteral("%1 is not a readable treasure file").arg(path);
        return nullptr;
    }
    const auto& items = treasure->GetItemArray();
    bool isIndex = false;
    const int index = name.startsWith(QLatin1Char('#')) ? name.mid(1).toInt(&isIndex) : 0;
    for (int at = 0; at < items.GetCount(); ++at) {
        const DItem* item = items.At(at);
        const bool match = isIndex
                               ? index == at + 1
                               : item->GetItemDescription().compare(name, Qt::CaseInsensitive) == 0;
        if (match)
            return new DChosenItem(*item);
    }
    error = QStringLiteral("%1 holds no item %2 (see `hoard treasure show`)").arg(path, name);
    return nullptr;
}

QJsonObject describeAttack(const DOffenseLine& line) {
    QJsonArray bonuses;
    for (const int bonus : line.bonuses)
        bonuses.append(bonus);
    return QJsonObject{{"name", line.name},         {"bonus", bonuses},    {"damage", line.damage},
                       {"critical", line.critical}, {"range", line.range}, {"text", line.Text()}};
}

} // namespace

QString CharacterItems::HelpText() {
    return QStringLiteral(
        "add-item  gives the character ITEM (a weapon, armor, shield, goods, potion, ring, rod,\n"
        "          staff or wondrous item, as `hoard items` lists them). --count N for several,\n"
        "          --masterwork, --enhancement N (+1 to +5) and --ability NAME (repeatable) make\n"
        "          magic arms and armor; --buy pays for it from the character's money, --equip\n"
        "          puts it on or in hand (--two-hands for a two-handed grip). With --from\n"
        "          FILE.trs, ITEM is an item of that treasure (its name, or #N for the Nth)\n"
        "          and comes as it is, mind and curse included.\n"
        "equip, unequip\n"
        "          wears or takes off ITEM (its name, or #ID as `character show` lists it).\n"
        "remove-item\n"
        "          takes ITEM away; --sell refunds its price.\n");
}

int CharacterItems::RunAddItem(CliContext& context, QStringList args) {
    AddRequest request;
    QString error, treasure;
    const bool fromTreasure = args.contains(QStringLiteral("--from"));
    if (!CliCommand::TakeOption(args, "--from", treasure) || (fromTreasure && treasure.isEmpty()))
        return CliContext::Fail(QStringLiteral("--from needs a treasure file"));
    if (!parseAddRequest(args, request, error))
        return CliContext::Fail(error);
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr ITEM (see --help)"));
    if (fromTreasure && (request.count != 1 || request.masterwork || request.enhancement > 0 ||
                         !request.abilities.isEmpty()))
        return CliContext::Fail(
            QStringLiteral("an item --from a treasure comes as it is: no "
                           "--count, --masterwork, --enhancement or --ability"));
    QString path;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    DChosenItem* item = nullptr;
    if (fromTreasure) {
        FCRef<DChosenItem> found(takeFromTreasure(treasure, args[1], error));
        item = found ? fileItem(*character, std::move(found), request.buy, error) : nullptr;
    } else {
        if (!ItemCatalogue::Find(args[1], request.entry, error) ||
            !checkMagicRequest(request, error))
            return CliContext::Fail(error);
        item = addToCharacter(*character, request, error);
    }
    if (!item)
        return CliContext::Fail(error);
    if (request.equip) {
        error = equip(*character, item, request.twoHands);
        if (!error.isEmpty())
            return CliContext::Fail(error);
    }
    return CharacterCommand::SaveAndShow(context, *character, path);
}

namespace {

// Loads FILE.chr, finds ITEM among its items, hands both to `change` and saves the character
// when the change reports no error.
int ChangeOwnedItem(CliContext& context, const QStringList& args, bool preferEquipped,
                    const std::function<QString(DCharacter&, DChosenItem*)>& change) {
    if (args.size() != 2)
        return CliContext::Fail(QStringLiteral("give FILE.chr ITEM (see --help)"));
    QString path, error;
    FCRef<DCharacter> character(CharacterCommand::LoadFileArgument(context, args[0], path));
    if (!character)
        return 1;
    DChosenItem* item = findOwnedItem(*character, args[1], preferEquipped, error);
    if (item)
        error = change(*character, item);
    if (!error.isEmpty())
        return CliContext::Fail(error);
    return CharacterCommand::SaveAndShow(context, *character, path);
}

} // namespace

int CharacterItems::RunEquip(CliContext& context, QStringList args) {
    const bool twoHands = takeFlag(args, "--two-hands");
    return ChangeOwnedItem(context, args, false,
                           [twoHands](DCharacter& character, DChosenItem* item) {
                               return equip(character, item, twoHands);
                           });
}

int CharacterItems::RunUnequip(CliContext& context, QStringList args) {
    return ChangeOwnedItem(context, args, true, [](DCharacter& character, DChosenItem* item) {
        if (item->GetItemLocation() == DChosenItem::kLocationNone &&
            !DWielding::IsWielded(character, item->GetItemId()))
            return QStringLiteral("%1 is not equipped").arg(itemName(*item));
        unequip(character, item);
        return QString();
    });
}

int CharacterItems::RunRemoveItem(CliContext& context, QStringList args) {
    const bool sell = takeFlag(args, "--sell");
    return ChangeOwnedItem(context, args, false, [sell](DCharacter& character, DChosenItem* item) {
        if (item->GetItemLocation() != DChosenItem::kLocationNone)
            unequip(character, item);
        DHandBook::RemoveItem(&character, item, !sell, true);
        DHandBook::ComputeAndSetCharacterEncumberance(&character);
        return QString();
    });
}

void CharacterItems::Describe(const DCharacter& constCharacter, QJsonObject& description) {
    // The engine's read operations take a character they do not change.
    auto& character = const_cast<DCharacter&>(constCharacter);
    QJsonArray equipment;
    for (const auto& [id, item] : character.GetItemMap()) {
        if (isBuiltIn(*item))
            continue;
        const DItemInfo* base = item->GetBaseItemInfo();
        const bool equipped = item->GetItemLocation() != DChosenItem::kLocationNone ||
                              DWielding::IsWielded(character, id);
        equipment.append(QJsonObject{
            {"id", id},
            {"name", itemName(*item)},
            {"count", item->GetCount()},
            {"equipped", equipped},
            {"cost_gp", double(priceOf(*item)) / 100.0},
            {"weight", base ? double(base->GetWeight()) * item->GetCount() : 0.0},
        });
    }
    description.insert("equipment", equipment);
    const int load = std::clamp(character.GetCharacterStat(kStatLoadType), 0, 3);
    description.insert("load", QLatin1String(kLoadNames[load]));
    description.insert("carried_weight", double(character.GetCarriedWeight()));
    const auto* speed = FCDynamicCast<DAdjChosenSpeed>(character.GetBaseSpeedPointer());
    description.insert("speed", speed ? speed->GetAdjSpeedValue() : 0);
    description.insert("armor_check_penalty", character.GetCharacterStat(kStatArmorCheckPenalty));
    description.insert("spell_failure", DHandBook::GetArcaneSpellFailure(&character));
    const int maxDex = character.GetCharacterStat(kStatMaxDexterityBonus);
    description.insert("max_dex", maxDex < 0 || maxDex >= 100 ? QJsonValue() : QJsonValue(maxDex));
    description.insert("money", character.GetCurrency().GetCostDescription());
    QJsonArray attacks;
    for (const DOffenseLine& line : DHandBook::BuildOffenseLines(&character))
        attacks.append(describeAttack(line));
    description.insert("attacks", attacks);
}

void CharacterItems::Print(const QJsonObject& description) {
    QStringList items;
    for (const QJsonValue value : description["equipment"].toArray()) {
        const QJsonObject item = value.toObject();
        items << QStringLiteral("#%1 %2%3")
                     .arg(item["id"].toInt())
                     .arg(item["name"].toString(),
                          item["equipped"].toBool() ? QStringLiteral(" (equipped)") : QString());
    }
    CliContext::PrintLine(QStringLiteral("Money:      %1").arg(description["money"].toString()));
    CliContext::PrintLine(QStringLiteral("Equipment:  %1")
                              .arg(items.isEmpty() ? QStringLiteral("none") : items.join(", ")));
    const QJsonValue maxDex = description["max_dex"];
    CliContext::PrintLine(
        QStringLiteral("Load:       %1 (%2 lb.), speed %3 ft., armor check %4, spell failure "
                       "%5%, max Dex %6")
            .arg(description["load"].toString())
            .arg(description["carried_weight"].toDouble())
            .arg(description["speed"].toInt())
            .arg(description["armor_check_penalty"].toInt())
            .arg(description["spell_failure"].toInt())
            .arg(maxDex.isNull() ? QStringLiteral("-") : QString::number(maxDex.toInt())));
    QStringList attacks;
    for (const QJsonValue attack : description["attacks"].toArray())
        attacks << attack.toObject()["text"].toString();
    CliContext::PrintLine(
        QStringLiteral("Attacks:    %1")
            .arg(attacks.isEmpty() ? QStringLiteral("none") : attacks.join(QStringLiteral("; "))));
}
