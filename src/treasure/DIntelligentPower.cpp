#include "DIntelligentPower.h"

#include "DTreasureGenerator.h"
#include "DTreasureTables.h"
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

QString DIntelligentPower::GetDescription() const {
    constexpr int kTablePowerNames = 102;
    constexpr int kTableFrequencyNames = 123;
    DTreasureTables& tables = DTreasureGenerator::Tables();
    const auto power = tables.FindBy(kTablePowerNames, "Id", mId);
    if (!power)
        return QString();
    const auto frequency = tables.FindBy(kTableFrequencyNames, "Id", mFrequencyType);
    QString text = power->String("Name") + QStringLiteral(" (");
    if (mData > 0)
        text += QString::number(mData) + QLatin1Char(' ');
    if (frequency)
        text += frequency->String("Name");
    return text + QLatin1Char(')');
}
