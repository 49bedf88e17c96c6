#include "DCharacterGenerator.h"

#include "DCharHistory.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DChosenFeat.h"
#include "DChosenItem.h"
#include "DChosenSkill.h"
#include "DClassInfo.h"
#include "DCoinData.h"
#include "DCurrency.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DFeatInfo.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DItemType.h"
#include "DObjectManager.h"
#include "DOffenseItem.h"
#include "DRace.h"
#include "DRulesQuery.h"
#include "DSizeInfo.h"
#include "DSkillInfo.h"
#include "DWeaponInfo.h"
#include "FCRandom.h"
#include "FCReleaser.h"
#include "ResultSet.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kTableClassAlignmentRestrictions = 7;
constexpr int kTableAlignment = 5;
constexpr int kBaseClassType = 1;
constexpr int kMaxLevel = 20;
constexpr int kMaxEnhancement = 5;
constexpr int kMediumSize = 4;

constexpr const char* kPlayerRaces[] = {"Dwarf",    "Elf",      "Gnome", "Half-Elf",
                                        "Half-Orc", "Halfling", "Human"};

using AbilityOrder = std::array<int, DCharacter::kAbilityCount>;

// Where each class wants its best scores, best first.
AbilityOrder AbilityNeeds(const QString& className) {
    enum { S = kAbilityStrength, D, C, I, W, Ch };
    if (className == QLatin1String("Barbarian") || className == QLatin1String("Fighter"))
        return {S, C, D, W, I, Ch};
    if (className == QLatin1String("Paladin"))
        return {S, Ch, C, W, D, I};
    if (className == QLatin1String("Ranger"))
        return {D, S, W, C, I, Ch};
    if (className == QLatin1String("Rogue"))
        return {D, I, C, S, W, Ch};
    if (className == QLatin1String("Monk"))
        return {W, D, S, C, I, Ch};
    if (className == QLatin1String("Bard") || className == QLatin1String("Sorcerer"))
        return {Ch, D, C, I, W, S};
    if (className == QLatin1String("Cleric") || className == QLatin1String("Druid"))
        return {W, C, S, Ch, D, I};
    if (className == QLatin1String("Wizard"))
        return {I, D, C, W, Ch, S};
    return {S, D, C, I, W, Ch};
}

// Feats without a target, in the order a class of that kind takes them.
QStringList FeatWishes(bool caster) {
    if (caster)
        return {"Improved Initiative", "Combat Casting",           "Toughness", "Iron Will",
                "Lightning Reflexes",  "Great Fortitude",          "Alertness", "Dodge",
                "Spell Penetration",   "Greater Spell Penetration"};
    return {
        "Power Attack",    "Improved Initiative", "Cleave",       "Dodge",     "Toughness",
        "Combat Reflexes", "Iron Will",           "Great Cleave", "Mobility",  "Lightning Reflexes",
        "Great Fortitude", "Endurance",           "Blind-Fight",  "Alertness", "Run",
        "Spring Attack"};
}

QUuid FeatNamed(const QString& name) {
    for (const auto& [guid, info] : DDatabase::GetFeatInfoMap()) {
        if (static_cast<const DFeatInfo*>(info)->GetFeatName() == name)
            return guid;
    }
    return QUuid();
}

template <typename T> const T& Draw(const QList<T>& list) {
    return list.at(FC::GetRandom(0, int(list.size())));
}

QList<QUuid> BaseClasses() {
    QList<QUuid> classes;
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (static_cast<const DClassInfo*>(info)->mClassType == kBaseClassType && !guid.isNull())
            classes << guid;
    }
    return classes;
}

// The open rules' warrior, the class a humanoid without hit dice of its own appears in.
QUuid WarriorClass() {
    for (const auto& [guid, info] : DDatabase::GetClassInfoMap()) {
        if (static_cast<const DClassInfo*>(info)->mName == QLatin1String("Warrior"))
            return guid;
    }
    return QUuid();
}

QList<int> Alignments() {
    QList<int> ids;
    DDatabase::ForEachRow(QString::asprintf("SELECT Id FROM %s WHERE (Id>0) ORDER BY SortNum",
                                            DRulesQuery::Table(kTableAlignment).constData()),
                          [&ids](odbc::ResultSet* row) { ids << row->getInt(1); });
    return ids;
}

void PlaceAbilities(DCharacter& character, const QString& className) {
    FCArray<int> rolls;
    DHandBook::RollAbilityStats(kRoll4d6DropLowest, rolls);
    QList<int> scores(rolls.begin(), rolls.end());
    std::sort(scores.begin(), scores.end(), std::greater<int>());
    const AbilityOrder order = AbilityNeeds(className);
    for (int i = 0; i < DCharacter::kAbilityCount && i < scores.size(); ++i) {
        if (!character.IsNullAbility(order[size_t(i)]))
            DHandBook::ChangeAbilityStatBase(&character, DAbilityStatType(order[size_t(i)]),
                                             scores[i], false);
    }
}

// Ranks at the limit in the class skills keyed to the best scores, while the points last.
void BuySkills(DCharacter& character, DCharacterClass& characterClass) {
    struct Choice {
        QUuid skill;
        int modifier;
        QString name;
    };
    QList<Choice> choices;
    for (const auto& [guid, info] : DDatabase::GetSkillInfoMap()) {
        const auto* skill = static_cast<const DSkillInfo*>(info);
        if (skill->GetIsMultiType() ||
            DHandBook::ComputeSkillUsablility(&character, characterClass.GetClassGuid(), guid) != 1)
            continue;
        const int ability = skill->GetAbilityModId();
        const int modifier = ability >= 0 && ability < DCharacter::kAbilityCount
                                 ? DHandBook::GetAbilityModifier(character.GetAbilityStat(ability))
                                 : 0;
        choices.append({guid, modifier, skill->GetSkillName()});
    }
    std::sort(choices.begin(), choices.end(), [](const Choice& a, const Choice& b) {
        return a.modifier != b.modifier ? a.modifier > b.modifier : a.name < b.name;
    });
    character.SetActiveClassId(characterClass.GetClassGuid());
    for (const Choice& choice : choices) {
        const int points = characterClass.GetRemainingSkillPoints();
        if (points < 1)
            break;
        const DChosenSkill* held = character.GetSkillPointer(choice.skill, QUuid());
        const float room = DHandBook::ComputeMaxSkillRank(&character, choice.skill) -
                           (held ? held->GetTotalRanks() : 0.0f);
        const int ranks = std::min(points, int(room));
        if (ranks > 0)
            DHandBook::AddSkill(&character, choice.skill, QUuid(), 1, float(ranks), false);
    }
}

// The wished feats whose prerequisites hold: the class's bonus feats first from its own
// points, then the general points.
void TakeFeats(DCharacter& character, DCharacterClass& characterClass, bool caster) {
    for (const bool bonus : {true, false}) {
        for (const QString& name : FeatWishes(caster)) {
            const bool left = bonus ? characterClass.GetBonusFeatPoints() >
                                          characterClass.GetSpentBonusFeatPoints()
                                    : character.GetCharacterStat(kStatFeatPoints) >
                                          character.GetCharacterStat(kStatSpentFeatPoints);
            if (!left)
                break;
            const QUuid feat = FeatNamed(name);
            const DFeatInfo* info = DDatabase::GetFeatInfo(feat);
            if (!info ||
                (bonus && !DHandBook::IsFeatBonusForClass(characterClass.GetClassGuid(), feat)) ||
                !DHandBook::ComputeCanFeatBePurchased(&character, true, info, QUuid(), QUuid(),
                                                      true))
                continue;
            FCRef<DChosenFeat> chosen(new DChosenFeat());
            chosen->SetFeatGuid(feat);
            if (bonus) {
                chosen->AddFeatFlag(DChosenFeat::kFeatClassBonus);
                chosen->SetClassGuid(characterClass.GetClassGuid());
            }
            DHandBook::AddFeat(&character, true, chosen.get());
        }
    }
}

qint64 Purse(DCharacter& character) {
    return character.GetCurrency().GetCopperCost();
}

// The rule row of that name and type, or null.
FCRef<DItemInfo> Row(int itemType, const QString& name) {
    QUuid guid;
    DDatabase::FirstRow(
        QString::asprintf("SELECT Guid FROM %s WHERE (Name='%s')",
                          DRulesQuery::Table(DDatabase::GetItemTypeTableId(itemType)).constData(),
                          qUtf8Printable(name)),
        [&guid](odbc::ResultSet* row) { guid = row->getGUID(1); });
    return FCRef<DItemInfo>(guid.isNull() ? nullptr : DHandBook::BuildItemInfo(itemType, guid));
}

// The best of `names` the purse allows, made magic with the highest bonus a third of the
// purse pays for; bought and equipped. False when nothing is affordable.
// The heaviest load the character carries at a light load.
float LightLoad(DCharacter& character) {
    DCarryInfo carry;
    const DSizeInfo* size = character.GetSizeInfo();
    DHandBook::ComputeCarryingCapcity(character.GetAbilityStat(kAbilityStrength),
                                      size ? size->GetSizeId() : kMediumSize, carry);
    return carry.light;
}

// The row made to fit the character: rows list arms and armor made for a Medium body, and a
// smaller or larger one gets them the same number of sizes away. `size` is the size asked for
// (-1: as listed); null when the listed row fits as it is.
FCRef<DItemInfo> Fitted(DCharacter& character, DItemInfo* listed, int& size) {
    const DSizeInfo* body = character.GetSizeInfo();
    const int shift = (body ? body->GetSizeId() : kMediumSize) - kMediumSize;
    size = shift != 0 && listed->CanBeResized() ? listed->GetSizeType() + shift : -1;
    return FCRef<DItemInfo>(DHandBook::CreateSizeAdjustedItem(&character, listed, size));
}

// Carries the item; a weapon joins offense group `group` with the grip it takes; with
// `equip` it is also put on or taken in hand. The weapon's offense item, or none.
DOffenseItem TakeUp(DCharacter& character, DChosenItem* item, int group, bool equip) {
    DHandBook::AddChosenItemToCharacter(&character, item, false);
    DHandBook::ToggleItemCarryingStatus(&character, item, false);
    DOffenseItem wielded;
    // A magic weapon's info is its custom record; its grip is the base weapon's.
    if (const auto* weapon = FCDynamicCast<DWeaponInfo>(item->GetBaseItemInfo())) {
        const int uses = DHandBook::GetCharacterWeaponUses(&character, weapon);
        quint32 grip = (uses & 1) ? DOffenseItem::kOffenseOneHand : DOffenseItem::kOffenseTwoHands;
        if (DHandBook::IsWeaponLight(&character, weapon))
            grip |= DOffenseItem::kOffenseLight;
        wielded = DOffenseItem(DOffenseItem::kOffenseWeapon, item->GetItemId(), grip);
        character.AddOffenseToGroup(group, wielded);
    }
    if (equip)
        DHandBook::EquipItem(&character, item, true);
    return wielded;
}

bool BuyBest(DCharacter& character, int itemType, const QStringList& names) {
    for (const QString& name : names) {
        FCRef<DItemInfo> listed = Row(itemType, name);
        if (!listed)
            continue;
        int size = -1;
        FCRef<DItemInfo> fitted = Fitted(character, listed.get(), size);
        DItemInfo* row = fitted ? fitted.get() : listed.get();
        DCoinData cost;
        DHandBook::ComputeItemCost(listed.get(), &character, 0, size, cost);
        DCurrency price;
        price.SetAmount(cost.GetCoinType(), cost.GetCoinCount());
        const auto* weapon = FCDynamicCast<DWeaponInfo>(row);
        // Nothing that the character cannot pay, wield, or carry at a light load.
        if (price.GetCopperCost() > Purse(character) ||
            (weapon && DHandBook::GetCharacterWeaponUses(&character, weapon) == 0) ||
            character.GetCarriedWeight() + row->GetWeight() > LightLoad(character))
            continue;
        FCRef<DChosenItem> item(new DChosenItem);
        item->SetItemInfo(row);
        item->SetMarketCost(cost.GetCoinCount(), cost.GetCoinType());
        for (int bonus = kMaxEnhancement; bonus >= 1; --bonus) {
            FCRef<DCustomMagicItemInfo> custom(new DCustomMagicItemInfo);
            custom->SetBaseItemInfo(row);
            custom->SetBonus(bonus);
            custom->SetCustomFlags(0x1);
            DCoinData magicCost;
            DHandBook::ComputeCustomMagicItemCost(custom.get(), -1, &magicCost);
            if (qint64(magicCost.GetCoinCount()) * 100 * 3 <= Purse(character)) {
                item->SetItemInfo(custom.get());
                item->SetMarketCost(magicCost.GetCoinCount(), magicCost.GetCoinType());
                break;
            }
        }
        TakeUp(character, item.get(), 0, true);
        return true;
    }
    return false;
}

// A creature that carries weapons fights with them first, as its stat block lists them: the
// routines that hold a weapon move ahead of those of natural attacks alone, each keeping its
// order.
void WeaponRoutinesFirst(DCharacter& monster) {
    FCPointerArray<DOffenseGroup>& groups = monster.GetOffenseGroupArray();
    FCPointerArray<DOffenseGroup> armed, natural;
    armed.SetOwnership(kFCRetained);
    natural.SetOwnership(kFCRetained);
    for (DOffenseGroup* group : groups) {
        bool holdsWeapon = false;
        for (const DOffenseItem& item : group->GetOffenseItemArray())
            holdsWeapon = holdsWeapon || item.GetOffenseType() == DOffenseItem::kOffenseWeapon;
        (holdsWeapon ? armed : natural).Add(group);
    }
    groups.RemoveAll();
    for (DOffenseGroup* group : armed)
        groups.Add(group);
    for (DOffenseGroup* group : natural)
        groups.Add(group);
}

// The gear its race shows a monster with ("Gear: Greatclub", "Gear: Hide"), made to its size:
// armor and shield worn, the first weapon in hand, each weapon an attack routine of its own
// (or leading the routines fought beside it), ahead of the natural ones.
void GiveGear(DCharacter& monster) {
    static const QString prefix = QStringLiteral("Gear: ");
    // The race's routines fought beside its weapon ("greataxe and gore").
    QList<int> beside;
    for (int g = 0; g < monster.GetOffenseGroupArray().GetCount(); ++g) {
        for (const DOffenseItem& item : monster.GetOffenseGroup(g)->GetOffenseItemArray()) {
            if (item.HasOffenseFlag(DOffenseItem::kOffenseBesideWeapon) && !beside.contains(g))
                beside << g;
        }
    }
    bool armed = false;
    for (const FCString& feature : monster.GetRace()->GetRaceFeatureArray()) {
        const QString text = feature;
        if (!text.startsWith(prefix))
            continue;
        for (const int itemType : {kItemWeapon, kItemArmor, kItemShield}) {
            FCRef<DItemInfo> listed = Row(itemType, text.mid(prefix.size()));
            if (!listed)
                continue;
            int size = -1;
            FCRef<DItemInfo> fitted = Fitted(monster, listed.get(), size);
            FCRef<DChosenItem> item(new DChosenItem);
            item->SetItemInfo(fitted ? fitted.get() : listed.get());
            const bool weapon = itemType == kItemWeapon;
            if (weapon && !armed && !beside.isEmpty()) {
                // The first weapon leads the routines fought beside it, not one of its own.
                const DOffenseItem held = TakeUp(monster, item.get(), beside.first(), true);
                for (const int g : beside) {
                    if (g != beside.first())
                        monster.AddOffenseToGroup(g, held);
                    monster.GetOffenseGroup(g)->MoveOffenseItem(held, 0);
                }
            } else {
                TakeUp(monster, item.get(), monster.GetOffenseGroupArray().GetCount(),
                       !weapon || !armed);
            }
            armed = armed || weapon;
            break;
        }
    }
    if (armed)
        WeaponRoutinesFirst(monster);
}

void BuyEquipment(DCharacter& character) {
    const bool heavy = character.HasProfFlag(DCharacter::kProfHeavyArmor);
    const bool medium = character.HasProfFlag(DCharacter::kProfMediumArmor);
    const bool light = character.HasProfFlag(DCharacter::kProfLightArmor);
    const bool martial = character.HasProfFlag(DCharacter::kProfMartial);
    // The weapon first: a fighter without armor still fights.
    if (martial)
        BuyBest(character, kItemWeapon, {"Longsword", "Battleaxe", "Handaxe"});
    else
        BuyBest(character, kItemWeapon, {"Morningstar", "Mace, heavy", "Quarterstaff", "Dagger"});
    if (heavy)
        BuyBest(character, kItemArmor,
                {"Full plate", "Banded mail", "Splint mail", "Chainmail", "Scale mail", "Hide",
                 "Leather"});
    else if (medium)
        BuyBest(character, kItemArmor,
                {"Breastplate", "Chainmail", "Scale mail", "Hide", "Studded leather", "Leather"});
    else if (light)
        BuyBest(character, kItemArmor, {"Chain shirt", "Studded leather", "Leather", "Padded"});
    if (character.HasProfFlag(DCharacter::kProfShield))
        BuyBest(character, kItemShield, {"Shield, heavy steel", "Shield, heavy wooden"});
}

} // namespace

QStringList DCharacterGenerator::PlayerRaceNames() {
    QStringList names;
    for (const char* name : kPlayerRaces)
        names << QLatin1String(name);
    return names;
}

bool DCharacterGenerator::IsBaseClass(const QUuid& classGuid) {
    return BaseClasses().contains(classGuid);
}

bool DCharacterGenerator::IsAlignmentAllowed(const QUuid& classGuid, int alignmentId) {
    return !DRulesQuery::HasRow(
        QString::asprintf("SELECT ClassId FROM %s WHERE (ClassId=%s) AND (AlignmentId=%d)",
                          DRulesQuery::Table(kTableClassAlignmentRestrictions).constData(),
                          DRulesQuery::Guid(classGuid).constData(), alignmentId));
}

DCharacter* DCharacterGenerator::GenerateCharacter(const Request& request, QString& error) {
    FCRef<DFileObject> drawnRace;
    DFileObject* race = request.race;
    if (!race) {
        drawnRace.reset(DObjectManager::CreateFileObject(
            kObjectRace, kFileCore, FCString(Draw(PlayerRaceNames()) + QStringLiteral(".rac"))));
        race = drawnRace.get();
    }
    const QUuid classGuid = request.classGuid.isNull() ? Draw(BaseClasses()) : request.classGuid;
    const DClassInfo* classInfo = DDatabase::GetClassInfoA(classGuid);
    if (!race || !classInfo) {
        error = QStringLiteral("the race or class cannot be found in the rules");
        return nullptr;
    }
    int alignment = request.alignmentId;
    if (alignment < 0) {
        QList<int> allowed;
        for (const int id : Alignments()) {
            if (IsAlignmentAllowed(classGuid, id))
                allowed << id;
        }
        alignment = allowed.isEmpty() ? Draw(Alignments()) : Draw(allowed);
    }
    FCRef<DCharacter> character(new DCharacter());
    DHandBook::SetupCharacterWithRace(character.get(), race);
    if (!character->GetRace()) {
        error = QStringLiteral("the race file %1 cannot be read").arg(race->GetAccessFilePath());
        return nullptr;
    }
    // Racial hit dice count toward the twenty levels.
    const int raceDice = int(character->GetRace()->GetHitDieCount());
    int level = request.level > 0 ? request.level : FC::GetRandom(1, kMaxLevel + 1);
    level = std::max(1, std::min(level, kMaxLevel - raceDice));
    character->SetCharacterName(FCString(QStringLiteral("%1 %2").arg(
        QString(character->GetRace()->GetRaceName()), QString(classInfo->mName))));
    character->AddHistory(classGuid, 1.0f);
    DHandBook::CharacterSetup(character.get(), true);
    character->SetAlignmentId(alignment);
    PlaceAbilities(*character, classInfo->mName);
    const bool caster = DHandBook::GetCasterFlags(classGuid) != 0;
    DCharacterClass* own = character->GetClassPointer(classGuid);
    BuySkills(*character, *own);
    TakeFeats(*character, *own, caster);
    for (int next = 2; next <= level; ++next) {
        DHandBook::AddCharacterLevel(character.get(), classGuid, false);
        DCharacterClass* levelled = character->GetClassPointer(classGuid);
        BuySkills(*character, *levelled);
        TakeFeats(*character, *levelled, caster);
    }
    DHandBook::ComputeAndSetExperiencePoints(character.get());
    // The wealth of the level, spent on arms and armor.
    character->GetCurrency().ClearAll();
    character->GetCurrency().SetAmount(2, character->GetBaselineGold());
    BuyEquipment(*character);
    DHandBook::ComputeAndSetCharacterEncumberance(character.get());
    return character.release();
}

DCharacter* DCharacterGenerator::GenerateMonster(DFileObject* race, int hitDice, QString& error) {
    FCRef<DCharacter> monster(new DCharacter());
    DHandBook::SetupCharacterWithRace(monster.get(), race);
    const DRace* own = monster->GetRace();
    if (!own) {
        error = QStringLiteral("the race file cannot be read");
        return nullptr;
    }
    monster->SetCharacterName(own->GetRaceName());
    // A race with no hit dice of its own (a goblin, an orc) meets the party as the open rules
    // show it: a warrior of one level, or of `hitDice` levels.
    if (const QUuid warrior = WarriorClass(); own->GetHitDieCount() <= 0.0f && !warrior.isNull()) {
        for (int level = 0; level < std::clamp(hitDice, 1, kMaxLevel); ++level)
            monster->AddHistory(warrior, 1.0f);
        DHandBook::CharacterSetup(monster.get(), true);
        // The open rules' warriors stand on 13, 11, 12, 10, 9, 8 before their race.
        static constexpr int kWarriorScores[kAbilityCount] = {13, 11, 12, 10, 9, 8};
        for (int ability = 0; ability < kAbilityCount; ++ability)
            DHandBook::ChangeAbilityStatBase(monster.get(), DAbilityStatType(ability),
                                             kWarriorScores[ability], false);
        GiveGear(*monster);
        return monster.release();
    }
    DHandBook::CharacterSetup(monster.get(), true);
    if (hitDice > 0 && float(hitDice) != own->GetHitDieCount()) {
        if (own->GetAdvanceArray().IsEmpty() || float(hitDice) > own->GetMaxHitDieCount()) {
            error = QStringLiteral("%1 cannot have %2 hit dice (its range: %3 to %4)")
                        .arg(QString(own->GetRaceName()))
                        .arg(hitDice)
                        .arg(double(own->GetHitDieCount()))
                        .arg(double(std::max(own->GetHitDieCount(), own->GetMaxHitDieCount())));
            return nullptr;
        }
        DHandBook::AdvanceCharacterWithHD(monster.get(), own->GetHitDieCount(), float(hitDice),
                                          false);
        // The added dice spend their points as a generated character's do: ranks in the
        // creature's own skills, feats whose prerequisites hold.
        if (DCharacterClass* raceClass = monster->GetClassPointer(own->GetClassGuid())) {
            BuySkills(*monster, *raceClass);
            TakeFeats(*monster, *raceClass, false);
        }
    }
    GiveGear(*monster);
    return monster.release();
}
