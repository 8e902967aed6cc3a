// The SIMD128 forms of the conversions between lanes.
#pragma once

#include "kardeno_soft/types.h"

#if defined(__wasm_simd128__)
#include <bit>
#include <wasm_simd128.h>

#define KARDENO_LANE_INSTRUCTIONS 1

namespace kardeno {

// Returns the integers in the lower two lanes. The instruction itself gives the smallest integer for what is less, but
// the largest one for what is greater and 0 for a NaN: both are replaced first.
template <class Integers, class Doubles>
Integers truncatedLanesByInstruction(Doubles values)
{
    const v128_t all = std::bit_cast<v128_t>(values);
    const v128_t fits = wasm_f64x2_lt(all, wasm_f64x2_splat(2147483648.0));
    const v128_t fitting = wasm_v128_bitselect(all, wasm_f64x2_splat(-2147483648.0), fits);
    return std::bit_cast<Integers>(wasm_i32x4_trunc_sat_f64x2_zero(fitting));
}

// The same for four singles.
template <class Integers, class Singles>
Integers truncatedSinglesByInstruction(Singles values)
{
    const v128_t all = std::bit_cast<v128_t>(values);
    const v128_t fits = wasm_f32x4_lt(all, wasm_f32x4_splat(2147483648.0f));
    const v128_t fitting = wasm_v128_bitselect(all, wasm_f32x4_splat(-2147483648.0f), fits);
    return std::bit_cast<Integers>(wasm_i32x4_trunc_sat_f32x4(fitting));
}

// Returns the lower two lanes as doubles.
template <class Doubles, class Singles>
Doubles widenedByInstruction(Singles values)
{
    return std::bit_cast<Doubles>(wasm_f64x2_promote_low_f32x4(std::bit_cast<v128_t>(values)));
}

} // namespace kardeno
#endif
