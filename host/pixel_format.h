// The two pixel formats of the frame buffer, described by where the three channels lie in a pixel. Every routine that
// packs, blends or scales pixels takes its masks and shifts from here.
//
//   5-5-5   bit 15 unused, red 14 to 10, green 9 to 5, blue 4 to 0
//   5-6-5   red 15 to 11, green 10 to 5, blue 4 to 0
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Tables of routines have an entry for each format.
enum PixelFormat : u32 { rgb555 = 0, rgb565 = 1, pixelFormatCount = 2 };

// The bit field of one channel in a pixel.
struct ChannelField {
    u32 shift; // position of its lowest bit
    u32 bits;  // width

    constexpr u32 largest() const { return (1u << bits) - 1; }
    constexpr u32 mask() const { return largest() << shift; }
    constexpr u32 lowestBit() const { return 1u << shift; }
    // The bit above the field, into which a sum that overflows the channel carries.
    constexpr u32 carry() const { return 1u << (shift + bits); }
    // The upper bits of an 8-bit value, shifted into the field.
    constexpr u32 packed(u32 value) const { return value >> (8 - bits) << shift; }
};

struct PixelLayout {
    ChannelField red, green, blue;

    // All channels without the lowest bits of green and red. In the sum of two pixels that are masked with it, the
    // carries of blue and green land in these cleared bits, and the carry of red above the field.
    constexpr u32 blendMask() const
    {
        return (red.mask() & ~red.lowestBit()) | (green.mask() & ~green.lowestBit()) | blue.mask();
    }
};

inline constexpr PixelLayout pixelLayouts[pixelFormatCount] = {
    {.red = {10, 5}, .green = {5, 5}, .blue = {0, 5}},
    {.red = {11, 5}, .green = {5, 6}, .blue = {0, 5}},
};

// Intended: two tests of bitsPerPixel. Tables and ramps take 16 as 5-6-5 and anything else as 5-5-5; the span fillers
// take 15 as 5-5-5 and anything else as 5-6-5. Hosts pass 15 or 16, for which they agree.
inline PixelFormat tableFormat(const HostContext& context)
{
    return context.bitsPerPixel == bitsPerPixel565 ? rgb565 : rgb555;
}

inline PixelFormat fillerFormat(const HostContext& context)
{
    return context.bitsPerPixel == bitsPerPixel555 ? rgb555 : rgb565;
}

} // namespace kardeno
