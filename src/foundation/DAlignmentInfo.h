#pragma once

#include "DInfo.h"
#include "FCString.h"

// One alignment of "[info Alignment]" and the alignments one step away from it.
class DAlignmentInfo : public DInfo {
    FC_DECLARE_CLASS(DAlignmentInfo)
public:
    static constexpr int kOneOffCount = 3;

    FCObject* Clone() const override { return new DAlignmentInfo(*this); }
    void SetData(odbc::ResultSet* resultSet) override;
    int GetPrimaryKey() const override { return mAlignmentId; }

    int GetAlignmentId() const { return mAlignmentId; }
    int GetSortValue() const { return mSortValue; }
    const FCString& GetAlignmentName() const { return mAlignmentName; }
    const FCString& GetAlignmentShortName() const { return mAlignmentShortName; }
    // True for this alignment itself and for its neighbours.
    bool GetIsOneOffAlignment(int id) const;

private:
    int mAlignmentId = -1;
    int mSortValue = 0;
    FCString mAlignmentName;
    FCString mAlignmentShortName;
    int mOneOff[kOneOffCount] = {};
};
