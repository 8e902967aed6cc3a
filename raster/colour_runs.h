// Runs of one colour: filling them and blending over them, eight pixels at a time.
#pragma once

#include "raster/packed_blends.h"

namespace kardeno {

// Stores the same colour in two pixels.
inline void storeTwoPixels(u16* pixels, u32 both)
{
    memcpy(pixels, &both, sizeof both);
}

// Fills a run of up to 7 pixels. The stores overlap, so that no length needs a loop: those of one to three pixels go to
// the first, the middle and the last one.
inline void fillShortRun(u16* pixels, i32 length, u16 colour)
{
    if (length >= 4) {
        const u32 both = colour * 0x10001u;
        storeTwoPixels(pixels, both);
        storeTwoPixels(pixels + 2, both);
        storeTwoPixels(pixels + length - 4, both);
        storeTwoPixels(pixels + length - 2, both);
    } else if (length > 0) {
        pixels[0] = colour;
        pixels[length >> 1] = colour;
        pixels[length - 1] = colour;
    }
}

// Fills a run with a colour. The last store overlaps the one before it, so that no run ends in single pixels. A long
// run goes on from the next address that is a multiple of 16, four stores a turn, which is as fast as memset().
inline void fillRun(u16* pixels, i32 length, u16 colour)
{
    if (length < 8) return fillShortRun(pixels, length, colour);
    const u16x8 colours = eightTimes(colour);
    u16* const last = pixels + length - 8;
    if (length >= 64) {
        storeLanes(pixels, colours);
        pixels += 8 - (reinterpret_cast<uintptr_t>(pixels) & 15) / sizeof(u16);
        for (; last - pixels >= 32; pixels += 32) {
            storeLanes(pixels, colours);
            storeLanes(pixels + 8, colours);
            storeLanes(pixels + 16, colours);
            storeLanes(pixels + 24, colours);
        }
    }
    for (; pixels < last; pixels += 8) storeLanes(pixels, colours);
    storeLanes(last, colours);
}

// Blends a colour over every pixel of a run.
template <class Blend>
void blendRun(u16* pixels, i32 length, u16 colour)
{
    if (length >= 8) {
        const u16x8 colours = eightTimes(colour);
        do {
            storeLanes(pixels, PackedBlend<Blend>::over(loadedLanes(pixels), colours));
            length -= 8;
            pixels += 8;
        } while (length >= 8);
    }
    for (; length > 0; --length, ++pixels) *pixels = Blend::over(*pixels, colour);
}

} // namespace kardeno
