/* Widths of the renderer's numbers. They are part of the contract with the host: a record never says `int` or `float`.
   Plain C as well as C++, because the host's records are. */
#pragma once

#include <stdint.h>

#ifdef __cplusplus
namespace kardeno {
#endif

typedef uint8_t u8;
typedef uint16_t u16;
typedef uint32_t u32;
typedef int32_t i32;
typedef float f32;  /* IEEE single */
typedef double f64; /* IEEE double: every formula is evaluated in it, and rounded once, where it is stored */

#ifdef __cplusplus
}
#endif
