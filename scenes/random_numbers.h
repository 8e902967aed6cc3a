// Random numbers that are the same on every platform and never change, so that a seed stands for a scene.
#pragma once

#include "kardeno_soft/types.h"

#include <cstddef>
#include <stdint.h>

namespace kardeno::scenes {

class RandomNumbers {
public:
    // The seed is mixed, so that neighbouring seeds begin far apart: sequences that are one step apart give much the
    // same scenes.
    explicit RandomNumbers(u32 seed) : state(mixed(mixed(seed) + seed)) {}

    // The generator is SplitMix64, of whose result 32 bits from the middle are taken.
    u32 next()
    {
        state += 0x9e3779b97f4a7c15ull;
        return static_cast<u32>(mixed(state) >> 16);
    }

    // Both ends are included.
    i32 integer(i32 low, i32 high) { return low + static_cast<i32>(next() % static_cast<u32>(high - low + 1)); }

    f64 real(f64 low, f64 high) { return low + (high - low) * (next() / 4294967296.0); }

    bool chance(i32 percent) { return integer(0, 99) < percent; }
    bool oneIn(i32 n) { return integer(1, n) == 1; }

    u8 byte() { return static_cast<u8>(next()); }

    template <class Choice, size_t count>
    Choice oneOf(const Choice (&choices)[count])
    {
        return choices[next() % count];
    }

private:
    uint64_t state;

    static uint64_t mixed(uint64_t z)
    {
        z += 0x632be59bd9b4e019ull;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
        return z ^ (z >> 31);
    }
};

} // namespace kardeno::scenes
