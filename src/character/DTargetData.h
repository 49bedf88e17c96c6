#pragma once

#include "DTargetDataBase.h"
#include "FCObject.h"

// A bonus's target as it is stored; the text is not.
class DTargetData : public FCObject, public DTargetDataBase {
    FC_DECLARE_CLASS(DTargetData)
public:
    DTargetData() = default;
    DTargetData(const DTargetData& other) = default;
    DTargetData& operator=(const DTargetData& other) = default;
    ~DTargetData() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;
};
