#include "DSizeInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSizeInfo, "DInfo", nullptr)

void DSizeInfo::SetData(odbc::ResultSet* resultSet) {
    mSizeId = int(resultSet->getLong(QStringLiteral("ID")));
    mSizeName = resultSet->getString(QStringLiteral("NAME"));
    mCapacityMod = resultSet->getFloat(QStringLiteral("CapMod"));
    mAttackArmorMod = resultSet->getInt(QStringLiteral("ArmorMod"));
    mDimensionRange[0] = resultSet->getFloat(QStringLiteral("DimMin"));
    mDimensionRange[1] = resultSet->getFloat(QStringLiteral("DimMax"));
    mWeightRange[0] = resultSet->getFloat(QStringLiteral("WtMin"));
    mWeightRange[1] = resultSet->getFloat(QStringLiteral("WtMax"));
    static const char* const kChangeColumns[kChangeSizeValueCount] = {"ModStr", "ModDex", "ModCon",
                                                                      "ModNatAC"};
    for (int i = 0; i < kChangeSizeValueCount; ++i)
        mChangeSizeValues[i] = resultSet->getInt(QString::fromLatin1(kChangeColumns[i]));
    mExtraHitDieMod = resultSet->getInt(QStringLiteral("EHDMod"));
    mCostMod = resultSet->getFloat(QStringLiteral("CostMod"));
    mWeightMod = resultSet->getFloat(QStringLiteral("WeightMod"));
    mArmorBonusMod = resultSet->getFloat(QStringLiteral("ArmorBonusMod"));
    mGrappleMod = resultSet->getInt(QStringLiteral("GrappleMod"));
}

float DSizeInfo::GetDimensionRange(int rangeType) const {
    return rangeType >= 0 && rangeType < kRangeCount ? mDimensionRange[rangeType] : 0.0f;
}

float DSizeInfo::GetWeightRange(int rangeType) const {
    return rangeType >= 0 && rangeType < kRangeCount ? mWeightRange[rangeType] : 0.0f;
}

int DSizeInfo::GetChangeSizeValue(int valueType) const {
    return valueType >= 0 && valueType < kChangeSizeValueCount ? mChangeSizeValues[valueType] : 0;
}
