#pragma once

class FCArchive;

// A dice expression: how many dice of which "[types Dice]" row.
class DDieData {
public:
    DDieData() = default;
    DDieData(int count, int dieId) : mDieCount(count), mDieId(dieId) {}

    int GetDieCount() const { return mDieCount; }
    void SetDieCount(int count) { mDieCount = count; }
    int GetDieId() const { return mDieId; }
    void SetDieId(int dieId) { mDieId = dieId; }

    bool operator==(const DDieData& other) const = default;

    // Count, then die id.
    void Serialize(FCArchive& archive);

private:
    int mDieCount = 0;
    int mDieId = 4;
};
