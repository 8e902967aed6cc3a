// The inner routines of textured spans. Each routine is made of four choices, and each choice is a small policy:
//   Map     how the map is addressed, and how its coordinates are rounded
//   Colour  what colour a texel has; it may step a value along the span
//   Key     which texels stay undrawn, and from which field of the material's map they are known
//   Blend   how the colour is combined with the pixel that is already there
// Only the files that define the tables of inner routines include this header.
#pragma once

#include "raster/pixel_blends.h"
#include "raster/span_routines.h"
#include "raster/texture_maps.h"

namespace kardeno {

// Colours. A 16-bit texel is a pixel already.
struct TexelItself {
    using Texel = u16;
    explicit TexelItself(const SpanGradients&) {}
    u16 of(u32 texel) const { return static_cast<u16>(texel); }
    void nextPixel() {}
};

// A palette index is looked up at the ramp's brightest level.
struct FullyBright {
    using Texel = u8;
    const RampEntry* brightest;
    explicit FullyBright(const SpanGradients& span) : brightest(span.ramp + (rampLevels - 1) * paletteSize) {}
    u16 of(u32 texel) const { return static_cast<u16>(brightest[texel] >> 16); }
    void nextPixel() {}
};

// A palette index is looked up at the level of a shade that changes linearly along the span. The level is the upper
// byte of the shade, and masking the shade gives the level times 256.
struct LitTexel {
    using Texel = u8;
    const RampEntry* ramp;
    i32 shade;
    i32 shadeStep;
    explicit LitTexel(const SpanGradients& span) : ramp(span.ramp), shade(span.shade), shadeStep(span.shadeStep) {}
    u16 of(u32 texel) const { return static_cast<u16>(ramp[(static_cast<u32>(shade) & 0x3f00) + texel] >> 16); }
    void nextPixel() { shade = wrappingSum(shade, shadeStep); }
};

// Keys. Where the texel is hidden the pixel stays as it was, while the coordinates move on all the same.
struct Opaque {
    static u32 keyOf(const TextureMap&) { return 0; }
    static bool hides(const SpanGradients&, u32) { return false; }
};
struct ColourKeyed {
    static u32 keyOf(const TextureMap& map) { return map.transparentColour; }
    static bool hides(const SpanGradients& span, u32 texel) { return texel == span.key; }
};
struct IndexKeyed {
    static u32 keyOf(const TextureMap& map) { return map.transparentIndex; }
    static bool hides(const SpanGradients& span, u32 texel) { return texel == span.key; }
};
struct IndexZeroKeyed {
    static u32 keyOf(const TextureMap&) { return 0; }
    static bool hides(const SpanGradients&, u32 texel) { return texel == 0; }
};

// Draws a textured span.
template <class Map, class Colour, class Key, class Blend>
void drawTexturedSpan(SpanGradients* span, u16* pixels)
{
    using Texel = typename Colour::Texel;
    const Texel* const texels = texelsOf<Texel>(*span->texture);
    const Map map(*span->texture);
    Colour colour(*span);
    typename Map::Coordinates uv(*span);

    drawInBlocks(*span, uv, [&](i32 count) {
        for (; count > 0; --count, ++pixels) {
            const u32 texel = texels[map.indexOf(uv.at[0], uv.at[1])];
            if (!Key::hides(*span, texel)) *pixels = Blend::over(*pixels, colour.of(texel));
            uv.nextPixel();
            colour.nextPixel();
        }
    });
}

// The table of a filler that does not blend has the same routine for both pixel formats.
template <class Conversion, class Colour, class Key>
inline constexpr TexturedSpanRoutines copied = {
    .anyMap = {drawTexturedSpan<AnyMap, Colour, Key, Replace>, drawTexturedSpan<AnyMap, Colour, Key, Replace>},
    .map256x256 = {drawTexturedSpan<Map256x256<Conversion>, Colour, Key, Replace>,
                   drawTexturedSpan<Map256x256<Conversion>, Colour, Key, Replace>},
    .keyOf = Key::keyOf,
};

// The table of a filler that blends has a routine for each pixel format.
template <class Conversion, class Colour, class Key, template <PixelFormat> class Blend>
inline constexpr TexturedSpanRoutines blended = {
    .anyMap = {drawTexturedSpan<AnyMap, Colour, Key, Blend<rgb555>>,
               drawTexturedSpan<AnyMap, Colour, Key, Blend<rgb565>>},
    .map256x256 = {drawTexturedSpan<Map256x256<Conversion>, Colour, Key, Blend<rgb555>>,
                   drawTexturedSpan<Map256x256<Conversion>, Colour, Key, Blend<rgb565>>},
    .keyOf = Key::keyOf,
};

} // namespace kardeno
