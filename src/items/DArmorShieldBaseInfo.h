#pragma once

#include "DItemInfo.h"

// What armor and shields share: a size, an armor bonus and the penalties that come with it.
class DArmorShieldBaseInfo : public DItemInfo {
    FC_DECLARE_CLASS(DArmorShieldBaseInfo)
public:
    static constexpr qint32 kMediumSize = 4;

    DArmorShieldBaseInfo() = default;
    DArmorShieldBaseInfo(const DArmorShieldBaseInfo&) = default;
    DArmorShieldBaseInfo& operator=(const DArmorShieldBaseInfo&) = default;

    DArmorShieldBaseInfo* Clone() const override { return new DArmorShieldBaseInfo(*this); }
    // DItemInfo; size; armor bonus; check penalty; spell failure; is magic; magic bonus.
    void Serialize(FCArchive& archive) override;
    void SetData(odbc::ResultSet* resultSet) override;
    bool CanBeResized() const override { return true; }
    int GetSizeType() const override { return mSizeType; }
    void SetSizeType(int sizeType) override { mSizeType = sizeType; }

    qint32 GetArmorBonus() const { return mArmorBonus; }
    void SetArmorBonus(qint32 bonus) { mArmorBonus = bonus; }
    qint32 GetArmorCheckPenalty() const { return mArmorCheckPenalty; }
    void SetArmorCheckPenalty(qint32 penalty) { mArmorCheckPenalty = penalty; }
    // In percent.
    qint32 GetArcaneSpellFailure() const { return mArcaneSpellFailure; }
    void SetArcaneSpellFailure(qint32 percent) { mArcaneSpellFailure = percent; }
    bool GetIsMagic() const { return mIsMagic; }
    void SetIsMagic(bool isMagic) { mIsMagic = isMagic; }
    qint32 GetMagicBonus() const { return mMagicBonus; }
    void SetMagicBonus(qint32 bonus) { mMagicBonus = bonus; }

private:
    qint32 mSizeType = kMediumSize;
    qint32 mArmorBonus = 0;
    qint32 mArmorCheckPenalty = 0;
    qint32 mArcaneSpellFailure = 0;
    bool mIsMagic = false;
    qint32 mMagicBonus = 0;
};
