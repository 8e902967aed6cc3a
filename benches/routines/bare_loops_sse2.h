// Bare loops: for each family of inner routines the least that SSE2 can do for it. They draw the whole blocks of eight
// pixels of a span, from a 256 x 256 map in 5-6-5, round as is cheapest, and know no keys and no other maps. What they
// cost is a floor for the routines of the family; they need not draw the same pixels.
#pragma once

#include "raster/span_gradients.h"

namespace kardeno::benches {

// A loop in two forms, of which the faster one is the floor: texel indices are taken out of a register one by one, or
// go through memory. Loops without a texture have only the first.
struct BareLoop {
    SpanRoutine extracting;
    SpanRoutine throughMemory;
};

extern const BareLoop bareTextureCopy, bareTextureHalfBlend, bareTextureAdd;
extern const BareLoop barePalettisedCopy;
extern const BareLoop bareLitTexture, bareLitTextureHalfBlend, bareLitTextureAdd;
extern const BareLoop bareShadedCopy, bareShadedHalfBlend;
extern const BareLoop bareGouraudColour;
extern const BareLoop bareOneColour, bareOneColourHalfBlend; // the colour is the span's key

} // namespace kardeno::benches
