// Texture maps of the scenes: one palette of 256 colours, and pictures that are functions of it. The same picture can
// be had palettised and in true colour.
#pragma once

#include "kardeno_soft/kardeno_soft.h"

#include <vector>

namespace kardeno::scenes {

struct Colour {
    u8 red, green, blue;
};

// A colour as a pixel: 5-5-5 for 15 bits, else 5-6-5.
u16 packedPixel(i32 bitsPerPixel, const Colour& colour);

// Eight hues of 32 levels, level 0 black: grey, red, orange, yellow, green, cyan, blue, pink.
enum Hue : u8 { grey, red, orange, yellow, green, cyan, blue, pink };
constexpr u8 paletteIndex(Hue hue, i32 level)
{
    return static_cast<u8>(hue * 32 + level);
}
// Taken from the end of the pinks: what the two keyed fillers that look for a key leave undrawn. A third one leaves
// index 0.
inline constexpr u8 keyIndex = 255;
inline constexpr Colour keyColour = {248, 0, 248};

Colour paletteColour(u8 index);

// The palette index at a texel of a picture of that size.
using Picture = u8 (*)(i32 x, i32 y, i32 width, i32 height);

u8 tiles(i32 x, i32 y, i32 width, i32 height);   // 8 x 8 tiles of changing hue, edges marked, a bright letter F on them
u8 bricks(i32 x, i32 y, i32 width, i32 height);  // running bond
u8 planks(i32 x, i32 y, i32 width, i32 height);  // boards along u
u8 grating(i32 x, i32 y, i32 width, i32 height); // bars, keyIndex between them
u8 zeroGrating(i32 x, i32 y, i32 width, i32 height); // the same with index 0 between them
u8 glow(i32 x, i32 y, i32 width, i32 height);        // a round spot, black around it
u8 noise(i32 x, i32 y, i32 width, i32 height);       // every index somewhere

class Texture {
public:
    // Width and height are powers of two. A 256 x 256 map takes the fast path unless told otherwise.
    Texture(i32 bitsPerTexel, i32 bitsPerPixel, i32 width, i32 height, Picture picture);
    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    TextureImage& image() { return *map.image; }
    TextureMap map;

private:
    u8 palette[1024];
    std::vector<u32> storage; // the image's record, then its texels
};

} // namespace kardeno::scenes
