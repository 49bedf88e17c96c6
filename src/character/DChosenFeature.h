#pragma once

#include "DChosenFeatureBase.h"
#include "FCObject.h"

// A class feature that a character has, as it is stored.
class DChosenFeature : public FCObject, public DChosenFeatureBase {
    FC_DECLARE_CLASS(DChosenFeature)
public:
    // Feature flags.
    enum : unsigned {
        kFeatureAutomatic = 0x8,
    };

    DChosenFeature() = default;
    DChosenFeature(const DChosenFeature& other) = default;
    DChosenFeature& operator=(const DChosenFeature& other) = default;
    ~DChosenFeature() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    unsigned GetFeatureFlags() const { return mFeatureFlags; }
    void AddFeatureFlag(unsigned flag) { mFeatureFlags |= flag; }
    bool HasFeatureFlag(unsigned flag) const { return (mFeatureFlags & flag) != 0; }

private:
    quint32 mFeatureFlags = 0;
};
