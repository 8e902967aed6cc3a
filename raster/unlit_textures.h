// The inner routines of the unlit textured rows, which draw a texture in its own colours with perspective correction.
#pragma once

#include "raster/span_routines.h"

namespace kardeno {

extern const TexturedSpanRoutines textureCopy;
extern const TexturedSpanRoutines palettisedCopy;
extern const TexturedSpanRoutines colourKeyedCopy;
extern const TexturedSpanRoutines textureHalfBlend;
extern const TexturedSpanRoutines textureAdd;
extern const TexturedSpanRoutines wholeOutlineAdd;

// The plain routines, which define the pixels. Nothing but speed sets those above apart from them.
extern const TexturedSpanRoutines plainTextureCopy;
extern const TexturedSpanRoutines plainPalettisedCopy;
extern const TexturedSpanRoutines plainColourKeyedCopy;
extern const TexturedSpanRoutines plainTextureHalfBlend;
extern const TexturedSpanRoutines plainTextureAdd;
extern const TexturedSpanRoutines plainWholeOutlineAdd;

} // namespace kardeno
