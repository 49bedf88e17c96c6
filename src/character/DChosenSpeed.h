#pragma once

#include "FCObject.h"

#include <QtGlobal>

// One kind of movement of a character or race and its speed in feet.
class DChosenSpeed : public FCObject {
    FC_DECLARE_CLASS(DChosenSpeed)
public:
    DChosenSpeed() = default;
    DChosenSpeed(int speedId, int speedValue, int speedModId)
        : mSpeedId(speedId), mSpeedValue(speedValue), mSpeedModId(speedModId) {}
    DChosenSpeed(const DChosenSpeed& other) = default;
    DChosenSpeed& operator=(const DChosenSpeed& other) = default;
    ~DChosenSpeed() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    // Row of "[info Speed]".
    int GetSpeedId() const { return mSpeedId; }
    void SetSpeedId(int id) { mSpeedId = id; }
    int GetSpeedValue() const { return mSpeedValue; }
    void SetSpeedValue(int value) { mSpeedValue = value; }
    // Row of "[types Speed]", e.g. the manoeuvrability of a flyer.
    int GetSpeedModId() const { return mSpeedModId; }
    void SetSpeedModId(int id) { mSpeedModId = id; }

private:
    qint32 mSpeedId = 0;
    qint32 mSpeedValue = 0;
    qint32 mSpeedModId = 0;
};
