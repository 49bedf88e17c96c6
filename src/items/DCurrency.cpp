#include "DCurrency.h"

#include "DCoinData.h"
#include "DCoinInfo.h"
#include "DDatabase.h"
#include "FCArchive.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdlib>

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

void DCurrency::Balance() {
    auto borrow = [this](int cheap) {
        qint32& amount = mAmounts[size_t(cheap)];
        if (amount >= 0)
            return;
        const qint32 k = std::abs(amount) / 9 + 1;
        mAmounts[size_t(cheap + 1)] -= k;
        amount += 10 * k;
    };
    borrow(0);
    borrow(1);
    mAmounts[1] += mAmounts[0] / 10;
    mAmounts[0] %= 10;
    mAmounts[2] += mAmounts[1] / 10;
    mAmounts[1] %= 10;
    mAmounts[2] += 10 * mAmounts[3];
    mAmounts[3] = 0;
}

void DCurrency::MakePositive() {
    for (int coinType = 0; coinType < kCoinTypeCount; ++coinType) {
        if (mAmounts[size_t(coinType)] < 0)
            MakeCoinTypePositive(coinType);
    }
}

void DCurrency::MakeCoinTypePositive(int coinType) {
    if (!isCoinType(coinType) || mAmounts[size_t(coinType)] >= 0)
        return;
    qint32& owed = mAmounts[size_t(coinType)];
    qint32 rate = 1;
    for (int i = 0; i < coinType; ++i)
        rate *= 10;
    for (int cheap = 0; cheap < coinType && owed < 0; ++cheap, rate /= 10) {
        qint32& held = mAmounts[size_t(cheap)];
        if (held <= 0)
            continue;
        const qint32 n = std::min(held / rate, -owed);
        owed += n;
        held -= n * rate;
    }
    if (owed < 0 && coinType < kCoinTypeCount - 1) {
        const qint32 k = -owed / 9 + 1;
        owed += 10 * k;
        mAmounts[size_t(coinType + 1)] -= k;
    }
}

qint64 DCurrency::GetCopperCost() const {
    return mAmounts[0] + 10 * (mAmounts[1] + 10 * (mAmounts[2] + 10 * qint64(mAmounts[3])));
}

QString DCurrency::GetGoldDescription() const {
    const DCoinInfo* gold = DDatabase::GetCoinInfo(2);
    if (!gold)
        return QString();
    const bool others = mAmounts[0] > 0 || mAmounts[1] > 0 || mAmounts[3] > 0;
    return QString::asprintf(others ? "%d+ %s" : "%d %s", mAmounts[2],
                             qUtf8Printable(QString(gold->GetShortName())));
}

QString DCurrency::BuildCoinString(int count, int coinType) {
    const DCoinInfo* coin = DDatabase::GetCoinInfo(coinType);
    return coin ? QString::asprintf("%d %s", count, qUtf8Printable(QString(coin->GetShortName())))
                : QString::asprintf("%d Unknown", count);
}

QString DCurrency::GetCostDescription() const {
    QStringList coins;
    for (int coinType = kCoinTypeCount - 1; coinType >= 0; --coinType) {
        if (mAmounts[size_t(coinType)] > 0)
            coins << BuildCoinString(mAmounts[size_t(coinType)], coinType);
    }
    return coins.isEmpty() ? BuildCoinString(0, 2) : coins.join(QLatin1Char(' '));
}

void DCurrency::GetPrimaryCoinData(DCoinData* out) const {
    if (!out)
        return;
    for (int coinType = 0; coinType < kCoinTypeCount; ++coinType) {
        if (mAmounts[size_t(coinType)] > 0) {
            out->SetCoinCount(mAmounts[size_t(coinType)]);
            out->SetCoinType(coinType);
        }
    }
}

void DCurrency::Serialize(FCArchive& archive) {
    for (qint32& amount : mAmounts)
        archive.Transfer(amount);
}
