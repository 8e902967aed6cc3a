// The plain form of every table of inner routines, which defines its pixels. A table that the fillers use may hold
// packed routines in its place; then the plain one is reachable under a name of its own.
//
// The declarations are weak: a plain table that does not exist, because the fillers' own table is the plain one, has
// the address 0.
#pragma once

#include "raster/span_routines.h"

#define KARDENO_PLAIN_TABLE(Type, name) extern const Type name __attribute__((weak))

namespace kardeno {

KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainTextureCopy);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainPalettisedCopy);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainColourKeyedCopy);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainTextureHalfBlend);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainTextureAdd);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainWholeOutlineAdd);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainLitTexture);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainColourKeyedLitTexture);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainLitTextureHalfBlend);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainColourKeyedLitHalfBlend);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainLitTextureAdd);
KARDENO_PLAIN_TABLE(TexturedSpanRoutines, plainColourScaledTexture);
KARDENO_PLAIN_TABLE(PlainSpanRoutines, plainShadedCopy);
KARDENO_PLAIN_TABLE(PlainSpanRoutines, plainShadedHalfBlend);
KARDENO_PLAIN_TABLE(PlainSpanRoutines, plainGouraudColour);

} // namespace kardeno

#undef KARDENO_PLAIN_TABLE
