#include "DCoinItemInfo.h"

#include "DCoinInfo.h"
#include "DDatabase.h"

FC_IMPLEMENT_CLASS(DCoinItemInfo, "DItemInfo", nullptr)

FCString DCoinItemInfo::GetDescription() const {
    const DCoinInfo* coin = DDatabase::GetCoinInfo(GetCostCoinType());
    const QString name = coin ? QString(coin->GetInfoName()) : QStringLiteral("Unknown");
    return QString::number(GetCost()) + QLatin1Char(' ') + name;
}
