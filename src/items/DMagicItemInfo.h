#pragma once

#include "DItemInfo.h"

// A magic item built at run time: a potion, ring, rod, scroll, staff, wand, wondrous item or a
// custom magic weapon, armor or shield. Intelligent and cursed items carry data records of the
// treasure layer, held here as plain reference-counted objects.
class DMagicItemInfo : public DItemInfo {
    FC_DECLARE_CLASS(DMagicItemInfo)
public:
    static constexpr qint32 kDefaultSubType = 14;
    static constexpr qint32 kDefaultQualityType = 1;

    DMagicItemInfo() = default;
    // Clones the intelligent and cursed data.
    DMagicItemInfo(const DMagicItemInfo& other);
    DMagicItemInfo& operator=(const DMagicItemInfo& other);
    ~DMagicItemInfo() override;

    DMagicItemInfo* Clone() const override { return new DMagicItemInfo(*this); }
    // DItemInfo; magic type; sub type; quality; intelligent data; cursed data (objects).
    void Serialize(FCArchive& archive) override;
    // SetDataNoMasterwork with the weight, then "MagicType", "SubType", "QualityType".
    void SetData(odbc::ResultSet* resultSet) override;
    int GetItemType() const override { return kItemMagic; }

    // A DMagicType.
    qint32 GetMagicType() const { return mMagicType; }
    void SetMagicType(qint32 type) { mMagicType = type; }
    // Body slot or kind, a row of "[types Magic Item Sub]".
    qint32 GetSubType() const { return mSubType; }
    void SetSubType(qint32 type) { mSubType = type; }
    // A row of "[types Magic Item Quality]".
    qint32 GetQualityType() const { return mQualityType; }
    void SetQualityType(qint32 type) { mQualityType = type; }

    // Non-null makes the item intelligent. The info retains what it is given.
    FCObject* GetIntelligentData() const { return mIntelligentData; }
    void SetIntelligentData(FCObject* data);
    // Non-null makes the item cursed. The info retains what it is given.
    FCObject* GetCursedData() const { return mCursedData; }
    void SetCursedData(FCObject* data);

private:
    qint32 mMagicType = kMagicNone;
    qint32 mSubType = kDefaultSubType;
    qint32 mQualityType = kDefaultQualityType;
    FCObject* mIntelligentData = nullptr;
    FCObject* mCursedData = nullptr;
};
