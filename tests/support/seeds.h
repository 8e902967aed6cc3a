// Tests of properties run over many seeds. A failed check prints the seed; with that seed in the environment variable
// KARDENO_SEED the test runs that one case alone.
#pragma once

#include "kardeno_soft/types.h"

#include <doctest/doctest.h>

#include <cstdlib>

namespace kardeno::scenes {

inline bool replaysOneSeed()
{
    return std::getenv("KARDENO_SEED") != nullptr;
}

// A sum over all seeds: that the cases meant were really met. It says nothing about a single seed.
inline void checkOverAllSeeds(bool wereMet)
{
    CHECK((wereMet || replaysOneSeed()));
}

template <class Body>
void forEachSeed(u32 count, Body body)
{
    const char* const wanted = std::getenv("KARDENO_SEED");
    const u32 first = wanted ? static_cast<u32>(std::strtoul(wanted, nullptr, 10)) : 1;
    const u32 end = wanted ? first + 1 : count + 1;
    for (u32 seed = first; seed < end; ++seed) {
        INFO("KARDENO_SEED=", seed, " replays this case");
        body(seed);
    }
}

} // namespace kardeno::scenes
