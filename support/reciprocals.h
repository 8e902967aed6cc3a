// Reciprocals of small whole numbers, from a table. An entry is the quotient that a division gives, to the last bit.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno {

inline constexpr u32 reciprocalCount = 4097;

struct ReciprocalTable {
    f64 of[reciprocalCount];

    constexpr ReciprocalTable() : of()
    {
        for (u32 n = 1; n < reciprocalCount; ++n) of[n] = 1.0 / n;
    }
};

inline constexpr ReciprocalTable reciprocals;

// Returns 1 / n for an n that is not negative and less than reciprocalCount; 0 for 0.
inline f64 tableReciprocal(i32 n)
{
    return reciprocals.of[n];
}

// Returns 1 / n, for any n. The table holds 0 for 0.
inline f64 reciprocal(u32 n)
{
    return n < reciprocalCount ? reciprocals.of[n] : 1.0 / n;
}

} // namespace kardeno
