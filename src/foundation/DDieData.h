#pragma once

class FCArchive;

namespace odbc {
class ResultSet;
}

// The number of sides of a die; in rule tables it is also the row id of "[types Dice]".
using DDieType = int;

// A dice expression: how many dice of which type.
class DDieData {
public:
    DDieData() = default;
    DDieData(int count, DDieType die) : mDieCount(count), mDieType(die) {}

    int GetDieCount() const { return mDieCount; }
    void SetDieCount(int count) { mDieCount = count; }
    DDieType GetDieType() const { return mDieType; }
    void SetDieType(DDieType die) { mDieType = die; }
    void Set(int count, DDieType die) {
        mDieCount = count;
        mDieType = die;
    }

    bool operator==(const DDieData& other) const = default;

    // Reads the columns "DieCount" and "DieType"; throws like the result set when one is missing.
    void SetData(odbc::ResultSet* resultSet);

    // The sum of the dice; a count below one rolls nothing and gives 0.
    int Roll() const;

    // Count, then die type.
    void Serialize(FCArchive& archive);

private:
    int mDieCount = 0;
    DDieType mDieType = 4;
};
