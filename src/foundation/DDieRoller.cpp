#include "DDieRoller.h"

#include "FCRandom.h"

#include <algorithm>
#include <climits>

int DDieRoller::RollDie(int die) {
    // The source's bound is exclusive; the largest die cannot have one above it.
    return FC::GetRandom(1, die < INT_MAX ? die + 1 : INT_MAX);
}

int DDieRoller::RollDiceSum(int die, unsigned count) {
    long long sum = 0;
    for (unsigned i = 0; i < count; ++i)
        sum += RollDie(die);
    // Saturate rather than wrap: a huge sum stays huge.
    return int(std::min<long long>(sum, INT_MAX));
}

int DDieRoller::RollDiceMaxSum(int die, unsigned count, unsigned times) {
    int best = 0;
    for (unsigned i = 0; i < times; ++i) {
        const int sum = RollDiceSum(die, count);
        best = i == 0 ? sum : std::max(best, sum);
    }
    return best;
}

int DDieRoller::RollDiceMinSum(int die, unsigned count, unsigned times) {
    int best = 0;
    for (unsigned i = 0; i < times; ++i) {
        const int sum = RollDiceSum(die, count);
        best = i == 0 ? sum : std::min(best, sum);
    }
    return best;
}

void DDieRoller::GenerateDieRollList(int times, int die, FCArray<int>& out) {
    out.RemoveAll();
    for (int i = 0; i < times; ++i)
        out.Add(RollDie(die));
}

void DDieRoller::GenerateDieRollSumList(int times, int die, unsigned count, FCArray<int>& out) {
    out.RemoveAll();
    for (int i = 0; i < times; ++i)
        out.Add(RollDiceSum(die, count));
}
