// The inner routines of the lit rows, which look every pixel's colour up in the material's shade ramp. Polygons without
// a texture interpolate the shade with perspective correction, textured ones linearly on the screen.
#pragma once

#include "raster/span_routines.h"

namespace kardeno {

extern const TexturedSpanRoutines litTexture;
extern const TexturedSpanRoutines colourKeyedLitTexture;
extern const TexturedSpanRoutines litTextureHalfBlend;
extern const TexturedSpanRoutines colourKeyedLitHalfBlend;
extern const TexturedSpanRoutines litTextureAdd;

extern const PlainSpanRoutines shadedCopy;
extern const PlainSpanRoutines shadedHalfBlend;

} // namespace kardeno
