#include "DSpellInfo.h"

#include "ResultSet.h"

void DSpellInfo::SetData(odbc::ResultSet* resultSet) {
    mSpellGuid = resultSet->getGUID(QStringLiteral("Guid"));
    mSpellId = int(resultSet->getLong(QStringLiteral("Id")));
    mSpellName = resultSet->getString(QStringLiteral("Name"));
    mSpellShortName = resultSet->getString(QStringLiteral("ShortName"));
    mSchoolId = resultSet->getInt(QStringLiteral("SchoolId"));
    mCastingTime = resultSet->getInt(QStringLiteral("CastTime"));
    mCastingTimeType = resultSet->getInt(QStringLiteral("TimeType"));
    mRangeType = resultSet->getInt(QStringLiteral("Range"));
    mDurationType = resultSet->getInt(QStringLiteral("Duration"));
    mSaveType = resultSet->getInt(QStringLiteral("Save"));
    mMaterialCost = resultSet->getInt(QStringLiteral("MaterialCost"));
    mWandCost = resultSet->getInt(QStringLiteral("WandCost"));
    mComponentsId = resultSet->getInt(QStringLiteral("Components"));
    mResistanceId = resultSet->getInt(QStringLiteral("Spell Resistance"));
    mDescriptorsId = resultSet->getInt(QStringLiteral("Descriptors"));
}

const FCString& DSpellInfo::GetSpellShortName() const {
    return mSpellShortName.isEmpty() ? mSpellName : mSpellShortName;
}
