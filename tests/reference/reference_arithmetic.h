// The reference renderer's few operations whose result C++ leaves open: floating point that becomes an integer, and
// integers that wrap.
#pragma once

#include "kardeno_soft/types.h"

#include <cstring>
#include <limits>

namespace kardeno::reference {

// Toward zero; what does not fit (infinities and NaN included) becomes the smallest integer.
inline i32 truncated(f64 value)
{
    if (!(value > -2147483649.0 && value < 2147483648.0)) return std::numeric_limits<i32>::min();
    return static_cast<i32>(value);
}

// To the nearest, ties to even: 1.5 x 2^52 pushes the fraction out of the mantissa, whose low half is then the integer.
inline i32 roundedByBias(f64 value)
{
    const f64 biased = value + 6755399441055744.0;
    u32 halves[2];
    std::memcpy(halves, &biased, sizeof halves);
    return static_cast<i32>(halves[0]);
}

inline f32 single(f64 value)
{
    return static_cast<f32>(value);
}

inline i32 wrappedSum(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) + static_cast<u32>(b));
}
inline i32 wrappedDifference(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) - static_cast<u32>(b));
}
inline i32 wrappedProduct(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) * static_cast<u32>(b));
}
inline i32 shiftedLeft(i32 value, u32 bits)
{
    return static_cast<i32>(static_cast<u32>(value) << bits);
}

} // namespace kardeno::reference
