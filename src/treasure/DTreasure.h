#pragma once

#include "DCurrency.h"
#include "DItemCollection.h"

#include <QString>

// A hoard: its items, its coins and the user's notes; the object of a ".trs" file.
class DTreasure : public DItemCollection {
    FC_DECLARE_CLASS(DTreasure)
public:
    static constexpr quint32 kFileSignature = 0x02020202;
    static constexpr quint32 kFileVersion = 0x00010001;

    DTreasure() = default;
    DTreasure(const DTreasure&) = default;
    DTreasure& operator=(const DTreasure&) = default;

    DTreasure* Clone() const override { return new DTreasure(*this); }
    // The item collection; the coins; the notes.
    void Serialize(FCArchive& archive) override;

    DCurrency& GetCurrency() { return mCurrency; }
    const DCurrency& GetCurrency() const { return mCurrency; }
    qint32 GetCurrencyAmount(int coinType) const { return mCurrency.GetAmount(coinType); }
    void SetCurrencyAmount(int coinType, qint32 amount) { mCurrency.SetAmount(coinType, amount); }
    void AdjustCurrencyAmount(int coinType, qint32 delta) {
        mCurrency.AdjustAmount(coinType, delta);
    }
    void ClearAllCurrency() { mCurrency.ClearAll(); }
    const QString& GetNotes() const { return mNotes; }
    void SetNotes(const QString& notes) { mNotes = notes; }

    // Adds the market cost of every item and then the coins to `total`, which is not cleared.
    void GetTotalCost(DCurrency& total) const;

    bool SaveToFile(const QString& path) const;
    // Null for a file that is not a readable treasure.
    static DTreasure* CreateFromFile(const QString& path);

private:
    DCurrency mCurrency;
    QString mNotes;
};
