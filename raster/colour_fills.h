// The inner routines of the two rows that interpolate red, green and blue, linearly on the screen, instead of a shade:
// Gouraud shading, and a texture whose texels are scaled by the interpolated colours.
#pragma once

#include "raster/span_routines.h"

namespace kardeno {

extern const PlainSpanRoutines gouraudColour;
extern const TexturedSpanRoutines colourScaledTexture;

// The plain routines, which define the pixels. Nothing but speed sets those above apart from them.
extern const PlainSpanRoutines plainGouraudColour;
extern const TexturedSpanRoutines plainColourScaledTexture;

} // namespace kardeno
