#pragma once

#include "DSimpleInfo.h"

// A coin of "[info Coin]" with its exchange rates, indexed by coin type (0 copper to 3 platinum).
class DCoinInfo : public DSimpleInfo {
    FC_DECLARE_CLASS(DCoinInfo)
public:
    static constexpr int kCoinTypeCount = 4;

    FCObject* Clone() const override { return new DCoinInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;

    const FCString& GetShortName() const { return mShortName; }
    // 0 for a coin type outside 0 to 3.
    float GetExchange(int coinType) const;

private:
    FCString mShortName;
    float mExchange[kCoinTypeCount] = {};
};
