// The inner routines of lit rows: every pixel's colour is looked up in the material's shade ramp. Untextured polygons
// interpolate the shade with perspective; textured ones linearly on the screen.
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
