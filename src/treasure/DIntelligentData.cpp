#include "DIntelligentData.h"

#include "DAlignmentInfo.h"
#include "DChosenLanguage.h"
#include "DDatabase.h"
#include "DHandBook.h"
#include "DItemArchive.h"
#include "DRulesTypes.h"
#include "DTreasureGenerator.h"
#include "DTreasureTables.h"
#include "FCArchive.h"
#include "FCReleaser.h"

#include <algorithm>

FC_IMPLEMENT_CLASS(DIntelligentData, "FCObject", nullptr)

namespace {

// A language the item knows without paying for it.
constexpr unsigned kLanguageFlagFree = 0x8;
constexpr int kEgoPurpose = 4;
constexpr int kEgoGreaterPower = 2;

constexpr int kTableCommunicationNames = 92;
constexpr int kTableAbilityNames = 101;
constexpr int kTablePurposeNames = 103;
constexpr int kTablePurposePowerNames = 104;

QString NameOf(int table, int id) {
    const auto row = DTreasureGenerator::Tables().FindBy(table, "Id", id);
    return row ? row->String("Name") : QString();
}

QStringList NamesOf(int table, const FCArray<int>& ids) {
    QStringList names;
    for (const int id : ids)
        names << NameOf(table, id);
    names.removeAll(QString());
    return names;
}

} // namespace

DIntelligentData::DIntelligentData() {
    mLanguageMap.SetOwnership(kFCRetained);
    mPowerArray.SetOwnership(kFCRetained);
}

DIntelligentData::DIntelligentData(const DIntelligentData& other) : DIntelligentData() {
    *this = other;
}

DIntelligentData& DIntelligentData::operator=(const DIntelligentData& other) {
    if (this == &other)
        return *this;
    mIntelligence = other.mIntelligence;
    mWisdom = other.mWisdom;
    mCharisma = other.mCharisma;
    mAlignmentId = other.mAlignmentId;
    mLanguageMap.CloneFrom(other.mLanguageMap);
    mLanguageMap.SetOwnership(kFCRetained);
    mCommunicationArray = other.mCommunicationArray;
    mAbilityArray = other.mAbilityArray;
    DCloneList(mPowerArray, other.mPowerArray);
    mPurposeId = other.mPurposeId;
    mPurposePowerArray = other.mPurposePowerArray;
    mCanReadLanguages = other.mCanReadLanguages;
    mCanReadMagic = other.mCanReadMagic;
    mCost = other.mCost;
    return *this;
}

void DIntelligentData::Serialize(FCArchive& archive) {
    archive.Transfer(mIntelligence);
    archive.Transfer(mWisdom);
    archive.Transfer(mCharisma);
    archive.Transfer(mAlignmentId);
    mLanguageMap.Serialize(archive);
    mCommunicationArray.Serialize(archive);
    mAbilityArray.Serialize(archive);
    DTransferOwnedList(archive, mPowerArray);
    archive.Transfer(mPurposeId);
    mPurposePowerArray.Serialize(archive);
    archive.Transfer(mCanReadLanguages);
    archive.Transfer(mCanReadMagic);
    mCost.Serialize(archive);
}

qint32 DIntelligentData::GetAbilityStat(int ability) const {
    switch (ability) {
    case kAbilityIntelligence:
        return mIntelligence;
    case kAbilityWisdom:
        return mWisdom;
    case kAbilityCharisma:
        return mCharisma;
    default:
        return 0;
    }
}

void DIntelligentData::SetAbilityStat(int ability, qint32 value) {
    if (ability == kAbilityIntelligence)
        mIntelligence = value;
    else if (ability == kAbilityWisdom)
        mWisdom = value;
    else if (ability == kAbilityCharisma)
        mCharisma = value;
}

void DIntelligentData::AddLanguage(const QUuid& language) {
    if (language.isNull() || HasLanguage(language))
        return;
    FCRef<DChosenLanguage> chosen(new DChosenLanguage(language));
    chosen->AddLanguageFlag(kLanguageFlagFree);
    mLanguageMap.SetAt(language, chosen.get());
}

void DIntelligentData::AddCommunication(int type) {
    if (!HasCommunication(type))
        mCommunicationArray.Add(type);
}

void DIntelligentData::AddAbility(int id) {
    if (!HasAbility(id))
        mAbilityArray.Add(id);
}

void DIntelligentData::AddPower(qint32 id, qint32 frequency, qint32 data) {
    FCRef<DIntelligentPower> power(new DIntelligentPower(id, frequency, data));
    mPowerArray.Add(power.get());
}

DIntelligentPower* DIntelligentData::GetPower(qint32 id) const {
    for (DIntelligentPower* power : mPowerArray) {
        if (power && power->GetId() == id)
            return power;
    }
    return nullptr;
}

void DIntelligentData::AddPurposePower(int id) {
    if (mPurposePowerArray.Find(id) < 0)
        mPurposePowerArray.Add(id);
}

int DIntelligentData::GetEgo() const {
    int ego = mAbilityArray.GetCount();
    for (const DIntelligentPower* power : mPowerArray)
        ego += power ? kEgoGreaterPower * power->GetCount() : 0;
    if (mPurposeId > 0)
        ego += kEgoPurpose;
    if (HasCommunication(kCommunicationTelepathy))
        ++ego;
    if (mCanReadLanguages)
        ++ego;
    if (mCanReadMagic)
        ++ego;
    for (const int score : {mIntelligence, mWisdom, mCharisma})
        ego += std::max(0, DHandBook::GetAbilityModifier(score));
    return ego;
}

QString DIntelligentData::GetDescription() const {
    return QString::asprintf("Int %d Wis %d Cha %d", mIntelligence, mWisdom, mCharisma);
}

void DIntelligentData::GetPrintCoreText(int ego, FCString& out) const {
    QStringList reads;
    if (mCanReadLanguages)
        reads << QStringLiteral("Read Languages");
    if (mCanReadMagic)
        reads << QStringLiteral("Read Magic");
    QStringList lines{
        GetAlignmentName(),
        QString::asprintf("INT %d WIS %d CHA %d EGO %d", mIntelligence, mWisdom, mCharisma, ego),
        GetCommunicationNames().join(QStringLiteral(", ")),
        GetLanguageNames().join(QStringLiteral(", ")), reads.join(QStringLiteral(", "))};
    lines.removeAll(QString());
    out = lines.join(QStringLiteral("<br>"));
}

QString DIntelligentData::GetAlignmentName() const {
    const DAlignmentInfo* info = DDatabase::GetAlignmentInfo(mAlignmentId);
    return info ? QString(info->GetAlignmentName()) : QString();
}

QStringList DIntelligentData::GetCommunicationNames() const {
    return NamesOf(kTableCommunicationNames, mCommunicationArray);
}

QStringList DIntelligentData::GetLanguageNames() const {
    QStringList names;
    for (const auto& [guid, language] : mLanguageMap) {
        const auto row = DTreasureGenerator::Tables().FindByGuid(kTableLanguage, "Guid", guid);
        if (row)
            names << row->String("Name");
    }
    names.removeAll(QString());
    return names;
}

QStringList DIntelligentData::GetAbilityNames() const {
    return NamesOf(kTableAbilityNames, mAbilityArray);
}

QStringList DIntelligentData::GetPowerDescriptions() const {
    QStringList descriptions;
    for (const DIntelligentPower* power : mPowerArray) {
        if (power)
            descriptions << power->GetDescription();
    }
    descriptions.removeAll(QString());
    return descriptions;
}

QString DIntelligentData::GetPurposeName() const {
    return mPurposeId >= 0 ? NameOf(kTablePurposeNames, mPurposeId) : QString();
}

QStringList DIntelligentData::GetPurposePowerNames() const {
    return NamesOf(kTablePurposePowerNames, mPurposePowerArray);
}
