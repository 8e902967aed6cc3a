// Exact arithmetic. Every conversion from floating point to an integer and every integer sum that may wrap goes through
// these routines. The language leaves both undefined when the result is out of range, and compilers disagree; with
// these routines a frame has the same pixels in every build.
#pragma once

#include "kardeno_soft/types.h"
#include "support/arithmetic_sse2.h"

#include <bit>

namespace kardeno {

inline constexpr i32 smallestI32 = -2147483647 - 1;

// Truncates toward zero. A value that does not fit in an i32, an infinity and a NaN give -2,147,483,648. This plain
// form defines the result on every machine.
inline i32 truncatedPlain(f64 value)
{
    const bool fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<i32>(value) : smallestI32;
}

#if defined(KARDENO_OPAQUE_TRUNCATION)
// A check compiles the library with this opaque declaration: any conversion that its objects still hold does not go
// through truncated().
i32 truncated(f64 value);
#else
// The same truncation by one instruction, on machines where it has exactly this result.
inline i32 truncated(f64 value)
{
#if defined(KARDENO_TRUNCATION_INSTRUCTION)
    return truncatedByInstruction(value);
#else
    return truncatedPlain(value);
#endif
}
#endif

// Rounds to nearest, ties to even, when |value| is below 2^31. Adding 1.5 x 2^52 leaves the integer in the low bits of
// the fraction. For larger values the result is the low 32 bits of that sum, whatever they are.
inline i32 rounded(f64 value)
{
    const f64 shifted = value + 6755399441055744.0;
    return static_cast<i32>(static_cast<u32>(std::bit_cast<unsigned long long>(shifted)));
}

// Rounds a formula, once, to the f32 in which it is stored. A formula whose operands are all f32 was rounded at every
// step already. It does not compile here: one of its operands has to be made an f64.
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

// The shift count is taken modulo 32, as an x86 processor takes it.
constexpr i32 wrappingShiftLeft(i32 value, u32 bits)
{
    return static_cast<i32>(static_cast<u32>(value) << (bits & 31));
}

} // namespace kardeno
