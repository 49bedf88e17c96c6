#include "DCoinInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DCoinInfo, "DSimpleInfo", nullptr)

void DCoinInfo::SetData(odbc::ResultSet* resultSet) {
    DSimpleInfo::SetData(resultSet);
    mShortName = resultSet->getString(QStringLiteral("ShortName"));
    static const char* const kExchangeColumns[kCoinTypeCount] = {"CopperEx", "SilverEx", "GoldEx",
                                                                 "PlatinumEx"};
    for (int type = 0; type < kCoinTypeCount; ++type)
        mExchange[type] = resultSet->getFloat(QString::fromLatin1(kExchangeColumns[type]));
}

float DCoinInfo::GetExchange(int coinType) const {
    return coinType >= 0 && coinType < kCoinTypeCount ? mExchange[coinType] : 0.0f;
}
