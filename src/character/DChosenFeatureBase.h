#pragma once

#include "DCharacterTypes.h"
#include "DGuid.h"

#include <QUuid>

// The values of a class feature that a character has; DChosenFeature makes it persistent.
class DChosenFeatureBase {
public:
    QUuid GetFeatureGuid() const { return mFeatureGuid; }
    void SetFeatureGuid(const QUuid& guid) { mFeatureGuid = guid; }
    DFeatureGroupType GetFeatureGroup() const { return mFeatureGroup; }
    void SetFeatureGroup(DFeatureGroupType group) { mFeatureGroup = group; }
    DFeatureType GetFeatureType() const { return mFeatureType; }
    void SetFeatureType(DFeatureType type) { mFeatureType = type; }

    // The data is a whole number in the first four bytes or a GUID, by feature type.
    int GetFeatureData() const { return DGuid::GetLong(mFeatureData); }
    void SetFeatureData(int data) { DGuid::SetLong(mFeatureData, data); }
    QUuid GetFeatureDataGuid() const { return mFeatureData; }
    void SetFeatureDataGuid(const QUuid& guid) { mFeatureData = guid; }

    QUuid GetClassGuid() const { return mClassGuid; }
    void SetClassGuid(const QUuid& guid) { mClassGuid = guid; }

protected:
    QUuid mFeatureGuid;
    DFeatureGroupType mFeatureGroup = 0;
    DFeatureType mFeatureType = 0;
    QUuid mFeatureData;
    QUuid mClassGuid;
};
