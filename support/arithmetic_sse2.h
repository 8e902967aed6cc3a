// The SSE2 form of the truncating conversion. For everything that does not fit in an i32 the instruction gives
// -2,147,483,648, as the renderer's rule demands, so it needs no range test.
#pragma once

#include "kardeno_soft/types.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#define KARDENO_TRUNCATION_INSTRUCTION 1

namespace kardeno {

// The empty statement keeps the compiler from working out the result for itself where the value is a constant: GCC then
// has another one for what does not fit.
inline i32 truncatedByInstruction(f64 value)
{
    asm("" : "+x"(value));
    return _mm_cvttsd_si32(_mm_set_sd(value));
}

} // namespace kardeno
#endif
