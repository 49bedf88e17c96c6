#pragma once

#include <cstdint>

// All randomness of the program comes from one engine, so a seed makes any generation
// repeatable.
namespace FC {

// An integer from `low` up to but not including `high`; `low` when the range is empty.
int GetRandom(int low, int high);

void SeedRandom(std::uint64_t seed);
// Seeds from the clock and returns the seed used, so a run can be repeated.
std::uint64_t SeedRandomFromTime();

// How many draws the engine has made since it was seeded: lets callers prove a step used none.
std::uint64_t GetRandomDrawCount();

} // namespace FC
