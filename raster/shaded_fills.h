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

// The plain routines, which define the pixels. Nothing but speed sets those above apart from them.
extern const TexturedSpanRoutines plainLitTexture;
extern const TexturedSpanRoutines plainColourKeyedLitTexture;
extern const TexturedSpanRoutines plainLitTextureHalfBlend;
extern const TexturedSpanRoutines plainColourKeyedLitHalfBlend;
extern const TexturedSpanRoutines plainLitTextureAdd;
extern const PlainSpanRoutines plainShadedCopy;
extern const PlainSpanRoutines plainShadedHalfBlend;

} // namespace kardeno
