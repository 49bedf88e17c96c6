#pragma once

#include "FCObject.h"

#include <QString>

// The curse of a cursed item: its kind (a row of "[types Curses]"), for intermittent
// functioning how it fails, and a detail such as the situation it depends on or the drawback.
class DCursedData : public FCObject {
    FC_DECLARE_CLASS(DCursedData)
public:
    // Kinds of curse in "[types Curses]".
    enum : int {
        kCurseIntermittent = 3,
        kCurseDrawback = 5,
        kCurseSpecificItem = 7,
    };
    // The intermittent kind that works only in some situation.
    static constexpr int kIntermittentDependent = 2;

    DCursedData() = default;
    explicit DCursedData(qint32 curseType) : mCurseType(curseType) {}

    DCursedData* Clone() const override { return new DCursedData(*this); }
    // Curse type; sub type; data; description.
    void Serialize(FCArchive& archive) override;

    qint32 GetCurseType() const { return mCurseType; }
    void SetCurseType(qint32 type) { mCurseType = type; }
    // A row of "[types Curses Intermittent]" for curse type 3, else -1.
    qint32 GetCurseSubType() const { return mCurseSubType; }
    void SetCurseSubType(qint32 type) { mCurseSubType = type; }
    qint32 GetCurseData() const { return mCurseData; }
    void SetCurseData(qint32 data) { mCurseData = data; }
    const QString& GetCurseDescription() const { return mCurseDescription; }
    void SetCurseDescription(const QString& text) { mCurseDescription = text; }

    // ["Cursed: "]kind[, how it fails][: detail]: the detail only with `withDetail` and when
    // there is one.
    QString GetDescription(bool withPrefix, bool withDetail) const;

private:
    qint32 mCurseType = 1;
    qint32 mCurseSubType = -1;
    qint32 mCurseData = -1;
    QString mCurseDescription;
};
