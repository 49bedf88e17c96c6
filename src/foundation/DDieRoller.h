#pragma once

#include "FCArray.h"

// Every die of the program is rolled here, over the framework's one random source, so a seed
// repeats every roll.
class DDieRoller {
public:
    DDieRoller() = delete;

    // 1 to die; a die below 2 always gives 1.
    static int RollDie(int die);
    // The sum of `count` dice; 0 dice give 0 without drawing.
    static int RollDiceSum(int die, unsigned count);
    // The highest and the lowest of `times` sums; 0 for no sums.
    static int RollDiceMaxSum(int die, unsigned count, unsigned times);
    static int RollDiceMinSum(int die, unsigned count, unsigned times);
    // Empty `out`, then append `times` single rolls or sums.
    static void GenerateDieRollList(int times, int die, FCArray<int>& out);
    static void GenerateDieRollSumList(int times, int die, unsigned count, FCArray<int>& out);
    static int MaxDieValue(int die) { return die; }
};
