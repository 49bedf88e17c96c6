#include "DDieData.h"

#include "DDieRoller.h"
#include "FCArchive.h"
#include "ResultSet.h"

void DDieData::SetData(odbc::ResultSet* resultSet) {
    mDieCount = resultSet->getInt(QStringLiteral("DieCount"));
    mDieType = resultSet->getInt(QStringLiteral("DieType"));
}

int DDieData::Roll() const {
    // A negative count would become a vast unsigned one.
    return mDieCount > 0 ? DDieRoller::RollDiceSum(mDieType, unsigned(mDieCount)) : 0;
}

void DDieData::Serialize(FCArchive& archive) {
    archive.Transfer(mDieCount);
    archive.Transfer(mDieType);
}
