#include "DIntelligentItemGenerator.h"

#include "DAlignmentInfo.h"
#include "DCustomMagicItemInfo.h"
#include "DDatabase.h"
#include "DDieRoller.h"
#include "DHandBook.h"
#include "DIntelligentData.h"
#include "DItem.h"
#include "DTreasureGenerator.h"
#include "DTreasureTables.h"
#include "DWeaponInfo.h"
#include "FCRandom.h"
#include "FCReleaser.h"

#include <algorithm>
#include <array>

namespace {

using Row = DTreasureTables::Row;

constexpr int kTableCapabilities = 94;
constexpr int kTableItemAlignment = 95;
constexpr int kTableLesserPowers = 96;
constexpr int kTableGreaterPowers = 97;
constexpr int kTablePurposes = 98;
constexpr int kTableDedicatedPowers = 99;
constexpr int kTableChance = 100;
constexpr int kTableLesserPowerNames = 101;
constexpr int kTableGreaterPowerNames = 102;
constexpr int kTablePurposeNames = 103;
constexpr int kTableDedicatedPowerNames = 104;
constexpr int kTableFrequencyNames = 123;
constexpr int kTableScoreOrder = 204;

// The language every intelligent item speaks.
constexpr QUuid kCommonLanguage(0xE3628EF2, 0xA099, 0x49F1, 0xBB, 0x56, 0xB9, 0x96, 0xF6, 0x4B,
                                0x04, 0xE9);
// A greater power that works continuously cannot be had twice.
constexpr int kFrequencyContinuous = 2;
// "Special" of a power row: roll twice more; take a greater power instead; special purpose.
constexpr int kSpecialRollTwice = 2;
constexpr int kSpecialGreaterPower = 3;
constexpr int kSpecialPurpose = 4;
// The rules let an item with greater powers have a special purpose (and its dedicated power)
// instead of one of them, at the game master's choice; a generated item takes it even odds.
constexpr int kPurposeInsteadOfPowerPercent = 50;

int Percentile() {
    return DDieRoller::RollDie(100);
}

DTreasureTables& Tables() {
    return DTreasureGenerator::Tables();
}

QString NameOf(int table, int id) {
    const auto row = Tables().FindBy(table, "Id", id);
    return row ? row->String("Name") : QString();
}

int RollScore(const Row& row, const char* count, const char* die, int mod) {
    const int dice = row.Int(count);
    return (dice > 0 ? DDieRoller::RollDiceSum(row.Int(die), unsigned(dice)) : 0) + mod;
}

bool IsRanged(const DItemInfo* info) {
    const auto* weapon = FCDynamicCast<DWeaponInfo>(info);
    return weapon && weapon->GetRangeIncrement() > 0;
}

} // namespace

int DIntelligentItemGenerator::GetChanceOfIntelligence(const DItemInfo* info) {
    if (!info)
        return 0;
    const int type = info->GetItemType();
    const int sub = type == kItemWeapon && IsRanged(info) ? 1 : 0;
    const DTreasureTables::Table& table = Tables().Get(kTableChance);
    for (int index = 0; index < table.RowCount(); ++index) {
        const Row row(&table, index);
        if (row.Int("Id") == type && row.Int("SubId") == sub)
            return row.Int("Chance");
    }
    return 0;
}

bool DIntelligentItemGenerator::ShouldItemBeIntelligent(const DItem* item) {
    const DItemInfo* info = item ? item->GetItemInfo() : nullptr;
    if (!info)
        return false;
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(info))
        info = custom->GetBaseItemInfo();
    const int chance = GetChanceOfIntelligence(info);
    return chance > 0 && Percentile() <= chance;
}

DIntelligentData* DIntelligentItemGenerator::GenerateIntelligentData() {
    const auto order = Tables().FindBy(kTableScoreOrder, "Id", DDieRoller::RollDie(4));
    if (!order)
        return nullptr;
    const auto row = Tables().Find(kTableCapabilities, Percentile());
    if (!row)
        return nullptr;
    auto* data = new DIntelligentData;
    const int favoredMod = row->Int("FavoredDieMod");
    std::array<int, 3> scores = {RollScore(*row, "FavoredDieCount", "FavoredDieType", favoredMod),
                                 RollScore(*row, "FavoredDieCount", "FavoredDieType", favoredMod),
                                 RollScore(*row, "NormalDieCount", "NormalDieType", 0)};
    std::sort(scores.begin(), scores.end());
    data->SetAbilityStat(order->Int("Low"), scores[0]);
    data->SetAbilityStat(order->Int("Medium"), scores[1]);
    data->SetAbilityStat(order->Int("High"), scores[2]);
    for (const char* column : {"Communication1", "Communication2"}) {
        if (row->Int(column) > 0)
            data->AddCommunication(row->Int(column));
    }
    data->SetCanReadLanguages(row->Bool("CanReadLanguages"));
    data->SetCanReadMagic(row->Bool("CanReadMagic"));
    GenerateIntelligentAlignment(data);
    GenerateIntelligentLanguages(data);
    GenerateIntelligentAbilitiesAndPowers(data, row->Int("PrimaryAbilities"), row->Int("Powers"));
    return data;
}

void DIntelligentItemGenerator::GenerateIntelligentAlignment(DIntelligentData* data) {
    if (const auto row = Tables().Find(kTableItemAlignment, Percentile()))
        data->SetAlignmentId(row->Int("AlignmentId"));
}

void DIntelligentItemGenerator::GenerateIntelligentLanguages(DIntelligentData* data) {
    data->AddLanguage(kCommonLanguage);
    const DTreasureTables::Table& languages = Tables().Get(kTableLanguage);
    const int known =
        std::max(0, DHandBook::GetAbilityModifier(data->GetAbilityStat(kAbilityIntelligence)));
    // Each further language is a different one; there are only so many to learn.
    const int wanted = std::min(known, languages.RowCount() - 1);
    for (int turn = 0; turn < wanted && languages.RowCount() > 0;) {
        const QUuid language = Row(&languages, FC::GetRandom(0, languages.RowCount())).Guid("Guid");
        if (language.isNull()) {
            ++turn;
        } else if (!data->HasLanguage(language)) {
            data->AddLanguage(language);
            ++turn;
        }
    }
}

void DIntelligentItemGenerator::GenerateIntelligentAbilitiesAndPowers(DIntelligentData* data,
                                                                      int abilities, int powers) {
    while (abilities > 0) {
        int id = -1, special = -1;
        DTreasureGenerator::PickRandomIdAndSpecial(kTableLesserPowers, id, special);
        if (id > 0 && data->HasAbility(id))
            continue; // the same power twice: roll again
        --abilities;
        if (id > 0)
            data->AddAbility(id);
        if (special == kSpecialRollTwice)
            abilities += 2;
        else if (special == kSpecialGreaterPower)
            ++powers;
    }
    bool purpose = false;
    if (powers > 0 && Percentile() <= kPurposeInsteadOfPowerPercent) {
        --powers;
        purpose = true;
    }
    while (powers > 0) {
        int id = -1, special = -1;
        DTreasureGenerator::PickRandomIdAndSpecial(kTableGreaterPowers, id, special);
        const auto row = id > 0 ? Tables().FindBy(kTableGreaterPowerNames, "Id", id) : std::nullopt;
        if (row) {
            DIntelligentPower* held = data->GetPower(id);
            if (!held) {
                data->AddPower(id, row->Int("Frequency"), row->Int("Data"));
            } else if (held->GetFrequencyType() == kFrequencyContinuous) {
                continue; // cannot be had twice: roll again
            } else {
                held->AdjustCount(1);
                held->AdjustData(row->Int("Data"));
            }
        }
        --powers;
        if (special == kSpecialRollTwice) {
            powers += 2;
        } else if (special == kSpecialPurpose) {
            ++powers;
            purpose = true;
        }
    }
    if (!purpose)
        return;
    const int purposeId = DTreasureGenerator::PickRandomId(kTablePurposes);
    if (purposeId < 0)
        return;
    data->SetPurposeId(purposeId);
    const int dedicated = DTreasureGenerator::PickRandomId(kTableDedicatedPowers);
    if (dedicated >= 0)
        data->AddPurposePower(dedicated);
}

int DIntelligentItemGenerator::GetItemEgo(const DItem& item) {
    const auto* magic = FCDynamicCast<DMagicItemInfo>(item.GetItemInfo());
    const auto* data =
        magic ? FCDynamicCast<DIntelligentData>(magic->GetIntelligentData()) : nullptr;
    if (!data)
        return 0;
    int ego = data->GetEgo();
    if (const auto* custom = FCDynamicCast<DCustomMagicItemInfo>(magic))
        ego += std::max(0, custom->GetBonus()) + custom->GetSpecialAbilityBonus();
    return ego;
}

QStringList DIntelligentItemGenerator::GetPowerNames(const DIntelligentData& data) {
    QStringList names;
    for (const int id : data.GetAbilityArray())
        names << NameOf(kTableLesserPowerNames, id);
    for (const DIntelligentPower* power : data.GetPowerArray()) {
        QString name = NameOf(kTableGreaterPowerNames, power->GetId());
        if (power->GetCount() > 1)
            name += QStringLiteral(" (%1 %2)")
                        .arg(power->GetData())
                        .arg(NameOf(kTableFrequencyNames, power->GetFrequencyType()).toLower());
        names << name;
    }
    if (data.GetPurposeId() > 0)
        names << QStringLiteral("Purpose: ") + NameOf(kTablePurposeNames, data.GetPurposeId());
    for (const int id : data.GetPurposePowerArray())
        names << QStringLiteral("Dedicated: ") + NameOf(kTableDedicatedPowerNames, id);
    names.removeAll(QString());
    return names;
}

QString DIntelligentItemGenerator::GetAlignmentName(const DIntelligentData& data) {
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(data.GetAlignmentId());
    return info ? QString(info->GetAlignmentName()) : QString();
}
