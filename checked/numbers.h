// Small questions about numbers.
#pragma once

#include "kardeno_soft/types.h"

namespace kardeno::checked {

constexpr f64 largestNumber = 3.402823466e+38;

constexpr f64 magnitude(f64 value)
{
    return value < 0 ? -value : value;
}

// False for an infinity and for what is not a number.
constexpr bool isFinite(f64 value)
{
    return value >= -largestNumber && value <= largestNumber;
}

// Whether two numbers differ by no more than `slack`.
constexpr bool areClose(f64 a, f64 b, f64 slack)
{
    return magnitude(a - b) <= slack;
}

} // namespace kardeno::checked
