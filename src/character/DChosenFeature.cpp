#include "DChosenFeature.h"

#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DChosenFeature, "FCObject", nullptr)

FCObject* DChosenFeature::Clone() const {
    return new DChosenFeature(*this);
}

void DChosenFeature::Serialize(FCArchive& archive) {
    FCObject::Serialize(archive);
    archive.Transfer(mFeatureGuid);
    archive.Transfer(mFeatureGroup);
    archive.Transfer(mFeatureType);
    archive.Transfer(mFeatureData);
    // The flags come before the class in the file layout.
    archive.Transfer(mFeatureFlags);
    archive.Transfer(mClassGuid);
}
