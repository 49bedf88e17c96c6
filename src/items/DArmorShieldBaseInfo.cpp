#include "DArmorShieldBaseInfo.h"

#include "FCArchive.h"
#include "ResultSet.h"

FC_IMPLEMENT_CLASS(DArmorShieldBaseInfo, "DItemInfo", nullptr)

void DArmorShieldBaseInfo::Serialize(FCArchive& archive) {
    DItemInfo::Serialize(archive);
    archive.Transfer(mSizeType);
    archive.Transfer(mArmorBonus);
    archive.Transfer(mArmorCheckPenalty);
    archive.Transfer(mArcaneSpellFailure);
    archive.Transfer(mIsMagic);
    archive.Transfer(mMagicBonus);
}

void DArmorShieldBaseInfo::SetData(odbc::ResultSet* resultSet) {
    DItemInfo::SetData(resultSet);
    mSizeType = resultSet->getInt(QStringLiteral("SizeId"));
    mArmorBonus = resultSet->getInt(QStringLiteral("ArmorBonus"));
    mArmorCheckPenalty = resultSet->getInt(QStringLiteral("CheckPenalty"));
    mArcaneSpellFailure = resultSet->getInt(QStringLiteral("SpellFailure"));
    mIsMagic = resultSet->getBoolean(QStringLiteral("IsMagic"));
    mMagicBonus = resultSet->getInt(QStringLiteral("MagicBonus"));
}
