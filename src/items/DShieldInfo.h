#pragma once

#include "DArmorShieldBaseInfo.h"

// A shield of "[info Shield]".
class DShieldInfo : public DArmorShieldBaseInfo {
    FC_DECLARE_CLASS(DShieldInfo)
public:
    DShieldInfo() = default;
    DShieldInfo(const DShieldInfo&) = default;
    DShieldInfo& operator=(const DShieldInfo&) = default;

    DShieldInfo* Clone() const override { return new DShieldInfo(*this); }
    // The armor and shield part; can bash; can have spikes.
    void Serialize(FCArchive& archive) override;
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemShield; }

    bool GetCanBash() const { return mCanBash; }
    void SetCanBash(bool canBash) { mCanBash = canBash; }
    bool GetCanHaveSpikes() const { return mCanHaveSpikes; }
    void SetCanHaveSpikes(bool canHaveSpikes) { mCanHaveSpikes = canHaveSpikes; }

private:
    bool mCanBash = false;
    bool mCanHaveSpikes = false;
};
