#pragma once

#include "DChosenSpeed.h"

// A speed together with its value after load and armor.
class DAdjChosenSpeed : public DChosenSpeed {
    FC_DECLARE_CLASS(DAdjChosenSpeed)
public:
    DAdjChosenSpeed() = default;
    // Nothing slows the speed yet, so the adjusted value starts at the speed itself.
    explicit DAdjChosenSpeed(const DChosenSpeed& speed)
        : DChosenSpeed(speed), mAdjSpeedValue(speed.GetSpeedValue()) {}
    DAdjChosenSpeed(const DAdjChosenSpeed& other) = default;
    DAdjChosenSpeed& operator=(const DAdjChosenSpeed& other) = default;
    ~DAdjChosenSpeed() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    int GetAdjSpeedValue() const { return mAdjSpeedValue; }
    void SetAdjSpeedValue(int value) { mAdjSpeedValue = value; }

private:
    qint32 mAdjSpeedValue = 0;
};
