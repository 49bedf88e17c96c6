#pragma once

#include "DCoinData.h"
#include "DIntelligentPower.h"
#include "FCArray.h"
#include "FCObject.h"
#include "FCPointerArray.h"
#include "FCPointerMap.h"
#include "FCString.h"

#include <QString>
#include <QStringList>
#include <QUuid>

// The mind of an intelligent item: its mental scores, alignment, ways to talk, languages,
// lesser powers (primary abilities), greater powers and special purpose with its dedicated
// power. Its ego follows from these.
class DIntelligentData : public FCObject {
    FC_DECLARE_CLASS(DIntelligentData)
public:
    // Communication types of "[types Intelligent Communication]".
    enum : int { kCommunicationEmpathy = 1, kCommunicationSpeech = 2, kCommunicationTelepathy = 4 };

    DIntelligentData();
    DIntelligentData(const DIntelligentData& other);
    DIntelligentData& operator=(const DIntelligentData& other);
    ~DIntelligentData() override = default;

    DIntelligentData* Clone() const override { return new DIntelligentData(*this); }
    // Int, Wis, Cha, alignment; languages; communication; abilities; powers; purpose;
    // purpose powers; reads languages; reads magic; cost.
    void Serialize(FCArchive& archive) override;

    // Intelligence (3), Wisdom (4) and Charisma (5); any other ability is 0 and not set.
    qint32 GetAbilityStat(int ability) const;
    void SetAbilityStat(int ability, qint32 value);
    qint32 GetAlignmentId() const { return mAlignmentId; }
    void SetAlignmentId(qint32 id) { mAlignmentId = id; }

    const FCPointerMap<QUuid, FCObject>& GetLanguageMap() const { return mLanguageMap; }
    bool HasLanguage(const QUuid& language) const { return mLanguageMap.Contains(language); }
    // Known without cost, as an item knows its languages.
    void AddLanguage(const QUuid& language);

    const FCArray<int>& GetCommunicationArray() const { return mCommunicationArray; }
    void AddCommunication(int type);
    bool HasCommunication(int type) const { return mCommunicationArray.Find(type) >= 0; }

    // Lesser powers: rows of "[types Intelligent Item Abilities]".
    const FCArray<int>& GetAbilityArray() const { return mAbilityArray; }
    void AddAbility(int id);
    bool HasAbility(int id) const { return mAbilityArray.Find(id) >= 0; }

    const FCPointerArray<DIntelligentPower>& GetPowerArray() const { return mPowerArray; }
    void AddPower(qint32 id, qint32 frequency, qint32 data);
    // Null when the item lacks it.
    DIntelligentPower* GetPower(qint32 id) const;

    // A row of "[types Intelligent Item Purposes]", -1 for none.
    qint32 GetPurposeId() const { return mPurposeId; }
    void SetPurposeId(qint32 id) { mPurposeId = id; }
    // Dedicated powers: rows of "[types Intelligent Item Special Purpose Powers]".
    const FCArray<int>& GetPurposePowerArray() const { return mPurposePowerArray; }
    void AddPurposePower(int id);

    bool GetCanReadLanguages() const { return mCanReadLanguages; }
    void SetCanReadLanguages(bool can) { mCanReadLanguages = can; }
    bool GetCanReadMagic() const { return mCanReadMagic; }
    void SetCanReadMagic(bool can) { mCanReadMagic = can; }
    const DCoinData& GetCost() const { return mCost; }
    void SetCost(const DCoinData& cost) { mCost = cost; }

    // One point per lesser power, two per greater power (each time it was gained), four for a
    // special purpose, one each for telepathy, reading languages and reading magic, and the
    // Intelligence, Wisdom and Charisma bonuses.
    int GetEgo() const;
    // "Int %d Wis %d Cha %d".
    QString GetDescription() const;
    // The mind as a sheet prints it, lines joined by "<br>": alignment; scores with `ego`; ways
    // to talk; languages; what it reads. Empty lines are left out.
    void GetPrintCoreText(int ego, FCString& out) const;

    // Names of what the mind holds, for lists and sheets; rows the database lacks give none.
    QString GetAlignmentName() const;
    QStringList GetCommunicationNames() const;
    QStringList GetLanguageNames() const;
    QStringList GetAbilityNames() const;
    QStringList GetPowerDescriptions() const;
    QString GetPurposeName() const;
    QStringList GetPurposePowerNames() const;

private:
    qint32 mIntelligence = 8;
    qint32 mWisdom = 8;
    qint32 mCharisma = 8;
    qint32 mAlignmentId = 4;
    FCPointerMap<QUuid, FCObject> mLanguageMap;
    FCArray<int> mCommunicationArray;
    FCArray<int> mAbilityArray;
    FCPointerArray<DIntelligentPower> mPowerArray;
    qint32 mPurposeId = -1;
    FCArray<int> mPurposePowerArray;
    bool mCanReadLanguages = false;
    bool mCanReadMagic = false;
    DCoinData mCost;
};
