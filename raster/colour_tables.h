// Colour scaling tables: one channel of a 16-bit pixel, scaled by an intensity and already in its place, by look-up.
// A scaled pixel is the sum of three look-ups. Only the colour-interpolating fillers read them.
#pragma once

#include "host/pixel_format.h"

namespace kardeno {

// Entry index = intensity x 256 + byte of the pixel, both 0 to 255; intensity 255 is full brightness.
struct ColourScaleTables {
    u32 redScale[65536];   // indexed by the pixel's high byte
    u32 greenScale[65536]; // by the eight bits from the green field's lowest bit up
    u32 blueScale[65536];  // by the pixel's low byte
};

extern ColourScaleTables colourScaleTables;

// Fills all three tables for a pixel format.
void buildColourScaleTables(PixelFormat format);

} // namespace kardeno
