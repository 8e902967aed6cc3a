// The texture maps of the scenes. There is one palette of 256 colours, and a picture is a function that gives a palette
// index for every texel. The same picture can be made palettised and in true colour.
#pragma once

#include "kardeno_soft/kardeno_soft.h"

#include <vector>

namespace kardeno::scenes {

struct Colour {
    u8 red, green, blue;
};

// Packs a colour into a pixel: 5-5-5 for 15 bits, 5-6-5 for any other number.
u16 packedPixel(i32 bitsPerPixel, const Colour& colour);

// The palette has eight hues of 32 levels each. Level 0 is black.
enum Hue : u8 { grey, red, orange, yellow, green, cyan, blue, pink };
constexpr u8 paletteIndex(Hue hue, i32 level)
{
    return static_cast<u8>(hue * 32 + level);
}
// The key takes the place of the brightest pink. The two fillers that look a key up in the texture map leave it
// undrawn; a third one leaves index 0 undrawn.
inline constexpr u8 keyIndex = 255;
inline constexpr Colour keyColour = {248, 0, 248};

Colour paletteColour(u8 index);

// Returns the palette index of the texel (x, y) of a picture of that size.
using Picture = u8 (*)(i32 x, i32 y, i32 width, i32 height);

u8 tiles(i32 x, i32 y, i32 width, i32 height);       // 8 x 8 tiles of changing hue with a letter F and marked edges
u8 bricks(i32 x, i32 y, i32 width, i32 height);      // a wall whose rows of bricks are shifted
u8 planks(i32 x, i32 y, i32 width, i32 height);      // boards along u
u8 grating(i32 x, i32 y, i32 width, i32 height);     // bars, with keyIndex between them
u8 zeroGrating(i32 x, i32 y, i32 width, i32 height); // the same bars, with index 0 between them
u8 glow(i32 x, i32 y, i32 width, i32 height);        // a round spot on black
u8 noise(i32 x, i32 y, i32 width, i32 height);       // indices without a pattern

class Texture {
public:
    // Width and height are powers of two. A 256 x 256 map is drawn by the fast path unless image().is256x256 is
    // cleared.
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
