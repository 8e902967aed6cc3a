// The inner routines of unlit textured rows: the texture at its own colours, perspective-correct.
#pragma once

#include "raster/span_routines.h"

namespace kardeno {

extern const TexturedSpanRoutines textureCopy;
extern const TexturedSpanRoutines palettisedCopy;
extern const TexturedSpanRoutines colourKeyedCopy;
extern const TexturedSpanRoutines textureHalfBlend;
extern const TexturedSpanRoutines textureAdd;
extern const TexturedSpanRoutines wholeOutlineAdd;

} // namespace kardeno
