/* The number types of the renderer. Their widths are part of the contract with the host: a record never says `int` or
   `float`. In C they are other names for those of <stdint.h> and for float, and a host sees only these, unless it asks
   for short names (kardeno_soft.h tells how). */
#pragma once

#include <stdint.h>

#if defined(__cplusplus) || defined(KARDENO_SHORT_NAMES)

#ifdef __cplusplus
namespace kardeno {
#endif

typedef uint8_t u8;   /* 0 to 255 */
typedef uint16_t u16; /* 0 to 65,535 */
typedef uint32_t u32; /* 0 to 4,294,967,295 */
typedef int32_t i32;  /* -2,147,483,648 to 2,147,483,647 */
typedef float f32;    /* IEEE single */
typedef double f64;   /* IEEE double: formulas are evaluated in it and rounded once, where they are stored */

#ifdef __cplusplus
}
#endif

#endif
