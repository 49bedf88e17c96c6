#pragma once

#include "DFileObject.h"
#include "FCObject.h"
#include "FCString.h"

// One row of a table: for which roll it fires, how many results it gives and what they are.
class DTableItem : public FCObject {
    FC_DECLARE_CLASS(DTableItem)
public:
    // How the row matches the table's roll.
    enum ResultKind : int { kResultValue = 0, kResultRange = 1 };
    // How the row's count is worked out from its three numbers.
    enum CountKind : int {
        kCountFixed = 0,
        kCountDice = 1,
        kCountPercent = 2,
        kCountRange = 3,
        kCountDivide = 4,
    };
    // What the row produces.
    enum ElementKind : int {
        kElementMonster = 0,
        kElementCharacter = 1,
        kElementTreasure = 2,
        kElementTable = 3,
        kElementText = 4,
    };
    static constexpr int kElementKindCount = 5;

    DTableItem();
    DTableItem(const DTableItem& other);
    DTableItem& operator=(const DTableItem& other);
    ~DTableItem() override;

    FCObject* Clone() const override { return new DTableItem(*this); }
    void Serialize(FCArchive& archive) override;
    bool operator==(const DTableItem& other) const;

    int Condition() const { return mCondition; }
    void setCondition(int condition) { mCondition = condition; }

    int Result() const { return mResult; }
    void setResult(int result) { mResult = result; }
    int ResultFrom() const { return mResultFrom; }
    int ResultTo() const { return mResultTo; }
    void setResultData(int from, int to);
    bool Matches(int roll) const;

    int Count() const { return mCount; }
    void setCount(int count) { mCount = count; }
    int CountNumber() const { return mCountNumber; }
    int CountDie() const { return mCountDie; }
    int CountModifier() const { return mCountModifier; }
    void setCountData(int number, int die, int modifier);

    int Generate() const { return mGenerate; }
    void setGenerate(int generate) { mGenerate = generate; }
    const DFileObject& GenerateFile() const { return mFileObject; }
    DFileObject* getFileObject() { return &mFileObject; }
    void setFileObject(const DFileObject& fileObject) { mFileObject = fileObject; }
    const FCString& GenerateString() const { return mGenerateString; }
    void setGenerateData(const DFileObject* fileObject, const FCString& text);

    int MiscLevel() const { return mMiscLevel; }
    const DFileObject* MiscRace() const { return mMiscRace; }
    int MiscAlignment() const { return mMiscAlignment; }
    const FCString& MiscAlignmentText() const { return mMiscAlignmentText; }
    // A null race keeps the race the row has.
    void setMiscData(int level, const DFileObject* race, int alignment,
                     const FCString& alignmentText);
    void clearMiscRace();

private:
    void copyFrom(const DTableItem& other);

    int mCondition = 0;
    int mResult = kResultValue;
    int mResultFrom = 0;
    int mResultTo = 0;
    int mCount = kCountFixed;
    int mCountNumber = 0;
    int mCountDie = 0;
    int mCountModifier = 0;
    int mGenerate = kElementMonster;
    DFileObject mFileObject;
    FCString mGenerateString;
    int mMiscLevel = 0;
    DFileObject* mMiscRace = nullptr;
    int mMiscAlignment = 0;
    FCString mMiscAlignmentText;
};
