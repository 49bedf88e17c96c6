#pragma once

#include "FCObject.h"

#include <QUuid>

// One step of a character's level history: the class taken and what that step gave.
class DCharHistory : public FCObject {
    FC_DECLARE_CLASS(DCharHistory)
public:
    // History flags.
    enum : unsigned {
        kHistoryExClass = 0x1,
        kHistoryRaceClass = 0x2, // the entry of the race's own class
        kHistoryApplied = 0x4,   // already counted into the class list
    };

    DCharHistory() = default;
    DCharHistory(const DCharHistory& other) = default;
    DCharHistory& operator=(const DCharHistory& other) = default;
    ~DCharHistory() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    QUuid GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }
    // Above 1 for an entry of racial hit dice.
    float GetLevel() const { return mLevel; }
    void SetLevel(float level) { mLevel = level; }

    unsigned GetHistoryFlags() const { return mHistoryFlags; }
    void AddHistoryFlag(unsigned flag) { mHistoryFlags |= flag; }
    void RemoveHistoryFlag(unsigned flag) { mHistoryFlags &= ~flag; }
    bool HasHistoryFlag(unsigned flag) const { return (mHistoryFlags & flag) != 0; }
    bool GetIsExClass() const { return HasHistoryFlag(kHistoryExClass); }
    void SetIsExClass(bool isExClass);

    QUuid GetSpecialClassGuid() const { return mSpecialClassGuid; }
    void SetSpecialClassGuid(const QUuid& guid) { mSpecialClassGuid = guid; }
    int GetCustomData() const { return mCustomData; }
    void SetCustomData(int data) { mCustomData = data; }
    int getHitpoints() const { return mHitpoints; }
    void setHitpoints(int hitpoints) { mHitpoints = hitpoints; }
    int getSkillpoints() const { return mSkillpoints; }
    void setSkillpoints(int skillpoints) { mSkillpoints = skillpoints; }

private:
    QUuid mClassGuid;
    float mLevel = 0.0f;
    quint32 mHistoryFlags = 0;
    QUuid mSpecialClassGuid;
    qint32 mCustomData = -1;
    qint32 mHitpoints = 0;
    qint32 mSkillpoints = 0;
};
