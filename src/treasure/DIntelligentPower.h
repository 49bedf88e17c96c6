#pragma once

#include "DInfo.h"

// One greater power of an intelligent item: a row of "[types Intelligent Item Extraordinary
// Powers]", how often it works, and how many times the item has it.
class DIntelligentPower : public DInfo {
    FC_DECLARE_CLASS(DIntelligentPower)
public:
    DIntelligentPower() = default;
    DIntelligentPower(qint32 id, qint32 frequency, qint32 data)
        : mId(id), mFrequencyType(frequency), mData(data) {}

    DIntelligentPower* Clone() const override { return new DIntelligentPower(*this); }
    // Id; frequency; data; count.
    void Serialize(FCArchive& archive) override;
    // "Id", "Frequency", "Data".
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mId; }
    bool operator==(const DIntelligentPower& other) const { return mId == other.mId; }

    qint32 GetId() const { return mId; }
    // "Name (uses frequency)", the uses only above 0; empty without a row for the power.
    QString GetDescription() const;
    // A row of "[types Frequency]": 0 at will, 1 per day, 2 continuous.
    qint32 GetFrequencyType() const { return mFrequencyType; }
    // Uses per day for a power of frequency 1.
    qint32 GetData() const { return mData; }
    void AdjustData(qint32 delta) { mData += delta; }
    // A power rolled again counts again for the item's ego.
    qint32 GetCount() const { return mCount; }
    void AdjustCount(qint32 delta) { mCount += delta; }

private:
    qint32 mId = -1;
    qint32 mFrequencyType = 1;
    qint32 mData = 0;
    qint32 mCount = 1;
};
