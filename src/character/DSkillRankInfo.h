#pragma once

#include "DCharacterTypes.h"

#include <QUuid>

class FCArchive;

// The ranks of one skill bought in one class.
struct DSkillRankInfo {
    DSkillRankInfo() = default;
    DSkillRankInfo(const QUuid& classGuid, DSkillUsabilityType usability, float ranks)
        : mClassGuid(classGuid), mRanks(ranks), mUsability(usability) {}

    // A skill keeps one record per class, so records are found by class alone.
    bool operator==(const DSkillRankInfo& other) const { return mClassGuid == other.mClassGuid; }

    void Serialize(FCArchive& archive);

    QUuid mClassGuid;
    float mRanks = 0.0f;       // bought since the last level-up
    float mLockedRanks = 0.0f; // fixed by earlier level-ups
    DSkillUsabilityType mUsability = 0;
};
