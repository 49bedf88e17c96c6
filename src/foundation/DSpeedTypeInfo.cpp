#include "DSpeedTypeInfo.h"

#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DSpeedTypeInfo, "DInfo", nullptr)

const FCString DSpeedTypeInfo::mArmorColumnNames[kArmorWeightCount] = {
    FCString("LightArmorMult"), FCString("MedArmorMult"), FCString("HeavyArmorMult")};
const FCString DSpeedTypeInfo::mLoadColumnNames[kLoadCount] = {
    FCString("LightLoadMult"), FCString("MedLoadMult"), FCString("HeavyLoadMult"),
    FCString("OverLoadMult")};

void DSpeedTypeInfo::SetData(odbc::ResultSet* resultSet) {
    mSpeedTypeId = int(resultSet->getLong(QStringLiteral("ID")));
    mSpeedTypeName = resultSet->getString(QStringLiteral("NAME"));
    for (int i = 0; i < kArmorWeightCount; ++i)
        mArmorWeightMult[i] = resultSet->getFloat(mArmorColumnNames[i]);
    for (int i = 0; i < kLoadCount; ++i)
        mLoadMult[i] = resultSet->getFloat(mLoadColumnNames[i]);
}

float DSpeedTypeInfo::GetArmorWeightMult(int weightType) const {
    return weightType >= 0 && weightType < kArmorWeightCount ? mArmorWeightMult[weightType] : 0.0f;
}

float DSpeedTypeInfo::GetLoadMult(int loadType) const {
    return loadType >= 0 && loadType < kLoadCount ? mLoadMult[loadType] : 0.0f;
}
