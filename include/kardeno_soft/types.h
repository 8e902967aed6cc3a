/* The number types of the renderer. Their widths are part of the contract with the host: a record never says `int` or
   `float`. The header is plain C as well as C++, like the host's records. */
#pragma once

#include <stdint.h>

#ifdef __cplusplus
namespace kardeno {
#endif

typedef uint8_t u8;
typedef uint16_t u16;
typedef uint32_t u32;
typedef int16_t i16;
typedef int32_t i32;
typedef float f32;  /* IEEE single */
typedef double f64; /* IEEE double: formulas are evaluated in it and rounded once, where they are stored */

#ifdef __cplusplus
}
#endif
