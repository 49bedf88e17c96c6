#pragma once

#include <QUuid>

class FCArchive;

// A skill made a class skill of one class beyond what the class table says.
class DClassSkillType {
public:
    DClassSkillType() = default;
    DClassSkillType(const QUuid& classGuid, const QUuid& skillGuid)
        : mClassGuid(classGuid), mSkillGuid(skillGuid) {}

    QUuid GetClassGuid() const { return mClassGuid; }
    QUuid GetSkillGuid() const { return mSkillGuid; }

    // By class, then skill, each as its stored bytes.
    bool operator<(const DClassSkillType& other) const;
    bool operator==(const DClassSkillType& other) const = default;

    void Serialize(FCArchive& archive);

private:
    QUuid mClassGuid;
    QUuid mSkillGuid;
};
