// The one way to run a test over many seeds. A failed check prints KARDENO_SEED and the seed; with that number in the
// environment variable of this name every such test runs that one case alone, whether it is among its own seeds or not.
// KARDENO_SEED_FACTOR=n lets every test run n times as many seeds as it does otherwise.
#pragma once

#include "kardeno_soft/types.h"

#include <doctest/doctest.h>

namespace kardeno::tests {

// From first up to end; with KARDENO_SEED the seed that it names.
struct Seeds {
    u32 first, end;
};
Seeds seedsToRun(u32 first, u32 count);
bool replaysOneSeed();

// What must hold over all seeds together: that the cases meant were really met. It says nothing about a single seed.
inline void checkOverAllSeeds(bool wereMet)
{
    CHECK((wereMet || replaysOneSeed()));
}

template <class Body>
void forEachSeed(u32 first, u32 count, Body body)
{
    const Seeds seeds = seedsToRun(first, count);
    for (u32 seed = seeds.first; seed < seeds.end; ++seed) {
        INFO("KARDENO_SEED=", seed, " replays this case");
        body(seed);
    }
}

template <class Body>
void forEachSeed(u32 count, Body body)
{
    forEachSeed(1, count, body);
}

} // namespace kardeno::tests
