// Seeded random numbers that are the same on every platform.
#pragma once

#include "support/types.h"

#include <stdint.h>

namespace kardeno::scenes {

class RandomNumbers {
public:
    explicit RandomNumbers(u32 seed) : state(seed * 0x9e3779b97f4a7c15ull + 0x632be59bd9b4e019ull) {}

    u32 next()
    {
        state += 0x9e3779b97f4a7c15ull;
        uint64_t value = state;
        value = (value ^ value >> 30) * 0xbf58476d1ce4e5b9ull;
        value = (value ^ value >> 27) * 0x94d049bb133111ebull;
        return static_cast<u32>(value >> 32);
    }

    i32 whole(i32 from, i32 to) { return from + static_cast<i32>(next() % static_cast<u32>(to - from + 1)); } // both in
    f64 real(f64 from, f64 to) { return from + (to - from) * (next() / 4294967296.0); }
    bool oneIn(i32 n) { return whole(1, n) == 1; }

private:
    uint64_t state;
};

} // namespace kardeno::scenes
