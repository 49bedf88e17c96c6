#include "FCRandom.h"

#include <chrono>
#include <random>

namespace {

// Default-seeded like std::mt19937_64's own default, so a run without a seed is repeatable too.
std::mt19937_64& engine() {
    static std::mt19937_64 instance;
    return instance;
}

std::uint64_t gDraws = 0;

} // namespace

namespace FC {

int GetRandom(int low, int high) {
    if (high <= low)
        return low;
    const std::uint64_t span = std::uint64_t(std::int64_t(high) - std::int64_t(low));
    // Rejection keeps every value equally likely and the sequence independent of the standard
    // library's distribution code.
    const std::uint64_t limit = UINT64_MAX - UINT64_MAX % span;
    std::uint64_t draw = 0;
    do {
        draw = engine()();
        ++gDraws;
    } while (draw >= limit);
    return int(std::int64_t(low) + std::int64_t(draw % span));
}

void SeedRandom(std::uint64_t seed) {
    engine().seed(seed);
    gDraws = 0;
}

std::uint64_t SeedRandomFromTime() {
    const auto seed =
        std::uint64_t(std::chrono::high_resolution_clock::now().time_since_epoch().count());
    SeedRandom(seed);
    return seed;
}

std::uint64_t GetRandomDrawCount() {
    return gDraws;
}

} // namespace FC
