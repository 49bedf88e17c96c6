#include "DCurrency.h"

#include "FCArchive.h"

namespace {

bool isCoinType(int coinType) {
    return coinType >= 0 && coinType < DCurrency::kCoinTypeCount;
}

// Amounts wrap like the 32-bit words they are stored as, so a hostile file cannot make the
// arithmetic undefined.
qint32 wrappingAdd(qint32 a, qint32 b) {
    return qint32(quint32(a) + quint32(b));
}
qint32 wrappingSub(qint32 a, qint32 b) {
    return qint32(quint32(a) - quint32(b));
}

} // namespace

qint32 DCurrency::GetAmount(int coinType) const {
    return isCoinType(coinType) ? mAmounts[size_t(coinType)] : 0;
}

void DCurrency::SetAmount(int coinType, qint32 amount) {
    if (isCoinType(coinType))
        mAmounts[size_t(coinType)] = amount;
}

void DCurrency::AdjustAmount(int coinType, qint32 delta) {
    if (isCoinType(coinType))
        mAmounts[size_t(coinType)] = wrappingAdd(mAmounts[size_t(coinType)], delta);
}

bool DCurrency::IsEmpty() const {
    for (const qint32 amount : mAmounts) {
        if (amount != 0)
            return false;
    }
    return true;
}

DCurrency& DCurrency::operator+=(const DCurrency& other) {
    for (size_t i = 0; i < mAmounts.size(); ++i)
        mAmounts[i] = wrappingAdd(mAmounts[i], other.mAmounts[i]);
    return *this;
}

DCurrency& DCurrency::operator-=(const DCurrency& other) {
    for (size_t i = 0; i < mAmounts.size(); ++i)
        mAmounts[i] = wrappingSub(mAmounts[i], other.mAmounts[i]);
    return *this;
}

void DCurrency::Serialize(FCArchive& archive) {
    for (qint32& amount : mAmounts)
        archive.Transfer(amount);
}
