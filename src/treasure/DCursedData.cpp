#include "DCursedData.h"

#include "DTreasureGenerator.h"
#include "DTreasureTables.h"
#include "FCArchive.h"

FC_IMPLEMENT_CLASS(DCursedData, "FCObject", nullptr)

void DCursedData::Serialize(FCArchive& archive) {
    archive.Transfer(mCurseType);
    archive.Transfer(mCurseSubType);
    archive.Transfer(mCurseData);
    archive.Transfer(mCurseDescription);
}

QString DCursedData::GetDescription(bool withPrefix, bool withDetail) const {
    constexpr int kTableCurseNames = 107;
    constexpr int kTableIntermittentNames = 108;
    DTreasureTables& tables = DTreasureGenerator::Tables();
    QString text = withPrefix ? QStringLiteral("Cursed: ") : QString();
    if (const auto curse = tables.FindBy(kTableCurseNames, "Id", mCurseType))
        text += curse->String("Name");
    if (mCurseType == kCurseIntermittent) {
        if (const auto how = tables.FindBy(kTableIntermittentNames, "Id", mCurseSubType))
            text += QStringLiteral(", ") + how->String("Name");
    }
    if (withDetail && !mCurseDescription.isEmpty())
        text += QStringLiteral(": ") + mCurseDescription;
    return text;
}
