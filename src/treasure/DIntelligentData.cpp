#include "DIntelligentData.h"

#include "DChosenLanguage.h"
#include "DHandBook.h"
#include "DItemArchive.h"
#include "DRulesTypes.h"
#include "FCArchive.h"
#include "FCReleaser.h"

#include <algorithm>

FC_IMPLEMENT_CLASS(DIntelligentData, "FCObject", nullptr)

namespace {

// A language the item knows without paying for it.
constexpr unsigned kLanguageFlagFree = 0x8;
constexpr int kEgoPurpose = 4;
constexpr int kEgoGreaterPower = 2;

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
