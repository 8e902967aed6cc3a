// The SSE2 forms of the conversions between lanes. For every double that does not fit in an i32 the truncating
// instruction gives -2,147,483,648, as the renderer's rule demands.
#pragma once

#include "kardeno_soft/types.h"

#if defined(__SSE2__)
#include <bit>
#include <emmintrin.h>

#define KARDENO_LANE_INSTRUCTIONS 1

namespace kardeno {

// Returns the integers in the lower two lanes. The empty statement keeps the compiler from working out the result for
// itself where the values are constants: GCC then has another one for those that do not fit.
template <class Integers, class Doubles>
Integers truncatedLanesByInstruction(Doubles values)
{
    asm("" : "+x"(values));
    return std::bit_cast<Integers>(_mm_cvttpd_epi32(std::bit_cast<__m128d>(values)));
}

// The same for four singles.
template <class Integers, class Singles>
Integers truncatedSinglesByInstruction(Singles values)
{
    asm("" : "+x"(values));
    return std::bit_cast<Integers>(_mm_cvttps_epi32(std::bit_cast<__m128>(values)));
}

// Returns the lower two lanes as doubles.
template <class Doubles, class Singles>
Doubles widenedByInstruction(Singles values)
{
    return std::bit_cast<Doubles>(_mm_cvtps_pd(std::bit_cast<__m128>(values)));
}

} // namespace kardeno
#endif
