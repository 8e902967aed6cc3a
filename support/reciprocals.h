// Reciprocals of small whole numbers, from a table. An entry is the quotient that a division gives, to the last bit.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno {

inline constexpr u32 reciprocalCount = 512;

struct ReciprocalTable {
    f64 of[reciprocalCount];

    constexpr ReciprocalTable() : of()
    {
        for (u32 n = 1; n < reciprocalCount; ++n) of[n] = 1.0 / n;
    }
};

inline constexpr ReciprocalTable reciprocals;

// Returns 1 / n, for any n.
inline f64 reciprocal(i32 n)
{
    const u32 magnitude = n < 0 ? 0u - static_cast<u32>(n) : static_cast<u32>(n);
    if (magnitude == 0 || magnitude >= reciprocalCount) return 1.0 / n;
    return n < 0 ? -reciprocals.of[magnitude] : reciprocals.of[magnitude];
}

} // namespace kardeno
