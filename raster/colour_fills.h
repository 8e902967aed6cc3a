// The inner routines of the two rows that interpolate a red, a green and a blue value, linearly on the screen, instead
// of a shade. The textured one is the only reader of the colour scaling tables.
#pragma once

#include "raster/span_routines.h"

namespace kardeno {

extern const PlainSpanRoutines gouraudColour;
extern const TexturedSpanRoutines colourScaledTexture;

} // namespace kardeno
