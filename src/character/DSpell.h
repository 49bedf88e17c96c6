#pragma once

#include "DSpellBase.h"
#include "FCObject.h"

// A spell that a race or a special attack grants, cast without preparation.
class DSpell : public FCObject, public DSpellBase {
    FC_DECLARE_CLASS(DSpell)
public:
    DSpell() = default;
    DSpell(const DSpell& other) = default;
    DSpell& operator=(const DSpell& other) = default;
    ~DSpell() override = default;

    FCObject* Clone() const override;
    void Serialize(FCArchive& archive) override;

    // 0 means at will.
    int GetTimesPerDay() const { return mTimesPerDay; }
    void SetTimesPerDay(int times) { mTimesPerDay = times; }

private:
    qint32 mTimesPerDay = 0;
};
