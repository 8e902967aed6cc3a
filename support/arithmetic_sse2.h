// The SSE2 form of the truncating conversion. The instruction's answer to everything that does not fit,
// -2,147,483,648, is the very rule of this renderer, so that no range test is needed around it.
#pragma once

#include "kardeno_soft/types.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#define KARDENO_TRUNCATION_INSTRUCTION 1

namespace kardeno {

inline i32 truncatedByInstruction(f64 value)
{
    return _mm_cvttsd_si32(_mm_set_sd(value));
}

} // namespace kardeno
#endif
