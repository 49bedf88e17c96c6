#pragma once

#include "DInfo.h"
#include "FCString.h"

// One class feature of "[info Features]".
class DFeatureInfo : public DInfo {
    FC_DECLARE_CLASS(DFeatureInfo)
public:
    // Feature types whose description shows the feature's data.
    enum : int {
        kFeatureTypeAbilityBonus = 3, // "(3 + data)"
        kFeatureTypeWeapon = 4,
        kFeatureTypeFavoredEnemy = 5, // a row of "[info Ranger Favored Enemy]"
    };

    FCObject* Clone() const override { return new DFeatureInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    QUuid GetPrimaryKeyGuid() const override { return mFeatureGuid; }

    const QUuid& GetFeatureGuid() const { return mFeatureGuid; }
    void SetFeatureGuid(const QUuid& guid) { mFeatureGuid = guid; }
    const FCString& GetFeatureName() const { return mFeatureName; }
    int GetFeatureGroup() const { return mFeatureGroup; }
    int GetFeatureType() const { return mFeatureType; }

    // The name, followed for a `data` other than -1 by what the data stands for.
    FCString GetDescription(int data) const;

private:
    QUuid mFeatureGuid;
    FCString mFeatureName;
    int mFeatureGroup = 0;
    int mFeatureType = 0;
};
