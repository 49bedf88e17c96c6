#include "DIntelligentPower.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DIntelligentPower, "DInfo", nullptr)

void DIntelligentPower::Serialize(FCArchive& archive) {
    archive.Transfer(mId);
    archive.Transfer(mFrequencyType);
    archive.Transfer(mData);
    archive.Transfer(mCount);
}

void DIntelligentPower::SetData(odbc::ResultSet* resultSet) {
    mId = resultSet->getInt(QStringLiteral("Id"));
    mFrequencyType = resultSet->getInt(QStringLiteral("Frequency"));
    mData = resultSet->getInt(QStringLiteral("Data"));
}
