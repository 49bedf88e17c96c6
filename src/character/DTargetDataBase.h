#pragma once

#include "DGuid.h"
#include "FCString.h"

#include <QUuid>

// What a bonus applies to: a GUID pair (or whole numbers in their first four bytes), a number
// and a text for display.
class DTargetDataBase {
public:
    QUuid GetTargetGuid() const { return mTargetGuid; }
    void SetTargetGuid(const QUuid& guid) { mTargetGuid = guid; }
    int GetTargetLong() const { return DGuid::GetLong(mTargetGuid); }
    void SetTargetLong(int value) { DGuid::SetLong(mTargetGuid, value); }
    QUuid GetTargetSubGuid() const { return mTargetSubGuid; }
    void SetTargetSubGuid(const QUuid& guid) { mTargetSubGuid = guid; }
    int GetTargetSubLong() const { return DGuid::GetLong(mTargetSubGuid); }
    void SetTargetSubLong(int value) { DGuid::SetLong(mTargetSubGuid, value); }
    int GetExtraData() const { return mExtraData; }
    void SetExtraData(int data) { mExtraData = data; }
    const FCString& GetTargetString() const { return mTargetString; }
    void SetTargetString(const FCString& text) { mTargetString = text; }

    // The text is only a rendering of the rest, so it takes no part.
    bool operator==(const DTargetDataBase& other) const;

protected:
    QUuid mTargetGuid;
    QUuid mTargetSubGuid;
    qint32 mExtraData = -1;
    FCString mTargetString;
};
