// Exact arithmetic. Every conversion from floating point to an integer and every integer sum that may wrap goes through
// here, because the language leaves both undefined out of range and compilers disagree: with these, one frame has the
// same pixels on every build.
#pragma once

#include "kardeno_soft/types.h"
#include "support/arithmetic_sse2.h"

#include <bit>

namespace kardeno {

inline constexpr i32 smallestI32 = -2147483647 - 1;

// Truncation toward zero; what does not fit in an i32, an infinity or a NaN gives -2,147,483,648.
// The plain form defines the result on every machine.
inline i32 truncatedPlain(f64 value)
{
    const bool fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<i32>(value) : smallestI32;
}

#if defined(KARDENO_OPAQUE_TRUNCATION)
// A build of its own that only looks for conversions elsewhere: none of its objects may hold one.
i32 truncated(f64 value);
#else
// The conversion that the pixel loops use: one instruction where the machine has it with exactly this result.
inline i32 truncated(f64 value)
{
#if defined(KARDENO_TRUNCATION_INSTRUCTION)
    return truncatedByInstruction(value);
#else
    return truncatedPlain(value);
#endif
}
#endif

// Rounding to nearest, ties to even, for |value| below 2^31; beyond that the low 32 bits of the sum, whatever they are.
// Adding 1.5 x 2^52 leaves the integer in the low bits of the fraction.
inline i32 rounded(f64 value)
{
    const f64 shifted = value + 6755399441055744.0;
    return static_cast<i32>(static_cast<u32>(std::bit_cast<unsigned long long>(shifted)));
}

// The one rounding of a formula, where it is stored. A formula of f32 operands alone has been rounded at every step
// already: it is turned away, and one of its operands has to be made an f64.
constexpr f32 stored(f64 value)
{
    return static_cast<f32>(value);
}
f32 stored(f32 roundedAlready) = delete;

// Integer sums, differences, products and left shifts wrap modulo 2^32.
constexpr i32 wrappingSum(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) + static_cast<u32>(b));
}

constexpr i32 wrappingDifference(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) - static_cast<u32>(b));
}

constexpr i32 wrappingProduct(i32 a, i32 b)
{
    return static_cast<i32>(static_cast<u32>(a) * static_cast<u32>(b));
}

// The shift count is taken modulo 32, as the machine does.
constexpr i32 wrappingShiftLeft(i32 value, u32 bits)
{
    return static_cast<i32>(static_cast<u32>(value) << (bits & 31));
}

} // namespace kardeno
