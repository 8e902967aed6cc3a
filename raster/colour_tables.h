// Colour scaling tables. A look-up scales one channel of a 16-bit pixel by an intensity and leaves it in its field, so
// that a scaled pixel is the sum of three look-ups. Only the textured filler that interpolates colours reads them.
#pragma once

#include "host/pixel_format.h"

namespace kardeno {

// The index of an entry is intensity x 256 + byte, both 0 to 255. Intensity 255 is full brightness.
struct ColourScaleTables {
    u32 redScale[65536];   // the byte is bits 8 to 15 of the pixel
    u32 greenScale[65536]; // the byte is bits 5 to 12
    u32 blueScale[65536];  // the byte is bits 0 to 7
};

extern ColourScaleTables colourScaleTables;

// Fills all three tables for a pixel format.
void buildColourScaleTables(PixelFormat format);

} // namespace kardeno
